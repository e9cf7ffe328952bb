#include "tools/qmpassworddialog.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "resources/resource.h"
#include "tests/win/dialog_support.h"
#include "tests/win/support.h"

namespace {

constexpr const char* g_szWrong = "Invalid password entered.";
constexpr const char* g_szWrongCurrent = "Invalid current password entered.";
constexpr const char* g_szDiffer = "New password entries do not match.";
constexpr const char* g_szTurnOff =
    "Both new password enteries are empty.\n"
    "Do you want password protection turned off?";

using Sentences = std::vector<std::string>;

// Enters texts in the open dialog and presses OK. If OK opens a box, it is answered.
class Entries
{
public:
    // The texts for the fields of the dialog, in their order. Null leaves a field as it is.
    Entries& Enter(const std::vector<const char*>& texts)
    {
        const auto Fill = [=](HWND hDialog) {
            constexpr int aFields[] = {IDC_PW_CURRENT, IDC_PW_NEW, IDC_PW_NEWAGAIN};
            for (size_t u = 0; u < texts.size(); ++u) {
                if (texts[u] != nullptr) {
                    Type(hDialog, aFields[u], texts[u]);
                }
            }
            Press(hDialog, IDOK);
        };
        m_bFirst ? m_driver.Next(Fill) : m_driver.Again(Fill);
        m_bFirst = false;
        return *this;
    }

    Entries& Answer(int nButton)
    {
        m_driver.Next([=, this](HWND hBox) {
            m_sentences.push_back(BoxText(hBox));
            EXPECT_EQ(Text(VWindow::WindowText(hBox)), "Window tests");
            Press(hBox, nButton);
        });
        return *this;
    }

    Entries& Cancel()
    {
        m_driver.Again([](HWND hDialog) { Press(hDialog, IDCANCEL); });
        return *this;
    }

    const Sentences& GetSentences() const { return m_sentences; }

private:
    ModalDriver m_driver;
    bool m_bFirst = true;
    Sentences m_sentences;
};

INT_PTR Ask(const char* szPassword, const char* szName = "")
{
    QMPasswordDialog dialog;
    return dialog.DoModal(nullptr, szPassword, szName);
}

// The password after the Set Password dialog; before, it is "before". Cancel leaves it so.
std::string Set(const char* szCurrent, INT_PTR nExpected)
{
    char szField[16] = "before";
    QMSetPasswordDialog dialog;
    const INT_PTR nResult = dialog.DoModal(nullptr, szCurrent);
    EXPECT_EQ(nResult, nExpected);
    if (nResult == IDOK) {
        dialog.GetPassword(szField);
    }
    return szField;
}

} // namespace

// ---- Enter Password.

TEST(QMPasswordDialog, LooksAsDesigned)
{
    ModalDriver driver;
    driver.Next([](HWND hDialog) {
        EXPECT_EQ(Text(VWindow::WindowText(hDialog)), "Enter Password");
        EXPECT_EQ(SizeInUnits(hDialog), "160x56");
        EXPECT_EQ(TabOrder(hDialog), (std::vector<std::string>{"10202 This is password protected.",
                                                               "10204 ", "2 &Cancel", "1 &OK"}));
        EXPECT_EQ(LayoutFaults(hDialog), std::vector<std::string>());
        EXPECT_EQ(FocusedId(hDialog), IDC_PW_CURRENT);
        Press(hDialog, IDCANCEL);
    });
    EXPECT_EQ(Ask("abc"), IDCANCEL);
}

TEST(QMPasswordDialog, NamesWhatIsProtected)
{
    ModalDriver driver;
    driver.Next([](HWND hDialog) {
        EXPECT_EQ(ItemText(hDialog, IDC_PW_EXPLANATION), "house & home.qmk is password protected.");
        EXPECT_EQ(LayoutFaults(hDialog), std::vector<std::string>());
        Press(hDialog, IDCANCEL);
    });
    EXPECT_EQ(Ask("abc", "house & home.qmk"), IDCANCEL);
}

TEST(QMPasswordDialog, HasRoomForALongName)
{
    ModalDriver driver;
    driver.Next([](HWND hDialog) {
        EXPECT_EQ(LayoutFaults(hDialog), std::vector<std::string>());
        Press(hDialog, IDCANCEL);
    });
    EXPECT_EQ(Ask("abc", "the account of the household.qmk"), IDCANCEL);
}

TEST(QMPasswordDialog, TakesFifteenCharactersAndShowsStars)
{
    ModalDriver driver;
    driver.Next([](HWND hDialog) {
        HWND hEdit = GetDlgItem(hDialog, IDC_PW_CURRENT);
        EXPECT_EQ(SendMessageA(hEdit, EM_GETPASSWORDCHAR, 0, 0), '*');
        TypeCharacters(hEdit, "0123456789abcdefg");
        EXPECT_EQ(ItemText(hDialog, IDC_PW_CURRENT), "0123456789abcde");
        Press(hDialog, IDOK);
    });
    EXPECT_EQ(Ask("0123456789ABCDE"), IDOK);
}

