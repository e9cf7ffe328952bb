#include "register/qmregisterpages.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <limits>

namespace {

constexpr COLORREF crShade = 0xEBEBEB;
constexpr int nIndent = 4; // of a text from the sides of its cell

constexpr UINT uLine = DT_SINGLELINE | DT_VCENTER;

UINT FlagsOf(QMAlignment alignment)
{
    switch (alignment) {
        case QMAlignment::Left:
            return uLine | DT_LEFT;
        case QMAlignment::Right:
            return uLine | DT_RIGHT;
        case QMAlignment::Centre:
            break;
    }
    return uLine | DT_CENTER;
}

} // namespace

QMRegisterPages::QMRegisterPages(const QMRegisterList& list, const QMColumnTable& columns,
                                 const QMAccountHeader& header)
    : m_list(list),
      m_columns(columns),
      m_header(header),
      m_screen(list.GetHandle()),
      m_paper(m_screen),
      m_picture(m_screen)
{}

bool QMRegisterPages::Render(VPrintContext& context, uint32_t uFlags)
{
    if (m_paper.GetHandle() == nullptr || m_picture.GetHandle() == nullptr) {
        return false;
    }
    m_uFlags = uFlags;
    const VSelectScope font(m_paper, reinterpret_cast<HGDIOBJ>(m_list.Send(WM_GETFONT)));
    const VSelectScope pen(m_paper, m_list.GetLinePen());
    if (!MakePlan(context)) {
        return false;
    }
    context.nPages = m_plan.GetPageCount();
    if (!MakeImageList(context)) {
        return false;
    }
    for (int nPage = 0; nPage < context.nPages; ++nPage) {
        if (!AddPage(context, nPage)) {
            return false;
        }
    }
    return true;
}

bool QMRegisterPages::MakePlan(const VPrintContext& context)
{
    m_nHeadingHeight = m_list.GetHeadingRect(0).GetHeight();
    m_nRowHeight = m_list.GetRowHeight();
    QMPrintMeasures measures;
    measures.rcPrintable = context.rcPrintable;
    for (int32_t i = 0; i < QM_ENTRY_FILLER; ++i) {
        const int32_t lIndex = m_columns.GetListIndex(static_cast<QMColumn>(i));
        measures.aColumnWidths.push_back(lIndex < 0 ? -1 : m_list.GetColumnWidth(lIndex));
    }
    measures.lRows = m_list.GetRowCount();
    measures.lRowHeight = m_nRowHeight;
    measures.lHeadingHeight = m_nHeadingHeight;
    // One height serves for both names.
    measures.lNamesHeight = TextHeight(m_header.szBankName);
    measures.lNumberHeight = TextHeight("1");
    measures.bNames = (m_uFlags & (QM_PRINT_BANK_NAME | QM_PRINT_HOLDER_NAME)) != 0;
    measures.bPageNumbers = (m_uFlags & QM_PRINT_PAGE_NUMBERS) != 0;
    return m_plan.Make(measures);
}

// The pictures of an image list lie in one bitmap. All of it is asked for at the beginning, so that
// a register that is too long for the memory is refused before its first page is drawn.
bool QMRegisterPages::MakeImageList(VPrintContext& context) const
{
    const VSize& size = context.sizePage;
    // Wine 8 counts the lines of that bitmap in 32 bits and does not notice when they are too many.
    constexpr double dLargestBitmap = std::numeric_limits<int32_t>::max();
    if (size.cx <= 0 || size.cy <= 0 || 4.0 * context.nPages * size.cx * size.cy > dLargestBitmap) {
        return false;
    }
    return context.ilPages.Create(size.cx, size.cy, context.nPages, context.nPages + 1,
                                  ILC_COLORDDB);
}

bool QMRegisterPages::AddPage(VPrintContext& context, int nPage)
{
    const VSize& size = context.sizePage;
    VBitmap page;
    if (!page.Attach(CreateCompatibleBitmap(m_screen.GetHandle(), size.cx, size.cy))) {
        return false;
    }
    {
        const VSelectScope scope(m_paper, page.GetHandle());
        if (!m_paper.PatBlt(0, 0, size.cx, size.cy, WHITENESS)) {
            return false;
        }
        DrawPage(context, nPage);
    }
    return context.ilPages.Add(page.GetHandle()) >= 0;
}

void QMRegisterPages::DrawPage(const VPrintContext& context, int nPage)
{
    m_paper.SetTextColor(static_cast<COLORREF>(m_header.lFontColor));
    DrawTexts(context.rcPrintable, nPage);
    const QMPrintPage page = m_plan.GetPage(nPage);
    int x = context.rcPrintable.left;
    for (int32_t i = page.firstColumn; i <= page.lastColumn; ++i) {
        const auto column = static_cast<QMColumn>(i);
        if (m_columns.IsVisible(column)) {
            DrawColumn(page, column, x);
            x += m_list.GetColumnWidth(m_columns.GetListIndex(column)) - 1;
        }
    }
}

