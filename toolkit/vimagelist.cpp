#include "toolkit/vimagelist.h"

#include "toolkit/vdrawingsurface.h"

bool VImageList::Create(int cx, int cy, int nInitial, int nGrow, UINT uFlags)
{
    Destroy();
    m_hList = ImageList_Create(cx, cy, uFlags, nInitial, nGrow);
    return m_hList != nullptr;
}

int VImageList::Add(HBITMAP hBitmap, HBITMAP hMask)
{
    const int nIndex = m_hList == nullptr ? -1 : ImageList_Add(m_hList, hBitmap, hMask);
    // Without memory for the bitmap that all pictures share, Wine 8 counts them all the same.
    IMAGEINFO info = {};
    const bool bHas = nIndex >= 0 && ImageList_GetImageInfo(m_hList, nIndex, &info) != FALSE &&
                      info.hbmImage != nullptr;
    return bHas ? nIndex : -1;
}

int VImageList::AddMasked(HBITMAP hBitmap, COLORREF crMask)
{
    return m_hList == nullptr ? -1 : ImageList_AddMasked(m_hList, hBitmap, crMask);
}

bool VImageList::Draw(int nIndex, VDrawingSurface& surface, int x, int y, UINT uStyle) const
{
    return m_hList != nullptr &&
           ImageList_Draw(m_hList, nIndex, surface.GetHandle(), x, y, uStyle) != 0;
}

int VImageList::GetImageCount() const
{
    return m_hList == nullptr ? 0 : ImageList_GetImageCount(m_hList);
}

bool VImageList::GetIconSize(int& cx, int& cy) const
{
    return m_hList != nullptr && ImageList_GetIconSize(m_hList, &cx, &cy) != 0;
}

void VImageList::Destroy()
{
    if (m_hList != nullptr) {
        ImageList_Destroy(m_hList);
        m_hList = nullptr;
    }
}

bool VIcon::Create(const VImageList& list, int nIndex)
{
    Destroy();
    if (nIndex >= 0 && nIndex < list.GetImageCount()) {
        m_hIcon = ImageList_GetIcon(list.GetHandle(), nIndex, ILD_NORMAL);
    }
    return m_hIcon != nullptr;
}

void VIcon::Destroy()
{
    if (m_hIcon != nullptr) {
        DestroyIcon(m_hIcon);
        m_hIcon = nullptr;
    }
}
