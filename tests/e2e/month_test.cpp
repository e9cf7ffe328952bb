// One month of a household: transactions are typed, corrected, read, protected, saved in every
// format and opened again. In the end the files must hold what was typed.

#include <algorithm>
#include <cstring>

#include "tests/e2e/keyboard.h"
#include "tests/e2e/windowaccess.h"
#include "tests/e2e/work_test.h"

namespace {

constexpr char szInUse[] = "Check number already in use.\nWould you like to continue?";
constexpr char szRemove[] = "Are you sure you want to remove this transaction?";
constexpr char szRemoveSeveral[] = "Are you sure you want to remove these transactions?";

const std::vector<Entry> month = {
    {.lType = QM_TRANS_DEPOSIT, .sDate = "2004-03-01", .sAmount = "1500", .sCategory = "Wages"},
    {.sDate = "2004-03-02",
     .sAmount = "650.00",
     .sDescription = "Landlord",
     .sMemo = "March",
     .sCategory = "Rent",
     .sCleared = "2004-03-05"},
    {.sDate = "2004-03-03",
     .sAmount = "12.34",
     .sDescription = "Book shop",
     .sCategory = "Study",
     .uTag = QM_TRANS_FLAG_TAX},
    {.lType = QM_TRANS_WITHDRAWAL, .sDate = "2004-03-04", .sAmount = "60", .sMemo = "cash"},
    {.lType = QM_TRANS_FEE, .sDate = "2004-03-05", .sAmount = "3.5", .sCleared = "2004-03-05"},
    {.lType = QM_TRANS_DIRECT_DEPOSIT, .sDate = "2004-03-08", .sAmount = "20.25"},
    {.lType = QM_TRANS_DIRECT_DEBIT,
     .sDate = "2004-03-09",
     .sAmount = "75.10",
     .sMemo = "power",
     .sCategory = "House",
     .uTag = QM_TRANS_FLAG_EXPENSE},
    {.lType = QM_TRANS_ATM_DEPOSIT, .sDate = "2004-03-10", .sAmount = "5"},
    {.lType = QM_TRANS_ATM_WITHDRAWAL, .sDate = "2004-03-11", .sAmount = "40"},
    {.lType = QM_TRANS_AUTOMATIC_PAYMENT,
     .sDate = "2004-03-15",
     .sAmount = "29.99",
     .sMemo = "telephone"},
    {.lType = QM_TRANS_TRANSFER_CREDIT, .sDate = "2004-03-16", .sAmount = "100"},
    {.lType = QM_TRANS_TRANSFER_DEBIT, .sDate = "2004-03-17", .sAmount = "50"},
    {.lType = QM_TRANS_INTEREST_PAID, .sDate = "2004-03-31", .sAmount = "0.07"},
    {.sDate = "2004-04-02",
     .sAmount = "1.00",
     .sDescription = "void",
     .uTag = QM_TRANS_FLAG_VOIDED},
    // They are not in the order of their days.
    {.sDate = "2004-03-20", .sAmount = "8", .sDescription = "Baker"},
};

class MonthTest : public WorkTest
{
protected:
    // What the account must hold, in the order of its store.
    Texts ExpectedLines(bool bWithCategories = true) const
    {
        Texts lines;
        for (QMTransactionFields fields : m_expected) {
            if (!bWithCategories) {
                fields.szCategory[0] = '\0';
            }
            lines.push_back(LineOf(fields));
        }
        return lines;
    }

    void Expect(const QMTransactionFields& fields)
    {
        m_expected.push_back(fields);
        SortExpected();
    }

    void SortExpected()
    {
        std::stable_sort(m_expected.begin(), m_expected.end(), [](const auto& a, const auto& b) {
            return QMDateIsBefore(a.dtDate, b.dtDate);
        });
    }

    // Types an entry and notes the transaction that must result. The dialog must offer this number.
    void TypeInto(const DialogWindow& dialog, const Entry& entry)
    {
        const auto uOffered = static_cast<uint32_t>(std::stoul(dialog.GetText(IDC_TX_NUMBER)));
        entry.Type(dialog, m_keyboard);
        Expect(entry.AsTransaction(uOffered));
    }

    void PressAdd(const DialogWindow& dialog) const
    {
        m_keyboard.TabTo(dialog, IDC_TX_ADD);
        m_keyboard.Press(VK_SPACE);
    }

