// The print preview, over pages that a test makes.

#include <gtest/gtest.h>

#include "printing/vprintpreviewdialog.h"
#include "resources/resource.h"
#include "tests/win/dialog_support.h"
#include "tests/win/picture.h"
#include "tests/win/support.h"
#include "toolkit/vapplication.h"
#include "toolkit/vrect_win.h"

namespace {

constexpr VSize sizeSheet = {200, 300};
constexpr VSize sizePicture = {160, 240};

// Notes what the preview asks for, and gives the pages.
struct Client
{
    int nPages = 3;
    bool bRenders = true;
    bool bSetsUp = true;
    int nRendered = 0;
    int nPrinted = 0;
    int nSetUp = 0;

    static COLORREF ColourOf(int nPage) { return RGB(200, 20 * nPage, 0); }

    bool Render(VPrintContext& context)
    {
        ++nRendered;
        context.szTitle = "my pages";
        context.sizePhysical = sizeSheet;
        context.sizePhysicalOffset = {21, 31}; // odd, and taken for even
        context.ilPages.Destroy();
        context.nPages = nPages;
        if (!bRenders) {
            return false;
        }
        EXPECT_TRUE(
            context.ilPages.Create(sizePicture.cx, sizePicture.cy, nPages, 1, ILC_COLORDDB));
        const VClientSurface screen(GetDesktopWindow());
        VMemorySurface memory(screen);
        for (int nPage = 1; nPage <= nPages; ++nPage) {
            VBitmap bitmap;
            bitmap.Attach(
                CreateCompatibleBitmap(screen.GetHandle(), sizePicture.cx, sizePicture.cy));
            {
                const VSelectScope scope(memory, bitmap.GetHandle());
                const VBrush brush(ColourOf(nPage));
                memory.FillRect({0, 0, sizePicture.cx, sizePicture.cy}, brush.GetHandle());
            }
            context.ilPages.Add(bitmap.GetHandle());
        }
        return true;
    }

    static VPrintPreviewOperations Operations()
    {
        VPrintPreviewOperations operations;
        operations.pfnRender = [](void* pUser, VPrintContext& context) {
            return static_cast<Client*>(pUser)->Render(context);
        };
        operations.pfnPrint = [](void* pUser) {
            return ++static_cast<Client*>(pUser)->nPrinted > 0;
        };
        operations.pfnSetup = [](void* pUser) {
            ++static_cast<Client*>(pUser)->nSetUp;
            return static_cast<Client*>(pUser)->bSetsUp;
        };
        return operations;
    }
};

class PreviewTest : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(CreateTestWindow(m_owner));
        m_owner.Move({20, 20, 720, 620});
        m_owner.Show(SW_SHOWNOACTIVATE);
    }

    void TearDown() override { EXPECT_TRUE(IsWindowEnabled(m_owner.GetHandle())); }

    // Runs the preview and the steps of the driver.
    bool Run(const std::function<void(HWND hDialog)>& steps)
    {
        ModalDriver driver;
        driver.Next([&](HWND hDialog) {
            steps(hDialog);
            Press(hDialog, IDC_PREVIEW_CLOSE);
        });
        return m_preview.Run(m_owner, m_owner.GetWindowRect(), Client::Operations(), &m_client);
    }

    // The child window that shows the pages.
    static VScrollView& ViewOf(HWND hDialog)
    {
        HWND hView = FindWindowExA(hDialog, nullptr, VApplication::GetClassName(), nullptr);
        return *static_cast<VScrollView*>(VWindow::FromHandle(hView));
    }

    // The colour in the middle of the paper.
    static COLORREF Shown(HWND hDialog)
    {
        PumpAll();
        VScrollView& view = ViewOf(hDialog);
        const VRect& rc = view.GetPictureRect();
        return Picture(view).At((rc.left + rc.right) / 2, (rc.top + rc.bottom) / 2);
    }

    static std::string PageText(HWND hDialog) { return ItemText(hDialog, IDC_PREVIEW_PAGE); }

    static std::string Buttons(HWND hDialog)
    {
        std::string sButtons;
        for (const int nId :
             {IDC_PREVIEW_FIRST, IDC_PREVIEW_PREVIOUS, IDC_PREVIEW_NEXT, IDC_PREVIEW_LAST}) {
            sButtons += IsEnabled(hDialog, nId) ? '1' : '0';
        }
        return sButtons;
    }

    static void TypePage(HWND hDialog, const char* szText)
    {
        HWND hBox = GetDlgItem(hDialog, IDC_PREVIEW_PAGE);
        SetFocus(hBox);
        SetWindowTextA(hBox, szText);
        SendMessageA(hBox, WM_CHAR, '\r', 0);
    }

    static void ChooseScale(HWND hDialog, int nRow)
    {
        HWND hCombo = GetDlgItem(hDialog, IDC_PREVIEW_SCALE);
        SendMessageA(hCombo, CB_SETCURSEL, static_cast<WPARAM>(nRow), 0);
        SendMessageA(hDialog, WM_COMMAND, MAKEWPARAM(IDC_PREVIEW_SCALE, CBN_SELCHANGE),
                     reinterpret_cast<LPARAM>(hCombo));
        PumpAll();
    }

    VWindow m_owner;
    Client m_client;
    VPrintPreviewDialog m_preview;
};

} // namespace

