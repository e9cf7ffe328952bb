// QMReportPage: one pass over a report, to measure or to draw. It has the rules of drawing that all
// reports share: the columns, the headings, the shading of rows, the lines above totals.
#pragma once

#include <cstdint>
#include <string_view>

#include "account/qmdate.h"
#include "reports/qmreportsurface.h"

inline constexpr int32_t QM_REPORT_SCREEN_WIDTH = 651;
inline constexpr int32_t QM_REPORT_SCREEN_MARGIN = 15;

// The sizes of a report's texts, in pixels.
struct QMReportLayout
{
    int32_t lLineHeight = 0;
    int32_t lAmountWidth = 0;
    int32_t lDebitWidth = 0;
    int32_t lCreditWidth = 0;
    int32_t lDateWidth = 0;
    int32_t lNumberWidth = 0;

    bool operator==(const QMReportLayout&) const = default;
};

class QMReportPage
{
public:
    // page, margins and layout must live longer than this object. Without bDraw nothing is drawn,
    // but y moves in the same way.
    QMReportPage(QMReportSurface& surface, QMReportLayout& layout, const VRect& page,
                 const VRect& margins, bool bDraw);

    QMReportSurface& GetSurface() { return m_surface; }
    QMReportLayout& GetLayout() { return m_layout; }
    bool IsDrawing() const { return m_bDraw; }

    // The present vertical position. It grows by whole lines, except for the top margin.
    int64_t GetY() const { return m_y; }
    void StartBelowTop() { m_y += m_lTop; }
    void MoveDown(int32_t lLines) { m_y += int64_t{m_layout.lLineHeight} * lLines; }

    // Everything below draws in the present line with the chosen font and pen. A pass that measures
    // draws nothing.

    // Draws a title. Returns the width and height of its text.
    QMReportExtent Title(std::string_view text, int32_t lIndent = 0);
    void FrameTitle(int32_t lHeight);
    // Draws a text at the left margin, or lIndent pixels to the right of it.
    void Label(std::string_view text, int32_t lIndent = 0);
    // Draws a text that ends lInset pixels before the right margin.
    QMReportExtent Total(std::string_view text, int32_t lInset = 0);
    // The rule below the head line of a report.
    void HeadRule(int32_t lTextHeight);

    // The heads of the columns and the rule below them.
    void ColumnHeads(std::string_view date, bool bNumber, bool bDebitCredit);

    void Date(const QMDate& date);
    void Number(std::string_view text);
    void Description(std::string_view text, bool bNumberColumn);
    void Amount(std::string_view text) { AmountColumn(text, 0, m_layout.lAmountWidth); }
    void Debit(std::string_view text)
    {
        AmountColumn(text, m_layout.lCreditWidth, m_layout.lDebitWidth);
    }
    void Credit(std::string_view text) { AmountColumn(text, 0, m_layout.lCreditWidth); }
    // The sign before the amount of a line of the summary.
    void Sign(std::string_view text);

    // The row of a section that has none.
    void EmptyRow();
    // The rule above a total.
    void TotalRule(bool bDebitCredit);

    // Shades a row with an even number and its texts. Rows with odd numbers stay white.
    void ShadeRow(int64_t nRow);
    void EndRow();

private:
    void Put(std::string_view text, int32_t lLeft, int32_t lRight, QMReportAlign align);
    void AmountColumn(std::string_view text, int32_t lInset, int32_t lWidth);
    void Rule(int32_t lFrom, int32_t lY);
    int32_t Y() const { return static_cast<int32_t>(m_y); }

    QMReportSurface& m_surface;
    QMReportLayout& m_layout;
    int32_t m_lLeft;
    int32_t m_lRight;
    int32_t m_lTop;
    bool m_bDraw;
    int64_t m_y = 0;
    uint32_t m_crBackground; // that of the surface before the pass
    bool m_bShaded = false;
};
