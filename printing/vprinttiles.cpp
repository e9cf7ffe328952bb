#include "printing/vprinttiles.h"

#include <algorithm>
#include <limits>

namespace {

int32_t Times(int32_t a, int32_t b)
{
    return static_cast<int32_t>(
        std::min<int64_t>(int64_t{a} * b, std::numeric_limits<int32_t>::max()));
}

class TileWalk
{
public:
    TileWalk(const VPrintTiling& t, const std::function<bool(const VPrintTile&)>& print)
        : m_t(t), m_print(print)
    {}

    bool Run()
    {
        const int32_t lColumns = m_t.sizeDevice.cx / Dots().cx;
        for (int32_t i = 0; i < lColumns; ++i) {
            if (!Column(i) || (RestY() > 0 && !BottomStrip(i))) {
                return false;
            }
        }
        return RestX() <= 0 || RestY() <= 0 || Corner();
    }

private:
    const VSize& Dots() const { return m_t.sizeDotsPerInch; }
    const VSize& Screen() const { return m_t.sizeScreenDotsPerInch; }
    int32_t RestX() const { return m_t.sizeDevice.cx % Dots().cx; }
    int32_t RestY() const { return m_t.sizeDevice.cy % Dots().cy; }
    int32_t SourceRestX() const { return m_t.sizePage.cx % Screen().cx; }
    int32_t SourceRestY() const { return m_t.sizePage.cy % Screen().cy; }

    bool Column(int32_t i)
    {
        const int32_t lRows = m_t.sizeDevice.cy / Dots().cy;
        // Kept: the column at the right edge is told by the vertical resolution. On a printer with
        // unequal resolutions the strip is drawn beside another column's rows, or never.
        const bool bRightEdge = i == m_t.sizeDevice.cx / Dots().cy - 1 && RestX() > 0;
        for (int32_t j = 0; j < lRows; ++j) {
            if (!Square(i, j) || (bRightEdge && !RightStrip(j))) {
                return false;
            }
        }
        return true;
    }

    bool Square(int32_t i, int32_t j)
    {
        return m_print({Times(Dots().cx, i), Times(Dots().cy, j), Dots().cx, Dots().cy,
                        Times(Screen().cx, i), Times(Screen().cy, j), Screen().cx, Screen().cy});
    }

    bool RightStrip(int32_t j)
    {
        return m_print({m_t.sizeDevice.cx - RestX(), Times(Dots().cy, j), RestX(), Dots().cy,
                        m_t.sizePage.cx - SourceRestX(), Times(Screen().cy, j), SourceRestX(),
                        Screen().cy});
    }

    bool BottomStrip(int32_t i)
    {
        return m_print({Times(Dots().cx, i), m_t.sizeDevice.cy - RestY(), Dots().cx, RestY(),
                        Times(Screen().cx, i), m_t.sizePage.cy - SourceRestY(), Screen().cx,
                        SourceRestY()});
    }

    bool Corner()
    {
        return m_print({m_t.sizeDevice.cx - RestX(), m_t.sizeDevice.cy - RestY(), RestX(), RestY(),
                        m_t.sizePage.cx - SourceRestX(), m_t.sizePage.cy - SourceRestY(),
                        SourceRestX(), SourceRestY()});
    }

    const VPrintTiling& m_t;
    const std::function<bool(const VPrintTile&)>& m_print;
};

} // namespace

bool VForEachPrintTile(const VPrintTiling& tiling,
                       const std::function<bool(const VPrintTile&)>& print)
{
    const VSize& dots = tiling.sizeDotsPerInch;
    const VSize& screen = tiling.sizeScreenDotsPerInch;
    return std::min({dots.cx, dots.cy, screen.cx, screen.cy}) > 0 && TileWalk(tiling, print).Run();
}
