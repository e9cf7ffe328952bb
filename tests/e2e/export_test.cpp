// Export, and import of what was exported.

#include <algorithm>
#include <cstring>

#include "exchange/qmexchange.h"
#include "tests/e2e/dialogwindow.h"
#include "tests/e2e/exchange_test.h"
#include "tests/e2e/ordinaryheap.h"
#include "tests/e2e/throttle.h"

namespace {

constexpr uint32_t uCleared = 0;
constexpr uint32_t uOpen = QM_TRANS_FLAG_NOT_CLEARED;

class ExportTest : public ExchangeTest
{
protected:
    // One transaction of each type, with every tag, and with and without texts. One in the middle
    // is voided.
    std::string MakeSource() const
    {
        return MakeAccount("source.qmk", 0, [](QMAccount& account) {
            for (int32_t lType = 0; lType < 12; ++lType) {
                auto p = std::make_unique<QMTransaction>();
                *p = MakeTransaction(lType, "1/" + std::to_string(lType + 1) + "/2004",
                                     static_cast<float>(lType) + 0.25F,
                                     lType % 2 == 0 ? uOpen : uCleared, lType % 3 == 0 ? "x" : "");
                p->lNumber = static_cast<uint32_t>(2000 + lType);
                p->lFlags |= lType == 4 ? QM_TRANS_FLAG_TAX : 0;
                p->lFlags |= lType == 7 ? QM_TRANS_FLAG_EXPENSE : 0;
                p->lFlags |= lType == 6 ? QM_TRANS_FLAG_VOIDED : 0;
                if (lType == 0 || lType == 5) {
                    strcpy(p->szMemo, "a memo");
                    strcpy(p->szCategory, "a category");
                }
                account.store.Add(std::move(p));
            }
        });
    }

    // The file that the portable formats write for an account, without the program.
    std::string ExportedBytes(const std::string& sAccount, const std::string& sName) const
    {
        QMAccount account(sAccount.c_str());
        EXPECT_TRUE(account.Read());
        EXPECT_TRUE(QMExportFile(PathOf(sName).c_str(), account.store));
        account.Close();
        return ReadWholeFile(PathOf(sName));
    }

    // Exports an account, imports the file into an empty one, and returns the transactions of that
    // one.
    std::vector<QMTransaction> ThereAndBack(const std::string& sSource, const std::string& sFile,
                                            int nOut, int nBack)
    {
        const std::string sTarget = MakeAccount("back.qmk", 0);
        m_program.Open({sTarget, sSource});
        ExportByMenu(sFile);
        AnswerExported(nOut, sFile);
        HandOverFile(sTarget);
        ImportAll(sFile, nBack);
        Save();
        EXPECT_EQ(m_program.Close(), 0U);
        return Load(sTarget);
    }

    // Answers the two boxes that tell of a failure.
    void AnswerFailedExport(const std::string& sFile) const
    {
        AnswerResult("Export", "Failed to export transactions to file:\n'" + sFile + "'.");
        m_program.AnswerBox("Failed to export transactions to file\n'" + sFile + "'.");
        m_program.Settle();
        EXPECT_TRUE(m_program.GetBoxes().empty());
    }

