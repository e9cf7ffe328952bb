// Property sheets and their pages, in the sheet of Windows.

#include "toolkit/vpropertysheet.h"

#include <gtest/gtest.h>

#include "tests/win/modaldriver.h"
#include "tests/win/resource.h"
#include "tests/win/support.h"

namespace {

constexpr int nIdApply = 12321;

// A page that gives prepared answers and notes what it was asked.
class AnsweringPage : public VPropertyPage
{
public:
    explicit AnsweringPage(const char* szName, Record& record) : m_sName(szName), m_record(record)
    {}
    ~AnsweringPage() override { Detach(); }

    bool OnInitDialog() override
    {
        Note("init");
        FillControls();
        return VPropertyPage::OnInitDialog();
    }
    bool OnOK() override { return Note("ok"), m_bOK; }
    bool OnCancel() override { return Note("cancel"), m_bCancels; }
    void OnHelp() override { Note("help"); }
    LRESULT OnKillActive() override { return m_lKillActive; }
    LRESULT OnSetActive() override { return m_lSetActive; }
    bool OnWizardBack() override { return m_bBack; }
    bool OnWizardNext() override { return m_bNext; }
    LRESULT OnWizardFinish() override { return m_lFinish; }
    void FillControls() override { SetItemText(IDC_EDIT, m_sName.c_str()); }

    bool m_bOK = true;
    bool m_bCancels = true;
    bool m_bBack = true;
    bool m_bNext = true;
    LRESULT m_lKillActive = 0;
    LRESULT m_lSetActive = 0;
    LRESULT m_lFinish = 0;

private:
    void Note(const char* szCall) { m_record.calls.push_back(m_sName + "." + szCall); }

    std::string m_sName;
    Record& m_record;
};

class AnsweringSheet : public VTabbedSheet
{
public:
    ~AnsweringSheet() override { Detach(); }
    bool OnOK() override { return m_bAgrees; }

    bool m_bAgrees = true;
};

// Three pages, One, Two and Three. A page has no window before it is first shown.
class VSheetTest : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(m_sheet.AddPage(m_one, IDD_PAGE_ONE));
        ASSERT_TRUE(m_sheet.AddPage(m_two, IDD_PAGE_TWO));
        ASSERT_TRUE(m_sheet.AddPage(m_three, IDD_PAGE_THREE));
    }

    bool Run(UINT uStartPage = 0)
    {
        return m_sheet.Run(nullptr, "Options", "", uStartPage, PSH_NOAPPLYNOW);
    }

    // Shows the pages up to this one, so that all of them have windows.
    ModalDriver::Action Visiting(int nPage)
    {
        return [this, nPage](HWND hSheet) {
            for (int n = 0; n <= nPage; ++n) {
                PropSheet_SetCurSel(hSheet, nullptr, n);
            }
            m_record.Take();
        };
    }
    ModalDriver::Action Pressing(int nId)
    {
        return [=](HWND hSheet) { Press(hSheet, nId); };
    }
    static ModalDriver::Condition IsOn(const VPropertyPage& page)
    {
        return [&page](HWND hSheet) {
            return page.IsValid() && PropSheet_GetCurrentPageHwnd(hSheet) == page.GetHandle();
        };
    }
    // The record of the calls, once it is not empty.
    ModalDriver::Condition Noted()
    {
        return [this](HWND) { return !m_record.calls.empty(); };
    }

    Record m_record;
    AnsweringPage m_one{"One", m_record};
    AnsweringPage m_two{"Two", m_record};
    AnsweringPage m_three{"Three", m_record};
    AnsweringSheet m_sheet;
    ModalDriver m_driver;
};

std::string TabText(HWND hSheet, int nIndex)
{
    char szText[64] = "";
    TCITEMA item = {};
    item.mask = TCIF_TEXT;
    item.pszText = szText;
    item.cchTextMax = sizeof szText;
    auto* hTab = reinterpret_cast<HWND>(SendMessageA(hSheet, PSM_GETTABCONTROL, 0, 0));
    SendMessageA(hTab, TCM_GETITEMA, static_cast<WPARAM>(nIndex), reinterpret_cast<LPARAM>(&item));
    return szText;
}

} // namespace

// ---- How a sheet starts.

