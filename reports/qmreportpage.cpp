#include "reports/qmreportpage.h"

#include "reports/qmreporttext.h"

namespace {

// Pixels between columns, and before the column of a total.
constexpr int32_t lGap = 10;
constexpr int32_t lTotalGap = 25;

} // namespace

QMReportPage::QMReportPage(QMReportSurface& surface, QMReportLayout& layout, const VRect& page,
                           const VRect& margins, bool bDraw)
    : m_surface(surface),
      m_layout(layout),
      m_lLeft(margins.left),
      m_lRight(page.GetWidth() - margins.right),
      m_lTop(margins.top),
      m_bDraw(bDraw),
      m_crBackground(surface.GetBkColor())
{}

void QMReportPage::Put(std::string_view text, int32_t lLeft, int32_t lRight, QMReportAlign align)
{
    if (m_bDraw) {
        m_surface.PutText(text, {lLeft, Y(), lRight, Y() + m_layout.lLineHeight}, align);
    }
}

QMReportExtent QMReportPage::Title(std::string_view text, int32_t lIndent)
{
    if (!m_bDraw) {
        return {};
    }
    const QMReportExtent size = m_surface.TextExtent(text);
    const int32_t lLeft = m_lLeft + lIndent;
    m_surface.PutText(text, {lLeft, Y(), lLeft + size.lWidth, Y() + size.lHeight},
                      QMReportAlign::Left);
    return size;
}

void QMReportPage::FrameTitle(int32_t lHeight)
{
    if (m_bDraw) {
        m_surface.PutEdges({m_lLeft - 1, Y() - 1, m_lRight + 1, Y() + lHeight}, QM_REPORT_FRAME);
    }
}

void QMReportPage::Label(std::string_view text, int32_t lIndent)
{
    if (m_bDraw) {
        const int32_t lLeft = m_lLeft + lIndent;
        Put(text, lLeft, lLeft + m_surface.TextExtent(text).lWidth, QMReportAlign::Left);
    }
}

QMReportExtent QMReportPage::Total(std::string_view text, int32_t lInset)
{
    if (!m_bDraw) {
        return {};
    }
    const QMReportExtent size = m_surface.TextExtent(text);
    const int32_t lRight = m_lRight - lInset;
    Put(text, lRight - size.lWidth, lRight, QMReportAlign::Right);
    return size;
}

void QMReportPage::HeadRule(int32_t lTextHeight)
{
    if (m_bDraw) {
        const int32_t lY = Y() + lTextHeight + 4;
        m_surface.PutLine(m_lLeft, lY, m_lRight, lY);
    }
}

void QMReportPage::ColumnHeads(std::string_view date, bool bNumber, bool bDebitCredit)
{
    if (!m_bDraw) {
        return;
    }
    Put(date, m_lLeft, m_lLeft + m_layout.lDateWidth, QMReportAlign::Centre);
    if (bNumber) {
        Number("Number");
    }
    Description("Description", bNumber);
    if (bDebitCredit) {
        Debit("Debit");
        Credit("Credit");
    } else {
        Amount("Amount");
    }
    Rule(m_lLeft - 1, Y() + m_layout.lLineHeight - 1);
}

void QMReportPage::Date(const QMDate& date)
{
    if (m_bDraw) {
        QMReportText text;
        text.AddDate(date);
        Put(text.Get(), m_lLeft, m_lLeft + m_layout.lDateWidth, QMReportAlign::Right);
    }
}

void QMReportPage::Number(std::string_view text)
{
    const int32_t lLeft = m_lLeft + m_layout.lDateWidth + lGap;
    Put(text, lLeft, lLeft + m_layout.lNumberWidth, QMReportAlign::Centre);
}

void QMReportPage::Description(std::string_view text, bool bNumberColumn)
{
    const int32_t lNumber = bNumberColumn ? m_layout.lNumberWidth : 0;
    Label(text, m_layout.lDateWidth + lNumber + 2 * lGap);
}

void QMReportPage::Sign(std::string_view text)
{
    const int32_t lAmount = m_lRight - m_layout.lAmountWidth;
    Put(text, lAmount - 2 * lGap, lAmount - lGap, QMReportAlign::Centre);
}

void QMReportPage::AmountColumn(std::string_view text, int32_t lInset, int32_t lWidth)
{
    const int32_t lRight = m_lRight - lInset;
    Put(text, lRight - lWidth, lRight, QMReportAlign::Right);
}

void QMReportPage::EmptyRow()
{
    ShadeRow(0);
    Put("--- No Transactions ---", m_lLeft, m_lRight, QMReportAlign::Centre);
    EndRow();
}

void QMReportPage::TotalRule(bool bDebitCredit)
{
    const int32_t lWidth =
        bDebitCredit ? m_layout.lCreditWidth + m_layout.lDebitWidth : m_layout.lAmountWidth;
    if (m_bDraw) {
        Rule(m_lRight - lWidth - lTotalGap, Y() - 1);
    }
}

void QMReportPage::Rule(int32_t lFrom, int32_t lY)
{
    m_surface.PutLine(lFrom, lY, m_lRight + 1, lY);
}

void QMReportPage::ShadeRow(int64_t nRow)
{
    if (!m_bDraw || nRow % 2 != 0) {
        return;
    }
    m_surface.PutFill({m_lLeft, Y(), m_lRight, Y() + m_layout.lLineHeight}, QM_REPORT_SHADE_COLOR);
    m_surface.SetBkColor(QM_REPORT_SHADE_COLOR);
    m_bShaded = true;
}

void QMReportPage::EndRow()
{
    if (m_bShaded) {
        m_surface.SetBkColor(m_crBackground);
        m_bShaded = false;
    }
}
