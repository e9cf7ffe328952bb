// The tables of the frame's commands, and the sentences that are made of their words.

#include "shell/qmcommand.h"

#include "account/qmtransaction.h"
#include "resources/resource.h"
#include "tests/win/support.h"

namespace {

TEST(QMCommandTest, NoCommandStandsTwice)
{
    for (UINT uId = 1; uId <= 0xFFFF; ++uId) {
        int nRows = 0;
        for (const QMCommandTable* pTable : apCommandTables) {
            for (const QMCommand& command : *pTable) {
                nRows += command.IsFor(uId) ? 1 : 0;
            }
        }
        EXPECT_LE(nRows, 1) << "id " << uId;
        EXPECT_EQ(QMFindCommand(uId) != nullptr, nRows == 1) << "id " << uId;
    }
}

TEST(QMCommandTest, RowOfSeveralCommandsReachesFromItsFirstToItsLast)
{
    const QMCommand* pColumns = QMFindCommand(IDM_VIEW_DATE);
    ASSERT_NE(pColumns, nullptr);
    EXPECT_EQ(QMFindCommand(IDM_VIEW_BALANCE), pColumns);
    EXPECT_EQ(QMFindCommand(IDM_VIEW_CLEARED), pColumns);
    EXPECT_NE(QMFindCommand(IDM_VIEW_DATE - 1), pColumns);
    EXPECT_NE(QMFindCommand(IDM_VIEW_CLEARED + 1), pColumns);
}

TEST(QMCommandTest, UnknownNumbersHaveNoRow)
{
    EXPECT_EQ(QMFindCommand(0), nullptr);
    EXPECT_EQ(QMFindCommand(IDM_FILE_RECENT_EMPTY), nullptr);
    EXPECT_EQ(QMFindCommand(IDM_TOOLS_GRAPHS), nullptr);
    EXPECT_EQ(QMFindCommand(IDC_FIRSTCHILD), nullptr);
}

TEST(QMCommandTest, EachTagHasItsCommand)
{
    EXPECT_EQ(QMTagOfCommand(IDM_TRANSACTION_TAX), QM_TRANS_FLAG_TAX);
    EXPECT_EQ(QMTagOfCommand(IDM_TRANSACTION_EXPENSE), QM_TRANS_FLAG_EXPENSE);
    EXPECT_EQ(QMTagOfCommand(IDM_TRANSACTION_VOIDED), QM_TRANS_FLAG_VOIDED);
    EXPECT_EQ(QMTagOfCommand(IDM_TRANSACTION_CLEARED), QM_TRANS_FLAG_NOT_CLEARED);
    EXPECT_EQ(QMTagOfCommand(IDM_TRANSACTION_ADD), 0U);
}

TEST(QMCommandTest, SentencesAreMadeOfTheRowsWords)
{
    EXPECT_STREQ(QMCannot("save file").GetText(),
                 "Cannot save file...\nNo document window is selected.");
    EXPECT_STREQ(QMCannot("run reports", "No document is currently active.").GetText(),
                 "Cannot run reports...\nNo document is currently active.");
    EXPECT_STREQ(QMNothingSelected("toggle tag").GetText(),
                 "Cannot toggle tag.\nNo transaction is selected.");
    EXPECT_STREQ(QMFailedTo("remove transaction").GetText(), "Failed to remove transaction.");
}

struct Words
{
    UINT uCommand;
    const char* szWhat;
};

constexpr Words aWords[] = {
    {IDM_FILE_SAVE, "save file"},
    {IDM_FILE_SAVEAS, "save file"},
    {IDM_FILE_IMPORT, "import file"},
    {IDM_FILE_EXPORT, "export file"},
    {IDM_FILE_PASSWORD, "set password"},
    {IDM_VIEW_GRIDLINES, "change grid lines"},
    {IDM_VIEW_SHADEDLINES, "change shade lines"},
    {IDM_VIEW_MEMO, "change columns"},
    {IDM_TRANSACTION_ADD, "add transaction"},
    {IDM_TRANSACTION_EDIT, "edit transaction"},
    {IDM_TRANSACTION_REMOVE, "remove transaction"},
    {IDM_TRANSACTION_VOIDED, "toggle tag"},
    {IDM_TOOLS_AUTOSIZE, "autosize columns"},
};

TEST(QMCommandTest, WordsAreTheProgramsOwn)
{
    for (const Words& words : aWords) {
        const QMCommand* pCommand = QMFindCommand(words.uCommand);
        ASSERT_NE(pCommand, nullptr) << "command " << words.uCommand;
        EXPECT_STREQ(pCommand->szWhat, words.szWhat) << "command " << words.uCommand;
    }
}

} // namespace
