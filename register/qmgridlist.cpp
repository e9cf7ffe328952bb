#include "register/qmgridlist.h"

#include "resources/resource.h"
#include "toolkit/vcolors.h"
#include "toolkit/vrect_win.h"

namespace {

constexpr COLORREF crLine = 0xC0C0C0;
constexpr COLORREF crShade = 0xEBEBEB;
// The ground of a selected row while the list does not have the focus. The marks of a selected row
// are light and its texts are dark: on this grey both can be read.
constexpr COLORREF crQuiet = 0x909090;

// Raster operations for the marks, which are dark strokes on white. SRCAND lets a plain row show
// through the white. On a selected row MERGEPAINT does that and makes the strokes light.
constexpr DWORD uRopDark = SRCAND;
constexpr DWORD uRopLight = MERGEPAINT;

// When only the selection or the focus of a row changes, the list of Wine 8 does not paint this
// many pixels at the row's left end.
constexpr int nLeftEnd = 2;

constexpr uint32_t uAllLines = QM_GRID_SHADED | QM_GRID_HORIZONTAL | QM_GRID_VERTICAL;
constexpr uint32_t uMarks = QM_DECOR_TAX | QM_DECOR_EXPENSE | QM_DECOR_VOIDED | QM_DECOR_CLEARED;

int Format(QMAlignment alignment)
{
    switch (alignment) {
        case QMAlignment::Left:
            return LVCFMT_LEFT;
        case QMAlignment::Right:
            return LVCFMT_RIGHT;
        case QMAlignment::Centre:
            break;
    }
    return LVCFMT_CENTER;
}

bool IsOdd(int nNumber)
{
    return (nNumber & 1) != 0;
}

} // namespace

// A cell on the screen, and where its row is.
struct QMGridList::Cell
{
    int nRow;
    int nColumn;
    VRect rect;
    VRect area; // the part of the list below the headings
    bool bTopRow;
    bool bLastRow;
};

QMGridList::QMGridList()
    : m_linePen(PS_SOLID, 1, crLine), m_shadeBrush(crShade), m_quietBrush(crQuiet)
{}

bool QMGridList::OnCreate()
{
    m_bSystemColors = VNeedsSystemColors();
    return m_markTax.Load(IDB_MARK_TAX) && m_markExpense.Load(IDB_MARK_EXPENSE) &&
           m_markVoided.Load(IDB_MARK_VOIDED) && m_markCleared.Load(IDB_MARK_CLEARED) &&
           m_linePen.GetHandle() != nullptr && m_shadeBrush.GetHandle() != nullptr &&
           m_quietBrush.GetHandle() != nullptr;
}

uint32_t QMGridList::GetRowDecoration(int nRow) const
{
    return static_cast<uint32_t>(GetItemData(nRow));
}

int QMGridList::InsertColumn(int nColumn, const char* szHeading, QMAlignment alignment, int nWidth)
{
    return VListControl::InsertColumn(nColumn, szHeading, Format(alignment), nWidth);
}

void QMGridList::SetLineFlag(uint32_t uBit, bool bOn)
{
    m_nGridFlags = bOn ? m_nGridFlags | uBit : m_nGridFlags & ~uBit;
    Invalidate(true);
}

void QMGridList::SetBalanceColors(COLORREF crPositive, COLORREF crNegative)
{
    m_clrRowBit1 = crPositive;
    m_clrRowBit2 = crNegative;
}

void QMGridList::SetSystemColors(bool bSystemColors)
{
    m_bSystemColors = bSystemColors;
    Invalidate(true);
}

bool QMGridList::IsShaded() const
{
    return (m_nGridFlags & QM_GRID_SHADED) != 0 && !m_bSystemColors;
}

COLORREF QMGridList::BalanceColor(bool bPositive) const
{
    if (m_bSystemColors) {
        return GetSysColor(COLOR_WINDOWTEXT);
    }
    return bPositive ? m_clrRowBit1 : m_clrRowBit2;
}