void QMRegisterPages::DrawTexts(const VRect& rcPrintable, int nPage)
{
    if ((m_uFlags & QM_PRINT_PAGE_NUMBERS) != 0) {
        char szNumber[16];
        snprintf(szNumber, sizeof szNumber, "%d", nPage + 1);
        const int nWidth = TextWidth(szNumber);
        const int nLeft = rcPrintable.left + (rcPrintable.GetWidth() - nWidth) / 2;
        DrawText(
            szNumber, -1,
            {nLeft, rcPrintable.bottom - TextHeight(szNumber), nLeft + nWidth, rcPrintable.bottom},
            uLine | DT_CENTER);
    }
    const VRect rcNames = {rcPrintable.left + nIndent, rcPrintable.top, rcPrintable.right - nIndent,
                           rcPrintable.top + TextHeight(m_header.szBankName)};
    if ((m_uFlags & QM_PRINT_BANK_NAME) != 0) {
        DrawText(m_header.szBankName, -1, rcNames, uLine | DT_LEFT);
    }
    if ((m_uFlags & QM_PRINT_HOLDER_NAME) != 0) {
        DrawText(m_header.szHolderName, -1, rcNames, uLine | DT_RIGHT);
    }
}

void QMRegisterPages::DrawColumn(const QMPrintPage& page, QMColumn column, int x)
{
    const int w = m_list.GetColumnWidth(m_columns.GetListIndex(column));
    DrawHeading(column, x, w);
    int y = m_plan.GetTableTop();
    for (int nRow = page.firstRow; nRow <= page.lastRow; ++nRow) {
        DrawCell(page, column, nRow, {x, y, x + w, y + m_nRowHeight});
        y += m_nRowHeight;
    }
}

void QMRegisterPages::DrawHeading(QMColumn column, int x, int w)
{
    const int y = m_plan.GetTableTop() - m_nHeadingHeight;
    const VRect rect = {x, y, x + w, y + m_nHeadingHeight};
    if (const VBitmap* pPicture = m_list.GetHeadingPicture(column)) {
        DrawPicture(*pPicture, rect);
    } else {
        const QMColumnInfo& info = QMGetColumnInfo(column);
        DrawText(info.szHeading, -1,
                 {rect.left + nIndent, rect.top + 1, rect.right - nIndent, rect.bottom},
                 FlagsOf(info.alignment) | DT_NOPREFIX);
    }
    m_paper.DrawEdges(rect, 15);
}

void QMRegisterPages::DrawCell(const QMPrintPage& page, QMColumn column, int nRow,
                               const VRect& rect)
{
    // Kept: on paper the first row of each page is shaded, while on the screen the first row is
    // plain.
    const bool bShaded = m_header.bShadedLines != 0 && (nRow - page.firstRow) % 2 == 0;
    const COLORREF crBefore = m_paper.GetBkColor();
    if (bShaded) {
        m_paper.SetBkColor(crShade);
        m_paper.FillRect({rect.left, rect.top + 1, rect.right, rect.bottom},
                         m_list.GetShadeBrush());
    }
    const int nColumn = m_columns.GetListIndex(column);
    if (m_list.GetHeadingPicture(column) != nullptr) {
        if (const VBitmap* pMark = m_list.FindMark(nColumn, m_list.GetRowDecoration(nRow))) {
            DrawPicture(*pMark, rect);
        }
    } else {
        // Kept: a balance has the register's text colour on paper, not the colour of its sign.
        const std::string_view text = m_list.GetCellText(nRow, nColumn);
        DrawText(text.data(), static_cast<int>(text.size()),
                 {rect.left + nIndent, rect.top + 1, rect.right - nIndent, rect.bottom},
                 FlagsOf(QMGetColumnInfo(column).alignment) | DT_NOPREFIX);
    }
    if (m_header.bGridLines != 0) {
        DrawLines(page, column, nRow, rect);
    }
    if (bShaded) {
        m_paper.SetBkColor(crBefore);
    }
}

void QMRegisterPages::DrawLines(const QMPrintPage& page, QMColumn column, int nRow,
                                const VRect& rect)
{
    const auto Vertical = [&](int x) {
        m_paper.MoveTo(x, rect.top);
        m_paper.LineTo(x, rect.bottom);
    };
    const auto Horizontal = [&](int y) {
        m_paper.MoveTo(rect.left, y);
        m_paper.LineTo(rect.right - 1, y);
    };
    Vertical(rect.left);
    if (column == page.lastColumn) {
        Vertical(rect.right - 1);
    }
    if (m_header.bShadedLines == 0) {
        Horizontal(rect.top);
    }
    if (nRow == page.lastRow) {
        Horizontal(rect.bottom);
    }
}

void QMRegisterPages::DrawText(const char* szText, int nLength, VRect rect, UINT uFlags)
{
    if (nLength != 0) {
        m_paper.DrawText(szText, rect, uFlags, nLength);
    }
}

void QMRegisterPages::DrawPicture(const VBitmap& picture, const VRect& cell)
{
    const VSelectScope scope(m_picture, picture.GetHandle());
    const int nWidth = std::min(picture.GetWidth(), cell.GetWidth());
    const int nHeight = std::min(picture.GetHeight(), cell.GetHeight());
    // SRCAND lets what lies beneath show through the white of the picture.
    m_paper.BitBlt(cell.left + QMCentreInCell(cell.GetWidth(), picture.GetWidth()),
                   cell.top + QMCentreInCell(cell.GetHeight(), picture.GetHeight()), nWidth,
                   nHeight, m_picture, 0, 0, SRCAND);
}

int QMRegisterPages::TextHeight(const char* szText) const
{
    return m_paper.TextExtent(szText, static_cast<int>(strlen(szText))).cy;
}

int QMRegisterPages::TextWidth(const char* szText) const
{
    return m_paper.TextExtent(szText, static_cast<int>(strlen(szText))).cx;
}
