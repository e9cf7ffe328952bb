// Hundreds of random operations on an account. The portable register does the same operations, and
// both must show and save the same.

#include <cstring>
#include <random>

#include "entry/qmtransactionentry.h"
#include "register/qmregisteroperations.h"
#include "tests/e2e/expectedregister.h"
#include "tests/e2e/windowaccess.h"
#include "tests/e2e/work_test.h"
#include "tests/support/register_support.h"

namespace {

constexpr int nOperations = 500;

// The register without its windows. Its user enters into the dialog what the test says.
class PlainRegister : public QMRegisterView
{
public:
    PlainRegister() { m_operations.SetConfirmRemove(true); }

    bool Ask(const char*) override { return true; }
    void Tell(const char*) override {}
    void UpdateStatusBar() override {}
    QMDialogEnd RunTransactionDialog(QMTransactionDialogArgs& args) override
    {
        return onDialog(args) ? QMDialogEnd::OK : QMDialogEnd::Cancel;
    }

    // The account has no open file.
    void Load(const std::string& sPath)
    {
        document.SetAccount(std::make_unique<QMAccount>(sPath.c_str()));
        EXPECT_TRUE(document.GetAccount()->Read()) << sPath;
        document.GetAccount()->Close();
        EXPECT_TRUE(model.ShowAll());
    }

    std::vector<WindowList::Row> Rows() const
    {
        std::vector<WindowList::Row> texts;
        for (const RecordedRow& row : rows.GetRows()) {
            texts.emplace_back();
            for (const std::string& sColumn : rows.GetColumnNames()) {
                const auto found = row.texts.find(sColumn);
                texts.back().push_back(found == row.texts.end() ? "" : found->second);
            }
        }
        return texts;
    }

    std::vector<std::string> Lines() const
    {
        std::vector<std::string> lines;
        document.GetAccount()->store.ForEach(
            [&](const QMTransaction& transaction) { lines.push_back(LineOf(transaction)); });
        return lines;
    }

    QMDocument document;
    RecordingRowList rows;
    QMRegisterModel model{document, rows};
    std::function<bool(QMTransactionDialogArgs&)> onDialog;

    QMRegisterOperations& GetOperations() { return m_operations; }

private:
    QMRegisterOperations m_operations{document, rows, model, *this};
};

// For a type without tags the dialog drops them.
void LoseTags(QMTransaction& transaction)
{
    if (!QMSwitchesOfType(transaction.lType).bTag) {
        transaction.lFlags &= ~(QM_TRANS_FLAG_TAX | QM_TRANS_FLAG_EXPENSE);
    }
}

class RandomWorkTest : public WorkTest
{
protected:
    int Below(int nEnd) { return static_cast<int>(m_random() % static_cast<unsigned>(nEnd)); }

    void OpenBoth()
    {
        const std::string sPath = MakeAccount("work.qmk", 12, [](QMAccount& account) {
            // A transaction with the amount 0 cannot be cleared.
            account.store.First();
            account.store.GetCurrentNode()->fAmount = 5;
        });
        m_plain.Load(sPath);
        OpenAccount(sPath);
        Do(IDM_VIEW_TRANSACTIONSBAR);
        m_plain.model.SetPeriodFilter(true, true);
    }

    // The number of operations that were done.
    int DoNext();
    int AddSome();
    void AddToPlain(const Entry& entry);
    void EditSome();
    void RemoveSome();
    void ToggleSome();
    void ChoosePeriod();
    void SaveAndCompare();
    void Reopen();
    Entry MakeEntry();
    std::vector<int> SelectSome(int nMost = 3);

    DialogWindow Bar() const
    {
        return {m_program.GetProcess(), FindChildById(m_program.GetRebar(), IDC_TRANSACTIONSBAR)};
    }

