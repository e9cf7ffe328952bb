// VImageList: a strip of equally large pictures.
#pragma once

#include <windows.h>

#include <commctrl.h>

class VDrawingSurface;

class VImageList
{
public:
    VImageList() = default;
    VImageList(const VImageList&) = delete;
    VImageList& operator=(const VImageList&) = delete;
    ~VImageList() { Destroy(); }

    // An existing list is destroyed first; false when none can be made.
    bool Create(int cx, int cy, int nInitial, int nGrow, UINT uFlags);
    // Copies the pictures; returns the index of the first, -1 on failure.
    int Add(HBITMAP hBitmap, HBITMAP hMask = nullptr);
    // The same, with the pixels of that colour left out.
    int AddMasked(HBITMAP hBitmap, COLORREF crMask);
    bool Draw(int nIndex, VDrawingSurface& surface, int x, int y, UINT uStyle = ILD_NORMAL) const;
    // 0 without a list.
    int GetImageCount() const;
    bool GetIconSize(int& cx, int& cy) const;
    void Destroy();

    HIMAGELIST GetHandle() const { return m_hList; }

private:
    HIMAGELIST m_hList = nullptr;
};

// An icon of its own, made of one of a list's pictures.
class VIcon
{
public:
    VIcon() = default;
    VIcon(const VIcon&) = delete;
    VIcon& operator=(const VIcon&) = delete;
    ~VIcon() { Destroy(); }

    // What was held before is destroyed; false when there is no such picture.
    bool Create(const VImageList& list, int nIndex);
    void Destroy();

    HICON GetHandle() const { return m_hIcon; }

private:
    HICON m_hIcon = nullptr;
};
