#include "shell/qmhelpviewer.h"

#include "toolkit/vregkey.h"

namespace {

constexpr char szClassKey[] = "CLSID\\{ADB880A6-D8FF-11CF-9377-00AA003B7A11}\\InprocServer32";
constexpr char szModuleName[] = "hhctrl.ocx";
constexpr WORD wOrdinal = 14;
constexpr uint32_t uLongestPath = 260; // bytes, with the terminator

HMODULE LoadRegistered()
{
    VRegKey key;
    VString sPath;
    const bool bFound = key.Open(szClassKey, HKEY_CLASSES_ROOT, KEY_READ) &&
                        key.ReadText("", sPath) && sPath.GetLength() < uLongestPath;
    return bFound ? LoadLibraryA(sPath.GetText()) : nullptr;
}

} // namespace

bool QMHelpViewer::Load()
{
    if (m_hModule == nullptr && !m_bFailed) {
        m_hModule = LoadRegistered();
    }
    if (m_hModule == nullptr && !m_bFailed) {
        m_hModule = LoadLibraryA(szModuleName);
    }
    if (m_hModule != nullptr && m_pEntryPoint == nullptr && !m_bFailed) {
        m_pEntryPoint = reinterpret_cast<EntryPoint>(
            reinterpret_cast<void*>(GetProcAddress(m_hModule, MAKEINTRESOURCEA(wOrdinal))));
    }
    m_bFailed = m_pEntryPoint == nullptr;
    return !m_bFailed;
}

HWND QMHelpViewer::Call(HWND hWindow, const char* szFile, UINT uCommand, DWORD_PTR uData)
{
    return Load() ? m_pEntryPoint(hWindow, szFile, uCommand, uData) : nullptr;
}
