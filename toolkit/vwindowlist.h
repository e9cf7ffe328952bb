// VWindowList: all window objects that exist, and the way from the handle of a window to its
// object.
#pragma once

#include "base/vlist.h"
#include "toolkit/vwindow.h"

class VWindowList
{
public:
    static VWindowList& Get();

    // Adds an object: frames at the front, all others at the end.
    void Add(VWindow* pWindow);
    void Remove(VWindow* pWindow);
    bool Contains(const VWindow* pWindow) const;

    // Finds the object of a window by a walk through the list; null when there is none.
    VWindow* Find(HWND hWnd) const;
    // The same, but remembers the object that was found last.
    VWindow* FindCached(HWND hWnd);
    void ForgetCached() { m_pCached = nullptr; }
    void ForgetCached(const VWindow* pWindow);

    int32_t GetCount() const { return m_windows.GetCount(); }
    VWindow* GetFirst() const { return m_windows.GetHead(); }

private:
    VList<VWindow, &VWindow::m_pNextLive> m_windows;
    VWindow* m_pCached = nullptr;
};
