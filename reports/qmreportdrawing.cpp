#include "reports/qmreportdrawing.h"

#include <utility>

QMReportFont QMReportDrawing::SelectFont(QMReportFont font)
{
    m_fontScope.reset();
    if (font != QMReportFont::Standard) {
        const VFont& chosen = font == QMReportFont::Bold ? m_tools.fontBold : m_tools.fontNormal;
        m_fontScope.emplace(m_surface, chosen.GetHandle());
    }
    return std::exchange(m_font, font);
}

QMReportPen QMReportDrawing::SelectPen(QMReportPen pen)
{
    m_penScope.reset();
    if (pen != QMReportPen::Standard) {
        m_penScope.emplace(m_surface, m_tools.penRule.GetHandle());
    }
    return std::exchange(m_pen, pen);
}

QMReportExtent QMReportDrawing::TextExtent(std::string_view text)
{
    const SIZE size = m_surface.TextExtent(text.data(), static_cast<int>(text.size()));
    return {size.cx, size.cy};
}

void QMReportDrawing::PutText(std::string_view text, const VRect& rect, QMReportAlign align)
{
    if (!text.empty()) {
        VRect place = rect;
        m_surface.DrawText(text.data(), place, static_cast<UINT>(align) | DT_NOCLIP,
                           static_cast<int>(text.size()));
    }
}

void QMReportDrawing::PutLine(int32_t x1, int32_t y1, int32_t x2, int32_t y2)
{
    m_surface.MoveTo(x1, y1);
    m_surface.LineTo(x2, y2);
}

void QMReportDrawing::PutEdges(const VRect& rect, uint32_t uMask)
{
    m_surface.DrawEdges(rect, uMask);
}

void QMReportDrawing::PutFill(const VRect& rect, uint32_t crColor)
{
    if (crColor == QM_REPORT_SHADE_COLOR) {
        m_surface.FillRect(rect, m_brushShade.GetHandle());
    } else {
        const VBrush brush(crColor);
        m_surface.FillRect(rect, brush.GetHandle());
    }
}