TEST_F(VSheetTest, ShowsItsPagesInTheOrderOfAddition)
{
    m_driver.Next([&](HWND hSheet) {
        EXPECT_EQ(VWindow::FromHandle(hSheet), &m_sheet);
        EXPECT_TRUE(m_sheet.IsModal());
        EXPECT_EQ(TabText(hSheet, 0), "One");
        EXPECT_EQ(TabText(hSheet, 1), "Two");
        EXPECT_EQ(TabText(hSheet, 2), "Three");
        EXPECT_TRUE(IsOn(m_two)(hSheet));
        EXPECT_EQ(VWindow::FromHandle(m_two.GetHandle()), &m_two);
        EXPECT_EQ(ItemText(m_two.GetHandle(), IDC_EDIT), "Two");
        EXPECT_FALSE(m_one.IsValid());
        EXPECT_EQ(m_record.Take(), "Two.init");
        Press(hSheet, IDCANCEL);
    });
    EXPECT_TRUE(Run(1));
    EXPECT_EQ(m_sheet.GetHandle(), nullptr);
    EXPECT_EQ(m_two.GetHandle(), nullptr);
}

TEST_F(VSheetTest, HasItsTitlesForACaption)
{
    const struct
    {
        const char* szSubtitle;
        const char* szCaption;
    } tests[] = {
        {"Savings", "Options - Savings"},
        {"", "Options"},
        {nullptr, "Options"},
    };
    for (const auto& test : tests) {
        m_driver.Next([&](HWND hSheet) {
            EXPECT_EQ(Text(VWindow::WindowText(hSheet)), test.szCaption);
            EXPECT_EQ(GetWindowLongPtrA(hSheet, GWL_EXSTYLE) & WS_EX_CONTEXTHELP, 0);
            Press(hSheet, IDCANCEL);
        });
        EXPECT_TRUE(m_sheet.Run(nullptr, "Options", test.szSubtitle));
    }
}

TEST_F(VSheetTest, TakesAPageOnceAndWithATemplate)
{
    AnsweringPage page("Four", m_record);
    EXPECT_FALSE(m_sheet.AddPage(page, 0));
    EXPECT_FALSE(m_sheet.AddPage(m_one, IDD_PAGE_ONE));
    EXPECT_FALSE(m_sheet.AddPage(m_three, IDD_PAGE_ONE));
    EXPECT_EQ(m_sheet.GetPageCount(), 3);
    page.SetTemplate(IDD_PAGE_TWO);
    EXPECT_TRUE(m_sheet.AddPage(page, 0));
    m_driver.Next([&](HWND hSheet) {
        EXPECT_EQ(TabText(hSheet, 3), "Two");
        Press(hSheet, IDCANCEL);
    });
    EXPECT_TRUE(Run());
}

TEST_F(VSheetTest, MayRunAgain)
{
    for (int n = 0; n < 2; ++n) {
        m_driver.Next(Pressing(IDOK));
        EXPECT_TRUE(Run());
        EXPECT_TRUE(m_sheet.IsOK());
    }
}

// ---- How a sheet ends.

TEST_F(VSheetTest, OKAsksThePagesThatHaveWindows)
{
    m_driver.Next([&](HWND hSheet) {
        Visiting(1)(hSheet);
        Press(hSheet, IDOK);
    });
    EXPECT_TRUE(Run());
    EXPECT_EQ(m_record.Take(), "One.ok Two.ok");
    EXPECT_TRUE(m_sheet.IsOK());
}

TEST_F(VSheetTest, CancelAsksThePagesToo)
{
    m_driver.Next([&](HWND hSheet) {
        Visiting(1)(hSheet);
        Press(hSheet, IDCANCEL);
    });
    EXPECT_TRUE(Run());
    EXPECT_EQ(m_record.Take(), "One.cancel Two.cancel");
    EXPECT_FALSE(m_sheet.IsOK());
}

TEST_F(VSheetTest, TheCloseBoxIsCancel)
{
    m_driver.Next([&](HWND hSheet) {
        m_record.Take();
        PostMessageA(hSheet, WM_CLOSE, 0, 0);
    });
    EXPECT_TRUE(Run());
    EXPECT_EQ(m_record.Take(), "One.cancel");
    EXPECT_FALSE(m_sheet.IsOK());
}

