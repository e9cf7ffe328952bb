#include "qmktool/reportlines.h"

#include <utility>

#include "qmktool/toolprogress.h"

namespace {

// Wide enough that columns from the left never meet columns from the right.
constexpr int32_t lPageWidth = 1000000;

} // namespace

const char* ReportPlaceName(ReportPlace place)
{
    constexpr const char* aszNames[REPORT_PLACE_COUNT] = {
        "title",  "dates", "label",  "indented", "date",  "number",      "description",
        "amount", "debit", "credit", "sign",     "total", "debit-total", "centre",
    };
    return aszNames[static_cast<size_t>(place)];
}

bool ReportLines::Take(QMReport& report, uint32_t uKind)
{
    VRect page = {0, 0, lPageWidth, 0};
    const VRect margins;
    if (!report.Measure(uKind, *this, page, margins)) {
        return false;
    }
    m_layout = report.GetLayout();
    m_bDebitCredit = QMGetReportInfo(uKind)->bDebitCredit;
    ToolProgress progress("reporting", 1, "lines");
    m_pProgress = &progress;
    m_lHeight = page.bottom;
    const bool bDrawn = report.Draw(*this, page, margins);
    m_pProgress = nullptr;
    return bDrawn;
}

QMReportFont ReportLines::SelectFont(QMReportFont font)
{
    return std::exchange(m_font, font);
}

ReportLine& ReportLines::LineAt(int32_t y)
{
    const int32_t lLine = y / m_layout.lLineHeight;
    if (m_lines.empty() || m_lines.back().lLine != lLine) {
        ReportLine line;
        line.lLine = lLine;
        line.uFirstCell = m_cells.size();
        m_lines.push_back(line);
        if (m_pProgress != nullptr) {
            m_pProgress->OnStep(static_cast<uint64_t>(y), static_cast<uint64_t>(m_lHeight));
        }
    }
    return m_lines.back();
}

void ReportLines::PutFill(const VRect& rect, uint32_t /*crColor*/)
{
    LineAt(rect.top).bShaded = true;
}

void ReportLines::PutText(std::string_view text, const VRect& rect, QMReportAlign align)
{
    ReportLine& line = LineAt(rect.top);
    if (line.uCells == 0) {
        line.bBold = m_font == QMReportFont::Bold;
    }
    const ReportPlace place = PlaceOf(rect, align, line);
    if (place == ReportPlace::Description) {
        line.bNumberColumn = rect.left > NoNumberColumn();
    }
    m_cells.push_back({place, align == QMReportAlign::Centre, m_sText.size(), text.size()});
    m_sText.append(text);
    ++line.uCells;
}

ReportPlace ReportLines::PlaceOf(const VRect& rect, QMReportAlign align,
                                 const ReportLine& line) const
{
    switch (align) {
        case QMReportAlign::Left:
            return LeftPlaceOf(rect);
        case QMReportAlign::Centre:
            return CentrePlaceOf(rect);
        default:
            return RightPlaceOf(rect, line);
    }
}

ReportPlace ReportLines::LeftPlaceOf(const VRect& rect) const
{
    if (m_font == QMReportFont::Bold) {
        return ReportPlace::Title;
    }
    if (rect.left == 0) {
        return ReportPlace::Label;
    }
    return rect.left < m_layout.lDateWidth + 20 ? ReportPlace::Indented : ReportPlace::Description;
}

ReportPlace ReportLines::CentrePlaceOf(const VRect& rect) const
{
    if (rect.left == 0) {
        return rect.right == lPageWidth ? ReportPlace::Centre : ReportPlace::Date;
    }
    return rect.left < lPageWidth / 2 ? ReportPlace::Number : ReportPlace::Sign;
}

// Lines of totals and lines of the summary both begin with a label. In the summary a sign follows.
bool ReportLines::IsTotalLine(const ReportLine& line) const
{
    return line.uCells > 0 && m_cells[line.uFirstCell].place == ReportPlace::Label &&
           m_cells.back().place != ReportPlace::Sign;
}

ReportPlace ReportLines::RightPlaceOf(const VRect& rect, const ReportLine& line) const
{
    if (line.lLine == 0) {
        return ReportPlace::Dates;
    }
    if (rect.left == 0 && rect.right == m_layout.lDateWidth) {
        return ReportPlace::Date;
    }
    const bool bTotal = IsTotalLine(line);
    if (rect.right < lPageWidth) {
        return bTotal ? ReportPlace::DebitTotal : ReportPlace::Debit;
    }
    if (bTotal) {
        return ReportPlace::Total;
    }
    return m_bDebitCredit ? ReportPlace::Credit : ReportPlace::Amount;
}
