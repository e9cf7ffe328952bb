// What a start shows before its first account is there.

#include <set>

#include "tests/e2e/e2e_test.h"
#include "tests/e2e/ordinaryheap.h"
#include "tests/e2e/screen.h"
#include "tests/e2e/throttle.h"
#include "tests/e2e/windowaccess.h"

namespace {

// A start may have loaded its account before this program gets to slow it down.
constexpr int nAttempts = 8;

class FirstPaintTest : public E2ETest
{
protected:
    using Pixels = std::vector<COLORREF>;

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

    // What the user sees of the toolbar.
    static Pixels PictureOfToolbar(HWND hFrame)
    {
        const VRect place = WindowRect(FindChildById(hFrame, IDC_TOOLBAR));
        const ScreenPicture screen;
        Pixels pixels;
        for (int y = place.top; y < place.bottom; ++y) {
            for (int x = place.left; x < place.right; ++x) {
                pixels.push_back(screen.At(x, y));
            }
        }
        return pixels;
    }

    // The toolbar of a program without an account, once all of it is painted.
    Pixels PictureWithoutAccount()
    {
        constexpr size_t uColours = 20; // less than the pictures on the buttons have together
        m_program.Open();
        Pixels before;
        Pixels picture;
        Await("the toolbar's picture", [&] {
            before = std::move(picture);
            picture = PictureOfToolbar(m_program.GetFrame());
            return picture == before &&
                   std::set<COLORREF>(picture.begin(), picture.end()).size() > uColours;
        });
        EXPECT_EQ(m_program.Close(), 0U);
        return picture;
    }

    static bool HasAccount(HWND hFrame) { return FindChild(hFrame, "VMDIChildWindow") != nullptr; }

private:
    OrdinaryHeap m_heap;
};

// Neither black nor with the buttons of a moment before, which could all be pressed.
TEST_F(FirstPaintTest, BarsShowTheirStateBeforeTheFirstAccountLoads)
{
    const Pixels expected = PictureWithoutAccount();
    const std::string sPath = MakeAccount("many.qmk", 100000);
    for (int i = 0; i < nAttempts; ++i) {
        m_program.Start({sPath});
        HWND hFrame = AwaitFirstFrame();
        const Throttle slowed(hFrame);
        if (HasAccount(hFrame)) {
            continue;
        }
        bool bPainted = false;
        Await("the bars in their state or the window of the account", [&] {
            bPainted = PictureOfToolbar(hFrame) == expected;
            return bPainted || HasAccount(hFrame);
        });
        EXPECT_TRUE(bPainted) << "the account came first";
        return;
    }
    FAIL() << "the account was there before the start could be looked at";
}

} // namespace
