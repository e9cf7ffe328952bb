#include "toolkit/vmessages.h"

#include <gtest/gtest.h>

#include "tests/win/resource.h"
#include "tests/win/support.h"
#include "toolkit/vapplication.h"

namespace {

// Waits beside the box's own loop until the box is there, notes it, and presses a button.
class BoxAnswer
{
public:
    explicit BoxAnswer(int nButton) : m_nButton(nButton)
    {
        g_pCurrent = this;
        m_uTimer = SetTimer(nullptr, 0, 10, &OnTimer);
    }
    BoxAnswer(const BoxAnswer&) = delete;
    BoxAnswer& operator=(const BoxAnswer&) = delete;
    ~BoxAnswer()
    {
        KillTimer(nullptr, m_uTimer);
        g_pCurrent = nullptr;
    }

    std::string m_sCaption;
    std::string m_sText;
    HWND m_hOwner = nullptr;

private:
    static BOOL CALLBACK Answer(HWND hWnd, LPARAM lThis)
    {
        char szClass[16] = "";
        GetClassNameA(hWnd, szClass, sizeof szClass);
        if (std::string(szClass) != "#32770" || !IsWindowVisible(hWnd)) {
            return TRUE;
        }
        auto* pThis = reinterpret_cast<BoxAnswer*>(lThis);
        char szText[256] = "";
        GetWindowTextA(hWnd, szText, sizeof szText);
        pThis->m_sCaption = szText;
        GetDlgItemTextA(hWnd, 0xFFFF, szText, sizeof szText);
        pThis->m_sText = szText;
        pThis->m_hOwner = GetWindow(hWnd, GW_OWNER);
        PostMessageA(hWnd, WM_COMMAND, static_cast<WPARAM>(pThis->m_nButton), 0);
        return FALSE;
    }

    static void CALLBACK OnTimer(HWND, UINT, UINT_PTR, DWORD)
    {
        if (g_pCurrent != nullptr) {
            EnumThreadWindows(GetCurrentThreadId(), Answer, reinterpret_cast<LPARAM>(g_pCurrent));
        }
    }

    static BoxAnswer* g_pCurrent;

    int m_nButton;
    UINT_PTR m_uTimer = 0;
};

BoxAnswer* BoxAnswer::g_pCurrent = nullptr;

} // namespace

TEST(ResourceString, LoadsByItsId)
{
    EXPECT_EQ(Text(ResourceString(IDS_SHORT)), "A short text");
    EXPECT_EQ(Text(ResourceString(IDS_SHORT, GetModuleHandleA(nullptr))), "A short text");
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
    const BoxAnswer answer(IDNO);
    EXPECT_EQ(MessageBox(window.GetHandle(), "Really?", "Caption", MB_YESNOCANCEL), IDNO);
    EXPECT_EQ(answer.m_sCaption, "Caption");
    EXPECT_EQ(answer.m_sText, "Really?");
    EXPECT_EQ(answer.m_hOwner, window.GetHandle());
}

TEST(MessageBox, HasTheApplicationsNameForACaption)
{
    const BoxAnswer answer(IDOK);
    EXPECT_EQ(MessageBox(nullptr, "Done.", MB_OK), IDOK);
    EXPECT_EQ(answer.m_sCaption, "Window tests");
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
    const BoxAnswer answer(IDOK);
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
