// The rules of the account's particulars: which field of the header is in which control, and what
// the text of a control does to it.
#pragma once

#include <cstddef>
#include <span>

#include "account/qmaccountdata.h"
#include "base/vstring.h"

// Each part has a page of its own.
enum class QMAccountPart
{
    Account,
    Bank,
    Holder
};

// A text of the header and the edit field that shows it. The edit field takes uSize - 1 characters.
struct QMAccountField
{
    int nControl;
    size_t uOffset;
    size_t uSize;
};

std::span<const QMAccountField> QMAccountFields(QMAccountPart part);

VString QMGetAccountText(const QMAccountHeader& header, const QMAccountField& field);
// Copies a text into its field of the header, cut to the size of the field. An empty text leaves
// the field as it is.
void QMTakeAccountText(QMAccountHeader& header, const QMAccountField& field, const char* szText);

// The balance in dollars with two decimals, at least ten characters wide.
VString QMMinimumBalanceText(float fBalance);
// Reads the balance from a text. A text that is no number leaves it as it is; an empty text makes
// it 0.
void QMTakeMinimumBalance(float& fBalance, const char* szText);

// Copies the fields that the pages edit, and no others, from one header into another.
void QMCopyParticulars(const QMAccountHeader& from, QMAccountHeader& into);
