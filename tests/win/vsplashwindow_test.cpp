#include "toolkit/vsplashwindow.h"

#include <gtest/gtest.h>

#include "tests/win/resource.h"
#include "tests/win/support.h"
#include "toolkit/vapplication.h"
#include "toolkit/vdrawingsurface.h"

namespace {

constexpr int nPictureWidth = 32;
constexpr int nPictureHeight = 16;

} // namespace

TEST(VSplashWindow, LiesInTheMiddleOnTopOfAllWithoutTheFocus)
{
    HWND hFocus = GetFocus();
    VSplashWindow splash;
    ASSERT_TRUE(splash.ShowBitmap(IDB_TEST));
    EXPECT_TRUE(splash.IsVisible());
    const int x = (GetSystemMetrics(SM_CXSCREEN) - nPictureWidth) / 2;
    const int y = (GetSystemMetrics(SM_CYSCREEN) - nPictureHeight) / 2;
    EXPECT_EQ(splash.GetWindowRect(), (VRect{x, y, x + nPictureWidth, y + nPictureHeight}));
    EXPECT_EQ(splash.GetClientRect(), (VRect{0, 0, nPictureWidth, nPictureHeight}));
    EXPECT_NE(splash.GetLong(GWL_EXSTYLE) & WS_EX_TOPMOST, 0);
    EXPECT_EQ(splash.GetLong(GWL_STYLE) & (WS_CAPTION | WS_THICKFRAME), 0);
    EXPECT_EQ(splash.GetKind(), V_KIND_SPLASH);
    EXPECT_EQ(GetFocus(), hFocus);
}

TEST(VSplashWindow, IsNotTakenForTheProgramsMainWindow)
{
    VSplashWindow splash;
    ASSERT_TRUE(splash.ShowBitmap(IDB_TEST));
    char szClass[64] = "";
    GetClassNameA(splash.GetHandle(), szClass, sizeof szClass);
    EXPECT_NE(std::string(szClass), VApplication::GetClassName());
}

TEST(VSplashWindow, PaintsItsPictureAndErasesNothing)
{
    VSplashWindow splash;
    ASSERT_TRUE(splash.ShowBitmap(IDB_TEST));
    VClientSurface screen(splash.GetHandle());
    VBitmap page;
    ASSERT_TRUE(
        page.Attach(CreateCompatibleBitmap(screen.GetHandle(), nPictureWidth, nPictureHeight)));
    VMemorySurface paper(screen);
    const VSelectScope scope(paper, page.GetHandle());
    auto wPaper = reinterpret_cast<WPARAM>(paper.GetHandle());
    SetPixel(paper.GetHandle(), 3, 3, 0x123456);
    EXPECT_EQ(splash.Send(WM_ERASEBKGND, wPaper), 1);
    EXPECT_EQ(GetPixel(paper.GetHandle(), 3, 3), 0x123456U);
    splash.Send(WM_PAINT, wPaper);
    EXPECT_EQ(GetPixel(paper.GetHandle(), 3, 3), RGB(255, 0, 0));
    EXPECT_EQ(GetPixel(paper.GetHandle(), 15, 15), RGB(255, 0, 0));
    EXPECT_EQ(GetPixel(paper.GetHandle(), 16, 0), RGB(0, 0, 255));
    EXPECT_EQ(GetPixel(paper.GetHandle(), 31, 15), RGB(0, 0, 255));
}

TEST(VSplashWindow, AClickClosesItAndLeavesTheObject)
{
    VSplashWindow splash;
    ASSERT_TRUE(splash.ShowBitmap(IDB_TEST));
    splash.Send(WM_LBUTTONDOWN);
    PumpAll();
    EXPECT_TRUE(splash.IsValid());
    splash.Send(WM_LBUTTONUP);
    EXPECT_TRUE(PumpUntil([&] { return splash.GetHandle() == nullptr; }));
    EXPECT_TRUE(VWindow::IsLive(&splash));
}

TEST(VSplashWindow, DeletesItselfOnRequest)
{
    auto* pSplash = new VSplashWindow;
    pSplash->GetFlags().Set(V_FLAG_DELETE_SELF);
    ASSERT_TRUE(pSplash->ShowBitmap(IDB_TEST));
    EXPECT_TRUE(VWindow::IsLive(pSplash));
    pSplash->Send(WM_LBUTTONUP);
    // A caller that holds the pointer must ask the list of live windows whether a click came first.
    EXPECT_TRUE(PumpUntil([&] { return !VWindow::IsLive(pSplash); }));
}

TEST(VSplashWindow, WithoutAPictureThereIsNoWindow)
{
    VSplashWindow splash;
    EXPECT_FALSE(splash.ShowBitmap(9999));
    EXPECT_EQ(splash.GetHandle(), nullptr);
}
