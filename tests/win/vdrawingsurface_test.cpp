#include "toolkit/vdrawingsurface.h"

#include <gtest/gtest.h>

#include "tests/win/support.h"
#include "toolkit/vgdiobjects.h"

namespace {

constexpr int nWidth = 12;
constexpr int nHeight = 9;

// White paper in memory, for looking at single pixels.
class Canvas
{
public:
    Canvas()
    {
        BITMAPINFO info = {};
        info.bmiHeader.biSize = sizeof info.bmiHeader;
        info.bmiHeader.biWidth = nWidth;
        info.bmiHeader.biHeight = -nHeight;
        info.bmiHeader.biPlanes = 1;
        info.bmiHeader.biBitCount = 32;
        void* pBits = nullptr;
        m_surface.Attach(CreateCompatibleDC(nullptr), true);
        m_bitmap.Attach(
            CreateDIBSection(m_surface.GetHandle(), &info, DIB_RGB_COLORS, &pBits, nullptr, 0));
        m_hDisplaced = SelectObject(m_surface.GetHandle(), m_bitmap.GetHandle());
        EXPECT_TRUE(m_surface.PatBlt(0, 0, nWidth, nHeight, WHITENESS));
    }
    ~Canvas() { SelectObject(m_surface.GetHandle(), m_hDisplaced); }

    COLORREF Pixel(int x, int y) const { return GetPixel(m_surface.GetHandle(), x, y); }

    // One character for each pixel: a blank for white.
    std::vector<std::string> Rows() const
    {
        std::vector<std::string> rows(nHeight, std::string(nWidth, ' '));
        for (int y = 0; y < nHeight; ++y) {
            for (int x = 0; x < nWidth; ++x) {
                const COLORREF cr = Pixel(x, y);
                rows[static_cast<size_t>(y)][static_cast<size_t>(x)] = cr == RGB(255, 255, 255)
                                                                           ? ' '
                                                                       : cr == 0 ? '#'
                                                                                 : 'c';
            }
        }
        return rows;
    }

    VDrawingSurface m_surface;

private:
    VBitmap m_bitmap;
    HGDIOBJ m_hDisplaced = nullptr;
};

using Rows = std::vector<std::string>;

// The sides of a rectangle, drawn by the black pen.
Rows Edges(const VRect& rect, uint32_t uMask)
{
    Canvas canvas;
    canvas.m_surface.DrawEdges(rect, uMask);
    return canvas.Rows();
}

// A surface that notes when its handle is freed.
class VCountingSurface : public VDrawingSurface
{
public:
    explicit VCountingSurface(int& nFreed) : m_nFreed(nFreed) {}
    ~VCountingSurface() override { Release(); }

protected:
    void Free(HDC hDC) override
    {
        ++m_nFreed;
        VDrawingSurface::Free(hDC);
    }

private:
    int& m_nFreed;
};

HDC MakeDevice()
{
    return CreateCompatibleDC(nullptr);
}

} // namespace

TEST(VDrawingSurface, TheLeftEdgeGoesUpToTheTop)
{
    EXPECT_EQ(Edges({2, 3, 8, 7}, 1),
              (Rows{"            ", "            ", "            ", "  #         ", "  #         ",
                    "  #         ", "  #         ", "  #         ", "            "}));
}

TEST(VDrawingSurface, TheTopEdgeLeavesTheRightEnd)
{
    EXPECT_EQ(Edges({2, 3, 8, 7}, 2),
              (Rows{"            ", "            ", "            ", "  ######    ", "            ",
                    "            ", "            ", "            ", "            "}));
}

TEST(VDrawingSurface, TheRightEdgeLiesInsideAndLeavesTheBottom)
{
    EXPECT_EQ(Edges({2, 3, 8, 7}, 4),
              (Rows{"            ", "            ", "            ", "       #    ", "       #    ",
                    "       #    ", "       #    ", "            ", "            "}));
}

TEST(VDrawingSurface, TheBottomEdgeLiesOnTheBottom)
{
    EXPECT_EQ(Edges({2, 3, 8, 7}, 8),
              (Rows{"            ", "            ", "            ", "            ", "            ",
                    "            ", "            ", "  ######    ", "            "}));
}

