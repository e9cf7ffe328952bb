// What a start shows before its first account is there.

#include "tests/e2e/e2e_test.h"
#include "tests/e2e/ordinaryheap.h"
#include "tests/e2e/throttle.h"
#include "tests/e2e/windowaccess.h"

namespace {

class FirstPaintTest : public E2ETest
{
protected:
    // The frame as soon as it is on the screen.
    HWND AwaitFirstFrame() const
    {
        HWND hFrame = nullptr;
        Await("the frame", [&] {
            for (HWND hWnd : TopWindows(m_program.GetId())) {
                hFrame = GetMenu(hWnd) != nullptr ? hWnd : hFrame;
            }
            return hFrame != nullptr;
        });
        return hFrame;
    }

    // What the user sees beside the buttons of the bars.
    static COLORREF ColourOfBars(HWND hFrame)
    {
        const VRect place = WindowRect(FindChildById(hFrame, IDC_REBAR));
        HDC hScreen = GetDC(nullptr);
        const COLORREF cr = GetPixel(hScreen, place.right - 20, place.top + 10);
        ReleaseDC(nullptr, hScreen);
        return cr;
    }
};

TEST_F(FirstPaintTest, BarsArePaintedBeforeTheFirstAccountLoads)
{
    const OrdinaryHeap heap;
    const std::string sPath = MakeAccount("many.qmk", 100000);
    m_program.Start({sPath});
    HWND hFrame = AwaitFirstFrame();
    const Throttle slowed(hFrame);
    COLORREF crBars = 0;
    bool bLoaded = false;
    Await("the painted bars or the window of the account", [&] {
        crBars = ColourOfBars(hFrame);
        bLoaded = FindChild(hFrame, "VMDIChildWindow") != nullptr;
        return crBars != 0 || bLoaded;
    });
    EXPECT_NE(crBars, 0U) << "the bars were still black when the account came up";
    EXPECT_FALSE(bLoaded);
}

} // namespace
