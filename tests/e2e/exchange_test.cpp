#include "tests/e2e/exchange_test.h"
#include "account/qmmerge.h"

#include "exchange/qmexchange.h"
#include "exchange/qmimportreview.h"

void ExchangeTest::AnswerResult(const std::string& sCaption, const std::string& sText) const
{
    const MessageBoxWindow box = AwaitMessageBox(m_program.GetId(), sText);
    EXPECT_EQ(box.GetCaption(), sCaption);
    EXPECT_EQ(box.GetButtons(), std::vector<int>{IDOK});
    box.Press(IDOK);
}

void ExchangeTest::AnswerImported(int nCount, const std::string& sFile) const
{
    AnswerResult("Import", "Successfully imported " + std::to_string(nCount) +
                               " transactions from file:\n'" + sFile + "'.");
}

void ExchangeTest::AnswerExported(int nCount, const std::string& sFile) const
{
    AnswerResult("Export", "Successfully exported " + std::to_string(nCount) +
                               " transactions to file:\n'" + sFile + "'.");
}

void ExchangeTest::ImportByMenu(const std::string& sFile) const
{
    m_program.Post(IDM_FILE_IMPORT);
    AwaitFileDialog(m_program, "Open").Enter(sFile);
}

void ExchangeTest::ExportByMenu(const std::string& sFile) const
{
    m_program.Post(IDM_FILE_EXPORT);
    AwaitFileDialog(m_program, "Save As").Enter(sFile);
}

void ExchangeTest::ImportAll(const std::string& sFile, int nCount) const
{
    ImportByMenu(sFile);
    AwaitReview(m_program).End(IDC_IMPORT_IMPORT);
    AnswerImported(nCount, sFile);
    m_program.Settle();
}

bool ExchangeTest::IsModified() const
{
    const std::string sTitle = m_program.GetActiveTitle();
    return sTitle.size() > 2 && sTitle.substr(sTitle.size() - 2) == " *";
}

void ExchangeTest::Save() const
{
    m_program.Post(IDM_FILE_SAVE);
    m_program.Settle();
    EXPECT_TRUE(m_program.GetBoxes().empty());
    EXPECT_FALSE(IsModified());
}

std::vector<QMTransaction> ExchangeTest::Load(const std::string& sPath)
{
    QMAccount account(sPath.c_str());
    EXPECT_TRUE(account.Read()) << sPath;
    std::vector<QMTransaction> transactions;
    account.store.ForEach(
        [&](const QMTransaction& transaction) { transactions.push_back(transaction); });
    account.Close();
    return transactions;
}

std::string ExchangeTest::Merged(const std::string& sAccount, const std::string& sFile,
                                 const std::function<bool(int)>& tick,
                                 const std::function<bool(int)>& toggleCleared) const
{
    const std::string sCopy = MakeFile("merged.qmk", ReadWholeFile(sAccount));
    QMAccount account(sCopy.c_str());
    QMTransactionStore store;
    EXPECT_TRUE(account.Read() && QMImportFile(sFile.c_str(), store)) << sFile;
    for (int nRow = 0; nRow < store.GetCount(); ++nRow) {
        if (toggleCleared(nRow)) {
            QMToggleImportCleared(store, nRow);
        }
    }
    QMMarkForImport(store, tick);
    EXPECT_GE(QMMergeMarked(store, account.store), 0);
    EXPECT_TRUE(account.Write());
    account.Close();
    return sCopy;
}

std::string Describe(const QMTransaction& transaction)
{
    char szNumbers[200];
    snprintf(szNumbers, sizeof szNumbers, "%d %d/%d/%d #%u %.2f flags %x cleared %d/%d/%d ",
             static_cast<int>(transaction.lType), transaction.dtDate.wMonth,
             transaction.dtDate.wDay, transaction.dtDate.wYear,
             static_cast<unsigned>(transaction.lNumber), static_cast<double>(transaction.fAmount),
             static_cast<unsigned>(transaction.lFlags), transaction.dtCleared.wMonth,
             transaction.dtCleared.wDay, transaction.dtCleared.wYear);
    return std::string(szNumbers) + "[" + transaction.szDescription + "][" + transaction.szMemo +
           "][" + transaction.szCategory + "]";
}

std::vector<std::string> Describe(const std::vector<QMTransaction>& transactions)
{
    std::vector<std::string> lines;
    for (const QMTransaction& transaction : transactions) {
        lines.push_back(Describe(transaction));
    }
    return lines;
}