// Kept: the caption is misspelled.
TEST_F(PreviewTest, ComesUpOverItsOwnerWithTheFirstPage)
{
    EXPECT_TRUE(Run([&](HWND hDialog) {
        EXPECT_EQ(Text(VWindow::WindowText(hDialog)), "Print Preivew - my pages");
        RECT rect = {};
        GetWindowRect(hDialog, &rect);
        EXPECT_EQ(VFromRect(rect), m_owner.GetWindowRect());
        EXPECT_EQ(PageText(hDialog), "1 of 3");
        EXPECT_EQ(Buttons(hDialog), "0011");
        EXPECT_EQ(ItemText(hDialog, IDC_PREVIEW_SCALE), "70%");
        EXPECT_EQ(LimitOf(hDialog, IDC_PREVIEW_PAGE), 64);
        EXPECT_EQ(Shown(hDialog), Client::ColourOf(1));
        EXPECT_EQ(FocusedId(hDialog), IDC_PREVIEW_CLOSE);
        EXPECT_FALSE(IsWindowEnabled(m_owner.GetHandle()));
        EXPECT_NE(SendMessageA(hDialog, WM_QUERYDRAGICON, 0, 0), 0);
        EXPECT_EQ(m_client.nRendered, 1);
    }));
    EXPECT_EQ(m_client.nPrinted, 0);
}

TEST_F(PreviewTest, ShowsThePageOnPaperWithItsShadow)
{
    EXPECT_TRUE(Run([&](HWND hDialog) {
        ChooseScale(hDialog, 7); // 100%
        VScrollView& view = ViewOf(hDialog);
        const VRect rc = view.GetPictureRect();
        EXPECT_EQ((VSize{rc.GetWidth(), rc.GetHeight()}), (VSize{240, 340}));
        const Picture picture(view);
        const auto At = [&](int x, int y) { return picture.At(rc.left + x, rc.top + y); };
        EXPECT_EQ(At(5, 5), RGB(128, 128, 128));
        EXPECT_EQ(At(19, 19), RGB(0, 0, 0)); // the frame
        EXPECT_EQ(At(220, 320), RGB(0, 0, 0));
        EXPECT_EQ(At(20, 20), RGB(255, 255, 255));
        EXPECT_EQ(At(39, 49), RGB(255, 255, 255));
        EXPECT_EQ(At(40, 50), Client::ColourOf(1)); // 20 and the even offset
        EXPECT_EQ(At(199, 289), Client::ColourOf(1));
        EXPECT_EQ(At(200, 290), RGB(255, 255, 255));
        EXPECT_EQ(At(224, 24), RGB(64, 64, 64));
        EXPECT_EQ(At(224, 22), RGB(128, 128, 128));
        EXPECT_EQ(At(24, 324), RGB(64, 64, 64));
        EXPECT_EQ(At(22, 324), RGB(128, 128, 128));
    }));
}

