#include "toolkit/vlistcontrol.h"

#include <algorithm>

#include "toolkit/vrect_win.h"

VString VHeader::GetItemText(int nItem) const
{
    char szText[256] = "";
    HDITEMA item = {};
    item.mask = HDI_TEXT;
    item.pszText = szText;
    item.cchTextMax = sizeof szText;
    Send(HDM_GETITEMA, static_cast<WPARAM>(nItem), reinterpret_cast<LPARAM>(&item));
    return VString(item.pszText);
}

VRect VHeader::GetItemRect(int nItem) const
{
    RECT rect = {};
    Send(HDM_GETITEMRECT, static_cast<WPARAM>(nItem), reinterpret_cast<LPARAM>(&rect));
    return VFromRect(rect);
}

LRESULT VListControl::OnReflectNotify(NMHDR* pHeader, LRESULT& lResult)
{
    auto* pChange = reinterpret_cast<NMLISTVIEW*>(pHeader);
    switch (pHeader->code) {
        case LVN_ITEMCHANGING:
            return OnItemChanging(pChange, lResult);
        case LVN_ITEMCHANGED:
            return OnItemChanged(pChange, lResult);
        case LVN_INSERTITEM:
            return OnInsertItem(pChange, lResult);
        case LVN_DELETEITEM:
            return OnDeleteItem(pChange, lResult);
        case LVN_DELETEALLITEMS:
            return OnDeleteAllItems(pChange, lResult);
        case LVN_COLUMNCLICK:
            return OnColumnClick(pChange, lResult);
        case LVN_BEGINDRAG:
            return OnBeginDrag(pChange, lResult);
        case LVN_GETDISPINFOA:
            return OnGetDisplayInfo(reinterpret_cast<NMLVDISPINFOA*>(pHeader), lResult);
        case LVN_KEYDOWN:
            return OnKeyDown(reinterpret_cast<NMLVKEYDOWN*>(pHeader), lResult);
        default:
            return VControl::OnReflectNotify(pHeader, lResult);
    }
}

int VListControl::InsertColumn(int nColumn, const char* szHeading, int nFormat, int nWidth)
{
    LVCOLUMNA column = {};
    column.mask = LVCF_TEXT | LVCF_FMT | LVCF_WIDTH | LVCF_SUBITEM;
    column.fmt = nFormat;
    column.cx = nWidth;
    column.pszText = const_cast<char*>(szHeading);
    column.iSubItem = nColumn;
    return static_cast<int>(
        Send(LVM_INSERTCOLUMNA, static_cast<WPARAM>(nColumn), reinterpret_cast<LPARAM>(&column)));
}

bool VListControl::AttachHeader(VHeader& header)
{
    auto* hHeader = reinterpret_cast<HWND>(Send(LVM_GETHEADER));
    return hHeader != nullptr && header.Attach(hHeader);
}

int VListControl::GetColumnCount() const
{
    auto* hHeader = reinterpret_cast<HWND>(Send(LVM_GETHEADER));
    return hHeader == nullptr ? 0 : static_cast<int>(SendMessageA(hHeader, HDM_GETITEMCOUNT, 0, 0));
}

VRect VListControl::GetHeadingRect(int nColumn) const
{
    auto* hHeader = reinterpret_cast<HWND>(Send(LVM_GETHEADER));
    RECT rect = {};
    if (hHeader != nullptr) {
        SendMessageA(hHeader, HDM_GETITEMRECT, static_cast<WPARAM>(nColumn),
                     reinterpret_cast<LPARAM>(&rect));
    }
    return VFromRect(rect);
}

void VListControl::AutoSizeColumns(int nFirst, int nLast, char* szBuffer, int nBufferSize)
{
    auto* hHeader = reinterpret_cast<HWND>(Send(LVM_GETHEADER));
    const int nEnd = nLast < 0 ? GetColumnCount() - 1 : nLast;
    for (int nColumn = nFirst; nColumn <= nEnd; ++nColumn) {
        bool bContents = hHeader == nullptr;
        if (hHeader != nullptr && GetItemCount() > 0) {
            LVCOLUMNA column = {};
            column.mask = LVCF_TEXT;
            column.pszText = szBuffer;
            column.cchTextMax = nBufferSize;
            Send(LVM_GETCOLUMNA, static_cast<WPARAM>(nColumn), reinterpret_cast<LPARAM>(&column));
            bContents =
                IsAnyRowWider(nColumn, GetStringWidth(column.pszText), szBuffer, nBufferSize);
        }
        SetColumnWidth(nColumn, bContents ? LVSCW_AUTOSIZE : LVSCW_AUTOSIZE_USEHEADER);
    }
}

bool VListControl::IsAnyRowWider(int nColumn, int nHeadingWidth, char* szBuffer,
                                 int nBufferSize) const
{
    for (int nItem = 0; nItem < GetItemCount(); ++nItem) {
        LVITEMA item = {};
        item.iSubItem = nColumn;
        item.pszText = szBuffer;
        item.cchTextMax = nBufferSize;
        Send(LVM_GETITEMTEXTA, static_cast<WPARAM>(nItem), reinterpret_cast<LPARAM>(&item));
        szBuffer[nBufferSize - 1] =
            '\0'; // the list of Wine 8 puts no zero after a text that it had to cut
        if (GetStringWidth(item.pszText) > nHeadingWidth) {
            return true;
        }
    }
    return false;
}

int VListControl::InsertItem(int nItem, const char* szText)
{
    LVITEMA item = {};
    item.mask = LVIF_TEXT;
    item.iItem = nItem;
    item.pszText = const_cast<char*>(szText);
    return static_cast<int>(Send(LVM_INSERTITEMA, 0, reinterpret_cast<LPARAM>(&item)));
}

bool VListControl::SetItemText(int nItem, int nColumn, const char* szText)
{
    LVITEMA item = {};
    item.iSubItem = nColumn;
    item.pszText = const_cast<char*>(szText);
    return Send(LVM_SETITEMTEXTA, static_cast<WPARAM>(nItem), reinterpret_cast<LPARAM>(&item)) != 0;
}

VString VListControl::GetItemText(int nItem, int nColumn, int nLimit) const
{
    char szText[nTextLimit] = "";
    LVITEMA item = {};
    item.iSubItem = nColumn;
    item.pszText = szText;
    item.cchTextMax = std::clamp(nLimit, 1, nTextLimit);
    Send(LVM_GETITEMTEXTA, static_cast<WPARAM>(nItem), reinterpret_cast<LPARAM>(&item));
    // The list of Wine 8 puts no zero after a text that it had to cut, so the length is limited
    // here.
    return VString(item.pszText, static_cast<uint32_t>(item.cchTextMax - 1));
}

bool VListControl::SetItemData(int nItem, LPARAM lData)
{
    LVITEMA item = {};
    item.mask = LVIF_PARAM;
    item.iItem = nItem;
    item.lParam = lData;
    return Send(LVM_SETITEMA, 0, reinterpret_cast<LPARAM>(&item)) != 0;
}

LPARAM VListControl::GetItemData(int nItem) const
{
    LVITEMA item = {};
    item.mask = LVIF_PARAM;
    item.iItem = nItem;
    Send(LVM_GETITEMA, 0, reinterpret_cast<LPARAM>(&item));
    return item.lParam;
}

bool VListControl::SetItemState(int nItem, UINT uState, UINT uMask)
{
    LVITEMA item = {};
    item.state = uState;
    item.stateMask = uMask;
    return Send(LVM_SETITEMSTATE, static_cast<WPARAM>(nItem), reinterpret_cast<LPARAM>(&item)) != 0;
}
