// QMImportTally: what the readers of exchange files left at the values of a new transaction, and
// what the dates tell of the order in which they were written. Counted while a record is at hand: a
// walk over a million records in the order of their dates takes as long as half of the reading.
#pragma once

#include <cstdint>

#include "account/qmtransaction.h"

struct QMImportTally
{
    int32_t lRecords = 0;
    int32_t lUsable = 0;      // of these, records with a date of their own or an amount
    int32_t lWithoutDate = 0; // whose date is no day
    int32_t lFirstOf2000 = 0; // of that day, of which nobody knows whether they had a date
    int32_t lWithoutAmount = 0;
    // Of the other dates, those that are a day with month and day exchanged too, and those that are
    // none.
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