    // Exports to a file that exists, and answers that it may be replaced.
    void ExportOver(const std::string& sFile) const
    {
        m_program.Post(IDM_FILE_EXPORT);
        const FileDialogWindow dialog = AwaitFileDialog(m_program, "Save As");
        dialog.EnterName(sFile);
        dialog.Accept();
        AwaitBoxWith(m_program.GetId(), IDYES).Press(IDYES);
        dialog.AwaitEnd();
    }
};

TEST_F(ExportTest, EachFormatWritesWhatTheFormatsSay)
{
    const std::string sSource = MakeSource();
    const std::string sBytes[] = {ExportedBytes(sSource, "expected.qif"),
                                  ExportedBytes(sSource, "expected.csv"),
                                  ExportedBytes(sSource, "expected.xml")};
    m_program.Open({sSource});
    const char* aNames[] = {"out.qif", "out.csv", "OUT.XML"};
    for (size_t u = 0; u < 3; ++u) {
        const std::string sFile = PathOf(aNames[u]);
        ExportByMenu(sFile);
        // The number counts all transactions, also those that the format leaves out.
        AnswerExported(12, sFile);
        m_program.Settle();
        EXPECT_EQ(ReadWholeFile(sFile), sBytes[u]) << sFile;
        EXPECT_FALSE(IsModified());
    }
}

TEST_F(ExportTest, NameWithoutAnEndingGetsThatOfQif)
{
    m_program.Open({MakeSource()});
    ExportByMenu(PathOf("plain"));
    AnswerExported(12, PathOf("plain.qif"));
    EXPECT_NE(ReadWholeFile(PathOf("plain.qif")).find("!Type:Bank"), std::string::npos);
}

TEST_F(ExportTest, TextFileShowsTwoBoxesAndIsNotMade)
{
    m_program.Open({MakeSource()});
    for (const std::string& sFile : {PathOf("out.txt"), PathOf("OUT2.TXT")}) {
        ExportByMenu(sFile);
        AnswerFailedExport(sFile);
        EXPECT_EQ(GetFileAttributesA(sFile.c_str()), INVALID_FILE_ATTRIBUTES);
    }
}

TEST_F(ExportTest, ExistingFileIsAskedAboutAndReplaced)
{
    const std::string sSource = MakeSource();
    const std::string sExpected = ExportedBytes(sSource, "expected.csv");
    const std::string sFile = MakeFile("old.csv", std::string(100000, 'x'));
    m_program.Open({sSource});
    ExportOver(sFile);
    AnswerExported(12, sFile);
    EXPECT_EQ(ReadWholeFile(sFile), sExpected);
}

TEST_F(ExportTest, FileThatAnotherProgramHoldsFailsWithTwoBoxes)
{
    const std::string sFile = MakeFile("held.csv", "held");
    m_program.Open({MakeSource()});
    HANDLE hFile = CreateFileA(sFile.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING,
                               0, nullptr);
    ASSERT_NE(hFile, INVALID_HANDLE_VALUE);
    ExportOver(sFile);
    AnswerFailedExport(sFile);
    CloseHandle(hFile);
    EXPECT_EQ(ReadWholeFile(sFile), "held");
    ExportOver(sFile);
    AnswerExported(12, sFile);
}

TEST_F(ExportTest, CancelledFileDialogSaysNothing)
{
    m_program.Open({MakeSource()});
    m_program.Post(IDM_FILE_EXPORT);
    const FileDialogWindow dialog = AwaitFileDialog(m_program, "Save As");
    EXPECT_EQ(dialog.GetTypes(),
              (Texts{"Quicken Interchange Format (*.qif)", "Extensible Markup Language (*.xml)",
                     "Comma Separated Value (*.csv)", "Text File (*.txt)"}));
    dialog.End(IDCANCEL);
    m_program.Settle();
    EXPECT_TRUE(m_program.GetBoxes().empty());
}

TEST_F(ExportTest, PeriodOnShowDoesNotLimitAnExport)
{
    WriteSettingNumber("Settings", "Flags", 30);
    const std::string sSource = MakeAccount("period.qmk", 90, [](QMAccount& account) {
        account.header.lDisplayPeriod = QM_ACCNT_DISPLAY_DATE_RANGE;
        account.header.dtPeriodFrom = account.header.dtPeriodTo = QMMakeDate(1990, 1, 2);
    });
    const std::string sExpected = ExportedBytes(sSource, "expected.csv");
    m_program.Open({sSource});
    EXPECT_EQ(ActiveList().GetRowCount(), 40);
    ExportByMenu(PathOf("out.csv"));
    AnswerExported(90, PathOf("out.csv"));
    m_program.Settle();
    EXPECT_EQ(ReadWholeFile(PathOf("out.csv")), sExpected);
    EXPECT_EQ(ActiveList().GetRowCount(), 40);
    EXPECT_FALSE(IsModified());
}

TEST_F(ExportTest, ReadOnlyAccountIsExported)
{
    m_program.Open({MakeAccount("protected.qmk", 5,
                                [](QMAccount& account) { account.header.bReadOnly = 1; })});
    ExportByMenu(PathOf("out.xml"));
    AnswerExported(5, PathOf("out.xml"));
}

TEST_F(ExportTest, UnsavedChangesAreExported)
{
    m_program.Open({MakeAccount("account.qmk", 2)});
    ImportAll(MakeFile("more.qif", "D1/1/2004\nT5\n^\n"), 1);
    ExportByMenu(PathOf("out.csv"));
    AnswerExported(3, PathOf("out.csv"));
}

// ---- Out and back in.

// What every format keeps of the exported transaction. Which flags are kept depends on the format.
void ExpectKept(const QMTransaction& out, const QMTransaction& back, uint32_t uFlags, size_t u)
{
    EXPECT_EQ(back.lType, out.lType) << "transaction " << u;
    EXPECT_TRUE(QMDateIsEqual(back.dtDate, out.dtDate)) << "transaction " << u;
    EXPECT_EQ(back.fAmount, out.fAmount) << "transaction " << u;
    EXPECT_EQ(back.lFlags, uFlags) << "transaction " << u;
    EXPECT_STREQ(back.szMemo, out.szMemo) << "transaction " << u;
    EXPECT_STREQ(back.szCategory, out.szCategory) << "transaction " << u;
}

TEST_F(ExportTest, QifKeepsDatesAmountsAndClearedButNoTagsAndNothingVoided)
{
    const std::string sSource = MakeSource();
    const std::vector<QMTransaction> out = Load(sSource);
    const std::vector<QMTransaction> back = ThereAndBack(sSource, PathOf("out.qif"), 12, 11);
    ASSERT_EQ(back.size(), 11U);
    for (size_t u = 0; u < back.size(); ++u) {
        const QMTransaction& a = out[u < 6 ? u : u + 1];
        const QMTransaction& b = back[u];
        ExpectKept(a, b, a.lFlags & QM_TRANS_FLAG_NOT_CLEARED, u);
        EXPECT_TRUE(QMDateIsEqual(b.dtCleared, a.dtDate)) << "transaction " << u;
        EXPECT_EQ(b.lNumber, a.lType == QM_TRANS_CHECK ? a.lNumber : 0) << "transaction " << u;
    }
}

TEST_F(ExportTest, CsvKeepsTheTagsToo)
{
    const std::string sSource = MakeSource();
    const std::vector<QMTransaction> out = Load(sSource);
    const std::vector<QMTransaction> back = ThereAndBack(sSource, PathOf("out.csv"), 12, 12);
    ASSERT_EQ(back.size(), 12U);
    for (size_t u = 0; u < back.size(); ++u) {
        ExpectKept(out[u], back[u], out[u].lFlags, u);
    }
}

TEST_F(ExportTest, XmlKeepsTypesTagsAndTheDateClearedButDescriptionsOfChecksAlone)
{
    const std::string sSource = MakeSource();
    const std::vector<QMTransaction> out = Load(sSource);
    const std::vector<QMTransaction> back = ThereAndBack(sSource, PathOf("out.xml"), 12, 12);
    ASSERT_EQ(back.size(), 12U);
    for (size_t u = 0; u < back.size(); ++u) {
        const QMTransaction& a = out[u];
        const QMTransaction& b = back[u];
        ExpectKept(a, b, a.lFlags, u);
        const bool bCheck = a.lType == QM_TRANS_CHECK;
        EXPECT_STREQ(b.szDescription, bCheck ? a.szDescription : "") << "transaction " << u;
        // The number of a new transaction.
        EXPECT_EQ(b.lNumber, bCheck ? a.lNumber : 1000U) << "transaction " << u;
        if (!a.HasFlag(QM_TRANS_FLAG_NOT_CLEARED)) {
            EXPECT_TRUE(QMDateIsEqual(b.dtCleared, a.dtCleared)) << "transaction " << u;
        }
    }
}

// In a memo with two ampersands the second one is not escaped. No reader accepts that.
TEST_F(ExportTest, XmlWithTwoAmpersandsInATextDoesNotComeBack)
{
    const std::string sSource = MakeAccount("source.qmk", 1, [](QMAccount& account) {
        account.store.Last();
        QMTransaction transaction;
        account.store.GetCurrent(transaction);
        strcpy(transaction.szMemo, "this & that & those");
        account.store.Remove();
        account.store.Add(std::make_unique<QMTransaction>(transaction));
    });
    m_program.Open({sSource});
    const std::string sFile = PathOf("out.xml");
    ExportByMenu(sFile);
    AnswerExported(1, sFile);
    ImportByMenu(sFile);
    m_program.AnswerBox(Failure(sFile));
    EXPECT_FALSE(IsModified());
}

// ---- An export that takes long.

// So many that a slowed program writes them for minutes.
constexpr int nMany = 120000;

// On a machine under load even a slowed program may be done before its progress can be cancelled.
constexpr int nAttempts = 8;

class LongExportTest : public ExportTest, public testing::WithParamInterface<const char*>
{
protected:
    static std::string Exported(const std::string& sFile)
    {
        return "Successfully exported " + std::to_string(nMany) + " transactions to file:\n'" +
               sFile + "'.";
    }
    static std::string NotExported(const std::string& sFile)
    {
        return "Failed to export transactions to file:\n'" + sFile + "'.";
    }

