// The live window objects, and the way from a window's handle to its object.
#pragma once

#include "base/vlist.h"
#include "toolkit/vwindow.h"

class VWindowList
{
public:
    static VWindowList& Get();

    // Frames and their like go to the front, others to the end.
    void Add(VWindow* pWindow);
    void Remove(VWindow* pWindow);
    bool Contains(const VWindow* pWindow) const;

    // Walks the list; null for none.
    VWindow* Find(HWND hWnd) const;
    // The same, with the last one found at hand.
    VWindow* FindCached(HWND hWnd);
    void ForgetCached() { m_pCached = nullptr; }
    void ForgetCached(const VWindow* pWindow);

    int32_t GetCount() const { return m_windows.GetCount(); }
    VWindow* GetFirst() const { return m_windows.GetHead(); }

private:
    VList<VWindow, &VWindow::m_pNextLive> m_windows;
    VWindow* m_pCached = nullptr;
};
