// The base of the tests that ask the frame to close while something is on the screen.
#pragma once

#include <memory>
#include <string>

#include "tests/e2e/windowaccess.h"
#include "tests/e2e/work_test.h"

class ClosingTest : public WorkTest
{
protected:
    static constexpr const char* szSaveQuestion = "Save changes to 'three.qmk'?";

    // An account whose last transaction has no amount, so that it cannot be cleared.
    std::string OpenThree(bool bReadOnly = false)
    {
        const std::string sPath = MakeAccount("three.qmk", 3, [&](QMAccount& account) {
            account.header.bReadOnly = bReadOnly ? 1 : 0;
            auto p = std::make_unique<QMTransaction>();
            p->dtDate = QMMakeDate(2020, 1, 1);
            account.store.Add(std::move(p));
        });
        m_sBytes = ReadWholeFile(sPath);
        OpenAccount(sPath);
        Select({1});
        m_program.Settle();
        return sPath;
    }

    HWND Frame() const { return m_program.GetFrame(); }

    // Asks the frame to close in every way that Windows, another program or a user has. What is on
    // the screen must refuse.
    void AskToClose() const
    {
        EXPECT_EQ(SendTo(Frame(), WM_QUERYENDSESSION), 0);
        SendTo(Frame(), WM_ENDSESSION, FALSE);
        PostMessageA(Frame(), WM_CLOSE, 0, 0);
        SendTo(Frame(), WM_CLOSE);
        for (HWND hDocument : m_program.GetDocuments()) {
            SendTo(hDocument, WM_CLOSE);
            PostMessageA(hDocument, WM_SYSCOMMAND, SC_CLOSE, 0);
        }
        m_program.Post(IDM_FILE_CLOSE);
        m_program.Post(IDM_FILE_CLOSEALL);
        m_program.Post(IDM_FILE_EXIT);
        // The end of the Windows session, which nobody can refuse.
        SendTo(Frame(), WM_ENDSESSION, TRUE);
        m_program.Settle();
    }

    void ExpectKept(size_t uDocuments) const
    {
        EXPECT_TRUE(m_program.IsRunning());
        EXPECT_TRUE(IsWindow(Frame()));
        EXPECT_EQ(m_program.GetDocuments().size(), uDocuments);
    }

    // While a command asks whether to save the account, nothing asks again. The answer is Cancel.
    void ExpectAskedOnce()
    {
        const MessageBoxWindow box = AwaitMessageBox(m_program.GetId(), szSaveQuestion);
        AskToClose();
        EXPECT_EQ(m_program.GetBoxes().size(), 1U);
        ExpectKept(1);
        box.Press(IDCANCEL);
        m_program.Settle();
        ExpectKept(1);
    }

    // The program works on, and closes when it is asked while no command runs.
    void ExpectUsable(const std::string& sPath)
    {
        m_program.Settle();
        EXPECT_TRUE(m_program.GetBoxes().empty());
        EXPECT_EQ(ActiveList().GetRowCount(), 4);
        EXPECT_EQ(SendTo(Frame(), WM_QUERYENDSESSION), 1);
        EXPECT_EQ(m_program.AwaitExit(), 0U);
        EXPECT_EQ(ReadWholeFile(sPath), m_sBytes);
    }

    std::string m_sBytes; // of the account's file
};