    // Exports, and cancels the progress as soon as it shows.
    void CancelExport(const std::string& sFile) const
    {
        ExportByMenu(sFile);
        const Throttle slowed(m_program.GetFrame());
        HWND hProgress = nullptr;
        Await("the progress or the result", [&] {
            hProgress = FindProgressOf(m_program);
            return hProgress != nullptr || HasBox(Exported(sFile));
        });
        if (hProgress != nullptr) {
            PostMessageA(hProgress, WM_COMMAND, IDCANCEL, 0);
        }
    }

    // Waits at full speed for the result of an export, and returns whether it has failed.
    bool HasFailed(const std::string& sFile) const
    {
        bool bFailed = false;
        Await("the result", [&] {
            bFailed = HasBox(NotExported(sFile));
            return bFailed || HasBox(Exported(sFile));
        });
        return bFailed;
    }

    bool HasBox(const std::string& sText) const
    {
        const std::vector<MessageBoxWindow> boxes = m_program.GetBoxes();
        return std::any_of(boxes.begin(), boxes.end(),
                           [&](const MessageBoxWindow& box) { return box.GetText() == sText; });
    }

    void ExpectUntouched(const std::string& sFile, const std::string& sAccount) const
    {
        EXPECT_EQ(GetFileAttributesA(sFile.c_str()), INVALID_FILE_ATTRIBUTES);
        EXPECT_EQ(FindProgressOf(m_program), nullptr);
        EXPECT_TRUE(IsWindowEnabled(m_program.GetFrame()));
        EXPECT_EQ(ActiveList().GetRowCount(), nMany);
        EXPECT_EQ(m_program.GetActiveTitle(), sAccount) << "not marked as changed";
    }

private:
    OrdinaryHeap m_heap;
};

TEST_P(LongExportTest, CancelTakesTheFileAwayAndEndsInTheSentenceOfAFailure)
{
    const std::string sAccount = MakeAccount("many.qmk", nMany);
    m_program.Open({sAccount});
    m_program.AwaitActive(sAccount);
    const std::string sFile = PathOf(GetParam());
    for (int i = 0; i < nAttempts; ++i) {
        CancelExport(sFile);
        if (HasFailed(sFile)) {
            AnswerFailedExport(sFile);
            ExpectUntouched(sFile, sAccount);
            return;
        }
        AnswerExported(nMany, sFile);
        m_program.Settle();
        DeleteFileA(sFile.c_str());
    }
    FAIL() << "the export was done before its progress could be cancelled";
}

std::string NameOfFormat(const testing::TestParamInfo<const char*>& test)
{
    return std::string(test.param).substr(std::string(test.param).find('.') + 1);
}

INSTANTIATE_TEST_SUITE_P(All, LongExportTest, testing::Values("out.qif", "out.csv", "out.xml"),
                         NameOfFormat);

// ---- An export that does not end by itself.

class EndlessExportTest : public ExportTest
{
protected:
    // Starts the export of an account without transactions and waits for the window that shows its
    // progress.
    DialogWindow BeginEndless(const std::string& sFile)
    {
        m_program.Open();
        m_program.NewDocument(1);
        ExportByMenu(sFile);
        Await("the progress of the export", [&] { return FindProgress() != nullptr; });
        return {m_program.GetProcess(), FindProgress()};
    }