void QMGridList::SetPaintedColumns(int nBalance, int nTag, int nCleared)
{
    m_nTextColumn = nBalance;
    m_nImageColumnA = nTag;
    m_nImageColumnB = nCleared;
}

LRESULT QMGridList::OnReflectNotify(NMHDR* pHeader, LRESULT& lResult)
{
    switch (pHeader->code) {
        case NM_CUSTOMDRAW:
            return OnCustomDraw(reinterpret_cast<NMLVCUSTOMDRAW*>(pHeader), lResult);
        case LVN_ITEMCHANGED: {
            const auto& change = *reinterpret_cast<NMLISTVIEW*>(pHeader);
            if (((change.uOldState ^ change.uNewState) & LVIS_SELECTED) != 0) {
                InvalidateLeftEnd(change.iItem);
            }
            break;
        }
        case LVN_ODSTATECHANGED:
        case NM_SETFOCUS:
        case NM_KILLFOCUS:
            InvalidateLeftEnd(-1);
            break;
        default:
            break;
    }
    return VListControl::OnReflectNotify(pHeader, lResult);
}

void QMGridList::InvalidateLeftEnd(int nRow)
{
    RECT rect = {};
    rect.left = LVIR_BOUNDS;
    if (nRow < 0 ||
        Send(LVM_GETITEMRECT, static_cast<WPARAM>(nRow), reinterpret_cast<LPARAM>(&rect)) == 0) {
        ::GetClientRect(GetHandle(), &rect);
        rect.left = -GetScrollPos(GetHandle(), SB_HORZ);
    }
    rect.right = rect.left + nLeftEnd;
    InvalidateRect(GetHandle(), &rect, TRUE);
}

LRESULT QMGridList::OnCustomDraw(NMLVCUSTOMDRAW* pDraw, LRESULT& lResult)
{
    lResult = CDRF_DODEFAULT;
    switch (pDraw->nmcd.dwDrawStage) {
        case CDDS_PREPAINT:
            if (GetItemCount() == 0 && (m_nGridFlags & uAllLines) != 0) {
                VDrawingSurface surface;
                surface.Attach(pDraw->nmcd.hdc, false);
                DrawEmptyArea(surface);
            }
            lResult = CDRF_NOTIFYITEMDRAW;
            break;
        case CDDS_ITEMPREPAINT:
            lResult = CDRF_NOTIFYSUBITEMDRAW;
            break;
        case CDDS_ITEMPREPAINT | CDDS_SUBITEM:
            lResult = BeforeCell(*pDraw);
            break;
        case CDDS_ITEMPOSTPAINT | CDDS_SUBITEM:
            AfterCell(*pDraw);
            break;
        default:
            break;
    }
    return -1;
}

// ---- An empty list, ruled like a full one.

void QMGridList::DrawEmptyArea(VDrawingSurface& surface)
{
    const VRect heading = GetHeadingRect(0);
    const int nRowHeight = heading.GetHeight() - 2;
    if (nRowHeight <= 0) {
        return;
    }
    if (IsShaded()) {
        DrawShading(surface, heading.bottom, heading.bottom + nRowHeight, nRowHeight);
    }
    const VSelectScope pen(surface, m_linePen.GetHandle());
    if ((m_nGridFlags & QM_GRID_HORIZONTAL) != 0) {
        DrawHorizontals(surface, heading.bottom, nRowHeight);
    }
    if ((m_nGridFlags & QM_GRID_VERTICAL) != 0) {
        DrawEmptyVerticals(surface);
    }
}

void QMGridList::DrawShading(VDrawingSurface& surface, int nTop, int nFirstStrip, int nRowHeight)
{
    const VRect client = GetClientRect();
    for (int y = nFirstStrip; y < client.bottom; y += 2 * nRowHeight) {
        if (y >= nTop) {
            surface.FillRect({0, y, client.right, y + nRowHeight}, m_shadeBrush.GetHandle());
        }
    }
}

