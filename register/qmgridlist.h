// QMGridList: a list in report form that draws its lines, shading, coloured balances and marks by
// itself.
#pragma once

#include "register/qmrowlist.h"
#include "toolkit/vdrawingsurface.h"
#include "toolkit/vgdiobjects.h"
#include "toolkit/vlistcontrol.h"

class QMGridList : public VListControl
{
public:
    QMGridList();

    // ---- Virtual operations, after those of VListControl.

    // Loads the pictures and makes the pen and the brush. Returns false when one is missing.
    virtual bool OnCreate();
    virtual LRESULT OnCustomDraw(NMLVCUSTOMDRAW* pDraw, LRESULT& lResult);
    // The decoration word (QM_DECOR_ bits) by which a row is painted. It is the item data, unless a
    // derived class keeps its rows elsewhere.
    virtual uint32_t GetRowDecoration(int nRow) const;

    LRESULT OnReflectNotify(NMHDR* pHeader, LRESULT& lResult) override;

    using VListControl::InsertColumn;
    // Returns the index of the new column; -1 on failure.
    int InsertColumn(int nColumn, const char* szHeading, QMAlignment alignment, int nWidth);

    void SetLineFlag(uint32_t uBit, bool bOn);
    uint32_t GetLineFlags() const { return m_nGridFlags; }
    void SetBalanceColors(COLORREF crPositive, COLORREF crNegative);
    // Paints balances in the system's own colour of text, shades no row, and paints marks light or
    // dark as the ground asks, as long as it is set. OnCreate sets it where VNeedsSystemColors.
    void SetSystemColors(bool bSystemColors);

    // Sets the list indices of the columns that are painted in a special way; -1 for one that the
    // list does not have.
    void SetPaintedColumns(int nBalance, int nTag, int nCleared);

    // ---- What the list draws with, for those who draw the same on paper.

    // The mark of a row with this decoration word in a column (a list index); null for none.
    const VBitmap* FindMark(int nColumn, uint32_t uDecoration) const;
    HPEN GetLinePen() const { return m_linePen.GetHandle(); }
    HBRUSH GetShadeBrush() const { return m_shadeBrush.GetHandle(); }

private:
    struct Cell;

    // Has the left end of a row painted again; of all rows for -1.
    void InvalidateLeftEnd(int nRow);
    void DrawEmptyArea(VDrawingSurface& surface);
    void DrawShading(VDrawingSurface& surface, int nTop, int nFirstStrip, int nRowHeight);
    void DrawHorizontals(VDrawingSurface& surface, int nFrom, int nRowHeight);
    void DrawEmptyVerticals(VDrawingSurface& surface);
    bool IsShaded() const;
    bool HasLightMarks(int nRow) const;
    // Whether the ground of a selected row is the grey of a list without the focus, and no colour
    // of the system.
    bool HasQuietSelection() const;
    // The colour of the system (COLOR_) for the ground of a selected row.
    int GetSelectionColor() const;
    COLORREF BalanceColor(bool bPositive) const;
    LRESULT BeforeCell(NMLVCUSTOMDRAW& draw);
    void FillCell(const NMLVCUSTOMDRAW& draw, int nRow);
    void AfterCell(NMLVCUSTOMDRAW& draw);
    Cell GetCell(int nRow, int nColumn) const;
    void DrawMark(VDrawingSurface& surface, const Cell& cell, const VBitmap& mark);
    void DrawCellLines(VDrawingSurface& surface, const Cell& cell);

    int m_nTextColumn = -1;
    int m_nImageColumnA = -1; // tag
    int m_nImageColumnB = -1; // cleared
    bool m_bSystemColors = false;
    COLORREF m_clrRowBit1 = 0x85AD4B;
    COLORREF m_clrRowBit2 = 0x2842C9;
    uint32_t m_nGridFlags = QM_GRID_SHADED | QM_GRID_VERTICAL;
    VBitmap m_markTax;
    VBitmap m_markExpense;
    VBitmap m_markVoided;
    VBitmap m_markCleared;
    VPen m_linePen;
    VBrush m_shadeBrush;
    VBrush m_quietBrush;
};
