// A surface that writes down what a report draws on it, with metrics of its own.
#pragma once

#include <string>
#include <vector>

#include "reports/qmreportsurface.h"

// The metrics of the fonts. Characters differ in width, and bold ones are wider and higher.
QMReportExtent RecordedExtent(QMReportFont font, std::string_view text);

// Each drawing call as a line of text. The recorder and the tests' own rules both use these
// functions.
std::string TextAct(QMReportFont font, QMReportAlign align, const VRect& rect,
                    uint32_t crBackground, std::string_view text);
std::string LineAct(QMReportPen pen, int32_t x1, int32_t y1, int32_t x2, int32_t y2);
std::string EdgesAct(QMReportPen pen, const VRect& rect, uint32_t uMask);
std::string FillAct(const VRect& rect, uint32_t crColor);

class ReportRecorder : public QMReportSurface
{
public:
    static constexpr uint32_t crPaper = 0xFEFDFC;

    QMReportFont SelectFont(QMReportFont font) override;
    QMReportPen SelectPen(QMReportPen pen) override;
    QMReportExtent TextExtent(std::string_view text) override;
    void PutText(std::string_view text, const VRect& rect, QMReportAlign align) override;
    void PutLine(int32_t x1, int32_t y1, int32_t x2, int32_t y2) override;
    void PutEdges(const VRect& rect, uint32_t uMask) override;
    void PutFill(const VRect& rect, uint32_t crColor) override;
    uint32_t GetBkColor() override { return m_crBackground; }
    uint32_t SetBkColor(uint32_t crColor) override;

    const std::vector<std::string>& GetActs() const { return m_acts; }
    // Only the texts, in the order of drawing.
    const std::vector<std::string>& GetTexts() const { return m_texts; }
    void Forget();

    // Whether font, pen and background are again those from the start.
    bool IsAsFound() const;

private:
    std::vector<std::string> m_acts;
    std::vector<std::string> m_texts;
    QMReportFont m_font = QMReportFont::Standard;
    QMReportPen m_pen = QMReportPen::Standard;
    uint32_t m_crBackground = crPaper;
};
