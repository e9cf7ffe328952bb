#include "tests/support/ddeserver_win.h"

#include <windows.h>

#include <ddeml.h>

#include <vector>

namespace {

// The DDE library passes no pointer of the server to its callback, so it stands here.
struct
{
    DWORD uInstance = 0;
    DdeServer::Manner manner = DdeServer::Answers;
    HANDLE hEnd = nullptr;
    std::string sQuestions;
    CRITICAL_SECTION guard;
} g_server;

std::string TextOf(HSZ hString)
{
    char szText[512] = "";
    DdeQueryStringA(g_server.uInstance, hString, szText, sizeof szText, CP_WINANSI);
    return szText;
}

HDDEDATA CALLBACK OnEvent(UINT uType, UINT uFormat, HCONV, HSZ hTopic, HSZ hItem, HDDEDATA,
                          ULONG_PTR, ULONG_PTR)
{
    if (uType == XTYP_CONNECT) {
        const BOOL bTakes = g_server.manner != DdeServer::Refuses;
        return reinterpret_cast<HDDEDATA>(static_cast<INT_PTR>(bTakes));
    }
    if (uType != XTYP_REQUEST) {
        return nullptr;
    }
    EnterCriticalSection(&g_server.guard);
    g_server.sQuestions += TextOf(hTopic) + "|" + TextOf(hItem) + "\n";
    LeaveCriticalSection(&g_server.guard);
    if (g_server.manner == DdeServer::IsSilent) {
        WaitForSingleObject(g_server.hEnd, 20000);
        return nullptr;
    }
    BYTE aAnswer[] = "1";
    return DdeCreateDataHandle(g_server.uInstance, aAnswer, sizeof aAnswer, 0, hItem, uFormat, 0);
}

BOOL CALLBACK CollectDdeWindow(HWND hWnd, LPARAM lInto)
{
    char szClass[32] = "";
    GetClassNameA(hWnd, szClass, sizeof szClass);
    if (std::string(szClass).find("DdeClient") != std::string::npos) {
        reinterpret_cast<std::vector<HWND>*>(lInto)->push_back(hWnd);
    }
    return TRUE;
}

} // namespace

ScopedDdeWindows::~ScopedDdeWindows()
{
    std::vector<HWND> windows;
    EnumThreadWindows(GetCurrentThreadId(), CollectDdeWindow, reinterpret_cast<LPARAM>(&windows));
    HWND hWnd = nullptr;
    while ((hWnd = FindWindowExA(HWND_MESSAGE, hWnd, nullptr, nullptr)) != nullptr) {
        if (GetWindowThreadProcessId(hWnd, nullptr) == GetCurrentThreadId()) {
            CollectDdeWindow(hWnd, reinterpret_cast<LPARAM>(&windows));
        }
    }
    for (HWND hLeft : windows) {
        DestroyWindow(hLeft);
    }
}

DdeServer::DdeServer(const std::string& sService, Manner manner)
    : m_sService(sService), m_hReady(CreateEventA(nullptr, TRUE, FALSE, nullptr))
{
    InitializeCriticalSection(&g_server.guard);
    g_server.manner = manner;
    g_server.sQuestions.clear();
    g_server.hEnd = CreateEventA(nullptr, TRUE, FALSE, nullptr);
    m_hThread = CreateThread(nullptr, 0, &Run, this, 0, &m_uThreadId);
    WaitForSingleObject(m_hReady, INFINITE);
}

DdeServer::~DdeServer()
{
    SetEvent(g_server.hEnd);
    PostThreadMessageA(m_uThreadId, WM_QUIT, 0, 0);
    WaitForSingleObject(m_hThread, INFINITE);
    CloseHandle(m_hThread);
    CloseHandle(m_hReady);
    CloseHandle(g_server.hEnd);
    DeleteCriticalSection(&g_server.guard);
}

std::string DdeServer::TakeQuestions()
{
    EnterCriticalSection(&g_server.guard);
    std::string sQuestions;
    sQuestions.swap(g_server.sQuestions);
    LeaveCriticalSection(&g_server.guard);
    return sQuestions;
}

DWORD WINAPI DdeServer::Run(void* pServer)
{
    static_cast<DdeServer*>(pServer)->Serve();
    return 0;
}

void DdeServer::Serve()
{
    g_server.uInstance = 0;
    DdeInitializeA(&g_server.uInstance, &OnEvent, APPCLASS_STANDARD, 0);
    HSZ hService = DdeCreateStringHandleA(g_server.uInstance, m_sService.c_str(), CP_WINANSI);
    DdeNameService(g_server.uInstance, hService, nullptr, DNS_REGISTER);
    SetEvent(m_hReady);
    MSG message = {};
    while (GetMessageA(&message, nullptr, 0, 0) > 0) {
        TranslateMessage(&message);
        DispatchMessageA(&message);
    }
    DdeNameService(g_server.uInstance, hService, nullptr, DNS_UNREGISTER);
    DdeFreeStringHandle(g_server.uInstance, hService);
    DdeUninitialize(g_server.uInstance);
}
