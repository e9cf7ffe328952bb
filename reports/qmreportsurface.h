// QMReportSurface: what a report draws on, with no more than reports need. The program draws on
// bitmaps, qmktool on PDF pages and lines of text, and the tests on a list of drawing calls.
//
// Coordinates are pixels of the screen from the top left; colours are 0x00BBGGRR.
#pragma once

#include <cstdint>
#include <string_view>

#include "base/vrect.h"

enum class QMReportFont
{
    Standard, // the one of the surface before the report
    Normal,
    Bold,
};

enum class QMReportPen
{
    Standard,
    Rule, // solid, one pixel wide, QM_REPORT_RULE_COLOR
};

inline constexpr uint32_t QM_REPORT_RULE_COLOR = 0x404040;
inline constexpr uint32_t QM_REPORT_SHADE_COLOR = 0xEBEBEB;

// Where a text is in its rectangle. The values are the DT_ flags of Windows for a single line,
// vertically centred, without prefix characters.
enum class QMReportAlign : uint32_t
{
    Left = 0x824,
    Centre = 0x825,
    Right = 0x826,
};

// All four sides of a rectangle, for PutEdges.
inline constexpr uint32_t QM_REPORT_FRAME = 15;

struct QMReportExtent
{
    int32_t lWidth = 0;
    int32_t lHeight = 0;

    bool operator==(const QMReportExtent&) const = default;
};

class QMReportSurface
{
public:
    QMReportSurface() = default;
    QMReportSurface(const QMReportSurface&) = delete;
    QMReportSurface& operator=(const QMReportSurface&) = delete;
    virtual ~QMReportSurface() = default;

    // Choose the font or the pen for everything that follows. Return the one that was chosen
    // before.
    virtual QMReportFont SelectFont(QMReportFont font) = 0;
    virtual QMReportPen SelectPen(QMReportPen pen) = 0;

    // The size of a text in the chosen font.
    virtual QMReportExtent TextExtent(std::string_view text) = 0;

    // Draws one line of text in a rectangle. A text that is too wide runs over its edge.
    virtual void PutText(std::string_view text, const VRect& rect, QMReportAlign align) = 0;

    // Draws a straight line up to its end point, which is not drawn.
    virtual void PutLine(int32_t x1, int32_t y1, int32_t x2, int32_t y2) = 0;

    // Draws sides of a rectangle: 1 left, 2 top, 4 right (one pixel inside), 8 bottom (on the edge
    // itself).
    virtual void PutEdges(const VRect& rect, uint32_t uMask) = 0;

    virtual void PutFill(const VRect& rect, uint32_t crColor) = 0;

    // The background colour of texts. SetBkColor returns the former one.
    virtual uint32_t GetBkColor() = 0;
    virtual uint32_t SetBkColor(uint32_t crColor) = 0;
};

// Choose a font or a pen until their end. Scopes must end in the reverse order of their beginning.
class QMReportFontScope
{
public:
    QMReportFontScope(QMReportSurface& surface, QMReportFont font)
        : m_surface(surface), m_displaced(surface.SelectFont(font))
    {}
    QMReportFontScope(const QMReportFontScope&) = delete;
    QMReportFontScope& operator=(const QMReportFontScope&) = delete;
    ~QMReportFontScope() { m_surface.SelectFont(m_displaced); }

private:
    QMReportSurface& m_surface;
    QMReportFont m_displaced;
};

class QMReportPenScope
{
public:
    QMReportPenScope(QMReportSurface& surface, QMReportPen pen)
        : m_surface(surface), m_displaced(surface.SelectPen(pen))
    {}
    QMReportPenScope(const QMReportPenScope&) = delete;
    QMReportPenScope& operator=(const QMReportPenScope&) = delete;
    ~QMReportPenScope() { m_surface.SelectPen(m_displaced); }

private:
    QMReportSurface& m_surface;
    QMReportPen m_displaced;
};
