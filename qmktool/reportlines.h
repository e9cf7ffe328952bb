// A report as lines of text. Each line has texts, and each text has its place. qmktool prints them.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "account/qmprogress.h"
#include "reports/qmreport.h"

enum class ReportPlace : uint8_t
{
    Title,    // a bold title
    Dates,    // the range in the head line
    Label,    // normal text at the left
    Indented, // the note that there are no details
    Date,     // this and the next five are columns with a heading
    Number,
    Description,
    Amount,
    Debit,
    Credit,
    Sign,  // of a line of the summary
    Total, // ends at the right, at its own width
    DebitTotal,
    Centre, // the note in a section without rows
};
inline constexpr size_t REPORT_PLACE_COUNT = 14;

// "debit-total", for instance.
const char* ReportPlaceName(ReportPlace place);

struct ReportCell
{
    ReportPlace place;
    bool bCentred;
    size_t uStart; // in the lines' text
    size_t uLength;
};

struct ReportLine
{
    int32_t lLine = 0; // counted from the head line, which is 0
    bool bBold = false;
    bool bShaded = false;
    bool bNumberColumn = false; // in front of the description
    size_t uFirstCell = 0;
    size_t uCells = 0;
};

class ReportLines : public QMReportSurface
{
public:
    // Draws the report. Returns false when the report refuses to be drawn.
    bool Take(QMReport& report, uint32_t uKind);

    const std::vector<ReportLine>& GetLines() const { return m_lines; }
    const ReportCell* CellsOf(const ReportLine& line) const { return &m_cells[line.uFirstCell]; }
    std::string_view TextOf(const ReportCell& cell) const
    {
        return std::string_view(m_sText).substr(cell.uStart, cell.uLength);
    }

    QMReportFont SelectFont(QMReportFont font) override;
    QMReportPen SelectPen(QMReportPen pen) override { return pen; }
    // A character is one unit wide and one unit high. The page is wider than any text.
    QMReportExtent TextExtent(std::string_view text) override
    {
        return {static_cast<int32_t>(text.size()), 1};
    }
    void PutText(std::string_view text, const VRect& rect, QMReportAlign align) override;
    void PutLine(int32_t, int32_t, int32_t, int32_t) override {}
    void PutEdges(const VRect&, uint32_t) override {}
    void PutFill(const VRect& rect, uint32_t crColor) override;
    uint32_t GetBkColor() override { return 0; }
    uint32_t SetBkColor(uint32_t) override { return 0; }

private:
    // Where a description begins when there is no number before it.
    int32_t NoNumberColumn() const { return m_layout.lDateWidth + 20; }
    ReportLine& LineAt(int32_t y);
    ReportPlace PlaceOf(const VRect& rect, QMReportAlign align, const ReportLine& line) const;
    ReportPlace LeftPlaceOf(const VRect& rect) const;
    ReportPlace CentrePlaceOf(const VRect& rect) const;
    ReportPlace RightPlaceOf(const VRect& rect, const ReportLine& line) const;
    bool IsTotalLine(const ReportLine& line) const;

    QMReportLayout m_layout;
    bool m_bDebitCredit = false;
    QMReportFont m_font = QMReportFont::Standard;
    std::vector<ReportLine> m_lines;
    std::vector<ReportCell> m_cells;
    std::string m_sText;
    QMProgress* m_pProgress = nullptr; // told of the lines while the report is drawn
    int32_t m_lHeight = 0;
};
