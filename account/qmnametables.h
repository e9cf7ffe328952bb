// The names of transaction types and of columns in files: a table of the twelve types, and two
// tables by which texts in exchange files are recognised.
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

// The label of a type, such as "Direct Deposit"; null for an unknown type.
const char* QMTypeLabel(int32_t lType);

// The side of the register on which a type stands; None for an unknown type.
QMSide QMTypeSide(int32_t lType);

// What a column heading, or an XML element, of an exchange file stands for.
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

// Find the first entry of the table with which the text begins, ignoring case. Return its
// QMTransactionType or its QMFieldRole; -1 when there is none, and for a null text.
int32_t LookupTypeName(const char* szText);
int32_t LookupFieldName(const char* szText);
