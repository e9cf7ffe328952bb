// The frame's commands as rows of tables, one table for each topic: what a command needs, what it
// does and what it says. qmmainframe_commands.cpp walks the tables and tells how to add a command.
#pragma once

#include <windows.h>

#include <cstddef>

#include "base/vstring.h"

class QMMainFrame;
class QMRegisterWindow;

// What a handler works with.
struct QMCommandContext
{
    QMMainFrame& frame;
    QMRegisterWindow* pDocument; // the one on top; never null for a row that needs a document
    UINT uId;                    // the command's number
};

// When a command's menu item is enabled.
enum class QMOffered
{
    Always,
    WithDocument,
    WithTwoDocuments,
    WithSelection,
    WithTag // and the selected transactions may have the tag that the command toggles
};

// What the frame tests before a handler runs; each line includes those above it. The frame says
// what is missing, and the handler does not run.
enum class QMNeeds
{
    Nothing,
    Document,
    WritableDocument, // not in read-only mode
    Selection
};

struct QMCommand
{
    UINT uFirst;    // the commands from here to uLast have this row
    UINT uLast = 0; // 0 for a row of one command
    QMOffered offered = QMOffered::Always;
    QMNeeds needs = QMNeeds::Nothing;
    // Behind "Cannot " and "Failed to ", as "add transaction". Each row that needs something has
    // it.
    const char* szWhat = nullptr;
    // False is said as "Failed to " szWhat "." if bTellsFailure is set; other handlers say it
    // themselves. Null for what the toolkit's frame carries out.
    bool (*pRun)(QMCommandContext& context) = nullptr;
    // Whether the menu item has a check mark; null for an item that never has one. The context may
    // be without a document here.
    bool (*pIsChecked)(const QMCommandContext& context) = nullptr;
    bool bTellsFailure = false;
    bool bUpdates = false; // menu and toolbar are brought in line after it

    constexpr bool IsFor(UINT uId) const { return uId == uFirst || (uId > uFirst && uId <= uLast); }
};

// The rows of one topic. They are checked when they are compiled: a row that breaks a rule does not
// compile, and the compiler names the rule.
class QMCommandTable
{
public:
    template <size_t uCount>
    consteval explicit QMCommandTable(const QMCommand (&aCommands)[uCount])
        : m_pBegin(aCommands), m_pEnd(aCommands + uCount)
    {
        for (size_t u = 0; u < uCount; ++u) {
            CheckRow(aCommands[u]);
            for (size_t uOther = 0; uOther < u; ++uOther) {
                if (aCommands[uOther].IsFor(aCommands[u].uFirst) ||
                    aCommands[u].IsFor(aCommands[uOther].uFirst)) {
                    TwoRowsForOneCommand();
                }
            }
        }
    }

    const QMCommand* begin() const { return m_pBegin; }
    const QMCommand* end() const { return m_pEnd; }

private:
    // A call of these ends the compilation, for they cannot be carried out by the compiler.
    static void RowThatNeedsADocumentHasNoWordsForItsLack();
    static void RowThatTellsItsFailureHasNoWordsForIt();
    static void RowEndsBeforeItBegins();
    static void TwoRowsForOneCommand();

    static consteval void CheckRow(const QMCommand& command)
    {
        if (command.needs != QMNeeds::Nothing && command.szWhat == nullptr) {
            RowThatNeedsADocumentHasNoWordsForItsLack();
        }
        if (command.bTellsFailure && command.szWhat == nullptr) {
            RowThatTellsItsFailureHasNoWordsForIt();
        }
        if (command.uLast != 0 && command.uLast < command.uFirst) {
            RowEndsBeforeItBegins();
        }
    }

    const QMCommand* m_pBegin;
    const QMCommand* m_pEnd;
};

extern const QMCommandTable fileCommands;
extern const QMCommandTable viewCommands;
extern const QMCommandTable transactionCommands;
extern const QMCommandTable toolsCommands;
extern const QMCommandTable windowCommands; // and those of the help menu

inline constexpr const QMCommandTable* apCommandTables[] = {
    &fileCommands, &viewCommands, &transactionCommands, &toolsCommands, &windowCommands};

// The row of a command; null for a number that stands in no table.
const QMCommand* QMFindCommand(UINT uId);

// The tag (QM_TRANS_FLAG_) that a command of the Transaction menu toggles; 0 for another command.
uint32_t QMTagOfCommand(UINT uId);

// ---- Sentences of one shape.

// Why the frame cannot begin with a command, as "Cannot save file...\nNo document window is
// selected.".
VString QMCannot(const char* szWhat, const char* szReason = "No document window is selected.");
// As "Cannot edit transaction.\nNo transaction is selected.".
VString QMNothingSelected(const char* szWhat);
// As "Failed to add transaction.".
VString QMFailedTo(const char* szWhat);
