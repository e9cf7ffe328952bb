// Work that takes long shows how far it is, and the user can cancel it: nothing is lost then.

#include "tests/e2e/ordinaryheap.h"
#include "tests/e2e/throttle.h"
#include "tests/e2e/windowaccess.h"
#include "tests/e2e/work_test.h"

namespace {

// So many that a slowed program saves and imports them for seconds.
constexpr int nMany = 300000;

class ProgressTest : public WorkTest
{
protected:
    // An account with a change that is not saved.
    std::string OpenMany()
    {
        const std::string sPath = MakeAccount("many.qmk", nMany);
        m_sBytes = ReadWholeFile(sPath);
        OpenAccount(sPath);
        AwaitRowCount(nMany);
        Select({1});
        Do(IDM_TRANSACTION_CLEARED);
        AwaitTitle("many.qmk *");
        return sPath;
    }

    // Waits for the progress of what was begun, cancels it and waits for its end.
    void CancelProgress() const
    {
        const DialogWindow progress = AwaitProgress(m_program);
        EXPECT_FALSE(IsWindowEnabled(m_program.GetFrame()));
        progress.Press(IDCANCEL);
        Await("the end of the progress", [&] { return FindProgressOf(m_program) == nullptr; });
    }

    void ExpectUntouched(const std::string& sPath)
    {
        m_program.Settle();
        EXPECT_TRUE(m_program.GetBoxes().empty());
        EXPECT_TRUE(IsWindowEnabled(m_program.GetFrame()));
        AwaitTitle("many.qmk *");
        CloseAnswering("many.qmk", IDNO);
        EXPECT_EQ(ReadWholeFile(sPath), m_sBytes);
    }

    std::string m_sBytes; // of the account's file

private:
    OrdinaryHeap m_heap;
};

TEST_F(ProgressTest, CancelledSaveLeavesFileAndChanges)
{
    const std::string sPath = OpenMany();
    {
        const Throttle slowed(m_program.GetFrame());
        m_program.Post(IDM_FILE_SAVE);
        CancelProgress();
    }
    ExpectUntouched(sPath);
}

TEST_F(ProgressTest, CancelledSaveOfAClosingAccountKeepsItOpen)
{
    const std::string sPath = OpenMany();
    m_program.Post(IDM_FILE_CLOSE);
    const MessageBoxWindow question =
        AwaitMessageBox(m_program.GetId(), "Save changes to 'many.qmk'?");
    {
        const Throttle slowed(m_program.GetFrame());
        question.Press(IDYES);
        CancelProgress();
    }
    EXPECT_EQ(m_program.GetDocuments().size(), 1U);
    ExpectUntouched(sPath);
}

TEST_F(ProgressTest, CancelledSaveUnderANameKeepsTheName)
{
    const std::string sPath = OpenMany();
    m_program.Post(IDM_FILE_SAVEAS);
    const FileDialogWindow dialog = AwaitFileDialog(m_program, "Save As");
    dialog.EnterName(PathOf("other.qmk"));
    {
        const Throttle slowed(m_program.GetFrame());
        dialog.Accept();
        CancelProgress();
    }
    EXPECT_EQ(GetFileAttributesA(PathOf("other.qmk").c_str()), INVALID_FILE_ATTRIBUTES);
    ExpectUntouched(sPath);
}

TEST_F(ProgressTest, SlowSaveComesToItsEnd)
{
    const std::string sPath = OpenMany();
    {
        const Throttle slowed(m_program.GetFrame());
        m_program.Post(IDM_FILE_SAVE);
        AwaitProgress(m_program);
        // Whoever asks meanwhile is refused.
        EXPECT_EQ(SendTo(m_program.GetFrame(), WM_QUERYENDSESSION), 0);
        m_program.Post(IDM_FILE_CLOSEALL);
    }
    AwaitTitle("many.qmk");
    CloseAnswering("many.qmk", 0);
    EXPECT_NE(ReadWholeFile(sPath), m_sBytes);
    EXPECT_EQ(ReadWholeFile(sPath).size(), m_sBytes.size());
}

TEST_F(ProgressTest, CancelledImportLeavesTheAccountAsItWas)
{
    std::string sBytes = "Date,Payee,Amount\n";
    for (int i = 0; i < nMany; ++i) {
        sBytes += "3/14/2004,somebody,-" + std::to_string(i) + "\n";
    }
    const std::string sFile = MakeFile("many.csv", sBytes);
    const std::string sPath = MakeAccount("few.qmk", 3);
    m_sBytes = ReadWholeFile(sPath);
    OpenAccount(sPath);
    Process second;
    {
        const Throttle slowed(m_program.GetFrame());
        second.Start(ProgramFolder() + "quillmark.exe", {"-I" + sFile + "|" + sPath});
        CancelProgress();
    }
    EXPECT_EQ(second.AwaitExit(), 1U);
    m_program.Settle();
    EXPECT_TRUE(m_program.GetBoxes().empty());
    EXPECT_FALSE(IsMarked());
    EXPECT_EQ(ActiveList().GetRowCount(), 3);
    CloseAnswering("few.qmk", 0);
    EXPECT_EQ(ReadWholeFile(sPath), m_sBytes);
}

} // namespace