void QMGridList::DrawHorizontals(VDrawingSurface& surface, int nFrom, int nRowHeight)
{
    const VRect client = GetClientRect();
    for (int y = nFrom; y < client.bottom; y += nRowHeight) {
        surface.MoveTo(0, y);
        surface.LineTo(client.right, y);
    }
}

void QMGridList::DrawEmptyVerticals(VDrawingSurface& surface)
{
    const VRect client = GetClientRect();
    int x = 2 - GetScrollPos(GetHandle(), SB_HORZ);
    for (int nColumn = 0; nColumn < GetColumnCount() && x <= client.right; ++nColumn) {
        x += GetColumnWidth(nColumn);
        if (x >= 0 && x <= client.right) {
            surface.MoveTo(x, 0);
            surface.LineTo(x, client.bottom);
        }
    }
}

// ---- Cells.

LRESULT QMGridList::BeforeCell(NMLVCUSTOMDRAW& draw)
{
    const auto nRow = static_cast<int>(draw.nmcd.dwItemSpec);
    const uint32_t uDecoration = GetRowDecoration(nRow);
    if (m_nTextColumn >= 0 && (uDecoration & (QM_DECOR_POSITIVE | QM_DECOR_NEGATIVE)) != 0) {
        if (draw.iSubItem == m_nTextColumn) {
            draw.clrText = BalanceColor((uDecoration & QM_DECOR_POSITIVE) != 0);
        } else if (draw.iSubItem == m_nTextColumn + 1) {
            draw.clrText = static_cast<COLORREF>(Send(LVM_GETTEXTCOLOR));
        }
    }
    if (IsShaded() && IsOdd(nRow)) {
        draw.clrTextBk = crShade;
    }
    if (GetItemState(nRow, LVIS_SELECTED) != 0 && HasQuietSelection()) {
        // Windows takes its own colours for what it believes to be selected.
        draw.nmcd.uItemState &= ~static_cast<UINT>(CDIS_SELECTED);
        draw.clrText = GetSysColor(COLOR_BTNTEXT);
        draw.clrTextBk = crQuiet;
    }
    FillCell(draw, nRow);
    const bool bAfter = (uDecoration & uMarks) != 0 || (m_nGridFlags & uAllLines) != 0;
    return bAfter ? CDRF_NOTIFYPOSTPAINT : CDRF_DODEFAULT;
}

// The list of Wine 8 paints the background only behind the text. A shaded or selected row must have
// its colour in its whole width.
void QMGridList::FillCell(const NMLVCUSTOMDRAW& draw, int nRow)
{
    VDrawingSurface surface;
    surface.Attach(draw.nmcd.hdc, false);
    const VRect rect = GetCell(nRow, draw.iSubItem).rect;
    if (GetItemState(nRow, LVIS_SELECTED) != 0) {
        surface.FillRect(rect, HasQuietSelection() ? m_quietBrush.GetHandle()
                                                   : GetSysColorBrush(GetSelectionColor()));
    } else if (IsShaded() && IsOdd(nRow)) {
        surface.FillRect(rect, m_shadeBrush.GetHandle());
    }
}

bool QMGridList::HasQuietSelection() const
{
    return !m_bSystemColors && ::GetFocus() != GetHandle();
}

int QMGridList::GetSelectionColor() const
{
    return ::GetFocus() == GetHandle() ? COLOR_HIGHLIGHT : COLOR_BTNFACE;
}

QMGridList::Cell QMGridList::GetCell(int nRow, int nColumn) const
{
    RECT rect = {};
    rect.left = LVIR_BOUNDS;
    rect.top = nColumn;
    Send(LVM_GETSUBITEMRECT, static_cast<WPARAM>(nRow), reinterpret_cast<LPARAM>(&rect));
    Cell cell = {
        nRow, nColumn, VFromRect(rect), GetClientRect(), false, nRow == GetItemCount() - 1};
    // LVIR_BOUNDS of the first column gives the rectangle of the whole row.
    cell.rect.right = cell.rect.left + GetColumnWidth(nColumn);
    cell.bTopRow = nRow == static_cast<int>(Send(LVM_GETTOPINDEX));
    return cell;
}

