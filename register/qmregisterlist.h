// QMRegisterList: the list of a register. It is a list of the style LVS_OWNERDATA: the model fills
// a table with the rows, and the control asks for the texts that are visible. So a long account is
// shown as fast as a short one.
#pragma once

#include "register/qmgridlist.h"
#include "register/qmrowtable.h"

class QMRegisterList : public QMGridList, public QMRowList
{
public:
    // Makes the control as a child of parent. Returns false when the control or its pictures cannot
    // be made.
    bool CreateList(VWindow& parent, UINT uId);

    bool OnCreate() override;
    uint32_t GetRowDecoration(int nRow) const override { return m_rows.GetDecoration(nRow); }
    LRESULT OnGetDisplayInfo(NMLVDISPINFOA* pInfo, LRESULT& lResult) override;
    LRESULT OnCustomDraw(NMLVCUSTOMDRAW* pDraw, LRESULT& lResult) override;
    LRESULT DefaultProc(HWND hWnd, UINT uMessage, WPARAM wParam, LPARAM lParam) override;

    bool RebuildColumns(const QMColumnTable& columns) override;
    void AdjustFillerColumn() override;
    bool DeleteAllRows() override;
    bool SetCapacity(int32_t lRows) override { return m_rows.SetCapacity(lRows); }
    bool AppendRow() override { return m_rows.AppendRow(); }
    bool InsertRow(int32_t lRow) override;
    void DeleteRows(const int32_t* pRows, int32_t lCount) override;
    int32_t GetRowCount() const override { return m_rows.GetRowCount(); }
    bool SetCellText(int32_t lRow, int32_t lColumn, std::string_view text) override;
    bool SetDecoration(int32_t lRow, uint32_t uDecoration) override;
    bool SelectRow(int32_t lRow) override;
    int32_t GetSelectedCount() const override { return QMGridList::GetSelectedCount(); }
    int32_t GetNextSelected(int32_t lAfter) const override
    {
        return GetNextItem(lAfter, LVNI_SELECTED);
    }
    void SetLineFlag(uint32_t uBit, bool bOn) override { QMGridList::SetLineFlag(uBit, bOn); }
    void Repaint() override { Invalidate(); }

    // The row that has the focus; -1 for none.
    int32_t GetFocusedRow() const { return GetNextItem(-1, LVNI_FOCUSED); }

    // A cell's text as the list shows it; the column is a list index. Valid until the rows change.
    std::string_view GetCellText(int nRow, int nColumn) const
    {
        return m_rows.GetCellText(nRow, nColumn);
    }
    // The height of the first row in pixels; 0 without rows.
    int GetRowHeight() const;
    // The picture that a column has for a heading; null for one with a text.
    const VBitmap* GetHeadingPicture(QMColumn column) const;

    // Sizes each column to its widest text, or to its heading where that is wider.
    void AutoSizeAll();

    // Copies the widths to which the user dragged the columns into the table and the header.
    // Returns whether any has changed.
    bool TakeOverWidths(QMColumnTable& columns, QMAccountHeader& header) const;

private:
    void SetHeadingPicture(int nColumn, const VBitmap& picture);
    void MarkChanged();
    // The width of the column's widest text in pixels. anWidths holds the widths of the 256
    // characters in the list's font.
    int WidestText(int nColumn, const int (&anWidths)[256]) const;

    QMRowTable m_rows;
    VBitmap m_headingCleared;
    VBitmap m_headingTag;
    const QMColumnTable* m_pColumns = nullptr; // those of the last RebuildColumns
    bool m_bChangesColumns = false;            // the program, not the user, is changing the columns
    bool m_bChanged = false;                   // the list must be painted again
    char m_szText[QM_FIELD_TEXT_SIZE] = {}; // the text of the cell that the control asked for last
};
