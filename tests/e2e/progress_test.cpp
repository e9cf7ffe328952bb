// Work that takes long shows how far it is, and the user can cancel it: nothing is lost then.

#include "tests/e2e/ordinaryheap.h"
#include "tests/e2e/throttle.h"
#include "tests/e2e/windowaccess.h"
#include "tests/e2e/work_test.h"

namespace {

// So many that a slowed program saves and imports them for seconds.
constexpr int nMany = 300000;

constexpr int nAttempts = 8;

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

    // Cancels what was begun when its progress shows. On a machine under load even a slowed program
    // may be done before.
    void CancelProgress() const
    {
        HWND hProgress = nullptr;
        Await("the progress or the end of the work", [&] {
            hProgress = FindProgressOf(m_program);
            return hProgress != nullptr || !IsMarked();
        });
        if (hProgress != nullptr && !IsWindowEnabled(m_program.GetFrame())) {
            PostMessageA(hProgress, WM_COMMAND, IDCANCEL, 0);
        }
    }

    // Waits for the end of what was begun, at full speed, and returns whether the account still has
    // its change.
    bool EndsUnsaved() const
    {
        Await("the end of the progress", [&] { return FindProgressOf(m_program) == nullptr; });
        return IsMarked();
    }

    // Opens the account and tries to cancel what `attempt` begins, until it was in time.
    void CancelInTime(const std::function<void()>& attempt)
    {
        for (int i = 0; i < nAttempts; ++i) {
            const std::string sPath = OpenMany();
            attempt();
            if (EndsUnsaved()) {
                ExpectUntouched(sPath);
                return;
            }
            m_program.Close();
        }
        FAIL() << "the work was done before the test could cancel it";
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
    CancelInTime([&] {
        const Throttle slowed(m_program.GetFrame());
        m_program.Post(IDM_FILE_SAVE);
        CancelProgress();
    });
}

TEST_F(ProgressTest, CancelledSaveOfAClosingAccountKeepsItOpen)
{
    CancelInTime([&] {
        m_program.Post(IDM_FILE_CLOSE);
        const MessageBoxWindow question =
            AwaitMessageBox(m_program.GetId(), "Save changes to 'many.qmk'?");
        const Throttle slowed(m_program.GetFrame());
        question.Press(IDYES);
        CancelProgress();
    });
}

TEST_F(ProgressTest, CancelledSaveUnderANameKeepsTheName)
{
    const std::string sOther = PathOf("other.qmk");
    CancelInTime([&] {
        DeleteFileA(sOther.c_str());
        m_program.Post(IDM_FILE_SAVEAS);
        const FileDialogWindow dialog = AwaitFileDialog(m_program, "Save As");
        dialog.EnterName(sOther);
        const Throttle slowed(m_program.GetFrame());
        dialog.Accept();
        CancelProgress();
    });
    EXPECT_EQ(GetFileAttributesA(sOther.c_str()), INVALID_FILE_ATTRIBUTES);
}

TEST_F(ProgressTest, SlowSaveComesToItsEnd)
{
    const std::string sPath = OpenMany();
    bool bClosed = false;
    {
        const Throttle slowed(m_program.GetFrame());
        m_program.Post(IDM_FILE_SAVE);
        Await("the progress or the end of the work",
              [&] { return FindProgressOf(m_program) != nullptr || !IsMarked(); });
        if (FindProgressOf(m_program) != nullptr) {
            // Whoever asks meanwhile is refused, and what is posted before does nothing. Where the
            // save was faster, the account closes.
            m_program.Post(IDM_FILE_CLOSEALL);
            bClosed = SendTo(m_program.GetFrame(), WM_QUERYENDSESSION) != 0;
            EXPECT_TRUE(!bClosed || FindProgressOf(m_program) == nullptr);
        }
    }
    if (bClosed) {
        Await("the end of the account", [&] { return m_program.GetDocuments().empty(); });
    } else {
        AwaitTitle("many.qmk");
        CloseAnswering("many.qmk", 0);
    }
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
        AwaitProgress(m_program).Press(IDCANCEL);
        Await("the end of the progress", [&] { return FindProgressOf(m_program) == nullptr; });
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