void QMGridList::AfterCell(NMLVCUSTOMDRAW& draw)
{
    VDrawingSurface surface;
    surface.Attach(draw.nmcd.hdc, false);
    const Cell cell = GetCell(static_cast<int>(draw.nmcd.dwItemSpec), draw.iSubItem);
    if (const VBitmap* pMark = FindMark(cell.nColumn, GetRowDecoration(cell.nRow))) {
        DrawMark(surface, cell, *pMark);
    }
    if (IsShaded() && cell.bLastRow && cell.nColumn == 0) {
        const int nRowHeight = cell.rect.GetHeight();
        const int nFirst = cell.rect.bottom + (IsOdd(cell.nRow) ? nRowHeight : 0);
        DrawShading(surface, cell.rect.bottom, nFirst, nRowHeight);
    }
    DrawCellLines(surface, cell);
}

const VBitmap* QMGridList::FindMark(int nColumn, uint32_t uDecoration) const
{
    const auto Choose = [=](uint32_t uA, const VBitmap& a, uint32_t uB, const VBitmap& b) {
        const bool bA = (uDecoration & uA) != 0;
        const bool bB = (uDecoration & uB) != 0;
        // A damaged file can have both flags. Neither mark is drawn then.
        return bA == bB ? nullptr : (bA ? &a : &b);
    };
    if (nColumn == m_nImageColumnA) {
        return Choose(QM_DECOR_TAX, m_markTax, QM_DECOR_EXPENSE, m_markExpense);
    }
    if (nColumn == m_nImageColumnB) {
        return Choose(QM_DECOR_VOIDED, m_markVoided, QM_DECOR_CLEARED, m_markCleared);
    }
    return nullptr;
}

void QMGridList::DrawMark(VDrawingSurface& surface, const Cell& cell, const VBitmap& mark)
{
    const int nWidth =
        mark.GetWidth() < cell.rect.GetWidth() ? mark.GetWidth() : cell.rect.GetWidth();
    const int nHeight =
        mark.GetHeight() < cell.rect.GetHeight() ? mark.GetHeight() : cell.rect.GetHeight();
    const int x = cell.rect.left + (cell.rect.GetWidth() - nWidth) / 2;
    const int y = cell.rect.top + (cell.rect.GetHeight() - nHeight) / 2;
    VMemorySurface picture(surface);
    const VSelectScope scope(picture, mark.GetHandle());
    surface.BitBlt(x, y, nWidth, nHeight, picture, 0, 0,
                   HasLightMarks(cell.nRow) ? uRopLight : uRopDark);
}

bool QMGridList::HasLightMarks(int nRow) const
{
    const bool bSelected = GetItemState(nRow, LVIS_SELECTED) != 0;
    return m_bSystemColors ? VIsDark(GetSysColor(bSelected ? GetSelectionColor() : COLOR_WINDOW))
                           : bSelected;
}

void QMGridList::DrawCellLines(VDrawingSurface& surface, const Cell& cell)
{
    const VSelectScope pen(surface, m_linePen.GetHandle());
    const VRect& rect = cell.rect;
    const auto Horizontal = [&](int y) {
        surface.MoveTo(rect.left, y);
        surface.LineTo(rect.right, y);
    };
    if ((m_nGridFlags & QM_GRID_HORIZONTAL) != 0) {
        Horizontal(rect.bottom - 1);
        if (cell.bTopRow) {
            Horizontal(rect.top);
        }
        for (int y = rect.bottom - 1; cell.bLastRow && y < cell.area.bottom;
             y += rect.GetHeight()) {
            Horizontal(y);
        }
    }
    if ((m_nGridFlags & QM_GRID_VERTICAL) != 0) {
        surface.MoveTo(rect.left, cell.bTopRow ? cell.area.top : rect.top);
        surface.LineTo(rect.left, cell.bLastRow ? cell.area.bottom : rect.bottom);
    }
}
