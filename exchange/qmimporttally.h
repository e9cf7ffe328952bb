// QMImportTally: counts the fields that a file of transactions did not set, and what its dates tell
// about the order of month and day. The readers count each record when they have read it. To walk
// over a million records in the order of their dates takes half as long as to read them.
#pragma once

#include <cstdint>

#include "account/qmtransaction.h"

struct QMImportTally
{
    int32_t lRecords = 0;
    int32_t lUsable = 0;      // of these, records with a date of their own or an amount
    int32_t lWithoutDate = 0; // records whose date is no day
    int32_t lFirstOf2000 = 0; // records of that day; it is unknown whether they had a date
    int32_t lWithoutAmount = 0;
    // Of the other dates: those that are still a day when month and day are exchanged, and those
    // that are not.
    int32_t lEitherOrder = 0;
    int32_t lOneOrder = 0;

    void Count(const QMTransaction& transaction)
    {
        const QMDate& date = transaction.dtDate;
        const bool bDay = QMCheckDate(date) == 0;
        const bool bNew = bDay && date.wYear == 2000 && date.wMonth == 1 && date.wDay == 1;
        const bool bHasDate = bDay && !bNew;
        ++lRecords;
        lUsable += bHasDate || transaction.fAmount != 0 ? 1 : 0;
        lWithoutDate += bDay ? 0 : 1;
        lFirstOf2000 += bNew ? 1 : 0;
        lWithoutAmount += transaction.fAmount == 0 ? 1 : 0;
        lOneOrder += bHasDate && date.wDay > 12 ? 1 : 0;
        lEitherOrder += bHasDate && date.wDay <= 12 && date.wDay != date.wMonth ? 1 : 0;
    }
};
