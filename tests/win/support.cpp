#include "tests/win/support.h"

#include "tests/support/wine_support_win.h"
#include "toolkit/vapplication.h"

bool PumpUntil(const std::function<bool()>& condition, DWORD uLimitMs)
{
    const ULONGLONG uEnd = GetTickCount64() + uLimitMs;
    while (!condition()) {
        if (GetTickCount64() > uEnd) {
            return false;
        }
        MsgWaitForMultipleObjects(0, nullptr, FALSE, 10, QS_ALLINPUT);
        PumpAll();
    }
    return true;
}

void PumpAll()
{
    MSG message = {};
    while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) {
        TranslateMessage(&message);
        DispatchMessageA(&message);
    }
}

bool InitializeApplication()
{
    VApplication::SetClassName("vorek window tests");
    GetApplication().SetName("Window tests");
    return GetApplication().Initialize(GetModuleHandleA(nullptr), SW_SHOWNORMAL, 0,
                                       COLOR_WINDOW + 1);
}

// ---- The recording window.

std::string Record::Take()
{
    std::string sAll;
    for (const std::string& sCall : calls) {
        sAll += (sAll.empty() ? "" : " ") + sCall;
    }
    calls.clear();
    return sAll;
}

bool VRecordingWindow::OnClose(bool bForced)
{
    Note(bForced ? "OnClose(forced)" : "OnClose");
    if (m_record.bRefusesClose) {
        return false;
    }
    if (m_record.bDeletesInClose) {
        delete this;
        return true;
    }
    return m_record.bKeepsWindow || VWindow::OnClose(bForced);
}

bool VRecordingWindow::PreTranslate(MSG& message)
{
    Note("PreTranslate(" + std::to_string(message.message) + ")");
    return m_record.bTranslates;
}

LRESULT VRecordingWindow::DefaultProc(HWND hWnd, UINT uMessage, WPARAM wParam, LPARAM lParam)
{
    if (m_record.watched.count(uMessage) != 0) {
        Note("DefaultProc(" + std::to_string(uMessage) + ")");
    }
    return VWindow::DefaultProc(hWnd, uMessage, wParam, lParam);
}

LRESULT VRecordingWindow::OnCommand(UINT uNotifyCode, UINT uId, HWND hControl)
{
    Note("OnCommand(" + std::to_string(uNotifyCode) + "," + std::to_string(uId) +
         (hControl == nullptr ? ")" : ",control)"));
    // The command may delete this object. The record lives on.
    Record& record = m_record;
    if (record.command) {
        record.command(*this);
    }
    return record.lCommand;
}

bool VRecordingWindow::OnPaint(VDrawingSurface& surface)
{
    Note("OnPaint");
    if (m_record.paint) {
        m_record.paint(surface);
    }
    return m_record.bPaints;
}

LRESULT VRecordingWindow::OnSize(UINT uType, int nWidth, int nHeight)
{
    Note("OnSize(" + std::to_string(uType) + "," + std::to_string(nWidth) + "," +
         std::to_string(nHeight) + ")");
    return VWindow::OnSize(uType, nWidth, nHeight);
}

LRESULT VRecordingWindow::OnNotify(UINT uId, NMHDR* pHeader)
{
    Note("OnNotify(" + std::to_string(uId) + "," + std::to_string(pHeader->code) + ")");
    return m_record.lNotify;
}

LRESULT VRecordingWindow::OnReflectNotify(NMHDR* pHeader, LRESULT& lResult)
{
    Note("OnReflectNotify(" + std::to_string(pHeader->code) + "," + std::to_string(lResult) + ")");
    lResult = m_record.lReflectValue;
    return m_record.lReflect;
}

void VRecordingWindow::OnFinalDestroy()
{
    Note("OnFinalDestroy");
    VWindow::OnFinalDestroy();
}

bool VRecordingWindow::OnPreCreate(CREATESTRUCTA& create)
{
    Note("OnPreCreate");
    return !m_record.bRefusesPreCreate && VWindow::OnPreCreate(create);
}