    void EnterMonth();
    void EnterNumberInUse(const DialogWindow& dialog);
    void CorrectSome();
    void RemoveSome();
    void TagSome();
    void LookAtMarch();
    void Protect() const;
    void SaveInEachFormat() const;
    void OpenGuessing() const;
    void CloseBeingAsked() const;
    void FailToOpen();

    const Keyboard m_keyboard{m_program};
    std::vector<QMTransactionFields> m_expected;
};

void MonthTest::EnterMonth()
{
    m_keyboard.Press('N', {VK_CONTROL});
    AwaitTitle("Untitled1");
    m_keyboard.Press('A', {VK_CONTROL});
    const DialogWindow dialog = AwaitDialog(m_program, "Add Transaction");
    int nRows = 0;
    for (const Entry& entry : month) {
        TypeInto(dialog, entry);
        PressAdd(dialog);
        AwaitRowCount(++nRows);
        dialog.AwaitFocus(IDC_TX_DESCRIPTION);
        EXPECT_EQ(dialog.GetText(IDC_TX_AMOUNT), "0.00");
    }
    EnterNumberInUse(dialog);
    m_keyboard.Press(VK_ESCAPE);
    dialog.AwaitEnd();
    AwaitTitle("Untitled1 *");
}

void MonthTest::EnterNumberInUse(const DialogWindow& dialog)
{
    const Entry again = {.sDate = "2004-03-21",
                         .sAmount = "4.56",
                         .sNumber = "1001",
                         .sDescription = "number used twice"};
    TypeInto(dialog, again);
    PressAdd(dialog);
    m_program.AnswerQuestion(szInUse, {IDYES, IDNO}, IDNO);
    m_program.Settle();
    EXPECT_EQ(ActiveList().GetRowCount(), static_cast<int>(month.size()));
    EXPECT_EQ(dialog.GetText(IDC_TX_DESCRIPTION), again.sDescription);
    EXPECT_EQ(dialog.GetText(IDC_TX_NUMBER), "1001");
    EXPECT_EQ(dialog.GetText(IDC_TX_AMOUNT), "4.56");
    PressAdd(dialog);
    m_program.AnswerQuestion(szInUse, {IDYES, IDNO}, IDYES);
    AwaitRowCount(static_cast<int>(month.size()) + 1);
}

void MonthTest::CorrectSome()
{
    Select({1, 3, 6});
    m_keyboard.Press(VK_RETURN);
    const DialogWindow dialog = AwaitDialog(m_program, "Edit Transaction");
    dialog.AwaitFocus(IDOK);
    EXPECT_EQ(dialog.GetText(IDC_TX_DESCRIPTION), "Landlord");
    m_keyboard.Fill(dialog, IDC_TX_AMOUNT, "655");
    m_keyboard.TabTo(dialog, IDC_TX_NEXT);
    m_keyboard.Press(VK_SPACE);
    Await("the second transaction", [&] { return dialog.GetText(IDC_TX_MEMO) == "cash"; });
    m_keyboard.Fill(dialog, IDC_TX_MEMO, "pocket money");
    m_keyboard.TabTo(dialog, IDC_TX_LAST);
    m_keyboard.Press(VK_SPACE);
    Await("the third transaction", [&] { return dialog.GetText(IDC_TX_MEMO) == "power"; });
    dialog.SetDate(IDC_TX_DATE, "2004-03-29");
    m_keyboard.Press(VK_RETURN);
    dialog.AwaitEnd();
    m_program.Settle();
    m_expected[1].fAmount = 655;
    strcpy(m_expected[3].szMemo, "pocket money");
    m_expected[6].dtDate = m_expected[6].dtCleared = QMMakeDate(2004, 3, 29);
    SortExpected();
    // The transaction that was edited last is selected, in its new place.
    EXPECT_EQ(ActiveList().GetSelectedRows().size(), 1U);
    EXPECT_EQ(Column("Memo")[static_cast<size_t>(ActiveList().GetFocusedRow())], "power");
}

void MonthTest::RemoveSome()
{
    Select({4});
    m_keyboard.Press(VK_DELETE);
    m_program.AnswerQuestion(szRemove, {IDYES, IDNO}, IDNO);
    m_program.Settle();
    EXPECT_EQ(ActiveList().GetRowCount(), static_cast<int>(m_expected.size()));
    m_keyboard.Press(VK_DELETE);
    m_program.AnswerQuestion(szRemove, {IDYES, IDNO}, IDYES);
    AwaitRowCount(static_cast<int>(m_expected.size()) - 1);
    m_program.Settle();
    Select({5, 7});
    m_keyboard.Press(VK_DELETE);
    m_program.AnswerQuestion(szRemoveSeveral, {IDYES, IDNO}, IDYES);
    AwaitRowCount(static_cast<int>(m_expected.size()) - 3);
    m_program.Settle();
    m_expected.erase(m_expected.begin() + 4);
    m_expected.erase(m_expected.begin() + 7);
    m_expected.erase(m_expected.begin() + 5);
}

void MonthTest::TagSome()
{
    const auto Toggle = [&](int nRow, WORD uKey, uint32_t uBefore, uint32_t uAfter) {
        QMTransactionFields& fields = m_expected[static_cast<size_t>(nRow)];
        ASSERT_EQ(fields.lFlags, uBefore) << "row " << nRow;
        fields.lFlags = uAfter;
        const uint32_t uData = ActiveList().ReadData(nRow, 1)[0];
        Select({nRow});
        m_program.Settle();
        m_keyboard.Press(uKey, {VK_MENU});
        Await("other marks in the row", [&] { return ActiveList().ReadData(nRow, 1)[0] != uData; });
    };
    Toggle(1, 'E', 0, QM_TRANS_FLAG_EXPENSE);
    Toggle(2, 'C', 20, QM_TRANS_FLAG_TAX);
    Toggle(3, 'V', 16, 17);
    Toggle(7, 'T', 16, 20);
    m_program.Settle();
    EXPECT_TRUE(m_program.GetBoxes().empty());
}

void MonthTest::LookAtMarch()
{
    const int nAll = static_cast<int>(m_expected.size());
    const std::string sBalance = m_program.GetPaneText(2);
    Do(IDM_VIEW_TRANSACTIONSBAR);
    const DialogWindow bar(m_program.GetProcess(),
                           FindChildById(m_program.GetRebar(), IDC_TRANSACTIONSBAR));
    bar.Choose(IDC_TB_PERIOD, QM_ACCNT_DISPLAY_DATE_RANGE);
    EXPECT_EQ(bar.GetDate(IDC_TB_FROM), "2004-03-01");
    EXPECT_EQ(bar.GetDate(IDC_TB_TO), "2004-04-02");
    bar.SetDate(IDC_TB_FROM, "2004-03-02");
    bar.SetDate(IDC_TB_TO, "2004-03-31");
    AwaitRowCount(nAll - 2);
    EXPECT_EQ(Column("Date").front(), "3/ 2/04");
    EXPECT_EQ(Column("Date").back(), "3/31/04");
    // The balance counts everything before the period.
    EXPECT_EQ(Column("Balance").front(), "845.00");
    EXPECT_EQ(m_program.GetPaneText(2), sBalance);
    bar.Choose(IDC_TB_PERIOD, QM_ACCNT_DISPLAY_ALL);
    AwaitRowCount(nAll);
    Do(IDM_VIEW_TRANSACTIONSBAR);
}

void MonthTest::Protect() const
{
    m_program.Post(IDM_FILE_PASSWORD);
    const DialogWindow dialog = AwaitDialog(m_program, "Set Password");
    m_keyboard.Fill(dialog, IDC_PW_NEW, "Sesame");
    m_keyboard.Fill(dialog, IDC_PW_NEWAGAIN, "sesame");
    m_keyboard.Press(VK_RETURN);
    dialog.AwaitEnd();
    m_program.Settle();
}

void MonthTest::SaveInEachFormat() const
{
    const auto VersionOf = [&](const std::string& sName) {
        const std::string sBytes = ReadWholeFile(PathOf(sName));
        return static_cast<unsigned char>(sBytes[4]) + static_cast<unsigned char>(sBytes[5]) * 256;
    };
    SaveAs(PathOf("march20.qmk"), 3);
    EXPECT_EQ(m_program.GetActiveTitle(), "march20.qmk");
    SaveAs(PathOf("march11.qmk"), 2);
    EXPECT_EQ(LinesOfFile(PathOf("march20.qmk")), ExpectedLines());
    EXPECT_EQ(VersionOf("march20.qmk"), 0x2000);
    SaveAs(PathOf("march10.qmk"), 1);
    EXPECT_EQ(LinesOfFile(PathOf("march11.qmk")), ExpectedLines(false));
    EXPECT_EQ(VersionOf("march11.qmk"), 0x1100);
    // The first line of the file types keeps the format.
    SaveAs(PathOf("kept.qmk"));
    EXPECT_EQ(LinesOfFile(PathOf("march10.qmk")), ExpectedLines(false));
    EXPECT_EQ(VersionOf("march10.qmk"), 0x1000);
    CloseAnswering("kept.qmk", 0);
    EXPECT_EQ(VersionOf("kept.qmk"), 0x1000);
    EXPECT_EQ(LinesOfFile(PathOf("kept.qmk")), ExpectedLines(false));
}

void MonthTest::OpenGuessing() const
{
    ChooseToOpen(PathOf("march20.qmk"));
    const DialogWindow dialog = AwaitDialog(m_program, "Enter Password");
    EXPECT_EQ(dialog.GetText(IDC_PW_EXPLANATION), "march20.qmk is password protected.");
    for (const char* szGuess : {"open", "sesam"}) {
        m_keyboard.Fill(dialog, IDC_PW_CURRENT, szGuess);
        m_keyboard.Press(VK_RETURN);
        m_program.AnswerBox("Invalid password entered.");
    }
    m_keyboard.Fill(dialog, IDC_PW_CURRENT, "SESAME");
    m_keyboard.Press(VK_RETURN);
    dialog.AwaitEnd();
    AwaitTitle(PathOf("march20.qmk"));
    EXPECT_EQ(ActiveList().GetRowCount(), static_cast<int>(m_expected.size()));
}

void MonthTest::CloseBeingAsked() const
{
    const std::string sPath = PathOf("march20.qmk");
    const std::string sBytes = ReadWholeFile(PathOf("march20.qmk"));
    OpenGuessing();
    Select({0});
    Do(IDM_TRANSACTION_CLEARED);
    AwaitTitle("march20.qmk *");
    CloseAnswering("march20.qmk", IDCANCEL);
    EXPECT_TRUE(IsMarked());
    CloseAnswering("march20.qmk", IDNO);
    EXPECT_EQ(ReadWholeFile(sPath), sBytes);
    OpenGuessing();
    Select({0});
    Do(IDM_TRANSACTION_CLEARED);
    CloseAnswering("march20.qmk", IDYES);
    Texts expected = ExpectedLines();
    QMTransactionFields first = m_expected[0];
    first.lFlags = 0;
    expected[0] = LineOf(first);
    EXPECT_EQ(LinesOfFile(sPath), expected);
}

void MonthTest::FailToOpen()
{
    const std::string sPath = PathOf("march20.qmk");
    ChooseToOpen(sPath);
    const DialogWindow dialog = AwaitDialog(m_program, "Enter Password");
    for (const char* szGuess : {"", "open", "sesame "}) {
        dialog.SetText(IDC_PW_CURRENT, szGuess);
        dialog.Press(IDOK);
        m_program.AnswerBox("Invalid password entered.");
    }
    m_program.AnswerBox("Failed to open file '" + sPath + "'.");
    EXPECT_TRUE(m_program.GetDocuments().empty());
    EXPECT_TRUE(IsLocked(sPath));
    EXPECT_EQ(m_program.Close(), 0U);
    // The program opens its last file at the start, and so asks for the password.
    m_program.Open();
    AwaitDialog(m_program, "Enter Password").End(IDCANCEL);
    m_program.AnswerBox("Failed to open file '" + sPath + "'.");
    EXPECT_TRUE(m_program.GetDocuments().empty());
}

TEST_F(MonthTest, FromTheFirstEntryToTheClosedFile)
{
    m_program.Open();
    EnterMonth();
    CorrectSome();
    RemoveSome();
    TagSome();
    LookAtMarch();
    Protect();
    SaveInEachFormat();
    CloseBeingAsked();
    FailToOpen();
    EXPECT_EQ(m_program.Close(), 0U);
}

} // namespace