    HWND FindProgress() const { return FindProgressOf(m_program); }

    void AnswerFailures(const std::string& sFile) const
    {
        AnswerResult("Export", "Failed to export transactions to file:\n'" + sFile + "'.");
        m_program.AnswerBox("Failed to export transactions to file\n'" + sFile + "'.");
        m_program.Settle();
    }

    void ExpectUsable(const std::string& sFile)
    {
        EXPECT_EQ(GetFileAttributesA(sFile.c_str()), INVALID_FILE_ATTRIBUTES);
        EXPECT_EQ(FindProgress(), nullptr);
        EXPECT_TRUE(IsWindowEnabled(m_program.GetFrame()));
        EXPECT_EQ(m_program.GetDocuments().size(), 1U);
        EXPECT_EQ(m_program.Close(), 0U);
    }
};

TEST_F(EndlessExportTest, CancelEndsItAndTakesTheFileAway)
{
    const std::string sFile = PathOf("endless.csv");
    const DialogWindow progress = BeginEndless(sFile);
    EXPECT_EQ(progress.GetText(IDC_PROGRESS_TASK), "Writing transactions...");
    EXPECT_FALSE(IsWindowEnabled(m_program.GetFrame()));
    progress.Press(IDCANCEL);
    AnswerFailures(sFile);
    ExpectUsable(sFile);
}

TEST_F(EndlessExportTest, RunsOnUntilTheUserEndsIt)
{
    const std::string sFile = PathOf("endless.qif");
    const DialogWindow progress = BeginEndless(sFile);
    // A request to close the frame and a second start do not end it. Both are answered.
    EXPECT_EQ(SendTo(m_program.GetFrame(), WM_QUERYENDSESSION), 0);
    SendTo(m_program.GetFrame(), WM_CLOSE);
    const std::string sOther = MakeAccount("other.qmk", 2);
    EXPECT_EQ(StartAgain({sOther}), 1U);
    EXPECT_EQ(m_program.GetDocuments().size(), 2U);
    EXPECT_TRUE(progress.IsOpen());
    progress.Close();
    AnswerFailures(sFile);
    m_program.Post(IDM_FILE_CLOSE);
    m_program.AwaitDocuments(1);
    ExpectUsable(sFile);
}

} // namespace
