// What the tests of the transaction dialog share: its arguments with their arrays, and a caller's
// function that remembers.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "entry/qmtransactiondialogargs.h"
#include "tests/support/support.h"

// An entry that passes validation: type, number 77, 3/14/2004 for both dates, 12.50, the
// description "Rent", memo and category "for March" and "Housing".
QMTransaction ProperEntry(int32_t lType, uint32_t uFlags = QM_TRANS_FLAG_NOT_CLEARED);

// The block for those entries. User values are 100, 101, ... and 200, 201, ...
struct EntryArgs
{
    explicit EntryArgs(const std::vector<QMTransaction>& given, bool bAddMode = false);
    EntryArgs(const EntryArgs&) = delete;
    EntryArgs& operator=(const EntryArgs&) = delete;
    ~EntryArgs() { pCurrent = nullptr; }

    // The block then calls a function that notes each entry in commits and answers bAccepts; one
    // that is accepted it makes ready for the next, as a register does: number 1001, nothing else
    // but the date kept.
    void UseCommit();

    std::vector<QMTransaction> entries;
    std::vector<uintptr_t> usersA;
    std::vector<uintptr_t> usersB;
    QMTransactionDialogArgs block;

    std::vector<std::string> commits; // TextOf each, then the two values
    bool bAccepts = true;

private:
    static bool Commit(QMTransaction& entry, uintptr_t uUserA, uintptr_t uUserB);

    static EntryArgs* pCurrent; // whose function is called
};
