// The names that transactions, files and columns go by: one table of the twelve types, and the two
// tables by which texts from outside are told apart.
#pragma once

#include <cstdint>

enum QMTransactionType : int32_t
{
    QM_TRANS_CHECK = 0,
    QM_TRANS_DEPOSIT = 1,
    QM_TRANS_WITHDRAWAL = 2,
    QM_TRANS_FEE = 3,
    QM_TRANS_DIRECT_DEPOSIT = 4,
    QM_TRANS_DIRECT_DEBIT = 5,
    QM_TRANS_ATM_DEPOSIT = 6,
    QM_TRANS_ATM_WITHDRAWAL = 7,
    QM_TRANS_AUTOMATIC_PAYMENT = 8,
    QM_TRANS_TRANSFER_CREDIT = 9,
    QM_TRANS_TRANSFER_DEBIT = 10,
    QM_TRANS_INTEREST_PAID = 11,
    QM_TRANS_TYPE_COUNT = 12,
};

enum class QMSide
{
    None,
    Debit,
    Credit
};

// A type's label, such as "Direct Deposit"; null for a value outside the table.
const char* QMTypeLabel(int32_t lType);

// The side of the register on which a type falls; None for a value outside the table.
QMSide QMTypeSide(int32_t lType);

// What a heading of an exchange file stands for.
enum QMFieldRole : int32_t
{
    QM_ROLE_DATE = 0,
    QM_ROLE_NUMBER = 1,
    QM_ROLE_DESCRIPTION = 2,
    QM_ROLE_AMOUNT = 3,
    QM_ROLE_DEBIT = 4,
    QM_ROLE_CREDIT = 5,
    QM_ROLE_MEMO = 6,
    QM_ROLE_CATEGORY = 7,
    QM_ROLE_TAG = 8,
    QM_ROLE_VOIDED = 9,
    QM_ROLE_TAX = 10,
    QM_ROLE_EXPENSE = 11,
    QM_ROLE_CLEARED = 12,
    QM_ROLE_DATE_CLEARED = 13,
};

// The QMTransactionType or QMFieldRole of the first entry with which the text begins, ignoring
// case; -1 for none and for a null text.
int32_t LookupTypeName(const char* szText);
int32_t LookupFieldName(const char* szText);