TEST_F(VSheetTest, APageThatRefusesOKKeepsTheSheetOpenOnIt)
{
    m_one.m_bOK = false;
    m_driver.Next([&](HWND hSheet) {
        Visiting(2)(hSheet);
        EXPECT_TRUE(IsOn(m_three)(hSheet));
        Press(hSheet, IDOK);
    });
    m_driver.When(IsOn(m_one), [&](HWND hSheet) {
        EXPECT_EQ(m_record.Take(), "One.ok"); // the pages behind it were not asked
        m_one.m_bOK = true;
        Press(hSheet, IDOK);
    });
    EXPECT_TRUE(Run());
    EXPECT_EQ(m_record.Take(), "One.ok Two.ok Three.ok");
}

TEST_F(VSheetTest, APageThatRefusesCancelKeepsTheSheetOpenOnIt)
{
    m_two.m_bCancels = false;
    m_driver.Next([&](HWND hSheet) {
        Visiting(2)(hSheet);
        Press(hSheet, IDCANCEL);
    });
    m_driver.When(IsOn(m_two), [&](HWND hSheet) {
        EXPECT_EQ(m_record.Take(), "One.cancel Two.cancel");
        Press(hSheet, IDOK);
    });
    EXPECT_TRUE(Run());
    EXPECT_TRUE(m_sheet.IsOK());
}

// Kept: the OK of the sheet counts before the pages are asked, and a later Cancel does not undo it.
TEST_F(VSheetTest, ARefusedOKIsStillAnOKAfterCancel)
{
    m_one.m_bOK = false;
    m_driver.Next([&](HWND hSheet) {
        m_record.Take();
        Press(hSheet, IDOK);
    });
    m_driver.When(Noted(), [&](HWND hSheet) {
        EXPECT_TRUE(m_sheet.IsOK());
        Press(hSheet, IDCANCEL);
    });
    EXPECT_TRUE(Run());
    EXPECT_TRUE(m_sheet.IsOK());
    // The next run starts anew.
    m_driver.Next(Pressing(IDCANCEL));
    EXPECT_TRUE(Run());
    EXPECT_FALSE(m_sheet.IsOK());
}

TEST_F(VSheetTest, TheSheetsOwnRefusalOnlyKeepsItFromBeingAnOK)
{
    m_sheet.m_bAgrees = false;
    m_driver.Next(Pressing(IDOK));
    EXPECT_TRUE(Run());
    EXPECT_EQ(m_record.Take(), "One.init One.ok");
    EXPECT_FALSE(m_sheet.IsOK());
}

TEST_F(VSheetTest, ApplyAsksAndStays)
{
    m_driver.Next([&](HWND hSheet) {
        Visiting(1)(hSheet);
        Press(hSheet, nIdApply);
    });
    m_driver.When(Noted(), [&](HWND hSheet) {
        EXPECT_EQ(m_record.Take(), "One.ok Two.ok");
        m_one.m_bOK = false;
        Press(hSheet, nIdApply);
    });
    m_driver.When(IsOn(m_one), [&](HWND hSheet) {
        EXPECT_EQ(m_record.Take(), "One.ok");
        Press(hSheet, IDCANCEL);
    });
    EXPECT_TRUE(m_sheet.Run(nullptr, "Options", ""));
    EXPECT_FALSE(m_sheet.IsOK());
}

TEST_F(VSheetTest, LeavesOtherCommandsToTheSystem)
{
    EXPECT_EQ(m_sheet.OnCommand(0, 1000, nullptr), V_NOT_HANDLED);
    EXPECT_EQ(m_record.Take(), "");
}

// ---- Modeless sheets.

TEST_F(VSheetTest, AModelessSheetIsDestroyedAtItsEnd)
{
    for (const UINT uId : {UINT{IDOK}, UINT{IDCANCEL}}) {
        ASSERT_TRUE(m_sheet.OpenModeless(nullptr));
        HWND hSheet = m_sheet.GetHandle();
        EXPECT_FALSE(m_sheet.IsModal());
        EXPECT_TRUE(IsOn(m_one)(hSheet));
        SendMessageA(hSheet, WM_COMMAND, uId, 0);
        EXPECT_FALSE(IsWindow(hSheet));
        EXPECT_EQ(m_sheet.GetHandle(), nullptr);
    }
    EXPECT_EQ(m_record.Take(), "One.init One.ok One.init One.cancel");
}

TEST_F(VSheetTest, AModelessSheetStaysWhileAPageRefuses)
{
    ASSERT_TRUE(m_sheet.OpenModeless(nullptr));
    HWND hSheet = m_sheet.GetHandle();
    m_one.m_bOK = false;
    SendMessageA(hSheet, WM_COMMAND, IDOK, 0);
    EXPECT_TRUE(IsWindow(hSheet));
    SendMessageA(hSheet, WM_COMMAND, nIdApply, 0);
    EXPECT_TRUE(IsWindow(hSheet));
    SendMessageA(hSheet, WM_CLOSE, 0, 0);
    EXPECT_FALSE(IsWindow(hSheet));
}

