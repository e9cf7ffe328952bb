#include "qmktool/reporttext.h"

#include <algorithm>

#include "qmktool/jsonwriter.h"

namespace {

constexpr size_t uGap = 2;

// Cells put into lines of characters.
class TextPage
{
public:
    TextPage(Output& output, const ReportLines& lines) : m_output(output), m_lines(lines)
    {
        ForEachCell([&](const ReportCell& cell) {
            size_t& uWidth = m_auWidth[static_cast<size_t>(cell.place)];
            uWidth = std::max(uWidth, ColumnsOf(cell));
        });
        for (const ReportLine& line : lines.GetLines()) {
            m_uWidth = std::max(m_uWidth, WidthNeededBy(line));
        }
    }

    void Write() const
    {
        int32_t lNext = 0;
        for (const ReportLine& line : m_lines.GetLines()) {
            m_output.Fill(static_cast<size_t>(line.lLine - lNext), '\n');
            WriteLine(line);
            lNext = line.lLine + 1;
        }
    }

private:
    template <class F>
    void ForEachCell(F f) const
    {
        for (const ReportLine& line : m_lines.GetLines()) {
            std::for_each_n(m_lines.CellsOf(line), line.uCells, f);
        }
    }

    size_t ColumnsOf(const ReportCell& cell) const
    {
        return m_output.ColumnsOf(m_lines.TextOf(cell));
    }
    size_t WidthOf(ReportPlace place) const { return m_auWidth[static_cast<size_t>(place)]; }
    size_t NumberColumn() const { return WidthOf(ReportPlace::Date) + uGap; }
    size_t CreditColumn() const
    {
        return std::max(WidthOf(ReportPlace::Credit), WidthOf(ReportPlace::Total));
    }

    // Characters from the left, for what stands there.
    size_t StartOf(const ReportCell& cell, bool bNumberColumn) const
    {
        const size_t uFree = WidthOf(cell.place) - ColumnsOf(cell);
        switch (cell.place) {
            case ReportPlace::Date:
                return cell.bCentred ? uFree / 2 : uFree;
            case ReportPlace::Number:
                return NumberColumn() + uFree / 2;
            case ReportPlace::Description: {
                const size_t uNumber = WidthOf(ReportPlace::Number) + uGap;
                return NumberColumn() + (bNumberColumn ? uNumber : 0);
            }
            case ReportPlace::Indented:
                return uGap;
            default:
                return 0;
        }
    }

    // Characters from the right, for what ends there.
    size_t InsetOf(ReportPlace place) const
    {
        switch (place) {
            case ReportPlace::Debit:
            case ReportPlace::DebitTotal:
                return CreditColumn() + uGap;
            case ReportPlace::Sign:
                return WidthOf(ReportPlace::Amount) + uGap;
            default:
                return 0;
        }
    }

    static bool IsRight(ReportPlace place)
    {
        switch (place) {
            case ReportPlace::Dates:
            case ReportPlace::Amount:
            case ReportPlace::Debit:
            case ReportPlace::Credit:
            case ReportPlace::Sign:
            case ReportPlace::Total:
            case ReportPlace::DebitTotal:
                return true;
            default:
                return false;
        }
    }

    size_t WidthNeededBy(const ReportLine& line) const
    {
        size_t uLeft = 0;
        size_t uRight = 0;
        std::for_each_n(m_lines.CellsOf(line), line.uCells, [&](const ReportCell& cell) {
            if (IsRight(cell.place)) {
                uRight = std::max(uRight, InsetOf(cell.place) + ColumnsOf(cell) + uGap);
            } else {
                const size_t uStart = StartOf(cell, line.bNumberColumn);
                uLeft = std::max(uLeft, uStart + ColumnsOf(cell));
            }
        });
        return uLeft + uRight;
    }

    size_t ColumnOf(const ReportCell& cell, bool bNumberColumn) const
    {
        if (cell.place == ReportPlace::Centre) {
            return (m_uWidth - ColumnsOf(cell)) / 2;
        }
        return IsRight(cell.place) ? m_uWidth - InsetOf(cell.place) - ColumnsOf(cell)
                                   : StartOf(cell, bNumberColumn);
    }

    void WriteLine(const ReportLine& line) const
    {
        size_t uAt = 0;
        std::for_each_n(m_lines.CellsOf(line), line.uCells, [&](const ReportCell& cell) {
            const std::string_view text = m_lines.TextOf(cell);
            if (text.find_first_not_of(' ') == std::string_view::npos) {
                return; // no blanks at the end of a line
            }
            const size_t uColumn = ColumnOf(cell, line.bNumberColumn);
            m_output.Fill(uColumn > uAt ? uColumn - uAt : 0, ' ');
            uAt = std::max(uAt, uColumn) + m_output.AddShown(text);
        });
        m_output.Add('\n');
    }

    Output& m_output;
    const ReportLines& m_lines;
    size_t m_auWidth[REPORT_PLACE_COUNT] = {};
    size_t m_uWidth = 0;
};

void WriteJsonLine(JsonWriter& json, const ReportLines& lines, const ReportLine& line)
{
    json.BreakLine();
    json.BeginObject();
    json.Name("line");
    json.Integer(line.lLine);
    json.Name("bold");
    json.Boolean(line.bBold);
    json.Name("shaded");
    json.Boolean(line.bShaded);
    json.Name("cells");
    json.BeginArray();
    for (size_t u = 0; u < line.uCells; ++u) {
        const ReportCell& cell = lines.CellsOf(line)[u];
        json.BeginArray();
        json.Text(ReportPlaceName(cell.place));
        json.Text(lines.TextOf(cell));
        json.EndArray();
    }
    json.EndArray();
    json.EndObject();
}

} // namespace

void WriteReportText(Output& output, const ReportLines& lines)
{
    TextPage(output, lines).Write();
}

void WriteReportJson(Output& output, const ReportLines& lines, const QMReport& report,
                     uint32_t uKind, bool bCharacters)
{
    JsonWriter json(output, bCharacters);
    json.BeginObject();
    json.Name("kind");
    json.Integer(uKind);
    json.Name("name");
    json.Text(QMGetReportInfo(uKind)->szName);
    json.Name("from");
    json.Date(report.GetFrom());
    json.Name("to");
    json.Date(report.GetTo());
    json.Name("height");
    json.Integer(report.GetLineCount());
    json.Name("lines");
    json.BeginArray();
    for (const ReportLine& line : lines.GetLines()) {
        WriteJsonLine(json, lines, line);
    }
    json.EndArray();
    json.EndObject();
    output.Add('\n');
}
