// A transaction as a user types it into the dialog.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "account/qmtransaction.h"
#include "tests/e2e/dialogwindow.h"
#include "tests/e2e/keyboard.h"

struct Entry
{
    int32_t lType = QM_TRANS_CHECK;
    std::string sDate = {};
    std::string sAmount = {};
    // For checks alone; an empty number leaves the one offered.
    std::string sNumber = {};
    std::string sDescription = {};
    std::string sMemo = {};
    std::string sCategory = {};
    // Of QM_TRANS_FLAG_, without the one for what is not cleared.
    uint32_t uTag = 0;
    // Empty for a transaction that is not cleared.
    std::string sCleared = {};

    // Sets what the dialog's fields hold, whatever they held before.
    void Fill(const DialogWindow& dialog) const;
    // The same with the keyboard alone but for the dates.
    void Type(const DialogWindow& dialog, const Keyboard& keyboard) const;
    // What comes of it; the number is that for a transaction that takes the one offered.
    QMTransaction AsTransaction(uint32_t uOffered) const;
};

// The button of a type.
int RadioOfType(int32_t lType);

// All of a transaction in a line, the dates by their days.
std::string LineOf(const QMTransactionFields& fields);
// The lines of an account's file, which nobody may have open.
std::vector<std::string> LinesOfFile(const std::string& sPath);
