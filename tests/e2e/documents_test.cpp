// Making, arranging and closing documents.

#include <algorithm>

#include "tests/e2e/e2e_test.h"

namespace {

class DocumentsTest : public E2ETest
{
protected:
    // Opens the program with this number of new documents, none of them maximized.
    void OpenWithRestored(int nDocuments)
    {
        m_program.Open();
        m_program.Close();
        WriteSettingNumber("Settings", "Flags", 12);
        m_program.Open();
        for (int i = 1; i <= nDocuments; ++i) {
            m_program.NewDocument(i);
        }
    }

    // The places of the documents, the newest one first.
    std::vector<VRect> Places() const
    {
        std::vector<VRect> places;
        for (HWND hDocument : m_program.GetDocuments()) {
            places.push_back(WindowRect(hDocument));
        }
        return places;
    }
};

TEST_F(DocumentsTest, FrameIsNamedQuillmark)
{
    m_program.Open();
    EXPECT_EQ(m_program.GetTitle(), "Quillmark");
    EXPECT_TRUE(m_program.GetDocuments().empty());
    EXPECT_TRUE(m_program.GetBoxes().empty());
    m_program.NewDocument(1);
    EXPECT_EQ(m_program.GetTitle(), "Quillmark");
}

TEST_F(DocumentsTest, FrameHasTheProgramsIdsAndClass)
{
    m_program.Open();
    const std::string sClass = WindowClass(m_program.GetFrame());
    EXPECT_EQ(sClass.substr(sClass.size() - 4), ":2BC");
    EXPECT_EQ(WindowClass(m_program.GetClient()), "MDIClient");
    EXPECT_EQ(WindowClass(m_program.GetRebar()), "ReBarWindow32");
    EXPECT_EQ(WindowClass(m_program.GetStatusBar()), "msctls_statusbar32");
    EXPECT_EQ(WindowClass(m_program.GetToolbar()), "ToolbarWindow32");
    EXPECT_EQ(GetParent(m_program.GetToolbar()), m_program.GetRebar());
}

TEST_F(DocumentsTest, NewDocumentsAreNumberedOn)
{
    m_program.Open();
    m_program.NewDocument(1);
    m_program.NewDocument(2);
    EXPECT_EQ(m_program.GetDocumentTitles(), (Texts{"Untitled2", "Untitled1"}));
    m_program.Post(IDM_FILE_CLOSE);
    m_program.AwaitActive("Untitled1");
    m_program.NewDocument(3);
    EXPECT_EQ(m_program.GetDocuments().size(), 2U);
}

TEST_F(DocumentsTest, DocumentsTakeTheirNumbersFromTheFirstChildOn)
{
    m_program.Open();
    m_program.NewDocument(1);
    EXPECT_EQ(GetDlgCtrlID(m_program.GetActiveDocument()), IDC_FIRSTCHILD);
}

TEST_F(DocumentsTest, CloseTakesTheActiveOneAlone)
{
    const std::string sPath = CopySample();
    m_program.Open({sPath});
    m_program.NewDocument(1);
    m_program.Post(IDM_FILE_CLOSE);
    m_program.AwaitActive(sPath);
    EXPECT_EQ(m_program.GetDocumentTitles(), Texts{sPath});
    EXPECT_EQ(ActiveList().GetRowCount(), 447);
    EXPECT_TRUE(IsLocked(sPath));
}

TEST_F(DocumentsTest, ClosingOneOfTwoAccountsLeavesTheOther)
{
    const std::string sFirst = CopySample("first.qmk");
    const std::string sSecond = MakeAccount("second.qmk", 5);
    m_program.Open({sFirst, sSecond});
    ASSERT_EQ(m_program.GetActiveTitle(), sSecond);
    EXPECT_TRUE(IsLocked(sFirst));
    EXPECT_TRUE(IsLocked(sSecond));
    m_program.Post(IDM_FILE_CLOSE);
    m_program.AwaitActive(sFirst);
    EXPECT_TRUE(IsLocked(sFirst));
    EXPECT_FALSE(IsLocked(sSecond));
    EXPECT_EQ(ActiveList().GetRowCount(), 447);
    EXPECT_EQ(m_program.GetPaneText(1), " Transaction: 447 of 447");
}

TEST_F(DocumentsTest, PanesFollowTheActiveDocument)
{
    const std::string sFirst = CopySample("first.qmk");
    const std::string sSecond = MakeAccount("second.qmk", 5);
    m_program.Open({sFirst, sSecond});
    EXPECT_EQ(m_program.GetPaneText(1), " Transaction: 5 of 5");
    m_program.Post(IDM_WINDOW_NEXT);
    m_program.AwaitActive(sFirst);
    Await("the first pane of the other account",
          [&] { return m_program.GetPaneText(1) == " Transaction: 447 of 447"; });
}

TEST_F(DocumentsTest, ClosedFileIsFreeAndOpensAgain)
{
    const std::string sPath = CopySample();
    m_program.Open({sPath});
    EXPECT_TRUE(IsLocked(sPath));
    m_program.Post(IDM_FILE_CLOSE);
    m_program.AwaitActive("");
    EXPECT_FALSE(IsLocked(sPath));
    HandOverFile(sPath);
    EXPECT_EQ(ActiveList().GetRowCount(), 447);
}

TEST_F(DocumentsTest, SystemMenuOfADocumentClosesIt)
{
    m_program.Open();
    m_program.NewDocument(1);
    PostMessageA(m_program.GetActiveDocument(), WM_CLOSE, 0, 0);
    m_program.AwaitActive("");
    EXPECT_TRUE(m_program.IsRunning());
}

TEST_F(DocumentsTest, CloseAllLeavesAnEmptyFrame)
{
    m_program.Open({CopySample()});
    m_program.NewDocument(1);
    m_program.NewDocument(2);
    m_program.Post(IDM_FILE_CLOSEALL);
    m_program.AwaitDocuments(0);
    EXPECT_EQ(m_program.GetActiveDocument(), nullptr);
    m_program.NewDocument(3);
}

TEST_F(DocumentsTest, CommandsWithoutADocumentDoNoHarm)
{
    m_program.Open();
    for (const UINT uCommand :
         {IDM_FILE_CLOSE, IDM_FILE_CLOSEALL, IDM_WINDOW_NEXT, IDM_WINDOW_PREVIOUS,
          IDM_WINDOW_CASCADE, IDM_WINDOW_TILEHORIZONTAL, IDM_WINDOW_TILEVERTICAL, 0, 65535}) {
        m_program.Post(static_cast<UINT>(uCommand));
    }
    m_program.Settle();
    m_program.NewDocument(1);
    EXPECT_TRUE(m_program.GetBoxes().empty());
}

TEST_F(DocumentsTest, ClosingTheFrameEndsWithCodeZero)
{
    m_program.Open({CopySample()});
    m_program.NewDocument(1);
    EXPECT_EQ(m_program.Close(), 0U);
}

TEST_F(DocumentsTest, ExitEndsWithCodeZero)
{
    const std::string sPath = CopySample();
    m_program.Open({sPath});
    m_program.Post(IDM_FILE_EXIT);
    EXPECT_EQ(m_program.AwaitExit(), 0U);
    EXPECT_FALSE(IsLocked(sPath));
}

TEST_F(DocumentsTest, MinimizedFrameCloses)
{
    m_program.Open({CopySample()});
    ShowWindow(m_program.GetFrame(), SW_MINIMIZE);
    EXPECT_EQ(m_program.Close(), 0U);
}

// ---- Arranging.

TEST_F(DocumentsTest, CascadeSetsThemOffFromOneAnother)
{
    OpenWithRestored(3);
    m_program.Post(IDM_WINDOW_TILEVERTICAL);
    Await("three documents side by side", [&] {
        const std::vector<VRect> places = Places();
        return places[0].top == places[1].top && places[1].top == places[2].top;
    });
    m_program.Post(IDM_WINDOW_CASCADE);
    Await("three cascaded documents", [&] {
        const std::vector<VRect> places = Places();
        return places[0].left > places[1].left && places[1].left > places[2].left &&
               places[0].top > places[1].top && places[1].top > places[2].top;
    });
}

TEST_F(DocumentsTest, TileHorizontalSetsThemOneAboveTheOther)
{
    OpenWithRestored(2);
    m_program.Post(IDM_WINDOW_TILEHORIZONTAL);
    Await("two documents, one above the other", [&] {
        const std::vector<VRect> places = Places();
        return places[0].left == places[1].left && places[0].right == places[1].right &&
               (places[0].bottom <= places[1].top || places[1].bottom <= places[0].top);
    });
}

TEST_F(DocumentsTest, TileVerticalSetsThemSideBySide)
{
    OpenWithRestored(2);
    m_program.Post(IDM_WINDOW_TILEVERTICAL);
    Await("two documents side by side", [&] {
        const std::vector<VRect> places = Places();
        return places[0].top == places[1].top && places[0].bottom == places[1].bottom &&
               (places[0].right <= places[1].left || places[1].right <= places[0].left);
    });
}

TEST_F(DocumentsTest, NextGoesThroughThemInTheOrderOfTheirMaking)
{
    OpenWithRestored(3);
    for (const char* szTitle : {"Untitled1", "Untitled2", "Untitled3", "Untitled1"}) {
        m_program.Post(IDM_WINDOW_NEXT);
        m_program.AwaitActive(szTitle);
    }
}

TEST_F(DocumentsTest, PreviousGoesBack)
{
    OpenWithRestored(3);
    for (const char* szTitle : {"Untitled2", "Untitled1", "Untitled3", "Untitled2"}) {
        m_program.Post(IDM_WINDOW_PREVIOUS);
        m_program.AwaitActive(szTitle);
    }
}

TEST_F(DocumentsTest, WindowMenuListsAndActivatesThem)
{
    m_program.Open();
    m_program.NewDocument(1);
    m_program.NewDocument(2);
    EXPECT_EQ(m_program.GetMenuText(IDC_FIRSTCHILD), "&1 Untitled1");
    EXPECT_EQ(m_program.GetMenuText(IDC_FIRSTCHILD + 1), "&2 Untitled2");
    m_program.AwaitMenuItem(IDC_FIRSTCHILD + 1, MenuItem::Checked);
    EXPECT_EQ(m_program.GetMenuItem(IDC_FIRSTCHILD), MenuItem::Enabled);
    m_program.Post(IDC_FIRSTCHILD);
    m_program.AwaitActive("Untitled1");
    m_program.AwaitMenuItem(IDC_FIRSTCHILD, MenuItem::Checked);
}

} // namespace
