// QMHelpViewer: the system's viewer of compiled help, found and loaded at the first need. A machine
// without it runs the program and merely has no help.
#pragma once

#include <windows.h>

class QMHelpViewer
{
public:
    QMHelpViewer() = default;
    QMHelpViewer(const QMHelpViewer&) = delete;
    QMHelpViewer& operator=(const QMHelpViewer&) = delete;
    // The module stays loaded: the viewer's windows live by its code.
    ~QMHelpViewer() = default;

    // The viewer's own entry point (HtmlHelpA), which the file need not exist for. Null when the
    // viewer cannot be had; after one failure it is not looked for again.
    HWND Call(HWND hWindow, const char* szFile, UINT uCommand, DWORD_PTR uData);

private:
    using EntryPoint = HWND(WINAPI*)(HWND, const char*, UINT, DWORD_PTR);

    bool Load();

    HMODULE m_hModule = nullptr;
    EntryPoint m_pEntryPoint = nullptr;
    bool m_bFailed = false;
};
