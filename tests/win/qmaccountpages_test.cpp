// The sheet "Account Information" and its three pages, driven by their controls.

#include "tools/qmaccountpages.h"

#include <gtest/gtest.h>

#include "base/vtext.h"
#include "resources/resource.h"
#include "tests/support/ddeserver_win.h"
#include "tests/win/classesroot.h"
#include "tests/win/dialog_support.h"
#include "tests/win/support.h"
#include "toolkit/vpropertysheet.h"

namespace {

class QMAccountPagesTest : public testing::Test
{
protected:
    QMAccountPagesTest()
    {
        QMAccountHeader& header = m_particulars.header;
        VCopyText(header.szAccountNumber, "12-345");
        header.dtOpened = QMMakeDate(2003, 1, 2);
        header.fMinimumBalance = 100;
        VCopyText(header.szBankName, "First Bank");
        VCopyText(header.szBankHomepage, "http://bank.example/");
        VCopyText(header.szHolderName, "N. Wren");
    }

    // Runs the sheet. Returns true when OK ended it.
    bool Run()
    {
        VTabbedSheet sheet;
        EXPECT_TRUE(sheet.AddPage(m_account, IDD_ACCOUNT_PAGE));
        EXPECT_TRUE(sheet.AddPage(m_bank, IDD_BANK_PAGE));
        EXPECT_TRUE(sheet.AddPage(m_holder, IDD_HOLDER_PAGE));
        EXPECT_TRUE(sheet.Run(nullptr, "Account Information", "a.qmk", 0, PSH_NOAPPLYNOW));
        return sheet.IsOK();
    }

    // Does something on the first page of the sheet, then shows the other pages and presses a
    // button.
    void OnFirstPage(const ModalDriver::Action& action, int nButton = IDOK)
    {
        m_driver.Next([=, this](HWND hSheet) {
            action(m_account.GetHandle());
            Press(hSheet, nButton);
        });
    }
    void OnPage(int nPage, const ModalDriver::Action& action, int nButton = IDOK)
    {
        m_driver.Next([=](HWND hSheet) {
            PropSheet_SetCurSel(hSheet, nullptr, nPage);
            action(PropSheet_GetCurrentPageHwnd(hSheet));
            if (nButton != 0) {
                Press(hSheet, nButton);
            }
        });
    }

    QMAccountParticulars m_particulars;
    QMAccountPage m_account{m_particulars};
    QMBankPage m_bank{m_particulars};
    QMHolderPage m_holder{m_particulars};
    ModalDriver m_driver;
};

} // namespace

TEST_F(QMAccountPagesTest, ShowTheAccount)
{
    m_driver.Next([&](HWND hSheet) {
        EXPECT_EQ(Text(VWindow::WindowText(hSheet)), "Account Information - a.qmk");
        EXPECT_EQ(GetDlgItem(hSheet, 12321) != nullptr && IsShown(hSheet, 12321), false);
        HWND hPage = m_account.GetHandle();
        Texts order = TabOrder(hPage);
        ASSERT_EQ(order.size(), 4U);
        order[1] = order[1].substr(0, 4); // the date is written as the user's country does it
        EXPECT_EQ(order,
                  (Texts{"1421 12-345", "1422", "1423     100.00", "1424 Read-Only Protect"}));
        EXPECT_EQ(LayoutFaults(hPage), Texts());
        EXPECT_EQ(FocusedId(hPage), IDC_ACCOUNT_NUMBER);
        EXPECT_EQ(LimitOf(hPage, IDC_ACCOUNT_NUMBER), 31);
        EXPECT_EQ(LimitOf(hPage, IDC_ACCOUNT_MINIMUM), 15);
        EXPECT_FALSE(IsOn(hPage, IDC_ACCOUNT_READONLY));
        PropSheet_SetCurSel(hSheet, nullptr, 1);
        hPage = m_bank.GetHandle();
        EXPECT_EQ(TabOrder(hPage), (Texts{"1401 First Bank", "1402 ", "1403 ", "1404 ", "1405 ",
                                          "1406 ", "1407 http://bank.example/", "1905 Go"}));
        EXPECT_EQ(LayoutFaults(hPage), Texts());
        EXPECT_EQ(LimitOf(hPage, IDC_BANK_HOMEPAGE), 127);
        PropSheet_SetCurSel(hSheet, nullptr, 2);
        hPage = m_holder.GetHandle();
        EXPECT_EQ(TabOrder(hPage),
                  (Texts{"1411 N. Wren", "1412 ", "1413 ", "1414 ", "1415 ", "1416 "}));
        EXPECT_EQ(LayoutFaults(hPage), Texts());
        EXPECT_EQ(LimitOf(hPage, IDC_HOLDER_PHONE), 15);
        Press(hSheet, IDCANCEL);
    });
    EXPECT_FALSE(Run());
}

