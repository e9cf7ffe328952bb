// The menu: its labels, and when its items are enabled.

#include "tests/e2e/e2e_test.h"

namespace {

class MenusTest : public E2ETest
{
protected:
    void ExpectAll(const std::vector<UINT>& commands, MenuItem state) const
    {
        for (const UINT uCommand : commands) {
            EXPECT_EQ(m_program.GetMenuItem(uCommand), state) << "command " << uCommand;
        }
    }
};

const std::vector<UINT> alwaysEnabled = {
    IDM_FILE_NEW,      IDM_FILE_EXIT,           IDM_TOOLS_CALCULATOR,
    IDM_TOOLS_OPTIONS, IDM_HELP_GETTINGSTARTED, IDM_HELP_CONTENTS,
    IDM_HELP_INDEX,    IDM_HELP_ABOUT};
// These items need a document.
const std::vector<UINT> forDocuments = {IDM_FILE_CLOSE,
                                        IDM_FILE_CLOSEALL,
                                        IDM_FILE_SAVE,
                                        IDM_FILE_SAVEAS,
                                        IDM_FILE_SAVEALL,
                                        IDM_FILE_PRINT,
                                        IDM_FILE_PREVIEW,
                                        IDM_FILE_PAGESETUP,
                                        IDM_FILE_IMPORT,
                                        IDM_FILE_EXPORT,
                                        IDM_FILE_ACCOUNTINFO,
                                        IDM_FILE_PASSWORD,
                                        IDM_VIEW_GRIDLINES,
                                        IDM_VIEW_SHADEDLINES,
                                        IDM_VIEW_DATE,
                                        IDM_VIEW_NUMBER,
                                        IDM_VIEW_DESCRIPTION,
                                        IDM_VIEW_DEBIT,
                                        IDM_VIEW_CREDIT,
                                        IDM_VIEW_BALANCE,
                                        IDM_VIEW_MEMO,
                                        IDM_VIEW_CATEGORY,
                                        IDM_VIEW_TAG,
                                        IDM_VIEW_CLEARED,
                                        IDM_TRANSACTION_ADD,
                                        IDM_TRANSACTION_EDIT,
                                        IDM_TRANSACTION_REMOVE,
                                        IDM_TRANSACTION_TAX,
                                        IDM_TRANSACTION_EXPENSE,
                                        IDM_TRANSACTION_VOIDED,
                                        IDM_TRANSACTION_CLEARED,
                                        IDM_TOOLS_REPORTS,
                                        IDM_TOOLS_BANKWEBPAGE,
                                        IDM_TOOLS_AUTOSIZE,
                                        IDM_WINDOW_CASCADE,
                                        IDM_WINDOW_TILEHORIZONTAL,
                                        IDM_WINDOW_TILEVERTICAL};
const std::vector<UINT> withDocument = {
    IDM_FILE_ACCOUNTINFO, IDM_TOOLS_BANKWEBPAGE,     IDM_FILE_CLOSE,         IDM_FILE_CLOSEALL,
    IDM_WINDOW_CASCADE,   IDM_WINDOW_TILEHORIZONTAL, IDM_WINDOW_TILEVERTICAL};
const std::vector<UINT> forTwo = {IDM_WINDOW_NEXT, IDM_WINDOW_PREVIOUS};

TEST_F(MenusTest, WithoutADocument)
{
    m_program.Open();
    ExpectAll(alwaysEnabled, MenuItem::Enabled);
    ExpectAll(forDocuments, MenuItem::Grayed);
    ExpectAll(forTwo, MenuItem::Grayed);
    EXPECT_EQ(m_program.GetMenuItem(IDM_FILE_RECENT_EMPTY), MenuItem::Grayed);
    EXPECT_EQ(m_program.GetMenuItem(IDM_TOOLS_GRAPHS), MenuItem::Missing);
}

TEST_F(MenusTest, WithOneDocument)
{
    m_program.Open();
    m_program.NewDocument(1);
    m_program.AwaitMenuItem(IDM_FILE_CLOSE, MenuItem::Enabled);
    ExpectAll(alwaysEnabled, MenuItem::Enabled);
    ExpectAll(withDocument, MenuItem::Enabled);
    ExpectAll(forTwo, MenuItem::Grayed);
}

TEST_F(MenusTest, WithTwoDocuments)
{
    m_program.Open();
    m_program.NewDocument(1);
    m_program.NewDocument(2);
    m_program.AwaitMenuItem(IDM_WINDOW_NEXT, MenuItem::Enabled);
    ExpectAll(alwaysEnabled, MenuItem::Enabled);
    ExpectAll(withDocument, MenuItem::Enabled);
    ExpectAll(forTwo, MenuItem::Enabled);
}

TEST_F(MenusTest, ClosingTakesThemBack)
{
    m_program.Open();
    m_program.NewDocument(1);
    m_program.NewDocument(2);
    m_program.Post(IDM_FILE_CLOSE);
    m_program.AwaitActive("Untitled1");
    m_program.AwaitMenuItem(IDM_WINDOW_NEXT, MenuItem::Grayed);
    EXPECT_EQ(m_program.GetMenuItem(IDM_FILE_CLOSE), MenuItem::Enabled);
    m_program.Post(IDM_FILE_CLOSE);
    m_program.AwaitActive("");
    m_program.AwaitMenuItem(IDM_FILE_CLOSE, MenuItem::Grayed);
    ExpectAll(forDocuments, MenuItem::Grayed);
    ExpectAll(alwaysEnabled, MenuItem::Enabled);
}

TEST_F(MenusTest, RefusedFileLeavesThemAsTheyWere)
{
    m_program.Open();
    const std::string sPath = MakeFile("bad.qmk", "no account");
    Process second;
    second.Start(ProgramFolder() + "quillmark.exe", {sPath});
    m_program.AnswerBox("Failed to open file '" + sPath + "'.");
    EXPECT_EQ(second.AwaitExit(), 1U);
    ExpectAll(forDocuments, MenuItem::Grayed);
    ExpectAll(alwaysEnabled, MenuItem::Enabled);
}

struct Label
{
    UINT uCommand;
    const char* szText;
};

constexpr Label aLabels[] = {
    {57600, "&New\tCtrl+N"},
    {57601, "&Open...\tCtrl+O"},
    {57602, "&Close"},
    {104, "Close All"},
    {57603, "&Save\tCtrl+S"},
    {57604, "Save &As..."},
    {107, "Save A&ll\tCtrl+Shift+S"},
    {57607, "&Print\tCtrl+P"},
    {57609, "Print Pre&view"},
    {57605, "Pa&ge Setup"},
    {111, "&Import"},
    {112, "&Export"},
    {113, "Set Account Info"},
    {114, "Set Password"},
    {126, "E&xit"},
    {59392, "&Toolbar"},
    {213, "&Transactions Bar"},
    {214, "&Status Bar"},
    {200, "&Grid Lines\tCtrl+G"},
    {201, "&Shaded Lines"},
    {300, "&Add\tCtrl+A"},
    {301, "&Edit\tEnter"},
    {302, "&Remove\tDelete"},
    {303, "Toggle &Tax\tAlt+T"},
    {304, "Toggle E&xpense\tAlt+E"},
    {305, "Toggle &Voided\tAlt+V"},
    {306, "Toggle &Cleared\tAlt+C"},
    {400, "&Reports"},
    {402, "&Bank Webpage"},
    {403, "&Calculator"},
    {404, "&AutoSize Columns"},
    {405, "&Options"},
    {57650, "Ca&scade"},
    {500, "Tile &Horizontal"},
    {501, "Tile &Vertical"},
    {503, "&Next\tAlt+Right"},
    {504, "&Previous\tAlt+Left"},
    {600, "&Getting Started"},
    {601, "&Contents\tF1"},
    {57666, "&Index"},
    {604, "&About"},
};

TEST_F(MenusTest, LabelsAreTheProgramsOwn)
{
    m_program.Open();
    for (const Label& label : aLabels) {
        EXPECT_EQ(m_program.GetMenuText(label.uCommand), label.szText)
            << "command " << label.uCommand;
    }
}

} // namespace
