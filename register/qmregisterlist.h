// QMRegisterList: the register's grid. It holds no rows itself: the model fills a table, and the
// control asks for what is visible, so a long account costs no more to show than a short one.
#pragma once

#include "register/qmgridlist.h"
#include "register/qmrowtable.h"

class QMRegisterList : public QMGridList, public QMRowList
{
public:
    // Makes the control as a child; false when it or its pictures cannot be had.
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

    // The row with the focus; -1 for none.
    int32_t GetFocusedRow() const { return GetNextItem(-1, LVNI_FOCUSED); }

    // Sizes each column to its contents where a text is wider than the heading, else to the
    // heading.
    void AutoSizeAll();

    // Takes over the widths to which the user dragged the columns, into table and header. True when
    // any was new.
    bool TakeOverWidths(QMColumnTable& columns, QMAccountHeader& header) const;

private:
    void SetHeadingPicture(int nColumn, const VBitmap& picture);
    void MarkChanged();
    // In pixels, in the list's font: anWidths holds those of its characters.
    int WidestText(int nColumn, const int (&anWidths)[256]) const;

    QMRowTable m_rows;
    VBitmap m_headingCleared;
    VBitmap m_headingTag;
    const QMColumnTable* m_pColumns = nullptr; // of the last RebuildColumns
    bool m_bChangesColumns = false;            // the widths at hand are not the user's
    bool m_bChanged = false;                   // to be painted anew
    char m_szText[QM_FIELD_TEXT_SIZE] = {};    // of the cell that was asked for last
};