// The label of each edit field is right before it.
TEST_F(QMAccountPagesTest, NameEveryControl)
{
    m_driver.Next([&](HWND hSheet) {
        for (int nPage = 0; nPage < 3; ++nPage) {
            PropSheet_SetCurSel(hSheet, nullptr, nPage);
            EXPECT_EQ(NamelessControls(PropSheet_GetCurrentPageHwnd(hSheet)), Texts());
        }
        EXPECT_EQ(NameOfControl(m_account.GetItem(IDC_ACCOUNT_MINIMUM)), "Minimum Balance:");
        Press(hSheet, IDCANCEL);
    });
    EXPECT_FALSE(Run());
}

TEST_F(QMAccountPagesTest, TakeOverWhatWasTyped)
{
    OnFirstPage([&](HWND hPage) {
        Type(hPage, IDC_ACCOUNT_NUMBER, "99");
        Type(hPage, IDC_ACCOUNT_MINIMUM, "-12.5");
        SYSTEMTIME date = {};
        date.wYear = 2004;
        date.wMonth = 2;
        date.wDay = 29;
        SendDlgItemMessageA(hPage, IDC_ACCOUNT_OPENED, DTM_SETSYSTEMTIME, GDT_VALID,
                            reinterpret_cast<LPARAM>(&date));
    });
    EXPECT_TRUE(Run());
    EXPECT_STREQ(m_particulars.header.szAccountNumber, "99");
    EXPECT_EQ(m_particulars.header.fMinimumBalance, -12.5F);
    EXPECT_TRUE(QMDateIsEqual(m_particulars.header.dtOpened, QMMakeDate(2004, 2, 29)));
    EXPECT_EQ(m_particulars.header.bReadOnly, 0);
    EXPECT_STREQ(m_particulars.header.szBankName, "First Bank")
        << "a page that was never shown must change nothing";
}

TEST_F(QMAccountPagesTest, TakeOverTheBankAndTheHolder)
{
    m_driver.Next([&](HWND hSheet) {
        PropSheet_SetCurSel(hSheet, nullptr, 1);
        Type(m_bank.GetHandle(), IDC_BANK_NAME, "Second Bank");
        Type(m_bank.GetHandle(), IDC_BANK_ZIP, "04999");
        PropSheet_SetCurSel(hSheet, nullptr, 2);
        Type(m_holder.GetHandle(), IDC_HOLDER_CITY, "Elderbrook");
        Press(hSheet, IDOK);
    });
    EXPECT_TRUE(Run());
    EXPECT_STREQ(m_particulars.header.szBankName, "Second Bank");
    EXPECT_STREQ(m_particulars.header.szBankZip, "04999");
    EXPECT_STREQ(m_particulars.header.szHolderCity, "Elderbrook");
    EXPECT_STREQ(m_particulars.header.szHolderName, "N. Wren");
}

// Kept: an emptied text is not taken over. An emptied balance is, as 0.
TEST_F(QMAccountPagesTest, KeepATextThatWasEmptied)
{
    m_driver.Next([&](HWND hSheet) {
        Type(m_account.GetHandle(), IDC_ACCOUNT_NUMBER, "");
        Type(m_account.GetHandle(), IDC_ACCOUNT_MINIMUM, "");
        PropSheet_SetCurSel(hSheet, nullptr, 1);
        Type(m_bank.GetHandle(), IDC_BANK_NAME, "");
        Press(hSheet, IDOK);
    });
    EXPECT_TRUE(Run());
    EXPECT_STREQ(m_particulars.header.szAccountNumber, "12-345");
    EXPECT_STREQ(m_particulars.header.szBankName, "First Bank");
    EXPECT_EQ(m_particulars.header.fMinimumBalance, 0);
}

TEST_F(QMAccountPagesTest, KeepABalanceThatIsNoNumber)
{
    OnFirstPage([&](HWND hPage) { Type(hPage, IDC_ACCOUNT_MINIMUM, "none"); });
    EXPECT_TRUE(Run());
    EXPECT_EQ(m_particulars.header.fMinimumBalance, 100);
}

