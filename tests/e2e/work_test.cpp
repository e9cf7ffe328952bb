#include "tests/e2e/work_test.h"

#include <algorithm>

void WorkTest::OpenAccount(const std::string& sPath)
{
    m_program.Open({sPath});
    m_program.AwaitActive(sPath);
}

void WorkTest::OpenNew()
{
    m_program.Open();
    m_program.NewDocument(1);
}

DialogWindow WorkTest::BeginAdding() const
{
    m_program.Post(IDM_TRANSACTION_ADD);
    return AwaitDialog(m_program, "Add Transaction");
}

DialogWindow WorkTest::BeginEditing() const
{
    m_program.Post(IDM_TRANSACTION_EDIT);
    return AwaitDialog(m_program, "Edit Transaction");
}

void WorkTest::Add(const Entry& entry) const
{
    const DialogWindow dialog = BeginAdding();
    entry.Fill(dialog);
    dialog.End(IDOK);
    m_program.Settle();
}

void WorkTest::Do(UINT uCommand) const
{
    m_program.Post(uCommand);
    m_program.Settle();
    EXPECT_TRUE(m_program.GetBoxes().empty()) << "command " << uCommand;
}

void WorkTest::DoAnswering(UINT uCommand, const std::string& sText) const
{
    DoAnswering(uCommand, sText, {IDOK}, IDOK);
}

void WorkTest::DoAnswering(UINT uCommand, const std::string& sQuestion,
                           const std::vector<int>& buttons, int nAnswer) const
{
    m_program.Post(uCommand);
    m_program.AnswerQuestion(sQuestion, buttons, nAnswer);
    m_program.Settle();
    EXPECT_TRUE(m_program.GetBoxes().empty()) << "command " << uCommand;
}

void WorkTest::AwaitTitle(const std::string& sTitle) const
{
    m_program.AwaitActive(sTitle);
}

bool WorkTest::IsMarked() const
{
    const std::string sTitle = m_program.GetActiveTitle();
    return sTitle.size() > 2 && sTitle.substr(sTitle.size() - 2) == " *";
}

void WorkTest::AwaitPane(int nPane, const std::string& sText) const
{
    Await("the text '" + sText + "' in pane " + std::to_string(nPane),
          [&] { return m_program.GetPaneText(nPane) == sText; });
}

void WorkTest::AwaitRowCount(int nRows) const
{
    const WindowList list = ActiveList();
    Await(std::to_string(nRows) + " rows", [&] { return list.GetRowCount() == nRows; });
}

std::vector<std::string> WorkTest::Column(const std::string& sHeading) const
{
    const WindowList list = ActiveList();
    const std::vector<std::string> headings = list.GetHeadings();
    const auto found = std::find(headings.begin(), headings.end(), sHeading);
    if (found == headings.end()) {
        FailTest("no column " + sHeading);
    }
    const auto uColumn = static_cast<size_t>(found - headings.begin());
    std::vector<std::string> texts;
    for (const WindowList::Row& row : list.ReadRows(0, list.GetRowCount())) {
        const size_t uBegin = row[uColumn].find_first_not_of(' ');
        texts.push_back(uBegin == std::string::npos ? "" : row[uColumn].substr(uBegin));
    }
    return texts;
}

void WorkTest::Select(const std::vector<int>& rows) const
{
    constexpr UINT uBoth = LVIS_SELECTED | LVIS_FOCUSED;
    const WindowList list = ActiveList();
    list.SetState(-1, 0, LVIS_SELECTED);
    for (size_t u = 0; u < rows.size(); ++u) {
        list.SetState(rows[u], u == 0 ? uBoth : static_cast<UINT>(LVIS_SELECTED),
                      u == 0 ? uBoth : static_cast<UINT>(LVIS_SELECTED));
    }
    EXPECT_EQ(list.GetSelectedRows(), rows);
}

void WorkTest::SaveAs(const std::string& sPath, int nType) const
{
    m_program.Post(IDM_FILE_SAVEAS);
    AwaitFileDialog(m_program, "Save As").Enter(sPath, nType);
    AwaitTitle(sPath.substr(sPath.find_last_of('\\') + 1));
    m_program.Settle();
}

void WorkTest::ChooseToOpen(const std::string& sPath) const
{
    m_program.Post(IDM_FILE_OPEN);
    AwaitFileDialog(m_program, "Open").Enter(sPath);
}

void WorkTest::CloseAnswering(const std::string& sName, int nAnswer) const
{
    const size_t uDocuments = m_program.GetDocuments().size();
    m_program.Post(IDM_FILE_CLOSE);
    if (nAnswer != 0) {
        m_program.AnswerQuestion("Save changes to '" + sName + "'?", {IDYES, IDNO, IDCANCEL},
                                 nAnswer);
    }
    m_program.Settle();
    m_program.AwaitDocuments(uDocuments - (nAnswer == IDCANCEL ? 0 : 1));
}

std::vector<std::string> WorkTest::SaveCloseAndRead(const std::string& sPath) const
{
    Do(IDM_FILE_SAVE);
    CloseAnswering("", 0);
    return LinesOfFile(sPath);
}
