// What is modal within something modal: each keeps the user from the one that it came from.

#include "toolkit/vmodalowner.h"

#include <gtest/gtest.h>

#include "tests/win/dialog_support.h"
#include "tests/win/resource.h"
#include "tests/win/support.h"
#include "toolkit/vdialog.h"
#include "toolkit/vmessages.h"

namespace {

class VModalOwnerTest : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(CreateTestWindow(m_frame));
        m_frame.Show();
        PumpAll();
    }

    HWND Frame() const { return m_frame.GetHandle(); }

    VWindow m_frame;
};

} // namespace

TEST_F(VModalOwnerTest, IsTheWindowItselfWhileNothingIsModal)
{
    VDialog modeless;
    ASSERT_TRUE(modeless.CreateModeless(Frame(), IDD_TEST));
    modeless.Show();
    EXPECT_EQ(VModalOwner(Frame()), Frame());
    EXPECT_EQ(VModalOwner(nullptr), nullptr);
}

TEST_F(VModalOwnerTest, IsTheInnermostModalWindow)
{
    VDialog modeless;
    ASSERT_TRUE(modeless.CreateModeless(Frame(), IDD_TEST));
    modeless.Show();
    ModalDriver driver;
    HWND hOuter = nullptr;
    driver.When([&](HWND hDialog) { return hDialog != modeless.GetHandle(); },
                [&](HWND hDialog) {
                    hOuter = hDialog;
                    EXPECT_EQ(VModalOwner(Frame()), hOuter);
                    EXPECT_EQ(VModalOwner(hOuter), hOuter);
                    EXPECT_EQ(MessageBox(Frame(), "inner", MB_OK), IDOK);
                    EXPECT_TRUE(IsWindowEnabled(hOuter));
                    EXPECT_FALSE(IsWindowEnabled(Frame()));
                    EXPECT_EQ(GetActiveWindow(), hOuter);
                    Press(hOuter, IDOK);
                });
    driver.When([&](HWND hBox) { return hBox != modeless.GetHandle() && hBox != hOuter; },
                [&](HWND hBox) {
                    EXPECT_EQ(BoxText(hBox), "inner");
                    EXPECT_EQ(GetWindow(hBox, GW_OWNER), hOuter);
                    EXPECT_FALSE(IsWindowEnabled(hOuter));
                    EXPECT_EQ(VModalOwner(Frame()), hBox);
                    Press(hBox, IDOK);
                });
    VDialog outer;
    EXPECT_EQ(outer.DoModal(Frame(), IDD_TEST), IDOK);
    EXPECT_TRUE(IsWindowEnabled(Frame()));
}

TEST_F(VModalOwnerTest, InnerDialogKeepsTheOuterOneFromTheUser)
{
    ModalDriver driver;
    HWND hOuter = nullptr;
    driver.Next([&](HWND hDialog) {
        hOuter = hDialog;
        VDialog inner;
        EXPECT_EQ(inner.DoModal(Frame(), IDD_TEST), IDCANCEL);
        EXPECT_TRUE(IsWindowEnabled(hOuter));
        EXPECT_FALSE(IsWindowEnabled(Frame()));
        Press(hOuter, IDOK);
    });
    driver.Next([&](HWND hInner) {
        EXPECT_EQ(GetWindow(hInner, GW_OWNER), hOuter);
        EXPECT_FALSE(IsWindowEnabled(hOuter));
        Press(hInner, IDCANCEL);
    });
    VDialog outer;
    EXPECT_EQ(outer.DoModal(Frame(), IDD_TEST), IDOK);
    EXPECT_TRUE(IsWindowEnabled(Frame()));
}

TEST_F(VModalOwnerTest, IsTheWindowOfSomeProgressWhereNothingElseIsModal)
{
    VDialog progress;
    m_frame.Enable(false);
    EXPECT_EQ(VModalOwner(Frame()), Frame());
    ASSERT_TRUE(progress.CreateModeless(Frame(), IDD_TEST));
    progress.Show();
    EXPECT_EQ(VModalOwner(Frame()), progress.GetHandle());
    m_frame.Enable(true);
}
