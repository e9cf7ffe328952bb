#include "tests/support/reportrecorder.h"

#include <utility>

namespace {

std::string NumbersOf(std::initializer_list<int32_t> numbers)
{
    std::string sText;
    for (const int32_t lNumber : numbers) {
        sText += " " + std::to_string(lNumber);
    }
    return sText;
}

std::string PenName(QMReportPen pen)
{
    return pen == QMReportPen::Rule ? " rule" : " standard";
}

std::string FontName(QMReportFont font)
{
    switch (font) {
        case QMReportFont::Normal:
            return " normal";
        case QMReportFont::Bold:
            return " bold";
        default:
            return " standard";
    }
}

std::string AlignName(QMReportAlign align)
{
    return align == QMReportAlign::Left     ? " left"
           : align == QMReportAlign::Centre ? " centre"
                                            : " right";
}

} // namespace

QMReportExtent RecordedExtent(QMReportFont font, std::string_view text)
{
    const int32_t lBold = font == QMReportFont::Bold ? 1 : 0;
    int32_t lWidth = 0;
    for (const char c : text) {
        lWidth += 4 + static_cast<unsigned char>(c) % 4 + lBold;
    }
    return {lWidth, 12 + 2 * lBold};
}

std::string TextAct(QMReportFont font, QMReportAlign align, const VRect& rect,
                    uint32_t crBackground, std::string_view text)
{
    const bool bPaper = crBackground == ReportRecorder::crPaper;
    return "text" + FontName(font) + AlignName(align) +
           NumbersOf({rect.left, rect.top, rect.right, rect.bottom}) +
           (bPaper ? "" : " on " + std::to_string(crBackground)) + " '" + std::string(text) + "'";
}

std::string LineAct(QMReportPen pen, int32_t x1, int32_t y1, int32_t x2, int32_t y2)
{
    return "line" + PenName(pen) + NumbersOf({x1, y1, x2, y2});
}

std::string EdgesAct(QMReportPen pen, const VRect& rect, uint32_t uMask)
{
    return "edges" + PenName(pen) + NumbersOf({rect.left, rect.top, rect.right, rect.bottom}) +
           " mask " + std::to_string(uMask);
}

std::string FillAct(const VRect& rect, uint32_t crColor)
{
    return "fill" + NumbersOf({rect.left, rect.top, rect.right, rect.bottom}) + " with " +
           std::to_string(crColor);
}

QMReportFont ReportRecorder::SelectFont(QMReportFont font)
{
    return std::exchange(m_font, font);
}

QMReportPen ReportRecorder::SelectPen(QMReportPen pen)
{
    return std::exchange(m_pen, pen);
}

QMReportExtent ReportRecorder::TextExtent(std::string_view text)
{
    return RecordedExtent(m_font, text);
}

void ReportRecorder::PutText(std::string_view text, const VRect& rect, QMReportAlign align)
{
    m_acts.push_back(TextAct(m_font, align, rect, m_crBackground, text));
    m_texts.emplace_back(text);
}

void ReportRecorder::PutLine(int32_t x1, int32_t y1, int32_t x2, int32_t y2)
{
    m_acts.push_back(LineAct(m_pen, x1, y1, x2, y2));
}

void ReportRecorder::PutEdges(const VRect& rect, uint32_t uMask)
{
    m_acts.push_back(EdgesAct(m_pen, rect, uMask));
}

void ReportRecorder::PutFill(const VRect& rect, uint32_t crColor)
{
    m_acts.push_back(FillAct(rect, crColor));
}

uint32_t ReportRecorder::SetBkColor(uint32_t crColor)
{
    return std::exchange(m_crBackground, crColor);
}

void ReportRecorder::Forget()
{
    m_acts.clear();
    m_texts.clear();
}

bool ReportRecorder::IsAsFound() const
{
    return m_font == QMReportFont::Standard && m_pen == QMReportPen::Standard &&
           m_crBackground == crPaper;
}