    std::mt19937 m_random{20040301};
    PlainRegister m_plain;
    uint32_t m_uNextNumber = 500000; // of checks, so that no question comes up
};

Entry RandomWorkTest::MakeEntry()
{
    Entry entry;
    entry.lType = Below(12);
    char szDate[32] = "";
    snprintf(szDate, sizeof szDate, "1990-%02d-%02d", 1 + Below(3), 1 + Below(28));
    entry.sDate = szDate;
    entry.sAmount = std::to_string(1 + Below(900)) + "." + std::to_string(10 + Below(90));
    if (entry.lType == QM_TRANS_CHECK) {
        entry.sNumber = std::to_string(m_uNextNumber++);
        entry.sDescription = "payee " + std::to_string(Below(20));
    }
    entry.sMemo = Below(3) == 0 ? "memo " + std::to_string(Below(20)) : "";
    entry.sCategory = Below(3) == 0 ? "category " + std::to_string(Below(5)) : "";
    const bool bDebit = entry.lType == QM_TRANS_CHECK || entry.lType == QM_TRANS_DIRECT_DEBIT;
    constexpr uint32_t auTags[] = {0, QM_TRANS_FLAG_TAX, QM_TRANS_FLAG_EXPENSE};
    entry.uTag = bDebit ? auTags[Below(3)] : 0;
    entry.sCleared = Below(2) == 0 ? entry.sDate : "";
    return entry;
}

int RandomWorkTest::AddSome()
{
    const int nEntries = 1 + Below(6);
    const DialogWindow dialog = BeginAdding();
    for (int i = 0; i < nEntries; ++i) {
        const Entry entry = MakeEntry();
        entry.Fill(dialog);
        dialog.Press(IDC_TX_ADD);
        m_program.Settle();
        AddToPlain(entry);
    }
    dialog.End(IDCANCEL);
    m_program.Settle();
    return nEntries;
}

void RandomWorkTest::AddToPlain(const Entry& entry)
{
    m_plain.onDialog = [&](QMTransactionDialogArgs& args) {
        QMTransaction& offered = args.pTransactions[0];
        offered.CopyFrom(entry.AsTransaction(offered.lNumber));
        return args.pfnCommit(offered, args.pUserA[0], args.pUserB[0]);
    };
    m_plain.GetOperations().AddTransaction();
}

std::vector<int> RandomWorkTest::SelectSome(int nMost)
{
    const int nRows = ActiveList().GetRowCount();
    std::vector<int> selected;
    const int nWanted = 1 + Below(nMost);
    for (int nRow = Below(nRows); nRow < nRows && static_cast<int>(selected.size()) < nWanted;
         nRow += 1 + Below(4)) {
        selected.push_back(nRow);
    }
    Select(selected);
    m_plain.rows.SetSelection({selected.begin(), selected.end()});
    return selected;
}

void RandomWorkTest::EditSome()
{
    const std::vector<int> selected = SelectSome();
    const std::string sAmount = std::to_string(1 + Below(99)) + ".25";
    const std::string sMemo = "edited " + std::to_string(Below(9));
    const DialogWindow dialog = BeginEditing();
    dialog.SetText(IDC_TX_AMOUNT, sAmount);
    if (selected.size() > 1) {
        dialog.Press(IDC_TX_LAST);
        Await("the last transaction", [&] { return !dialog.IsEnabled(IDC_TX_LAST); });
    }
    dialog.SetText(IDC_TX_MEMO, sMemo);
    dialog.End(IDOK);
    m_program.Settle();
    m_plain.onDialog = [&](QMTransactionDialogArgs& args) {
        args.pTransactions[0].fAmount = static_cast<float>(strtod(sAmount.c_str(), nullptr));
        QMTransaction& last = args.pTransactions[args.nCount - 1];
        memcpy(last.szMemo, sMemo.c_str(), sMemo.size() + 1);
        LoseTags(args.pTransactions[0]);
        LoseTags(last);
        return true;
    };
    m_plain.GetOperations().EditTransactions();
}

void RandomWorkTest::RemoveSome()
{
    // In a period that begins later, removing several rows removes others than those selected.
    // Other tests show that.
    const std::vector<int> selected = SelectSome(m_plain.model.GetFirstShown() == 0 ? 3 : 1);
    DoAnswering(IDM_TRANSACTION_REMOVE,
                selected.size() < 2 ? "Are you sure you want to remove this transaction?"
                                    : "Are you sure you want to remove these transactions?",
                {IDYES, IDNO}, IDYES);
    m_plain.GetOperations().RemoveTransactions();
}

void RandomWorkTest::ToggleSome()
{
    constexpr struct
    {
        UINT uCommand;
        uint32_t uTag;
    } aToggles[] = {{IDM_TRANSACTION_TAX, QM_TRANS_FLAG_TAX},
                    {IDM_TRANSACTION_EXPENSE, QM_TRANS_FLAG_EXPENSE},
                    {IDM_TRANSACTION_VOIDED, QM_TRANS_FLAG_VOIDED},
                    {IDM_TRANSACTION_CLEARED, QM_TRANS_FLAG_NOT_CLEARED}};
    const auto& toggle = aToggles[Below(4)];
    SelectSome();
    Do(toggle.uCommand);
    m_plain.GetOperations().ToggleTag(toggle.uTag);
}

void RandomWorkTest::ChoosePeriod()
{
    QMDate dtFrom = QMMakeDate(1990, 1, static_cast<uint16_t>(1 + Below(20)));
    QMDate dtTo = QMMakeDate(1990, 3, static_cast<uint16_t>(1 + Below(28)));
    const bool bAll = Below(2) == 0;
    Bar().Choose(IDC_TB_PERIOD, bAll ? QM_ACCNT_DISPLAY_ALL : QM_ACCNT_DISPLAY_DATE_RANGE);
    if (!bAll) {
        Bar().SetDate(IDC_TB_FROM, "1990-01-" + std::to_string(dtFrom.wDay));
        Bar().SetDate(IDC_TB_TO, "1990-03-" + std::to_string(dtTo.wDay));
    }
    m_program.Settle();
    m_plain.model.SetPeriod(bAll ? QM_ACCNT_DISPLAY_ALL : QM_ACCNT_DISPLAY_DATE_RANGE, dtFrom, dtTo,
                            true);
}

void RandomWorkTest::SaveAndCompare()
{
    Do(IDM_FILE_SAVE);
    EXPECT_FALSE(IsMarked());
    EXPECT_EQ(ActiveList().ReadRows(0, ActiveList().GetRowCount()), m_plain.Rows());
    CloseAnswering("", 0);
    EXPECT_EQ(LinesOfFile(PathOf("work.qmk")), m_plain.Lines());
    Reopen();
}

void RandomWorkTest::Reopen()
{
    const std::string sPath = PathOf("work.qmk");
    const ExpectedRegister expected(sPath, true);
    m_plain.Load(sPath);
    m_program.Post(IDM_FILE_RECENT_FIRST);
    m_program.AwaitActive(sPath);
    m_program.Settle();
    EXPECT_EQ(ActiveList().ReadRows(0, ActiveList().GetRowCount()), expected.rows);
    EXPECT_EQ(ActiveList().ReadData(0, ActiveList().GetRowCount()), expected.decorations);
}

int RandomWorkTest::DoNext()
{
    // Without rows these operations do nothing.
    const int nChoice = ActiveList().GetRowCount() == 0 ? 84 + Below(16) : Below(100);
    if (nChoice < 10) {
        return AddSome();
    }
    if (nChoice < 50) {
        ToggleSome();
    } else if (nChoice < 60) {
        EditSome();
    } else if (nChoice < 84) {
        RemoveSome();
    } else if (nChoice < 95) {
        ChoosePeriod();
    } else {
        SaveAndCompare();
    }
    return 1;
}

TEST_F(RandomWorkTest, WindowAndFileHoldWhatThePlainRegisterHolds)
{
    OpenBoth();
    for (int i = 0; i < nOperations && !HasFailure(); i += DoNext()) {
        SCOPED_TRACE("operation " + std::to_string(i));
        EXPECT_EQ(ActiveList().GetRowCount(), m_plain.rows.GetRowCount());
        m_plain.rows.TakeLog();
    }
    SaveAndCompare();
}

} // namespace
