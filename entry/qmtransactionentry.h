// QMTransactionEntry: the rules of the transaction dialog, without its window.
#pragma once

#include <cstdint>

#include "account/qmtransaction.h"
#include "base/vstring.h"
#include "entry/qmtransactiondialogargs.h"

// The states of the four check boxes.
struct QMEntryBoxes
{
    bool bTax = false;
    bool bExpense = false;
    bool bVoided = false;
    bool bCleared = false;

    bool operator==(const QMEntryBoxes&) const = default;
};

// What the dialog's fields hold, in the form in which they hold it. A new object stands for empty
// fields.
struct QMEntryFields
{
    int32_t lType = -1; // the type whose radio button is on; -1 for none
    VString sNumber;
    VString sDescription;
    QMDate dtDate;
    QMDate dtCleared;
    VString sAmount = "0.00";
    VString sMemo;
    VString sCategory;
    QMEntryBoxes boxes;
};

// Which fields the user may change for a type.
struct QMEntrySwitches
{
    bool bNumber = false;
    bool bDescription = false;
    bool bTag = false; // the check boxes Tax Deductible and Expense
    bool bVoided = true;
    bool bCleared = true;

    bool operator==(const QMEntrySwitches&) const = default;
};

enum class QMEntryMove
{
    First,
    Previous,
    Next,
    Last
};

QMEntrySwitches QMSwitchesOfType(int32_t lType);

// The sentence about the most serious of Validate's faults; null when none of the bits has a
// sentence.
const char* QMFaultSentence(uint32_t uFaults);

// Reads a check number: digits after leading white space, up to the first other character. Returns
// 0 when there are none, and for a number above 32 bits.
uint32_t QMReadCheckNumber(const char* szText);

// The dialog moves values between its controls and one object of this class. The entry on show is a
// working copy of one in the caller's array. It goes back into the array only when it is valid.
class QMTransactionEntry
{
public:
    // args must live longer than this object and hold at least one entry. The first one is on show.
    explicit QMTransactionEntry(QMTransactionDialogArgs& args);

    bool IsAddMode() const { return m_args.bAddMode; }
    int32_t GetIndex() const { return m_nIndex; }
    // What was read from the fields last, even if it was refused.
    const QMTransaction& GetCurrent() const { return m_current; }

    // The fields with which the dialog starts. To add: empty fields with the type Check; the dialog
    // must not show their dates. To edit: the first entry.
    QMEntryFields Begin();

    // The user pressed a type. Sets the number, the description and the boxes for it.
    //
    // Kept: what the user typed as number and description is replaced by the values of the working
    // copy. A type whose description cannot be changed shows its own name there.
    void ApplyType(QMEntryFields& fields);

    // The user pressed a check box. The one that is newly on turns others off: at most one of tax,
    // expense and voided is on, and voided and cleared are never on together. The cleared date can
    // be changed while cleared is on.
    void ApplyBoxes(QMEntryBoxes& boxes);

    // The user changed the date. Returns the new cleared date. To add, it is the same date; to
    // edit, it changes only where it would be before the date.
    QMDate ClearedDateFor(const QMDate& dtDate, const QMDate& dtCleared) const;
    // The user changed the cleared date. Returns the new date.
    static QMDate DateFor(const QMDate& dtDate, const QMDate& dtCleared);

    // Reads the fields into the working copy and, when that is valid, copies it into the array.
    // Returns null, or the sentence that says what is wrong.
    const char* Accept(const QMEntryFields& fields);

    // The QM_FAULT_ bits of the entry that Accept read last.
    uint32_t GetFaults() const { return m_uFaults; }

    // Calls the caller's function with the entry on show, if there is a function. Returns false
    // when it refused.
    bool Commit();

    // To add, after Commit: the fields for the next entry, which is a check. The caller's function
    // may have changed the entry, for instance its number.
    QMEntryFields BeginNext();

    // To edit: whether there is an entry in that direction, and the fields of that entry. Call
    // Accept before Move.
    bool CanMove(QMEntryMove move) const;
    QMEntryFields Move(QMEntryMove move);

private:
    int32_t IndexAfter(QMEntryMove move) const;
    // The fields of the working copy, but as if it had that type.
    QMEntryFields ShowCurrent(int32_t lType);
    void TakeEntry();
    void Read(const QMEntryFields& fields);
    VString CurrentDescription() const;

    QMTransactionDialogArgs& m_args;
    QMTransaction m_current;
    uint32_t m_uFaults = 0;
    int32_t m_nIndex = 0;
    // The boxes as last shown. The one that differs now is the one that the user has pressed.
    QMEntryBoxes m_states;
};
