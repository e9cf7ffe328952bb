// Painting: on the window or on a given device context, directly or through a buffer.

#include <gtest/gtest.h>

#include "tests/win/support.h"
#include "toolkit/vdrawingsurface.h"
#include "toolkit/vgdiobjects.h"

namespace {

constexpr COLORREF crBefore = RGB(10, 20, 30);
constexpr COLORREF crPainted = RGB(200, 100, 50);

// A window and a bitmap to paint it on.
class VWindowPaint : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(CreateTestWindow(m_window, m_record));
        HDC hScreen = GetDC(nullptr);
        m_canvas.Attach(CreateCompatibleDC(hScreen), true);
        m_bitmap.Attach(CreateCompatibleBitmap(hScreen, 300, 200));
        ReleaseDC(nullptr, hScreen);
        m_hDisplaced = SelectObject(m_canvas.GetHandle(), m_bitmap.GetHandle());
        m_canvas.FillRect({0, 0, 300, 200}, VBrush(crBefore).GetHandle());
        m_record.watched = {WM_PAINT};
        m_record.paint = [this](VDrawingSurface& surface) {
            m_hPainted = surface.GetHandle();
            surface.FillRect({0, 0, 20, 20}, VBrush(crPainted).GetHandle());
        };
    }

    void TearDown() override { SelectObject(m_canvas.GetHandle(), m_hDisplaced); }

    LRESULT PaintOnCanvas()
    {
        return m_window.Send(WM_PAINT, reinterpret_cast<WPARAM>(m_canvas.GetHandle()));
    }

    COLORREF Pixel(int x, int y) const { return GetPixel(m_canvas.GetHandle(), x, y); }

    Record m_record;
    VRecordingWindow m_window{m_record};
    VBitmap m_bitmap;
    VDrawingSurface m_canvas;
    HGDIOBJ m_hDisplaced = nullptr;
    HDC m_hPainted = nullptr;
};

} // namespace

TEST_F(VWindowPaint, WithoutAFlagThePlatformPaints)
{
    PaintOnCanvas();
    EXPECT_EQ(m_record.Take(), "DefaultProc(15)");
    EXPECT_EQ(Pixel(5, 5), crBefore);
}

TEST_F(VWindowPaint, AWindowPaintsOnADeviceThatIsGiven)
{
    m_window.GetFlags().Set(V_FLAG_PAINTS);
    EXPECT_EQ(PaintOnCanvas(), 0);
    EXPECT_EQ(m_record.Take(), "OnPaint");
    EXPECT_EQ(m_hPainted, m_canvas.GetHandle());
    EXPECT_EQ(Pixel(5, 5), crPainted);
    EXPECT_EQ(Pixel(25, 25), crBefore);
}

TEST_F(VWindowPaint, WhatItDidNotPaintGoesToTheDefault)
{
    m_window.GetFlags().Set(V_FLAG_PAINTS);
    m_record.bPaints = false;
    EXPECT_EQ(PaintOnCanvas(), 0);
    EXPECT_EQ(m_record.Take(), "OnPaint DefaultProc(15)");
}

TEST_F(VWindowPaint, OffScreenItPaintsOnABufferThatIsCopied)
{
    m_window.GetFlags().Set(V_FLAG_PAINTS | V_FLAG_OFF_SCREEN);
    m_record.paint = [this](VDrawingSurface& surface) {
        m_hPainted = surface.GetHandle();
        surface.FillRect({0, 0, 300, 200}, VBrush(crPainted).GetHandle());
        EXPECT_EQ(Pixel(5, 5), crBefore);
    };
    EXPECT_EQ(PaintOnCanvas(), 0);
    EXPECT_EQ(m_record.Take(), "OnPaint");
    EXPECT_NE(m_hPainted, m_canvas.GetHandle());
    const VRect area = m_window.GetClientRect();
    EXPECT_EQ(Pixel(area.right - 1, area.bottom - 1), crPainted);
    EXPECT_EQ(Pixel(area.right, area.bottom - 1), crBefore);
    EXPECT_EQ(Pixel(area.right - 1, area.bottom), crBefore);
}

TEST_F(VWindowPaint, OffScreenAloneLetsTheDefaultPaintOnTheBuffer)
{
    class VDefaultPainter : public VWindow
    {
        LRESULT DefaultProc(HWND hWnd, UINT uMessage, WPARAM wParam, LPARAM lParam) override
        {
            if (uMessage == WM_PAINT) {
                m_hDevice = reinterpret_cast<HDC>(wParam);
                SetPixel(m_hDevice, 3, 3, crPainted);
                return 0;
            }
            return VWindow::DefaultProc(hWnd, uMessage, wParam, lParam);
        }

    public:
        HDC m_hDevice = nullptr;
    } window;
    ASSERT_TRUE(CreateTestWindow(window));
    window.GetFlags().Set(V_FLAG_OFF_SCREEN);
    EXPECT_EQ(window.Send(WM_PAINT, reinterpret_cast<WPARAM>(m_canvas.GetHandle())), 0);
    EXPECT_NE(window.m_hDevice, nullptr);
    EXPECT_NE(window.m_hDevice, m_canvas.GetHandle());
    EXPECT_EQ(Pixel(3, 3), crPainted);
}

TEST_F(VWindowPaint, AnEmptyWindowIsNotPainted)
{
    VRecordingWindow child(m_record);
    ASSERT_TRUE(child.Create(m_window.GetHandle(), {}, WS_CHILD, nullptr, "", 1));
    child.GetFlags().Set(V_FLAG_PAINTS | V_FLAG_OFF_SCREEN);
    m_record.Take();
    child.Send(WM_PAINT, reinterpret_cast<WPARAM>(m_canvas.GetHandle()));
    EXPECT_EQ(m_record.Take(), "DefaultProc(15)");
}

TEST_F(VWindowPaint, PaintingValidatesTheWindow)
{
    for (const uint32_t uFlags : {V_FLAG_PAINTS, V_FLAG_PAINTS | V_FLAG_OFF_SCREEN}) {
        m_window.GetFlags().Set(uFlags);
        m_window.Show(SW_SHOWNOACTIVATE);
        PumpAll();
        m_record.Take();
        m_window.Invalidate();
        EXPECT_TRUE(GetUpdateRect(m_window.GetHandle(), nullptr, FALSE));
        m_window.Update();
        EXPECT_FALSE(GetUpdateRect(m_window.GetHandle(), nullptr, FALSE));
        EXPECT_EQ(m_record.Take(), "OnPaint");
        const VClientSurface client(m_window.GetHandle());
        EXPECT_EQ(GetPixel(client.GetHandle(), 5, 5), crPainted);
    }
}

TEST_F(VWindowPaint, APaintSurfaceValidatesAtItsEnd)
{
    m_window.Show(SW_SHOWNOACTIVATE);
    PumpAll();
    m_window.Invalidate();
    {
        const VPaintSurface surface(m_window.GetHandle());
        EXPECT_NE(surface.GetHandle(), nullptr);
        const RECT& rect = surface.GetRecord().rcPaint;
        EXPECT_EQ((VRect{rect.left, rect.top, rect.right, rect.bottom}), m_window.GetClientRect());
    }
    EXPECT_FALSE(GetUpdateRect(m_window.GetHandle(), nullptr, FALSE));
}