bool VRecordingWindow::OnInitialize()
{
    Note("OnInitialize");
    return !m_record.bRefusesInitialize && VWindow::OnInitialize();
}

bool CreateTestWindow(VWindow& window, DWORD uStyle)
{
    return window.Create(nullptr, g_testRect, uStyle, nullptr, "Test", 0);
}

bool CreateTestWindow(VRecordingWindow& window, Record& record)
{
    const bool bMade = CreateTestWindow(window);
    record.Take();
    return bMade;
}

// ---- The registry key.

ScopedRegistryPath::ScopedRegistryPath(const char* szName)
    : m_sPath(std::string("Software\\vorek window tests ") + std::to_string(GetCurrentProcessId()) +
              " " + szName)
{
    Delete();
}

void ScopedRegistryPath::Delete() const
{
    RegDeleteTreeA(HKEY_CURRENT_USER, m_sPath.c_str());
    RegDeleteKeyA(HKEY_CURRENT_USER, m_sPath.c_str());
}

// ---- The counts.
//
// Wine answers 0 to GetGuiResources. It takes a handle's low word alone for the handle, however, so
// that its tables can be walked there.

namespace {

DWORD CountWineGdiObjects()
{
    constexpr UINT_PTR uTableSize = 0x4000;
    DWORD uCount = 0;
    for (UINT_PTR u = 1; u < uTableSize; ++u) {
        uCount += GetObjectType(reinterpret_cast<HGDIOBJ>(u)) != 0;
    }
    return uCount;
}

constexpr UINT_PTR uFirstUserHandle = 0x20;
constexpr UINT_PTR uEndOfUserHandles = 0x2000;

std::set<HACCEL> WineAcceleratorTables()
{
    std::set<HACCEL> tables;
    for (UINT_PTR u = uFirstUserHandle; u < uEndOfUserHandles; u += 2) {
        const auto hTable = reinterpret_cast<HACCEL>(u);
        if (CopyAcceleratorTableA(hTable, nullptr, 0) > 0) {
            tables.insert(hTable);
        }
    }
    return tables;
}

// Menus and accelerator tables, both of this process.
DWORD CountWineUserHandles()
{
    auto uCount = static_cast<DWORD>(WineAcceleratorTables().size());
    for (UINT_PTR u = uFirstUserHandle; u < uEndOfUserHandles; u += 2) {
        uCount += IsMenu(reinterpret_cast<HMENU>(u)) != FALSE;
    }
    return uCount;
}

BOOL CALLBACK CountWindow(HWND, LPARAM lCount)
{
    ++*reinterpret_cast<DWORD*>(lCount);
    return TRUE;
}

BOOL CALLBACK CountWindowTree(HWND hWnd, LPARAM lCount)
{
    EnumChildWindows(hWnd, CountWindow, lCount);
    return CountWindow(hWnd, lCount);
}

DWORD CountWindows()
{
    DWORD uCount = 0;
    EnumThreadWindows(GetCurrentThreadId(), CountWindowTree, reinterpret_cast<LPARAM>(&uCount));
    return uCount;
}

} // namespace

ObjectCounts CountObjects()
{
    if (IsWine()) {
        return {CountWineGdiObjects(), CountWineUserHandles() + CountWindows()};
    }
    return {GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS),
            GetGuiResources(GetCurrentProcess(), GR_USEROBJECTS)};
}

ScopedAcceleratorTables::ScopedAcceleratorTables()
{
    if (IsWine()) {
        m_before = WineAcceleratorTables();
    }
}

ScopedAcceleratorTables::~ScopedAcceleratorTables()
{
    if (!IsWine()) {
        return;
    }
    for (HACCEL hTable : WineAcceleratorTables()) {
        if (m_before.count(hTable) == 0) {
            DestroyAcceleratorTable(hTable);
        }
    }
}