TEST(VDrawingSurface, AllEdgesMakeAFrame)
{
    EXPECT_EQ(Edges({2, 3, 8, 7}, 15),
              (Rows{"            ", "            ", "            ", "  ######    ", "  #    #    ",
                    "  #    #    ", "  #    #    ", "  ######    ", "            "}));
    EXPECT_EQ(Edges({2, 3, 8, 7}, 0), Rows(nHeight, std::string(nWidth, ' ')));
    EXPECT_EQ(Edges({2, 3, 8, 7}, 0xFFFFFFF0U), Rows(nHeight, std::string(nWidth, ' ')));
}

TEST(VDrawingSurface, AFrameWithoutHeightIsARule)
{
    EXPECT_EQ(Edges({2, 5, 8, 5}, 15),
              (Rows{"            ", "            ", "            ", "            ", "            ",
                    "  ######    ", "            ", "            ", "            "}));
}

TEST(VDrawingSurface, ALineLeavesItsEndOut)
{
    Canvas canvas;
    const VPen pen(PS_SOLID, 1, RGB(0, 0, 255));
    const VSelectScope scope(canvas.m_surface, pen.GetHandle());
    canvas.m_surface.MoveTo(3, 2);
    canvas.m_surface.LineTo(6, 2);
    EXPECT_EQ(canvas.Pixel(3, 2), RGB(0, 0, 255));
    EXPECT_EQ(canvas.Pixel(5, 2), RGB(0, 0, 255));
    EXPECT_EQ(canvas.Pixel(6, 2), RGB(255, 255, 255));
    EXPECT_EQ(canvas.Pixel(2, 2), RGB(255, 255, 255));
}

TEST(VDrawingSurface, FillRectTouchesNoBrushAndNoEdge)
{
    Canvas canvas;
    HGDIOBJ hBrush = GetCurrentObject(canvas.m_surface.GetHandle(), OBJ_BRUSH);
    canvas.m_surface.FillRect({2, 3, 8, 7}, VBrush(RGB(235, 235, 235)).GetHandle());
    EXPECT_EQ(canvas.Pixel(2, 3), RGB(235, 235, 235));
    EXPECT_EQ(canvas.Pixel(7, 6), RGB(235, 235, 235));
    EXPECT_EQ(canvas.Pixel(8, 6), RGB(255, 255, 255));
    EXPECT_EQ(canvas.Pixel(7, 7), RGB(255, 255, 255));
    EXPECT_EQ(GetCurrentObject(canvas.m_surface.GetHandle(), OBJ_BRUSH), hBrush);
}

TEST(VDrawingSurface, CopiesPixels)
{
    Canvas source;
    source.m_surface.FillRect({0, 0, 4, 4}, VBrush(RGB(255, 0, 255)).GetHandle());
    Canvas target;
    target.m_surface.FillRect({0, 0, nWidth, nHeight}, VBrush(RGB(255, 255, 0)).GetHandle());
    EXPECT_TRUE(target.m_surface.BitBlt(5, 5, 3, 3, source.m_surface, 2, 2, SRCCOPY));
    EXPECT_EQ(target.Pixel(6, 6), RGB(255, 0, 255));
    EXPECT_EQ(target.Pixel(7, 7), RGB(255, 255, 255));
    EXPECT_EQ(target.Pixel(8, 7), RGB(255, 255, 0));
    EXPECT_TRUE(target.m_surface.BitBlt(0, 0, 3, 3, source.m_surface, 0, 0, SRCAND));
    EXPECT_EQ(target.Pixel(1, 1), RGB(255, 0, 0));
}

TEST(VDrawingSurface, StretchesPixels)
{
    Canvas source;
    source.m_surface.FillRect({1, 0, 2, 1}, VBrush(RGB(255, 0, 255)).GetHandle());
    Canvas target;
    EXPECT_NE(target.m_surface.SetStretchBltMode(BLACKONWHITE), 0);
    EXPECT_EQ(target.m_surface.SetStretchBltMode(HALFTONE), BLACKONWHITE);
    EXPECT_EQ(target.m_surface.SetStretchBltMode(COLORONCOLOR), HALFTONE);
    EXPECT_TRUE(target.m_surface.StretchBlt(0, 0, 8, 4, source.m_surface, 0, 0, 2, 1, SRCCOPY));
    EXPECT_EQ(target.Pixel(3, 3), RGB(255, 255, 255));
    EXPECT_EQ(target.Pixel(4, 0), RGB(255, 0, 255));
    EXPECT_EQ(target.Pixel(7, 3), RGB(255, 0, 255));
    EXPECT_EQ(target.Pixel(8, 3), RGB(255, 255, 255));
}

