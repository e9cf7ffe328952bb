// What the tests of the import review share: a store to review, the dialog and its list while they
// are open, and clicks.
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

// A transaction on that day of March 2004. The numbers start at 1001, and the amount is $10.25
// times the day.
QMTransaction MakeTransaction(int32_t lType, uint16_t uDay, uint32_t uFlags,
                              const char* szDescription);

// One value for each transaction or row, from the first on.
Flags FlagsOf(const QMTransactionStore& store);
// The flags without the import mark.
Flags TagsOf(const QMTransactionStore& store);
Ticks MarksOf(const QMTransactionStore& store);
Ticks TicksOf(const QMGridList& list);
Flags DataOf(const QMGridList& list);

// The state of a box that stands for all rows.
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

    // Adds a transaction for each of these flags, one a day. Row 2 is a check, and the others are
    // deposits.
    void Fill(const Flags& flags);

    // Shows the review, calls look and presses the button; 0 when look itself ends the dialog.
    // Returns what the dialog returns.
    INT_PTR Review(const Look& look, int nButton = IDCANCEL);

    // Ends the review by a key that the list gets. It goes through the message loop of the dialog.
    INT_PTR ReviewWithKey(WPARAM uKey);

    QMTransactionStore m_store;
};

using QMImportListTest = QMImportDialogTest;
