// The mouse in a register's list.

#include "tests/e2e/work_test.h"

namespace {

class ClicksTest : public WorkTest
{
protected:
    // Four transactions, two of them cleared, one voided.
    std::string MakeFour(const std::function<void(QMAccount&)>& fill = [](QMAccount&) {}) const
    {
        return MakeAccount("four.qmk", 0, [&](QMAccount& account) {
            const uint32_t auFlags[] = {0, QM_TRANS_FLAG_NOT_CLEARED,
                                        QM_TRANS_FLAG_NOT_CLEARED | QM_TRANS_FLAG_VOIDED, 0};
            for (int i = 0; i < 4; ++i) {
                AddTo(account.store,
                      MakeTransaction(QM_TRANS_CHECK, "1/" + std::to_string(i + 1) + "/2004", 10,
                                      auFlags[i], "check"));
            }
            fill(account);
        });
    }

    std::string Marks() const
    {
        std::string sMarks;
        for (const uint32_t uData : ActiveList().ReadData(0, ActiveList().GetRowCount())) {
            const bool bCleared = (uData & uRowCleared) != 0;
            sMarks += (uData & uRowVoided) != 0 ? 'v' : bCleared ? 'c' : '-';
        }
        return sMarks;
    }
};

constexpr int nClearedColumn = 0;
constexpr int nDateColumn = 1;
constexpr int nMemoColumn = 8;

TEST_F(ClicksTest, ClearedCellTogglesItsRow)
{
    OpenAccount(MakeFour());
    EXPECT_EQ(Marks(), "c-vc");
    ActiveList().Click(1, nClearedColumn);
    Await("a mark in the second row", [&] { return Marks() == "ccvc"; });
    EXPECT_EQ(ActiveList().GetSelectedRows(), std::vector<int>{1});
    AwaitTitle("four.qmk *");
    ActiveList().Click(0, nClearedColumn);
    Await("no mark in the first row", [&] { return Marks() == "-cvc"; });
    // A voided transaction becomes cleared and is no longer voided.
    ActiveList().Click(2, nClearedColumn);
    Await("a mark in the third row", [&] { return Marks() == "-ccc"; });
}

TEST_F(ClicksTest, OtherCellsOnlySelect)
{
    OpenAccount(MakeFour());
    for (const int nColumn : {nDateColumn, nMemoColumn}) {
        ActiveList().Click(1, nColumn);
        m_program.Settle();
        EXPECT_EQ(ActiveList().GetSelectedRows(), std::vector<int>{1});
        EXPECT_EQ(Marks(), "c-vc");
        Select({3});
    }
    EXPECT_FALSE(IsMarked());
}

TEST_F(ClicksTest, ClickOutsideTheSelectionTogglesThatRowAlone)
{
    OpenAccount(MakeFour());
    Select({0, 1});
    ActiveList().Click(3, nClearedColumn);
    Await("no mark in the fourth row", [&] { return Marks() == "c-v-"; });
}

TEST_F(ClicksTest, ClickInsideTheSelectionTogglesAllOfIt)
{
    OpenAccount(MakeFour());
    Select({0, 1, 3});
    ActiveList().Click(1, nClearedColumn);
    Await("three other marks", [&] { return Marks() == "-cv-"; });
}

TEST_F(ClicksTest, HiddenClearedColumnCannotBeClicked)
{
    OpenAccount(MakeFour([](QMAccount& account) { account.header.bShowCleared = 0; }));
    ActiveList().Click(1, 0);
    m_program.Settle();
    EXPECT_FALSE(IsMarked());
    EXPECT_EQ(ActiveList().GetSelectedRows(), std::vector<int>{1});
}

TEST_F(ClicksTest, ZeroAmountSaysWhyItCannotBeCleared)
{
    OpenAccount(MakeFour([](QMAccount& account) {
        account.store.MoveTo(1);
        account.store.GetCurrentNode()->fAmount = 0;
    }));
    ActiveList().Click(1, nClearedColumn);
    m_program.AnswerBox(
        "Transaction 2:\n\nUnable to set cleared status.\nThis transaction has an amount of "
        "$0.00.");
    m_program.Settle();
    EXPECT_EQ(Marks(), "c-vc");
}

TEST_F(ClicksTest, DoubleClickEditsTheRow)
{
    OpenAccount(MakeFour());
    ActiveList().DoubleClick(1, nDateColumn);
    const DialogWindow dialog = AwaitDialog(m_program, "Edit Transaction");
    EXPECT_EQ(dialog.GetDate(IDC_TX_DATE), "2004-01-02");
    dialog.SetText(IDC_TX_AMOUNT, "77");
    dialog.End(IDOK);
    Await("the new amount", [&] { return Column("Debit")[1] == "77.00"; });
}

TEST_F(ClicksTest, DoubleClickInEmptySpaceAdds)
{
    OpenAccount(MakeFour());
    ActiveList().DoubleClickBelow();
    AwaitDialog(m_program, "Add Transaction").End(IDCANCEL);
    EXPECT_TRUE(ActiveList().GetSelectedRows().empty());
}

TEST_F(ClicksTest, DoubleClickInANewRegisterAdds)
{
    OpenNew();
    ActiveList().DoubleClickBelow();
    const DialogWindow dialog = AwaitDialog(m_program, "Add Transaction");
    const Entry first = {.sDate = "2004-01-01", .sAmount = "1", .sDescription = "first"};
    first.Fill(dialog);
    dialog.End(IDOK);
    AwaitRowCount(1);
}

TEST_F(ClicksTest, EveryClickInAReadOnlyAccountIsAnswered)
{
    OpenAccount(MakeFour([](QMAccount& account) { account.header.bReadOnly = 1; }));
    for (const int nColumn : {nClearedColumn, nDateColumn, nMemoColumn}) {
        ActiveList().Click(1, nColumn);
        m_program.AnswerBox(sReadOnlySentence);
        m_program.Settle();
    }
    EXPECT_EQ(Marks(), "c-vc");
    EXPECT_EQ(m_program.GetActiveTitle(), PathOf("four.qmk"));
}

TEST_F(ClicksTest, FirstPaneCountsAClickedSelection)
{
    OpenAccount(MakeFour());
    ActiveList().Click(0, nDateColumn);
    AwaitPane(1, " Transaction: 1 of 4");
    ActiveList().Click(2, nDateColumn, MK_SHIFT);
    AwaitPane(1, " 3 Transactions Selected");
    EXPECT_EQ(ActiveList().GetSelectedRows(), (std::vector<int>{0, 1, 2}));
    ActiveList().Click(3, nDateColumn, MK_CONTROL);
    AwaitPane(1, " 4 Transactions Selected");
}

} // namespace