TEST(VDrawingSurface, FailuresAreFalse)
{
    VDrawingSurface none;
    const Canvas canvas;
    EXPECT_FALSE(none.PatBlt(0, 0, 5, 5, WHITENESS));
    EXPECT_FALSE(none.BitBlt(0, 0, 5, 5, canvas.m_surface, 0, 0, SRCCOPY));
    EXPECT_FALSE(none.StretchBlt(0, 0, 5, 5, canvas.m_surface, 0, 0, 5, 5, SRCCOPY));
    EXPECT_EQ(none.SetStretchBltMode(BLACKONWHITE), 0);
    EXPECT_FALSE(none.SaveDC());
    EXPECT_FALSE(none.RestoreDC());
}

TEST(VDrawingSurface, ColoursAndModesAreTheDevicesOwn)
{
    Canvas canvas;
    VDrawingSurface& surface = canvas.m_surface;
    surface.SetBkColor(RGB(1, 2, 3));
    EXPECT_EQ(surface.SetBkColor(RGB(4, 5, 6)), RGB(1, 2, 3));
    EXPECT_EQ(surface.GetBkColor(), RGB(4, 5, 6));
    surface.SetTextColor(RGB(7, 8, 9));
    EXPECT_EQ(surface.GetTextColor(), RGB(7, 8, 9));
    EXPECT_EQ(surface.SetBkMode(TRANSPARENT), OPAQUE);
    EXPECT_EQ(surface.GetBkMode(), TRANSPARENT);
    EXPECT_EQ(surface.GetMapMode(), MM_TEXT);
    EXPECT_EQ(surface.SetMapMode(MM_ISOTROPIC), MM_TEXT);
    EXPECT_EQ(surface.GetMapMode(), MM_ISOTROPIC);
    EXPECT_GT(surface.GetDeviceCaps(LOGPIXELSY), 0);
}

TEST(VDrawingSurface, MeasuresAndDrawsTexts)
{
    Canvas canvas;
    VDrawingSurface& surface = canvas.m_surface;
    const SIZE one = surface.TextExtent("iW", 1);
    const SIZE two = surface.TextExtent("iW", 2);
    EXPECT_GT(one.cx, 0);
    EXPECT_GT(two.cx, one.cx);
    EXPECT_EQ(two.cy, one.cy);
    VRect rect = {0, 0, 1, 1};
    EXPECT_EQ(surface.DrawText("iW", rect, DT_CALCRECT | DT_SINGLELINE), two.cy);
    EXPECT_EQ(rect, (VRect{0, 0, two.cx, two.cy}));
    EXPECT_EQ(surface.DrawText("iW", rect, DT_CALCRECT | DT_SINGLELINE, 1), one.cy);
    EXPECT_EQ(rect.right, one.cx);
    VRect paper = {0, 0, nWidth, nHeight};
    surface.SetTextColor(RGB(0, 0, 0));
    surface.DrawText("WWW", paper, 0x824);
    EXPECT_NE(canvas.Rows(), Rows(nHeight, std::string(nWidth, ' ')));
}

TEST(VDrawingSurface, ASavedStateComesBack)
{
    Canvas canvas;
    VDrawingSurface& surface = canvas.m_surface;
    surface.SetTextColor(RGB(1, 1, 1));
    EXPECT_TRUE(surface.SaveDC());
    surface.SetTextColor(RGB(2, 2, 2));
    EXPECT_TRUE(surface.RestoreDC());
    EXPECT_EQ(surface.GetTextColor(), RGB(1, 1, 1));
    EXPECT_FALSE(surface.RestoreDC());
}

