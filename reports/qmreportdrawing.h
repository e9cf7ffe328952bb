// QMReportDrawing: the surface of reports over a device context.
#pragma once

#include <optional>

#include "reports/qmreportsurface.h"
#include "toolkit/vdrawingsurface.h"
#include "toolkit/vgdiobjects.h"

// The fonts and the pen of a report.
struct QMReportTools
{
    VFont fontNormal;
    VFont fontBold;
    VPen penRule;
};

class QMReportDrawing : public QMReportSurface
{
public:
    // Surface and tools must outlive this. What it selects it takes back at its end.
    QMReportDrawing(VDrawingSurface& surface, const QMReportTools& tools)
        : m_surface(surface), m_tools(tools), m_brushShade(QM_REPORT_SHADE_COLOR)
    {}

    QMReportFont SelectFont(QMReportFont font) override;
    QMReportPen SelectPen(QMReportPen pen) override;
    QMReportExtent TextExtent(std::string_view text) override;
    void PutText(std::string_view text, const VRect& rect, QMReportAlign align) override;
    void PutLine(int32_t x1, int32_t y1, int32_t x2, int32_t y2) override;
    void PutEdges(const VRect& rect, uint32_t uMask) override;
    void PutFill(const VRect& rect, uint32_t crColor) override;
    uint32_t GetBkColor() override { return m_surface.GetBkColor(); }
    uint32_t SetBkColor(uint32_t crColor) override { return m_surface.SetBkColor(crColor); }

private:
    VDrawingSurface& m_surface;
    const QMReportTools& m_tools;
    VBrush m_brushShade;
    QMReportFont m_font = QMReportFont::Standard;
    QMReportPen m_pen = QMReportPen::Standard;
    std::optional<VSelectScope> m_fontScope;
    std::optional<VSelectScope> m_penScope;
};