TEST_F(PreviewTest, TurnsPages)
{
    EXPECT_TRUE(Run([&](HWND hDialog) {
        Click(hDialog, IDC_PREVIEW_NEXT);
        EXPECT_EQ(PageText(hDialog), "2 of 3");
        EXPECT_EQ(Buttons(hDialog), "1111");
        EXPECT_EQ(Shown(hDialog), Client::ColourOf(2));
        Click(hDialog, IDC_PREVIEW_LAST);
        EXPECT_EQ(Buttons(hDialog), "1100");
        EXPECT_EQ(Shown(hDialog), Client::ColourOf(3));
        EXPECT_EQ(FocusedId(hDialog), IDC_PREVIEW_CLOSE);
        Click(hDialog, IDC_PREVIEW_PREVIOUS);
        EXPECT_EQ(PageText(hDialog), "2 of 3");
        Click(hDialog, IDC_PREVIEW_FIRST);
        EXPECT_EQ(PageText(hDialog), "1 of 3");
        EXPECT_EQ(Shown(hDialog), Client::ColourOf(1));
        EXPECT_EQ(m_client.nRendered, 1);
    }));
}

TEST_F(PreviewTest, OnePageHasNoUseForItsButtons)
{
    m_client.nPages = 1;
    EXPECT_TRUE(Run([&](HWND hDialog) {
        EXPECT_EQ(PageText(hDialog), "1 of 1");
        EXPECT_EQ(Buttons(hDialog), "0000");
    }));
}

TEST_F(PreviewTest, ThePageBoxTakesANumberAndEnter)
{
    EXPECT_TRUE(Run([&](HWND hDialog) {
        SetFocus(GetDlgItem(hDialog, IDC_PREVIEW_PAGE));
        EXPECT_EQ(PageText(hDialog), "");
        TypePage(hDialog, "3");
        EXPECT_EQ(PageText(hDialog), "3 of 3");
        EXPECT_EQ(Shown(hDialog), Client::ColourOf(3));
        for (const char* szNothing : {"0", "", "two", "99999999999"}) {
            TypePage(hDialog, szNothing);
            EXPECT_EQ(PageText(hDialog), szNothing);
            EXPECT_EQ(Shown(hDialog), Client::ColourOf(3));
        }
        // The typed text stays as long as the box has the focus.
        SendMessageA(hDialog, WM_COMMAND, MAKEWPARAM(IDC_PREVIEW_PAGE, EN_SETFOCUS), 0);
        EXPECT_EQ(PageText(hDialog), "99999999999");
        TypePage(hDialog, "2 of 3");
        EXPECT_EQ(PageText(hDialog), "2 of 3");
    }));
}

TEST_F(PreviewTest, APageThatIsNotThereIsTold)
{
    ModalDriver driver;
    std::string sText;
    driver.Next([](HWND hDialog) {
        HWND hBox = GetDlgItem(hDialog, IDC_PREVIEW_PAGE);
        SetFocus(hBox);
        SetWindowTextA(hBox, "4");
        PostMessageA(hBox, WM_CHAR, '\r', 0);
    });
    driver.Next(AnswerBox(IDOK, &sText));
    driver.Again([](HWND hDialog) {
        EXPECT_EQ(PageText(hDialog), "4");
        EXPECT_EQ(Shown(hDialog), Client::ColourOf(1));
        Press(hDialog, IDC_PREVIEW_CLOSE);
    });
    EXPECT_TRUE(m_preview.Run(m_owner, m_owner.GetWindowRect(), Client::Operations(), &m_client));
    EXPECT_EQ(sText, "Page '4' does not exist.");
}

TEST_F(PreviewTest, ScalesAndForgetsTheScale)
{
    for (int nTime = 0; nTime < 2; ++nTime) {
        EXPECT_TRUE(Run([&](HWND hDialog) {
            EXPECT_EQ(ItemText(hDialog, IDC_PREVIEW_SCALE), "70%");
            EXPECT_EQ(ViewOf(hDialog).GetPictureRect().GetWidth(), 139 + 40);
            ChooseScale(hDialog, 0);
            const VRect rc = ViewOf(hDialog).GetPictureRect();
            EXPECT_EQ(rc.GetHeight(), 90 + 40);
            EXPECT_GT(rc.left, 0);
            EXPECT_EQ(ViewOf(hDialog).GetLong(GWL_STYLE) & (WS_HSCROLL | WS_VSCROLL), 0);
            ChooseScale(hDialog, 11);
            EXPECT_EQ(ViewOf(hDialog).GetPictureRect().top, 0);
            EXPECT_NE(ViewOf(hDialog).GetLong(GWL_STYLE) & WS_VSCROLL, 0);
            EXPECT_EQ(m_client.nRendered, nTime + 1);
        }));
    }
}

