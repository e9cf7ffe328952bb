// The frame's commands are rows of tables, one table for each topic. A row says what the command
// needs, what it does and what it says. qmmainframe_commands.cpp finds and carries out commands.
// CONTRIBUTING.md tells step by step how to add one.
#pragma once

#include <windows.h>

#include <cstddef>

#include "base/vstring.h"

class QMMainFrame;
class QMRegisterWindow;

// What a handler gets to work with.
struct QMCommandContext
{
    QMMainFrame& frame;
    QMRegisterWindow* pDocument; // the active one; never null for a row that needs a document
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

// What the frame tests before a handler runs. Each line includes those above it. When something is
// missing the frame says so, and the handler does not run.
enum class QMNeeds
{
    Nothing,
    Document,
    WritableDocument, // the account is not in read-only mode
    Selection
};

struct QMCommand
{
    UINT uFirst;    // the row serves the commands from uFirst to uLast
    UINT uLast = 0; // 0: the row serves one command
    QMOffered offered = QMOffered::Always;
    QMNeeds needs = QMNeeds::Nothing;
    // The words after "Cannot " and "Failed to ", such as "add transaction". Every row that needs
    // something must have them.
    const char* szWhat = nullptr;
    // Carries the command out. When it returns false and bTellsFailure is set, the frame says
    // "Failed to " szWhat "."; a handler without bTellsFailure says it by itself. Null for a
    // command that the toolkit's frame carries out.
    bool (*pRun)(QMCommandContext& context) = nullptr;
    // Whether the menu item has its check mark; null for an item that never has one. The context
    // may have no document here.
    bool (*pIsChecked)(const QMCommandContext& context) = nullptr;
    bool bTellsFailure = false;
    bool bUpdates = false; // the menu and the toolbar are brought up to date afterwards
    // It closes the frame. Every other command keeps frame and documents from closing while it
    // runs.
    bool bCloses = false;

    constexpr bool IsFor(UINT uId) const { return uId == uFirst || (uId > uFirst && uId <= uLast); }
};

// The rows of one topic. The compiler checks them: a row that breaks a rule does not compile, and
// the error names the rule.
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
    // These have no body that a compiler could evaluate, so calling one stops the compilation.
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
extern const QMCommandTable windowCommands; // also the commands of the Help menu

inline constexpr const QMCommandTable* apCommandTables[] = {
    &fileCommands, &viewCommands, &transactionCommands, &toolsCommands, &windowCommands};

// The row of a command; null for a command that is in no table.
const QMCommand* QMFindCommand(UINT uId);

// The tag (a QM_TRANS_FLAG_ bit) that a command of the Transaction menu toggles; 0 for another
// command.
uint32_t QMTagOfCommand(UINT uId);

// ---- Sentences of one shape.

// Why the frame cannot start a command, such as "Cannot save file...\nNo document window is
// selected.".
VString QMCannot(const char* szWhat, const char* szReason = "No document window is selected.");
// Such as "Cannot edit transaction.\nNo transaction is selected.".
VString QMNothingSelected(const char* szWhat);
// Such as "Failed to add transaction.".
VString QMFailedTo(const char* szWhat);
