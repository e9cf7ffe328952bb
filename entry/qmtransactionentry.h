// QMTransactionEntry: the rules of the transaction dialog, without its window.
#pragma once

#include <cstdint>

#include "account/qmtransaction.h"
#include "base/vstring.h"
#include "entry/qmtransactiondialogargs.h"

// The four check boxes, on or off.
struct QMEntryBoxes
{
    bool bTax = false;
    bool bExpense = false;
    bool bVoided = false;
    bool bCleared = false;

    bool operator==(const QMEntryBoxes&) const = default;
};

// What the dialog's fields hold, in the form in which they hold it. As made: all of them cleared.
struct QMEntryFields
{
    int32_t lType = -1; // of the radio button that is on; -1 for none
    VString sNumber;
    VString sDescription;
    QMDate dtDate;
    QMDate dtCleared;
    VString sAmount = "0.00";
    VString sMemo;
    VString sCategory;
    QMEntryBoxes boxes;
};

// Which fields the type on show leaves to the user.
struct QMEntrySwitches
{
    bool bNumber = false;
    bool bDescription = false;
    bool bTag = false; // the boxes for tax and expense
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

// The sentence for the gravest of Validate's faults; null for a mask without one that has any.
const char* QMFaultSentence(uint32_t uFaults);

// The number in front of the first character that is no digit, behind leading white space; 0 for
// none, and for one that 32 bits cannot hold.
uint32_t QMReadCheckNumber(const char* szText);

// The dialog moves values between its controls and one of these. Of the caller's array, the entry
// on show has a working copy; only what passed validation goes back into the array.
class QMTransactionEntry
{
public:
    // The block must outlive this object and hold at least one entry. The first comes on show.
    explicit QMTransactionEntry(QMTransactionDialogArgs& args);

    bool IsAddMode() const { return m_args.bAddMode; }
    int32_t GetIndex() const { return m_nIndex; }
    // Holds what was read last, even if it was refused.
    const QMTransaction& GetCurrent() const { return m_current; }

    // What the dialog shows at its start: an entry to add comes with cleared fields as a check, and
    // its dates are not to be shown; an entry to edit comes whole.
    QMEntryFields Begin();

    // The type that is on was pressed: brings number, description and boxes in line. The number and
    // an open description show those of the working copy, whatever was typed; a description that is
    // not open shows the type's name.
    void ApplyType(QMEntryFields& fields);

    // A box was pressed. The one that came on turns off what it shuts out: tax, expense and voided
    // each other, voided and cleared each other. The cleared date is open while cleared is on.
    void ApplyBoxes(QMEntryBoxes& boxes);

    // The date was changed: what the cleared date becomes. To add, it follows the date; to edit, it
    // only never stands before it.
    QMDate ClearedDateFor(const QMDate& dtDate, const QMDate& dtCleared) const;
    // The cleared date was changed: what the date becomes.
    static QMDate DateFor(const QMDate& dtDate, const QMDate& dtCleared);

    // Reads the fields into the working copy and, if that is a proper entry, the copy into the
    // array. Null, or the sentence that says what is wrong.
    const char* Accept(const QMEntryFields& fields);

    // Hands the entry on show to the caller's function, if there is one; false when it refused.
    bool Commit();

    // After Commit, to add: the entry, which the caller may have changed, as a check.
    QMEntryFields BeginNext();

    // To edit: whether there is somewhere to go, and the entry there. Accept comes before.
    bool CanMove(QMEntryMove move) const;
    QMEntryFields Move(QMEntryMove move);

private:
    int32_t IndexAfter(QMEntryMove move) const;
    // As of that type, whatever the working copy's is.
    QMEntryFields ShowCurrent(int32_t lType);
    void TakeEntry();
    void Read(const QMEntryFields& fields);
    VString CurrentDescription() const;

    QMTransactionDialogArgs& m_args;
    QMTransaction m_current;
    int32_t m_nIndex = 0;
    // As last shown: the box that differs is the one that the user has just pressed.
    QMEntryBoxes m_states;
};