TEST_F(PreviewTest, PageKeysAndTheWheelScrollTheView)
{
    EXPECT_TRUE(Run([&](HWND hDialog) {
        ChooseScale(hDialog, 11);
        const auto Position = [&] {
            int x = 0;
            int y = 0;
            ViewOf(hDialog).GetScrollPositions(x, y);
            return y;
        };
        SendMessageA(GetDlgItem(hDialog, IDC_PREVIEW_CLOSE), WM_KEYDOWN, VK_NEXT, 0);
        EXPECT_GT(Position(), 0);
        SendMessageA(GetDlgItem(hDialog, IDC_PREVIEW_PAGE), WM_KEYDOWN, VK_PRIOR, 0);
        EXPECT_EQ(Position(), 0);
        SendMessageA(hDialog, WM_MOUSEWHEEL, MAKEWPARAM(0, -WHEEL_DELTA), 0);
        EXPECT_GT(Position(), 0);
    }));
}

TEST_F(PreviewTest, PrintAndSetupAreTheOwners)
{
    EXPECT_TRUE(Run([&](HWND hDialog) {
        Click(hDialog, IDC_PREVIEW_PRINT);
        EXPECT_EQ(m_client.nPrinted, 1);
        EXPECT_EQ(m_client.nRendered, 1);
        Click(hDialog, IDC_PREVIEW_LAST);
        m_client.nPages = 2;
        m_client.bSetsUp = false;
        Click(hDialog, IDC_PREVIEW_SETUP);
        EXPECT_EQ(m_client.nSetUp, 1);
        EXPECT_EQ(PageText(hDialog), "3 of 3");
        m_client.bSetsUp = true;
        Click(hDialog, IDC_PREVIEW_SETUP);
        EXPECT_EQ(PageText(hDialog), "2 of 2");
        EXPECT_EQ(Shown(hDialog), Client::ColourOf(2));
        EXPECT_EQ(m_client.nRendered, 2);
    }));
}

TEST_F(PreviewTest, FailsWithoutPages)
{
    m_client.bRenders = false;
    EXPECT_FALSE(m_preview.Run(m_owner, m_owner.GetWindowRect(), Client::Operations(), &m_client));
    EXPECT_FALSE(
        m_preview.Run(m_owner, m_owner.GetWindowRect(), VPrintPreviewOperations(), nullptr));
    m_client.bRenders = true;
    EXPECT_TRUE(Run([](HWND) {}));
}

TEST_F(PreviewTest, EscapeAndTheBoxClose)
{
    for (const UINT uMessage : {WM_KEYDOWN, WM_CLOSE}) {
        ModalDriver driver;
        driver.Next([=](HWND hDialog) {
            if (uMessage == WM_CLOSE) {
                PostMessageA(hDialog, WM_CLOSE, 0, 0);
            } else {
                PostKey(GetDlgItem(hDialog, IDC_PREVIEW_CLOSE), VK_ESCAPE);
            }
        });
        EXPECT_TRUE(
            m_preview.Run(m_owner, m_owner.GetWindowRect(), Client::Operations(), &m_client));
    }
}

TEST_F(PreviewTest, TheViewFollowsTheWindowsSize)
{
    EXPECT_TRUE(Run([&](HWND hDialog) {
        RECT client = {};
        GetClientRect(hDialog, &client);
        MoveWindow(hDialog, 40, 40, 500, 400, TRUE);
        PumpAll();
        GetClientRect(hDialog, &client);
        RECT view = {};
        GetWindowRect(ViewOf(hDialog).GetHandle(), &view);
        MapWindowPoints(nullptr, hDialog, reinterpret_cast<POINT*>(&view), 2);
        EXPECT_EQ((VRect{view.left, view.top, view.right, view.bottom}),
                  (VRect{5, 31, client.right - 5, client.bottom - 5}));
    }));
}
