// VListControl: the list view of the common controls.
#pragma once

#include "toolkit/vheader.h"

class VListControl : public VControl
{
public:
    static constexpr int nTextLimit = 1024; // bytes, with the terminating zero

    VListControl() : VControl(V_KIND_LIST_VIEW) {}

    LRESULT OnReflectNotify(NMHDR* pHeader, LRESULT& lResult) override;

    // ---- Notifications of the list; see those of VControl.

    virtual LRESULT OnItemChanging(NMLISTVIEW*, LRESULT&) { return 1; }
    virtual LRESULT OnItemChanged(NMLISTVIEW*, LRESULT&) { return 1; }
    virtual LRESULT OnInsertItem(NMLISTVIEW*, LRESULT&) { return 1; }
    virtual LRESULT OnDeleteItem(NMLISTVIEW*, LRESULT&) { return 1; }
    virtual LRESULT OnDeleteAllItems(NMLISTVIEW*, LRESULT&) { return 1; }
    virtual LRESULT OnColumnClick(NMLISTVIEW*, LRESULT&) { return 1; }
    virtual LRESULT OnBeginDrag(NMLISTVIEW*, LRESULT&) { return 1; }
    virtual LRESULT OnGetDisplayInfo(NMLVDISPINFOA*, LRESULT&) { return 1; }
    virtual LRESULT OnKeyDown(NMLVKEYDOWN*, LRESULT&) { return 1; }

    // ---- Columns.

    // Inserts a column. Returns its index; -1 on failure.
    int InsertColumn(int nColumn, const char* szHeading, int nFormat, int nWidth);
    bool DeleteColumn(int nColumn)
    {
        return Send(LVM_DELETECOLUMN, static_cast<WPARAM>(nColumn)) != 0;
    }
    int GetColumnWidth(int nColumn) const
    {
        return static_cast<int>(Send(LVM_GETCOLUMNWIDTH, static_cast<WPARAM>(nColumn)));
    }
    bool SetColumnWidth(int nColumn, int nWidth)
    {
        return Send(LVM_SETCOLUMNWIDTH, static_cast<WPARAM>(nColumn), MAKELPARAM(nWidth, 0)) != 0;
    }
    // Binds header to the headings of the list. Returns false when the list has none.
    bool AttachHeader(VHeader& header);
    int GetColumnCount() const;
    // The rectangle of a heading within the list; empty when the list has no headings.
    VRect GetHeadingRect(int nColumn) const;

    // Sizes each column from nFirst to nLast (-1 for the last one) to its widest text, or to its
    // heading where that is wider. The texts are read into szBuffer.
    void AutoSizeColumns(int nFirst, int nLast, char* szBuffer, int nBufferSize);

    // ---- Rows.

    int GetItemCount() const { return static_cast<int>(Send(LVM_GETITEMCOUNT)); }
    void SetItemCount(int nCount) { Send(LVM_SETITEMCOUNT, static_cast<WPARAM>(nCount)); }
    int InsertItem(int nItem, const char* szText);
    bool DeleteItem(int nItem) { return Send(LVM_DELETEITEM, static_cast<WPARAM>(nItem)) != 0; }
    bool DeleteAllItems() { return Send(LVM_DELETEALLITEMS) != 0; }
    bool SetItemText(int nItem, int nColumn, const char* szText);
    VString GetItemText(int nItem, int nColumn, int nLimit = nTextLimit) const;
    bool SetItemData(int nItem, LPARAM lData);
    LPARAM GetItemData(int nItem) const;
    bool SetItemState(int nItem, UINT uState, UINT uMask);
    UINT GetItemState(int nItem, UINT uMask) const
    {
        return static_cast<UINT>(Send(LVM_GETITEMSTATE, static_cast<WPARAM>(nItem), uMask));
    }
    // The next item after nAfter (-1 for the first) that has the state of these LVNI_ bits; -1 when
    // there is none.
    int GetNextItem(int nAfter, UINT uFlags) const
    {
        return static_cast<int>(
            Send(LVM_GETNEXTITEM, static_cast<WPARAM>(nAfter), MAKELPARAM(uFlags, 0)));
    }
    int GetSelectedCount() const { return static_cast<int>(Send(LVM_GETSELECTEDCOUNT)); }
    bool EnsureVisible(int nItem)
    {
        return Send(LVM_ENSUREVISIBLE, static_cast<WPARAM>(nItem), FALSE) != 0;
    }
    void SetExtendedStyle(DWORD uStyle) { Send(LVM_SETEXTENDEDLISTVIEWSTYLE, 0, uStyle); }

private:
    int GetStringWidth(const char* szText) const
    {
        return static_cast<int>(Send(LVM_GETSTRINGWIDTHA, 0, reinterpret_cast<LPARAM>(szText)));
    }
    bool IsAnyRowWider(int nColumn, int nHeadingWidth, char* szBuffer, int nBufferSize) const;
};
