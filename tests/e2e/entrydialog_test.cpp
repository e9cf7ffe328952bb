// The dialog for transactions: what it shows, what can be typed, and what it refuses.

#include "tests/e2e/keyboard.h"
#include "tests/e2e/work_test.h"

namespace {

constexpr char szBadNumber[] = "An invalid check number was entered.";
constexpr char szBadYear[] = "An invalid year was entered.";
constexpr char szBadAmount[] = "An invalid amount was entered.";

class EntryDialogTest : public WorkTest
{
protected:
    // An entry that the dialog accepts.
    static Entry Good()
    {
        return {.sDate = "2004-02-28", .sAmount = "5", .sNumber = "1500", .sDescription = "good"};
    }

    void ExpectRefused(const DialogWindow& dialog, const std::string& sSentence) const
    {
        dialog.Press(IDOK);
        m_program.AnswerBox(sSentence);
        m_program.Settle();
        EXPECT_TRUE(dialog.IsOpen());
        EXPECT_EQ(ActiveList().GetRowCount(), 0);
    }

    // Adds a valid entry after one change, in a new document.
    void ExpectAccepted(const std::function<void(Entry&)>& change) const
    {
        Entry entry = Good();
        change(entry);
        Add(entry);
        EXPECT_EQ(ActiveList().GetRowCount(), 1);
    }
};

TEST_F(EntryDialogTest, StartsOnACheckOfToday)
{
    OpenNew();
    const DialogWindow dialog = BeginAdding();
    EXPECT_TRUE(dialog.IsChecked(IDC_TX_CHECK));
    EXPECT_EQ(dialog.GetText(IDC_TX_NUMBER), "1000");
    EXPECT_EQ(dialog.GetText(IDC_TX_AMOUNT), "0.00");
    const QMDate today = QMToday();
    char szToday[32] = "";
    snprintf(szToday, sizeof szToday, "%04d-%02d-%02d", today.wYear, today.wMonth, today.wDay);
    EXPECT_EQ(dialog.GetDate(IDC_TX_DATE), szToday);
    EXPECT_EQ(dialog.GetDate(IDC_TX_DATECLEARED), szToday);
    EXPECT_FALSE(dialog.IsEnabled(IDC_TX_DATECLEARED));
    EXPECT_TRUE(dialog.IsVisible(IDC_TX_ADD));
    for (const int nId : {IDC_TX_FIRST, IDC_TX_PREVIOUS, IDC_TX_NEXT, IDC_TX_LAST}) {
        EXPECT_FALSE(dialog.IsVisible(nId)) << "control " << nId;
    }
    EXPECT_EQ(dialog.GetDefaultButton(), IDOK);
}

TEST_F(EntryDialogTest, CheckNumberIsNeededAndHasAnEnd)
{
    OpenNew();
    const DialogWindow dialog = BeginAdding();
    Good().Fill(dialog);
    for (const char* szNumber : {"", "0", "10000000", "abc"}) {
        dialog.SetText(IDC_TX_NUMBER, szNumber);
        ExpectRefused(dialog, szBadNumber);
        EXPECT_EQ(dialog.GetText(IDC_TX_NUMBER), szNumber);
    }
    dialog.SetText(IDC_TX_NUMBER, "9999999");
    dialog.End(IDOK);
    AwaitRowCount(1);
    EXPECT_EQ(Column("Number"), Texts{"9999999"});
}

TEST_F(EntryDialogTest, YearsHaveTheirLimits)
{
    OpenNew();
    const DialogWindow dialog = BeginAdding();
    Good().Fill(dialog);
    dialog.SetDate(IDC_TX_DATE, "3001-01-01");
    ExpectRefused(dialog, szBadYear);
    dialog.SetDate(IDC_TX_DATE, "3000-12-31");
    dialog.End(IDOK);
    AwaitRowCount(1);
    EXPECT_EQ(Column("Date"), Texts{"12/31/00"});
}

TEST_F(EntryDialogTest, LeapDayIsADay)
{
    OpenNew();
    ExpectAccepted([](Entry& entry) { entry.sDate = "2004-02-29"; });
    EXPECT_EQ(Column("Date"), Texts{"2/29/04"});
}

TEST_F(EntryDialogTest, FaultyNumberIsToldBeforeTheYearAndTheAmount)
{
    OpenNew();
    const DialogWindow dialog = BeginAdding();
    Good().Fill(dialog);
    dialog.SetText(IDC_TX_NUMBER, "");
    dialog.SetText(IDC_TX_AMOUNT, "0");
    dialog.SetDate(IDC_TX_DATE, "3001-01-01");
    ExpectRefused(dialog, szBadNumber);
    dialog.SetText(IDC_TX_NUMBER, "1");
    ExpectRefused(dialog, szBadYear);
    dialog.SetDate(IDC_TX_DATE, "2004-01-01");
    ExpectRefused(dialog, szBadAmount);
}

// ---- Amounts.

TEST_F(EntryDialogTest, AmountsOutOfRangeAreRefused)
{
    OpenNew();
    const DialogWindow dialog = BeginAdding();
    Good().Fill(dialog);
    for (const char* szAmount : {"0", "", "-5", "x", "11000000000"}) {
        dialog.SetText(IDC_TX_AMOUNT, szAmount);
        ExpectRefused(dialog, szBadAmount);
    }
    dialog.End(IDCANCEL);
    EXPECT_FALSE(IsMarked());
}

TEST_F(EntryDialogTest, VoidedOneMayHaveNoAmount)
{
    OpenNew();
    ExpectAccepted([](Entry& entry) {
        entry.sAmount = "0";
        entry.uTag = QM_TRANS_FLAG_VOIDED;
    });
    EXPECT_EQ(Column("Description"), Texts{"good   (voided)"});
}

TEST_F(EntryDialogTest, TenThousandMillionIsTheMost)
{
    OpenNew();
    ExpectAccepted([](Entry& entry) { entry.sAmount = "10000000000"; });
    EXPECT_EQ(Column("Debit"), Texts{"10000000000.00"});
}

TEST_F(EntryDialogTest, AmountEndsWhereItIsNoNumber)
{
    OpenNew();
    ExpectAccepted([](Entry& entry) { entry.sAmount = "12abc"; });
    EXPECT_EQ(Column("Debit"), Texts{"12.00"});
}

TEST_F(EntryDialogTest, CommaEndsTheAmount)
{
    OpenNew();
    ExpectAccepted([](Entry& entry) { entry.sAmount = "1,234.56"; });
    EXPECT_EQ(Column("Debit"), Texts{"1.00"});
}

TEST_F(EntryDialogTest, CheckWithoutADescriptionIsAccepted)
{
    OpenNew();
    ExpectAccepted([](Entry& entry) { entry.sDescription = ""; });
    EXPECT_EQ(Column("Description"), Texts{""});
}

// ---- Boxes, types and dates.

TEST_F(EntryDialogTest, VoidedTurnsTheOtherBoxesOffAndClearedTurnsItOff)
{
    OpenNew();
    const DialogWindow dialog = BeginAdding();
    const auto Boxes = [&] {
        std::string sBoxes;
        for (const int nId : {IDC_TX_TAX, IDC_TX_EXPENSE, IDC_TX_VOIDED, IDC_TX_CLEARED}) {
            sBoxes += dialog.IsChecked(nId) ? 'x' : '-';
        }
        return sBoxes;
    };
    dialog.Check(IDC_TX_TAX);
    dialog.Check(IDC_TX_CLEARED);
    EXPECT_EQ(Boxes(), "x--x");
    EXPECT_TRUE(dialog.IsEnabled(IDC_TX_DATECLEARED));
    dialog.Check(IDC_TX_EXPENSE);
    EXPECT_EQ(Boxes(), "-x-x");
    dialog.Check(IDC_TX_VOIDED);
    EXPECT_EQ(Boxes(), "--x-");
    EXPECT_FALSE(dialog.IsEnabled(IDC_TX_DATECLEARED));
    dialog.Check(IDC_TX_CLEARED);
    EXPECT_EQ(Boxes(), "---x");
    dialog.Check(IDC_TX_CLEARED, false);
    EXPECT_EQ(Boxes(), "----");
}

TEST_F(EntryDialogTest, DepositHasNoNumberItsOwnDescriptionAndNoTags)
{
    OpenNew();
    const DialogWindow dialog = BeginAdding();
    dialog.SetText(IDC_TX_DESCRIPTION, "typed");
    dialog.Check(IDC_TX_TAX);
    dialog.Check(IDC_TX_DEPOSIT);
    m_program.Settle();
    EXPECT_EQ(dialog.GetText(IDC_TX_NUMBER), "");
    EXPECT_EQ(dialog.GetText(IDC_TX_DESCRIPTION), "Deposit");
    EXPECT_FALSE(dialog.IsChecked(IDC_TX_TAX));
    for (const int nId : {IDC_TX_NUMBERLABEL, IDC_TX_NUMBER, IDC_TX_DESCRIPTIONLABEL,
                          IDC_TX_DESCRIPTION, IDC_TX_TAX, IDC_TX_EXPENSE}) {
        EXPECT_FALSE(dialog.IsEnabled(nId)) << "control " << nId;
    }
    EXPECT_TRUE(dialog.IsEnabled(IDC_TX_VOIDED));
    EXPECT_TRUE(dialog.IsEnabled(IDC_TX_CLEARED));
    dialog.Check(IDC_TX_TRANSFERDEBIT);
    m_program.Settle();
    EXPECT_EQ(dialog.GetText(IDC_TX_DESCRIPTION), "Transfer - Debit");
    EXPECT_TRUE(dialog.IsEnabled(IDC_TX_TAX));
    dialog.Check(IDC_TX_CHECK);
    m_program.Settle();
    EXPECT_EQ(dialog.GetText(IDC_TX_NUMBER), "1000");
}

TEST_F(EntryDialogTest, EveryTypeIsStoredUnderItsButton)
{
    OpenNew();
    const DialogWindow dialog = BeginAdding();
    for (int32_t lType = QM_TRANS_CHECK; lType <= QM_TRANS_INTEREST_PAID; ++lType) {
        Entry entry = {.lType = lType, .sDate = "2004-01-01", .sAmount = "1"};
        entry.Fill(dialog);
        dialog.Press(IDC_TX_ADD);
        AwaitRowCount(lType + 1);
        m_program.Settle();
    }
    dialog.End(IDCANCEL);
    Texts expected = g_typeLabels;
    expected[0] = ""; // a check has a description of its own
    EXPECT_EQ(Column("Description"), expected);
}

TEST_F(EntryDialogTest, AnotherDateTakesTheClearedDateAlong)
{
    OpenNew();
    const DialogWindow dialog = BeginAdding();
    dialog.SetDate(IDC_TX_DATE, "2004-05-06");
    EXPECT_EQ(dialog.GetDate(IDC_TX_DATECLEARED), "2004-05-06");
    dialog.Check(IDC_TX_CLEARED);
    dialog.SetDate(IDC_TX_DATECLEARED, "2004-05-09");
    EXPECT_EQ(dialog.GetDate(IDC_TX_DATE), "2004-05-06");
    dialog.SetDate(IDC_TX_DATECLEARED, "2004-05-01");
    EXPECT_EQ(dialog.GetDate(IDC_TX_DATE), "2004-05-01");
}

TEST_F(EntryDialogTest, DateTypedByKeysTakesTheClearedDateAlong)
{
    OpenNew();
    const Keyboard keyboard(m_program);
    const DialogWindow dialog = BeginAdding();
    dialog.SetDate(IDC_TX_DATE, "2004-05-06");
    keyboard.TabTo(dialog, IDC_TX_DATE);
    keyboard.Press(VK_RIGHT);
    keyboard.Press(VK_UP);
    Await("another date", [&] { return dialog.GetDate(IDC_TX_DATE) != "2004-05-06"; });
    Await("the date cleared",
          [&] { return dialog.GetDate(IDC_TX_DATECLEARED) == dialog.GetDate(IDC_TX_DATE); });
}

TEST_F(EntryDialogTest, EditingMovesTheClearedDateOnlyWhenItWouldBeEarlier)
{
    OpenAccount(MakeAccount("one.qmk", 0, [](QMAccount& account) {
        QMTransaction one = MakeTransaction(QM_TRANS_CHECK, "1/10/2004", 1, 0, "one");
        one.dtCleared = QMMakeDate(2004, 1, 20);
        AddTo(account.store, one);
    }));
    const DialogWindow dialog = BeginEditing();
    EXPECT_EQ(dialog.GetDate(IDC_TX_DATECLEARED), "2004-01-20");
    dialog.SetDate(IDC_TX_DATE, "2004-01-15");
    EXPECT_EQ(dialog.GetDate(IDC_TX_DATECLEARED), "2004-01-20");
    dialog.SetDate(IDC_TX_DATE, "2004-01-25");
    EXPECT_EQ(dialog.GetDate(IDC_TX_DATECLEARED), "2004-01-25");
    dialog.End(IDCANCEL);
}

TEST_F(EntryDialogTest, PressingCheckOnAStoredDepositShowsItsName)
{
    OpenNew();
    Add({.lType = QM_TRANS_DEPOSIT, .sDate = "2004-01-01", .sAmount = "1"});
    const DialogWindow dialog = BeginEditing();
    EXPECT_TRUE(dialog.IsChecked(IDC_TX_DEPOSIT));
    dialog.Check(IDC_TX_CHECK);
    m_program.Settle();
    EXPECT_EQ(dialog.GetText(IDC_TX_DESCRIPTION), "Deposit");
    EXPECT_EQ(dialog.GetText(IDC_TX_NUMBER), "1000");
    dialog.End(IDOK);
    AwaitPane(3, " Available: $-1.00");
}

TEST_F(EntryDialogTest, TextsAreLimited)
{
    OpenNew();
    const Keyboard keyboard(m_program);
    const DialogWindow dialog = BeginAdding();
    const auto ExpectLimit = [&](int nId, size_t uLimit) {
        keyboard.TabTo(dialog, nId);
        keyboard.Press(VK_BACK);
        keyboard.Type(std::string(uLimit + 5, '7'));
        Await("a full field " + std::to_string(nId),
              [&] { return dialog.GetText(nId).size() == uLimit; });
        keyboard.Press(VK_TAB);
        Await("the next control", [&] { return dialog.GetFocus() != nId; });
        EXPECT_EQ(dialog.GetText(nId), std::string(uLimit, '7')) << "control " << nId;
    };
    ExpectLimit(IDC_TX_NUMBER, 10);
    ExpectLimit(IDC_TX_DESCRIPTION, 255);
    ExpectLimit(IDC_TX_AMOUNT, 15);
    ExpectLimit(IDC_TX_MEMO, 255);
    ExpectLimit(IDC_TX_CATEGORY, 127);
}

// ---- Arrows and lists.

TEST_F(EntryDialogTest, OneRowLeavesTheArrowsDisabled)
{
    OpenAccount(MakeAccount("three.qmk", 3));
    const DialogWindow dialog = BeginEditing();
    for (const int nId : {IDC_TX_FIRST, IDC_TX_PREVIOUS, IDC_TX_NEXT, IDC_TX_LAST}) {
        EXPECT_TRUE(dialog.IsVisible(nId)) << "control " << nId;
        EXPECT_FALSE(dialog.IsEnabled(nId)) << "control " << nId;
    }
    EXPECT_FALSE(dialog.IsVisible(IDC_TX_ADD));
    dialog.AwaitFocus(IDOK);
    dialog.End(IDCANCEL);
}

TEST_F(EntryDialogTest, ArrowsWalkThroughTheSelection)
{
    OpenAccount(MakeAccount("four.qmk", 4));
    Select({0, 1, 3});
    const DialogWindow dialog = BeginEditing();
    const auto ExpectAt = [&](const std::string& sAmount, const std::string& sArrows) {
        Await("the amount " + sAmount, [&] { return dialog.GetText(IDC_TX_AMOUNT) == sAmount; });
        m_program.Settle();
        std::string sEnabled;
        for (const int nId : {IDC_TX_FIRST, IDC_TX_PREVIOUS, IDC_TX_NEXT, IDC_TX_LAST}) {
            sEnabled += dialog.IsEnabled(nId) ? 'x' : '-';
        }
        EXPECT_EQ(sEnabled, sArrows) << sAmount;
    };
    dialog.SetText(IDC_TX_AMOUNT, "9.00");
    ExpectAt("9.00", "--xx");
    dialog.Press(IDC_TX_NEXT);
    ExpectAt("0.25", "xxxx");
    dialog.Press(IDC_TX_LAST);
    ExpectAt("0.75", "xx--");
    dialog.Press(IDC_TX_PREVIOUS);
    ExpectAt("0.25", "xxxx");
    dialog.Press(IDC_TX_FIRST);
    ExpectAt("9.00", "--xx");
    // The dialog does not move away from an invalid entry.
    dialog.SetText(IDC_TX_AMOUNT, "0");
    dialog.Press(IDC_TX_NEXT);
    m_program.AnswerBox(szBadAmount);
    ExpectAt("0", "--xx");
    dialog.End(IDCANCEL);
}

TEST_F(EntryDialogTest, ListsOfferEarlierTextsTheNewestFirst)
{
    OpenNew();
    const DialogWindow dialog = BeginAdding();
    for (const char* szText : {"beta", "alpha", "Beta"}) {
        const Entry entry = {.sDate = "2004-01-01",
                             .sAmount = "1",
                             .sDescription = szText,
                             .sMemo = std::string(szText) + " memo"};
        entry.Fill(dialog);
        dialog.Press(IDC_TX_ADD);
        m_program.Settle();
    }
    EXPECT_EQ(Column("Memo"), (Texts{"beta memo", "alpha memo", "Beta memo"}));
    // The lists are made anew each time the dialog opens.
    EXPECT_EQ(dialog.GetChoices(IDC_TX_DESCRIPTION), Texts{});
    dialog.End(IDCANCEL);
    const DialogWindow next = BeginAdding();
    EXPECT_EQ(next.GetChoices(IDC_TX_DESCRIPTION), (Texts{"Beta", "alpha"}));
    EXPECT_EQ(next.GetChoices(IDC_TX_MEMO), (Texts{"Beta memo", "alpha memo"}));
    EXPECT_EQ(next.GetChoices(IDC_TX_CATEGORY), Texts{});
    next.Choose(IDC_TX_DESCRIPTION, 1);
    EXPECT_EQ(next.GetText(IDC_TX_DESCRIPTION), "alpha");
    next.End(IDCANCEL);
}

TEST_F(EntryDialogTest, EntryKeepsItsDateForTheNextOne)
{
    OpenNew();
    const DialogWindow dialog = BeginAdding();
    Entry entry = Good();
    entry.uTag = QM_TRANS_FLAG_EXPENSE;
    entry.sCleared = "2004-03-03";
    entry.Fill(dialog);
    dialog.Press(IDC_TX_ADD);
    AwaitRowCount(1);
    m_program.Settle();
    EXPECT_EQ(dialog.GetDate(IDC_TX_DATE), "2004-02-28");
    EXPECT_EQ(dialog.GetDate(IDC_TX_DATECLEARED), "2004-02-28");
    EXPECT_EQ(dialog.GetText(IDC_TX_NUMBER), "1501");
    EXPECT_EQ(dialog.GetText(IDC_TX_DESCRIPTION), "");
    EXPECT_FALSE(dialog.IsChecked(IDC_TX_EXPENSE));
    EXPECT_FALSE(dialog.IsChecked(IDC_TX_CLEARED));
    // An empty entry is refused.
    dialog.Press(IDOK);
    m_program.AnswerBox(szBadAmount);
    dialog.End(IDCANCEL);
    EXPECT_EQ(ActiveList().GetRowCount(), 1);
}

TEST_F(EntryDialogTest, CornerClosesAsCancelDoes)
{
    OpenNew();
    const DialogWindow dialog = BeginAdding();
    Good().Fill(dialog);
    dialog.Close();
    dialog.AwaitEnd();
    EXPECT_EQ(ActiveList().GetRowCount(), 0);
}

} // namespace