TEST(QMPasswordDialog, IgnoresCase)
{
    Entries entries;
    entries.Enter({"ABC"});
    EXPECT_EQ(Ask("abc"), IDOK);
}

TEST(QMPasswordDialog, IsSatisfiedWithoutAPassword)
{
    Entries entries;
    entries.Enter({"anything"});
    EXPECT_EQ(Ask(""), IDOK);
}

TEST(QMPasswordDialog, StaysOpenAfterAWrongEntry)
{
    Entries entries;
    entries.Enter({"x"}).Answer(IDOK).Enter({"abc"});
    EXPECT_EQ(Ask("abc"), IDOK);
    EXPECT_EQ(entries.GetSentences(), Sentences{g_szWrong});
}

TEST(QMPasswordDialog, SelectsAWrongEntry)
{
    ModalDriver driver;
    driver.Next([](HWND hDialog) {
        Type(hDialog, IDC_PW_CURRENT, "wrong");
        SetFocus(GetDlgItem(hDialog, IDOK));
        Press(hDialog, IDOK);
    });
    driver.Next(AnswerBox(IDOK));
    driver.Again([](HWND hDialog) {
        EXPECT_EQ(FocusedId(hDialog), IDC_PW_CURRENT);
        const auto uSelection =
            static_cast<DWORD>(SendDlgItemMessageA(hDialog, IDC_PW_CURRENT, EM_GETSEL, 0, 0));
        EXPECT_EQ(uSelection, static_cast<DWORD>(MAKELONG(0, 5)));
        Press(hDialog, IDCANCEL);
    });
    EXPECT_EQ(Ask("abc"), IDCANCEL);
}

TEST(QMPasswordDialog, EndsWithTheThirdWrongEntry)
{
    for (int nOpening = 0; nOpening < 2; ++nOpening) {
        Entries entries; // the count starts anew with each opening
        entries.Enter({"x"}).Answer(IDOK).Enter({""}).Answer(IDOK).Enter({"abcd"}).Answer(IDOK);
        EXPECT_EQ(Ask("abc"), IDCANCEL);
        EXPECT_EQ(entries.GetSentences(), (Sentences{g_szWrong, g_szWrong, g_szWrong}));
    }
}

TEST(QMPasswordDialog, EndsByItsCloseBoxAsByCancel)
{
    ModalDriver driver;
    driver.Next([](HWND hDialog) { PostMessageA(hDialog, WM_CLOSE, 0, 0); });
    EXPECT_EQ(Ask("abc"), IDCANCEL);
}

TEST(QMPasswordDialog, ObeysEnterAndEscape)
{
    {
        ModalDriver driver;
        driver.Next([](HWND hDialog) {
            Type(hDialog, IDC_PW_CURRENT, "abc");
            PostKey(GetDlgItem(hDialog, IDC_PW_CURRENT), VK_RETURN);
        });
        EXPECT_EQ(Ask("abc"), IDOK);
    }
    ModalDriver driver;
    driver.Next([](HWND hDialog) { PostKey(GetDlgItem(hDialog, IDC_PW_CURRENT), VK_ESCAPE); });
    EXPECT_EQ(Ask("abc"), IDCANCEL);
}

// ---- Set Password.

TEST(QMSetPasswordDialog, LooksAsDesigned)
{
    ModalDriver driver;
    driver.Next([](HWND hDialog) {
        EXPECT_EQ(Text(VWindow::WindowText(hDialog)), "Set Password");
        EXPECT_EQ(SizeInUnits(hDialog), "200x110");
        std::vector<std::string> order = TabOrder(hDialog);
        ASSERT_FALSE(order.empty());
        order.erase(order.begin()); // the explanation
        EXPECT_EQ(order, (std::vector<std::string>{"10203 Enter current password:", "10204 ",
                                                   "10205 ", "10206 ", "2 &Cancel", "1 &OK"}));
        EXPECT_EQ(LayoutFaults(hDialog), std::vector<std::string>());
        for (const int nId : {IDC_PW_CURRENT, IDC_PW_NEW, IDC_PW_NEWAGAIN}) {
            EXPECT_EQ(LimitOf(hDialog, nId), 15);
            EXPECT_EQ(SendDlgItemMessageA(hDialog, nId, EM_GETPASSWORDCHAR, 0, 0), '*');
        }
        Press(hDialog, IDCANCEL);
    });
    EXPECT_EQ(Set("abc", IDCANCEL), "before");
}

TEST(QMSetPasswordDialog, AsksForThePresentPasswordOnlyIfThereIsOne)
{
    for (const bool bHasPassword : {true, false}) {
        ModalDriver driver;
        driver.Next([=](HWND hDialog) {
            EXPECT_EQ(IsEnabled(hDialog, IDC_PW_CURRENTLABEL), bHasPassword);
            EXPECT_EQ(IsEnabled(hDialog, IDC_PW_CURRENT), bHasPassword);
            EXPECT_EQ(FocusedId(hDialog), bHasPassword ? IDC_PW_CURRENT : IDC_PW_NEW);
            Press(hDialog, IDCANCEL);
        });
        EXPECT_EQ(Set(bHasPassword ? "abc" : "", IDCANCEL), "before");
    }
}

