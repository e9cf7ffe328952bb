// What the tests of the transaction dialog share: its arguments with their arrays, and a commit
// function that notes its calls.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "entry/qmtransactiondialogargs.h"
#include "tests/support/support.h"

// A valid entry of that type: number 77, 3/14/2004 for both dates, 12.50, the description "Rent",
// the memo "for March" and the category "Housing".
QMTransaction ProperEntry(int32_t lType, uint32_t uFlags = QM_TRANS_FLAG_NOT_CLEARED);

// The arguments for these entries. The user values are 100, 101, ... and 200, 201, ...
struct EntryArgs
{
    explicit EntryArgs(const std::vector<QMTransaction>& given, bool bAddMode = false);
    EntryArgs(const EntryArgs&) = delete;
    EntryArgs& operator=(const EntryArgs&) = delete;
    ~EntryArgs() { pCurrent = nullptr; }

    // Sets a commit function that notes each entry in commits and returns bAccepts. It prepares an
    // accepted entry for the next one as a register does: number 1001, the same date, and nothing
    // else.
    void UseCommit();

    std::vector<QMTransaction> entries;
    std::vector<uintptr_t> usersA;
    std::vector<uintptr_t> usersB;
    QMTransactionDialogArgs block;

    std::vector<std::string> commits; // TextOf of each, and the two values
    bool bAccepts = true;

private:
    static bool Commit(QMTransaction& entry, uintptr_t uUserA, uintptr_t uUserB);

    static EntryArgs* pCurrent; // the object whose function is called
};
