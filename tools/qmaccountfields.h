// The account's particulars that the user edits: which field of the header stands in which control,
// and what a control's text does to it.
#pragma once

#include <cstddef>
#include <span>

#include "account/qmaccountdata.h"
#include "base/vstring.h"

// One page of the account's information each.
enum class QMAccountPart
{
    Account,
    Bank,
    Holder
};

// A text of the header and the edit field that shows it. The field takes uSize - 1 characters.
struct QMAccountField
{
    int nControl;
    size_t uOffset;
    size_t uSize;
};

std::span<const QMAccountField> QMAccountFields(QMAccountPart part);

VString QMGetAccountText(const QMAccountHeader& header, const QMAccountField& field);
// Takes a text over, bounded by its field. An empty one leaves the field as it was.
void QMTakeAccountText(QMAccountHeader& header, const QMAccountField& field, const char* szText);

// In dollars, with two decimals, in ten places at least.
VString QMMinimumBalanceText(float fBalance);
// A text that is no number leaves the balance as it was; an empty one makes it 0.
void QMTakeMinimumBalance(float& fBalance, const char* szText);

// Copies what the pages edit, and nothing else, from one header into another.
void QMCopyParticulars(const QMAccountHeader& from, QMAccountHeader& into);