TEST(QMSetPasswordDialog, SetsAFirstPassword)
{
    Entries entries;
    entries.Enter({nullptr, "new", "new"});
    EXPECT_EQ(Set("", IDOK), "new");
}

TEST(QMSetPasswordDialog, KeepsTheFormOfTheSecondEntry)
{
    Entries entries;
    entries.Enter({"ABC", "secret", "SeCret"});
    EXPECT_EQ(Set("abc", IDOK), "SeCret");
}

TEST(QMSetPasswordDialog, SetsTheLongestPassword)
{
    Entries entries;
    entries.Enter({nullptr, "0123456789abcde", "0123456789abcde"});
    EXPECT_EQ(Set("", IDOK), "0123456789abcde");
}

TEST(QMSetPasswordDialog, EndsWithTheThirdWrongPresentPassword)
{
    Entries entries;
    entries.Enter({"x", "new", "new"}).Answer(IDOK);
    entries.Enter({"", "new", "new"}).Answer(IDOK);
    entries.Enter({"y", "new", "new"}).Answer(IDOK);
    EXPECT_EQ(Set("abc", IDCANCEL), "before");
    EXPECT_EQ(entries.GetSentences(),
              (Sentences{g_szWrongCurrent, g_szWrongCurrent, g_szWrongCurrent}));
}

TEST(QMSetPasswordDialog, TurnsProtectionOffWhenAsked)
{
    Entries entries;
    entries.Enter({"abc", "", ""}).Answer(IDYES);
    EXPECT_EQ(Set("abc", IDOK), "");
    EXPECT_EQ(entries.GetSentences(), Sentences{g_szTurnOff});
}

TEST(QMSetPasswordDialog, StaysOpenWhenProtectionIsToStay)
{
    Entries entries;
    entries.Enter({"abc", "", ""}).Answer(IDNO).Enter({nullptr, "new", "new"});
    EXPECT_EQ(Set("abc", IDOK), "new");
}

// The text is selected, so that the next try replaces it.
TEST(QMSetPasswordDialog, LeavesTheFocusInTheFieldThatIsMeant)
{
    const auto ExpectSelected = [](HWND hDialog, int nId) {
        EXPECT_EQ(FocusedId(hDialog), nId);
        DWORD uBegin = 99;
        DWORD uEnd = 0;
        SendDlgItemMessageA(hDialog, nId, EM_GETSEL, reinterpret_cast<WPARAM>(&uBegin),
                            reinterpret_cast<LPARAM>(&uEnd));
        EXPECT_EQ(uBegin, 0U) << "control " << nId;
        EXPECT_EQ(uEnd, ItemText(hDialog, nId).size()) << "control " << nId;
    };
    const auto Try = [](HWND hDialog, const char* szCurrent, const char* szNew,
                        const char* szAgain) {
        Type(hDialog, IDC_PW_CURRENT, szCurrent);
        Type(hDialog, IDC_PW_NEW, szNew);
        Type(hDialog, IDC_PW_NEWAGAIN, szAgain);
        SetFocus(GetDlgItem(hDialog, IDC_PW_NEWAGAIN));
        Press(hDialog, IDOK);
    };
    ModalDriver driver;
    driver.Next([&](HWND hDialog) { Try(hDialog, "wrong", "new", "new"); });
    driver.Next(AnswerBox(IDOK));
    driver.Again([&](HWND hDialog) {
        ExpectSelected(hDialog, IDC_PW_CURRENT);
        Try(hDialog, "abc", "new", "now");
    });
    driver.Next(AnswerBox(IDOK));
    driver.Again([&](HWND hDialog) {
        ExpectSelected(hDialog, IDC_PW_NEW);
        Try(hDialog, "abc", "", "");
    });
    driver.Next(AnswerBox(IDNO));
    driver.Again([&](HWND hDialog) {
        ExpectSelected(hDialog, IDC_PW_NEW);
        Press(hDialog, IDCANCEL);
    });
    EXPECT_EQ(Set("abc", IDCANCEL), "before");
}

TEST(QMSetPasswordDialog, RefusesEntriesThatDiffer)
{
    Entries entries;
    entries.Enter({nullptr, "", "new"}).Answer(IDOK);
    entries.Enter({nullptr, "new", ""}).Answer(IDOK);
    entries.Enter({nullptr, "new", "now"}).Answer(IDOK);
    entries.Enter({nullptr, "one more", "than three"}).Answer(IDOK);
    entries.Cancel();
    EXPECT_EQ(Set("", IDCANCEL), "before");
    EXPECT_EQ(entries.GetSentences(), Sentences(4, g_szDiffer));
}
