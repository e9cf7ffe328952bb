#include "toolkit/vmessages.h"

#include <gtest/gtest.h>

#include "tests/win/modaldriver.h"
#include "tests/win/resource.h"
#include "tests/win/support.h"
#include "toolkit/vapplication.h"

namespace {

// What a message box showed. The driver presses its button.
struct ShownBox
{
    std::string sCaption;
    std::string sText;
    HWND hOwner = nullptr;
};

ModalDriver::Action Answer(int nButton, ShownBox* pShown = nullptr)
{
    return [=](HWND hBox) {
        if (pShown != nullptr) {
            pShown->sCaption = Text(VWindow::WindowText(hBox));
            pShown->sText = BoxText(hBox);
            pShown->hOwner = GetWindow(hBox, GW_OWNER);
        }
        Press(hBox, nButton);
    };
}

} // namespace

TEST(ResourceString, LoadsByItsId)
{
    EXPECT_EQ(Text(ResourceString(IDS_SHORT)), "A short text");
    EXPECT_EQ(Text(ResourceString(IDS_SHORT, GetModuleHandleA(nullptr))), "A short text");
}

TEST(CommandText, IsSplitAtItsFirstLineFeed)
{
    const VCommandText both = GetCommandText(IDS_PROMPT_AND_TIP);
    EXPECT_EQ(Text(both.sPrompt), "The prompt");
    EXPECT_EQ(Text(both.sTooltip), "The tip\nmore");
}

TEST(CommandText, ServesAsBothWithoutALineFeed)
{
    const VCommandText one = GetCommandText(IDS_SHORT);
    EXPECT_EQ(Text(one.sPrompt), "A short text");
    EXPECT_EQ(Text(one.sTooltip), "A short text");
    EXPECT_EQ(Text(GetCommandText(IDS_MISSING).sPrompt), "");
    EXPECT_EQ(Text(GetCommandText(IDS_MISSING).sTooltip), "");
}

TEST(ResourceString, IsEmptyForNothing)
{
    EXPECT_EQ(Text(ResourceString(0)), "");
    EXPECT_EQ(Text(ResourceString(IDS_MISSING)), "");
    EXPECT_EQ(Text(ResourceString(IDS_EMPTY)), "");
    EXPECT_EQ(Text(ResourceString(IDS_SHORT, GetModuleHandleA("ntdll.dll"))), "");
}

TEST(ResourceString, IsInTheAnsiCodePage)
{
    if (GetACP() != 1252) {
        GTEST_SKIP() << "the code page is " << GetACP() << ", not 1252";
    }
    EXPECT_EQ(Text(ResourceString(IDS_ACCENTS)), "caf\xE9 \x80");
}

TEST(ResourceString, HasUpTo4096Characters)
{
    const VString sShorter = ResourceString(IDS_4095);
    const VString sWhole = ResourceString(IDS_4096);
    const VString sCut = ResourceString(IDS_4100);
    EXPECT_EQ(sShorter.GetLength(), 4095U);
    EXPECT_EQ(sWhole.GetLength(), 4096U);
    EXPECT_EQ(sCut.GetLength(), 4096U);
    EXPECT_EQ(Text(sCut), Text(sWhole));
    EXPECT_EQ(Text(sWhole.Right(4)), "CDEF");
}

TEST(MessageBox, AnswersWithTheButton)
{
    VWindow window;
    ASSERT_TRUE(CreateTestWindow(window));
    ShownBox box;
    ModalDriver driver;
    driver.Next(Answer(IDNO, &box));
    EXPECT_EQ(MessageBox(window.GetHandle(), "Really?", "Caption", MB_YESNOCANCEL), IDNO);
    EXPECT_EQ(box.sCaption, "Caption");
    EXPECT_EQ(box.sText, "Really?");
    EXPECT_EQ(box.hOwner, window.GetHandle());
}

TEST(MessageBox, HasTheApplicationsNameForACaption)
{
    ShownBox box;
    ModalDriver driver;
    driver.Next(Answer(IDOK, &box));
    EXPECT_EQ(MessageBox(nullptr, "Done.", MB_OK), IDOK);
    EXPECT_EQ(box.sCaption, "Window tests");
}

TEST(MessageBox, GivesTheFocusBack)
{
    VWindow window;
    ASSERT_TRUE(CreateTestWindow(window));
    window.Show();
    VWindow edit;
    ASSERT_TRUE(
        edit.Create(window.GetHandle(), {0, 0, 50, 20}, WS_CHILD | WS_VISIBLE, "Edit", "", 1));
    edit.SetFocus();
    ASSERT_EQ(GetFocus(), edit.GetHandle());
    ModalDriver driver;
    driver.Next(Answer(IDOK));
    EXPECT_EQ(MessageBox(window.GetHandle(), "Done.", MB_OK), IDOK);
    EXPECT_EQ(GetFocus(), edit.GetHandle());
}

TEST(VWaitCursor, SetsTheHourglassAndTheFormerCursorBack)
{
    HCURSOR hCross = LoadCursorA(nullptr, IDC_CROSS);
    SetCursor(hCross);
    {
        const VWaitCursor wait;
        EXPECT_EQ(GetCursor(), LoadCursorA(nullptr, IDC_WAIT));
        {
            const VWaitCursor inner;
            EXPECT_EQ(GetCursor(), LoadCursorA(nullptr, IDC_WAIT));
        }
        EXPECT_EQ(GetCursor(), LoadCursorA(nullptr, IDC_WAIT));
    }
    EXPECT_EQ(GetCursor(), hCross);
}

TEST(VWaitCursor, SetsTheArrowWhereThereWasNone)
{
    SetCursor(nullptr);
    {
        const VWaitCursor wait;
    }
    EXPECT_EQ(GetCursor(), LoadCursorA(nullptr, IDC_ARROW));
}
