// VImageList: a list of pictures of the same size.
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

    // Makes the list, after destroying an existing one. Returns false when it cannot be made.
    bool Create(int cx, int cy, int nInitial, int nGrow, UINT uFlags);
    // Copies the pictures of a bitmap. Returns the index of the first; -1 on failure.
    int Add(HBITMAP hBitmap, HBITMAP hMask = nullptr);
    // The same, but pixels of the colour crMask are transparent.
    int AddMasked(HBITMAP hBitmap, COLORREF crMask);
    bool Draw(int nIndex, VDrawingSurface& surface, int x, int y, UINT uStyle = ILD_NORMAL) const;
    // The number of pictures; 0 without a list.
    int GetImageCount() const;
    bool GetIconSize(int& cx, int& cy) const;
    void Destroy();

    HIMAGELIST GetHandle() const { return m_hList; }

private:
    HIMAGELIST m_hList = nullptr;
};

// VIcon: an icon made from a picture of an image list, and owned.
class VIcon
{
public:
    VIcon() = default;
    VIcon(const VIcon&) = delete;
    VIcon& operator=(const VIcon&) = delete;
    ~VIcon() { Destroy(); }

    // Makes the icon, after destroying an existing one. Returns false when there is no such
    // picture.
    bool Create(const VImageList& list, int nIndex);
    void Destroy();

    HICON GetHandle() const { return m_hIcon; }

private:
    HICON m_hIcon = nullptr;
};