TEST_F(VSheetTest, AModelessSheetGoesWithItsObject)
{
    HWND hSheet = nullptr;
    AnsweringPage page("Page", m_record);
    {
        VPropertySheet sheet;
        ASSERT_TRUE(sheet.AddPage(page, IDD_PAGE_ONE));
        ASSERT_TRUE(sheet.OpenModeless(nullptr));
        hSheet = sheet.GetHandle();
    }
    EXPECT_FALSE(IsWindow(hSheet));
    EXPECT_EQ(page.GetHandle(), nullptr);
}

// ---- The sheet's notifications.

TEST_F(VSheetTest, NotificationsReachThePageAndItsAnswersTheSheet)
{
    const struct
    {
        UINT uCode;
        bool bAgrees;
        LRESULT lValue; // of the operations that answer with a value
        LRESULT lExpected;
    } tests[] = {
        {PSN_KILLACTIVE, true, 0, 0},  {PSN_KILLACTIVE, true, 1, 1},  {PSN_SETACTIVE, true, 0, 0},
        {PSN_SETACTIVE, true, -1, -1}, {PSN_SETACTIVE, true, 42, 42}, {PSN_WIZBACK, true, 0, 0},
        {PSN_WIZBACK, false, 0, -1},   {PSN_WIZNEXT, true, 0, 0},     {PSN_WIZNEXT, false, 0, -1},
        {PSN_WIZFINISH, true, 0, 0},   {PSN_WIZFINISH, true, 1, 1},   {PSN_APPLY, true, 1, 0},
    };
    m_driver.Next([&](HWND hSheet) {
        PSHNOTIFY notice = {{hSheet, 0, 0}, 0};
        const auto lNotice = reinterpret_cast<LPARAM>(&notice);
        for (const auto& test : tests) {
            notice.hdr.code = test.uCode;
            m_one.m_lKillActive = m_one.m_lSetActive = m_one.m_lFinish = test.lValue;
            m_one.m_bBack = m_one.m_bNext = test.bAgrees;
            EXPECT_EQ(m_one.Send(WM_NOTIFY, 0, lNotice), test.lExpected)
                << static_cast<int>(test.uCode) << " " << test.lValue << test.bAgrees;
        }
        m_one.m_lKillActive = m_one.m_lSetActive = 0;
        m_record.Take();
        notice.hdr.code = static_cast<UINT>(PSN_HELP);
        EXPECT_EQ(m_one.Send(WM_NOTIFY, 0, lNotice), 0);
        EXPECT_EQ(m_record.Take(), "One.help");
        Press(hSheet, IDCANCEL);
    });
    EXPECT_TRUE(Run());
}

TEST_F(VSheetTest, APageMayKeepTheFocusOfTheSheet)
{
    m_driver.Next([&](HWND hSheet) {
        m_one.m_lKillActive = 1;
        PropSheet_SetCurSel(hSheet, nullptr, 1);
        EXPECT_TRUE(IsOn(m_one)(hSheet));
        m_one.m_lKillActive = 0;
        PropSheet_SetCurSel(hSheet, nullptr, 1);
        EXPECT_TRUE(IsOn(m_two)(hSheet));
        Press(hSheet, IDCANCEL);
    });
    EXPECT_TRUE(Run());
}

TEST(VPropertyPage, AgreesByDefault)
{
    VPropertyPage page;
    EXPECT_EQ(page.GetKind(), 29);
    EXPECT_EQ(page.OnKillActive(), 0);
    EXPECT_EQ(page.OnSetActive(), 0);
    EXPECT_TRUE(page.OnWizardBack());
    EXPECT_TRUE(page.OnWizardNext());
    EXPECT_EQ(page.OnWizardFinish(), 0);
    EXPECT_FALSE(page.HasTemplate());
}

TEST(VPropertySheet, ThatCannotBeShownIsFalse)
{
    VTabbedSheet sheet;
    EXPECT_EQ(sheet.GetKind(), 28);
    EXPECT_FALSE(sheet.Run(nullptr, "Nothing", ""));
    EXPECT_FALSE(sheet.OpenModeless(nullptr));
}
