// What the tests of the import review share: a store to review, the dialog and its list while they
// are up, clicks.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <vector>

#include "exchange/qmimportdialog.h"
#include "tests/support/support.h"
#include "tests/win/support.h"

using Flags = std::vector<uint32_t>;
using Ticks = std::vector<bool>;

inline constexpr uint32_t uNotCleared = QM_TRANS_FLAG_NOT_CLEARED;

// Of that day in March 2004, numbered from 1001, $10.25 for each day of the month.
QMTransaction MakeTransaction(int32_t lType, uint16_t uDay, uint32_t uFlags,
                              const char* szDescription);

// For each transaction or row, from the first.
Flags FlagsOf(const QMTransactionStore& store);
// Without the mark of the import.
Flags TagsOf(const QMTransactionStore& store);
Ticks MarksOf(const QMTransactionStore& store);
Ticks TicksOf(const QMGridList& list);
Flags DataOf(const QMGridList& list);

// The state of a box for all rows.
UINT CheckOf(const VDialog& dialog, int nId);
// Presses a button and waits for what it does.
void PressNow(VDialog& dialog, int nId);

// The middle of a row's height.
int MiddleOf(const QMGridList& list, int nRow);
void Click(QMGridList& list, int x, int y);
void ClickCheckBox(QMGridList& list, int nRow);

// Gives the dialog a client area of this size.
void ResizeClient(VDialog& dialog, int nWidth, int nHeight);

class QMImportDialogTest : public testing::Test
{
protected:
    using Look = std::function<void(VDialog& dialog, QMGridList& list)>;

    // One for each of these flags, a day between; row 2 is a check, all others deposits.
    void Fill(const Flags& flags);

    // Shows the review, looks at it and presses the button; 0 for none, where the look has ended
    // the dialog. Returns what the dialog does.
    INT_PTR Review(const Look& look, int nButton = IDCANCEL);

    // Ends the review with a key that comes to the list by the dialog's own loop.
    INT_PTR ReviewWithKey(WPARAM uKey);

    QMTransactionStore m_store;
};

using QMImportListTest = QMImportDialogTest;