TEST(VDrawingSurface, ASavedStateComesBackAtTheEnd)
{
    HDC hDC = MakeDevice();
    SetTextColor(hDC, RGB(1, 1, 1));
    {
        VDrawingSurface surface;
        surface.Attach(hDC, false);
        surface.SaveDC();
        surface.SetTextColor(RGB(2, 2, 2));
    }
    EXPECT_EQ(GetTextColor(hDC), RGB(1, 1, 1));
    VDrawingSurface surface;
    surface.Attach(hDC, false);
    surface.SaveDC();
    surface.SetTextColor(RGB(2, 2, 2));
    surface.Attach(nullptr, false);
    EXPECT_EQ(GetTextColor(hDC), RGB(1, 1, 1));
    DeleteDC(hDC);
}

TEST(VDrawingSurface, FreesWhatItOwns)
{
    int nFreed = 0;
    HDC hFirst = MakeDevice();
    HDC hForeign = MakeDevice();
    HDC hLast = MakeDevice();
    {
        VCountingSurface surface(nFreed);
        EXPECT_EQ(surface.GetHandle(), nullptr);
        EXPECT_EQ(surface.Attach(hFirst, true), hFirst);
        EXPECT_EQ(surface.Attach(hForeign, false), hForeign);
        EXPECT_EQ(nFreed, 1);
        EXPECT_EQ(GetObjectType(hFirst), 0U);
        surface.Attach(hLast, true);
        EXPECT_EQ(nFreed, 1);
        EXPECT_EQ(GetObjectType(hForeign), static_cast<DWORD>(OBJ_MEMDC));
    }
    EXPECT_EQ(nFreed, 2);
    EXPECT_EQ(GetObjectType(hLast), 0U);
    DeleteDC(hForeign);
}

TEST(VDrawingSurface, MakesCompatibleOnes)
{
    const Canvas canvas;
    VDrawingSurface target;
    HDC hFormer = target.Attach(MakeDevice(), true);
    EXPECT_TRUE(canvas.m_surface.CreateCompatible(target));
    EXPECT_EQ(GetObjectType(hFormer), 0U);
    EXPECT_EQ(GetObjectType(target.GetHandle()), static_cast<DWORD>(OBJ_MEMDC));
    const VMemorySurface memory(canvas.m_surface);
    EXPECT_NE(memory.GetHandle(), nullptr);
}

TEST(VClientSurface, DrawsOnAWindow)
{
    VWindow window;
    ASSERT_TRUE(CreateTestWindow(window));
    window.Show(SW_SHOWNOACTIVATE);
    PumpAll();
    VClientSurface surface(window.GetHandle());
    EXPECT_EQ(WindowFromDC(surface.GetHandle()), window.GetHandle());
    surface.FillRect({0, 0, 9, 9}, VBrush(RGB(9, 8, 7)).GetHandle());
    EXPECT_EQ(GetPixel(surface.GetHandle(), 4, 4), RGB(9, 8, 7));
}

TEST(VBufferedSurface, CopiesItselfAtItsEnd)
{
    Canvas canvas;
    {
        VBufferedSurface buffer(canvas.m_surface, 4, 3);
        ASSERT_NE(buffer.GetHandle(), nullptr);
        buffer.FillRect({0, 0, 9, 9}, VBrush(RGB(9, 8, 7)).GetHandle());
        EXPECT_EQ(canvas.Pixel(1, 1), RGB(255, 255, 255));
    }
    EXPECT_EQ(canvas.Pixel(3, 2), RGB(9, 8, 7));
    EXPECT_EQ(canvas.Pixel(4, 2), RGB(255, 255, 255));
    EXPECT_EQ(canvas.Pixel(3, 3), RGB(255, 255, 255));
}

TEST(VBufferedSurface, ASavedStateDoesNotShiftTheCopy)
{
    Canvas canvas;
    {
        VBufferedSurface buffer(canvas.m_surface, 4, 3);
        buffer.FillRect({0, 0, 2, 2}, VBrush(RGB(9, 8, 7)).GetHandle());
        buffer.SaveDC();
        SetViewportOrgEx(buffer.GetHandle(), 1, 1, nullptr);
    }
    EXPECT_EQ(canvas.Pixel(0, 0), RGB(9, 8, 7));
    EXPECT_EQ(canvas.Pixel(1, 1), RGB(9, 8, 7));
}