TEST_F(QMAccountPagesTest, DisableWhatReadOnlyProtects)
{
    m_driver.Next([&](HWND hSheet) {
        PropSheet_SetCurSel(hSheet, nullptr, 1); // has its window before the mark is set
        PropSheet_SetCurSel(hSheet, nullptr, 0);
        Click(m_account.GetHandle(), IDC_ACCOUNT_READONLY);
        EXPECT_TRUE(m_particulars.bReadOnlyProtect);
        for (const int nId : {IDC_ACCOUNT_NUMBER, IDC_ACCOUNT_OPENED, IDC_ACCOUNT_MINIMUM}) {
            EXPECT_FALSE(IsEnabled(m_account.GetHandle(), nId)) << "control " << nId;
        }
        EXPECT_TRUE(IsEnabled(m_account.GetHandle(), IDC_ACCOUNT_READONLY));
        PropSheet_SetCurSel(hSheet, nullptr, 1);
        for (int nId = IDC_BANK_NAME; nId <= IDC_BANK_HOMEPAGE; ++nId) {
            EXPECT_FALSE(IsEnabled(m_bank.GetHandle(), nId)) << "control " << nId;
        }
        EXPECT_TRUE(IsEnabled(m_bank.GetHandle(), IDC_BANK_GO));
        PropSheet_SetCurSel(hSheet, nullptr, 2);
        for (int nId = IDC_HOLDER_NAME; nId <= IDC_HOLDER_PHONE; ++nId) {
            EXPECT_FALSE(IsEnabled(m_holder.GetHandle(), nId)) << "control " << nId;
        }
        Press(hSheet, IDOK);
    });
    EXPECT_TRUE(Run());
    EXPECT_EQ(m_particulars.header.bReadOnly, 1);
}

TEST_F(QMAccountPagesTest, LetTheMarkBeTakenOff)
{
    m_particulars.header.bReadOnly = 1;
    OnFirstPage([&](HWND hPage) {
        EXPECT_TRUE(IsOn(hPage, IDC_ACCOUNT_READONLY));
        EXPECT_FALSE(IsEnabled(hPage, IDC_ACCOUNT_NUMBER));
        Click(hPage, IDC_ACCOUNT_READONLY);
        EXPECT_TRUE(IsEnabled(hPage, IDC_ACCOUNT_NUMBER));
        EXPECT_TRUE(IsEnabled(hPage, IDC_ACCOUNT_OPENED));
    });
    EXPECT_TRUE(Run());
    EXPECT_EQ(m_particulars.header.bReadOnly, 0);
}

TEST_F(QMAccountPagesTest, StartWithoutTheMarkOfASheetBefore)
{
    m_particulars.bReadOnlyProtect = true;
    const QMAccountPage next(m_particulars);
    EXPECT_FALSE(m_particulars.bReadOnlyProtect);
    OnFirstPage([](HWND) {}, IDCANCEL);
    EXPECT_FALSE(Run());
}

TEST_F(QMAccountPagesTest, EndByEscapeInAnEdit)
{
    m_driver.Next([&](HWND) {
        Type(m_account.GetHandle(), IDC_ACCOUNT_NUMBER, "lost");
        PostKey(m_account.GetItem(IDC_ACCOUNT_NUMBER), VK_ESCAPE);
    });
    EXPECT_FALSE(Run());
    EXPECT_STREQ(m_particulars.header.szAccountNumber, "12-345");
}

// ---- The button Go.

TEST_F(QMAccountPagesTest, GoToThePageThatStandsInTheEdit)
{
    m_particulars.header.bReadOnly = 1;
    DdeServer server("IEXPLORE", DdeServer::Answers);
    OnPage(
        1,
        [](HWND hPage) {
            Type(hPage, IDC_BANK_HOMEPAGE, "http://other.example/");
            Click(hPage, IDC_BANK_GO);
        },
        IDCANCEL);
    EXPECT_FALSE(Run());
    EXPECT_EQ(server.TakeQuestions(), "WWW_OpenURL|\"http://other.example/\",,-1,,,,\n");
}

TEST_F(QMAccountPagesTest, AskForAnAddressWhereThereIsNone)
{
    std::string sSentence;
    m_driver.Next([&](HWND hSheet) {
        PropSheet_SetCurSel(hSheet, nullptr, 1);
        Type(m_bank.GetHandle(), IDC_BANK_HOMEPAGE, "");
        Press(m_bank.GetHandle(), IDC_BANK_GO);
    });
    m_driver.Next(AnswerBox(IDOK, &sSentence));
    m_driver.Again([&](HWND hSheet) {
        EXPECT_EQ(FocusedId(m_bank.GetHandle()), IDC_BANK_HOMEPAGE);
        Press(hSheet, IDCANCEL);
    });
    EXPECT_FALSE(Run());
    EXPECT_EQ(sSentence, "Please Enter a URL.");
}

TEST_F(QMAccountPagesTest, TellThatNoBrowserCameUp)
{
    const ScopedClassesRoot classes;
    const ScopedDdeWindows windows;
    std::string sSentence;
    m_driver.Next([&](HWND hSheet) {
        PropSheet_SetCurSel(hSheet, nullptr, 1);
        Press(m_bank.GetHandle(), IDC_BANK_GO);
    });
    m_driver.Next(AnswerBox(IDOK, &sSentence));
    m_driver.Again([](HWND hSheet) { Press(hSheet, IDCANCEL); });
    EXPECT_FALSE(Run());
    EXPECT_EQ(sSentence, "Could not launch browser ''.");
}
