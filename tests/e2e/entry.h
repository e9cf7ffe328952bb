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
    // Only for checks. An empty number keeps the number that the dialog offers.
    std::string sNumber = {};
    std::string sDescription = {};
    std::string sMemo = {};
    std::string sCategory = {};
    // A QM_TRANS_FLAG_ bit other than QM_TRANS_FLAG_NOT_CLEARED; 0 for none.
    uint32_t uTag = 0;
    // The date cleared; empty for a transaction that is not cleared.
    std::string sCleared = {};

    // Sets all fields of the dialog, whatever they held before.
    void Fill(const DialogWindow& dialog) const;
    // Does the same by the keyboard, except for the dates.
    void Type(const DialogWindow& dialog, const Keyboard& keyboard) const;
    // The transaction that results. uOffered is the number that the dialog offers.
    QMTransaction AsTransaction(uint32_t uOffered) const;
};

// The radio button of a type.
int RadioOfType(int32_t lType);

// All values of a transaction in one line. Of dates only the day is given.
std::string LineOf(const QMTransactionFields& fields);
// The lines of all transactions in an account file, which nobody may have open.
std::vector<std::string> LinesOfFile(const std::string& sPath);
