#include "account/qmnametables.h"

#include <span>

#include "base/vtext.h"

namespace {

struct TypeEntry
{
    const char* szLabel;
    QMSide side;
};

// The types, indexed by QMTransactionType.
constexpr TypeEntry aTypes[QM_TRANS_TYPE_COUNT] = {
    {"Check", QMSide::Debit},
    {"Deposit", QMSide::Credit},
    {"Withdrawal", QMSide::Debit},
    {"Fee", QMSide::Debit},
    {"Direct Deposit", QMSide::Credit},
    {"Direct Debit", QMSide::Debit},
    {"ATM Deposit", QMSide::Credit},
    {"ATM Withdrawal", QMSide::Debit},
    {"Automatic Payment", QMSide::Debit},
    {"Transfer - Credit", QMSide::Credit},
    {"Transfer - Debit", QMSide::Debit},
    {"Interest Paid", QMSide::Credit},
};

struct NameEntry
{
    constexpr NameEntry(const char* sz, int32_t l) : szName(sz), lValue(l), cFirst(VToLower(*sz)) {}

    const char* szName;
    int32_t lValue;
    char cFirst; // most names are told apart by it
};

constexpr NameEntry aTypeNames[] = {
    {"Check", QM_TRANS_CHECK},
    {"Deposit", QM_TRANS_DEPOSIT},
    {"Withdrawal", QM_TRANS_WITHDRAWAL},
    {"Fee", QM_TRANS_FEE},
    {"Direct Deposit", QM_TRANS_DIRECT_DEPOSIT},
    {"direct-deposit", QM_TRANS_DIRECT_DEPOSIT},
    {"Direct Debit", QM_TRANS_DIRECT_DEBIT},
    {"direct-debit", QM_TRANS_DIRECT_DEBIT},
    {"ATM Deposit", QM_TRANS_ATM_DEPOSIT},
    {"atm-deposit", QM_TRANS_ATM_DEPOSIT},
    {"ATM Withdrawal", QM_TRANS_ATM_WITHDRAWAL},
    {"atm-withdrawal", QM_TRANS_ATM_WITHDRAWAL},
    {"Automatic Payment", QM_TRANS_AUTOMATIC_PAYMENT},
    {"auto-payment", QM_TRANS_AUTOMATIC_PAYMENT},
    {"Transfer - Credit", QM_TRANS_TRANSFER_CREDIT},
    {"transfer-credit", QM_TRANS_TRANSFER_CREDIT},
    {"Transfer - Debit", QM_TRANS_TRANSFER_DEBIT},
    {"transfer-debit", QM_TRANS_TRANSFER_DEBIT},
    {"Interest Paid", QM_TRANS_INTEREST_PAID},
    {"interest", QM_TRANS_INTEREST_PAID},
};

// Kept: "Date" comes first and so also matches "Date Cleared", whose role is therefore never
// returned. Files written for this program rely on that. Do not reorder the table.
constexpr NameEntry aFieldNames[] = {
    {"Date", QM_ROLE_DATE},
    {"Number", QM_ROLE_NUMBER},
    {"Num", QM_ROLE_NUMBER},
    {"Check", QM_ROLE_NUMBER},
    {"Check Number", QM_ROLE_NUMBER},
    {"Description", QM_ROLE_DESCRIPTION},
    {"Payee", QM_ROLE_DESCRIPTION},
    {"Amount", QM_ROLE_AMOUNT},
    {"Debit", QM_ROLE_DEBIT},
    {"Withdrawal", QM_ROLE_DEBIT},
    {"Withdraw", QM_ROLE_DEBIT},
    {"Credit", QM_ROLE_CREDIT},
    {"Deposit", QM_ROLE_CREDIT},
    {"Memo", QM_ROLE_MEMO},
    {"Category", QM_ROLE_CATEGORY},
    {"Tag", QM_ROLE_TAG},
    {"Voided", QM_ROLE_VOIDED},
    {"Cancel", QM_ROLE_VOIDED},
    {"Tax", QM_ROLE_TAX},
    {"Tax Deductible", QM_ROLE_TAX},
    {"Expense", QM_ROLE_EXPENSE},
    {"Cleared", QM_ROLE_CLEARED},
    {"Date Cleared", QM_ROLE_DATE_CLEARED},
};

int32_t Lookup(std::span<const NameEntry> table, const char* szText)
{
    if (szText == nullptr) {
        return -1;
    }
    const char cFirst = VToLower(*szText);
    for (const NameEntry& entry : table) {
        if (entry.cFirst == cFirst && VBeginsWithNoCase(szText, entry.szName)) {
            return entry.lValue;
        }
    }
    return -1;
}

bool IsKnown(int32_t lType)
{
    return lType >= 0 && lType < QM_TRANS_TYPE_COUNT;
}

} // namespace

const char* QMTypeLabel(int32_t lType)
{
    return IsKnown(lType) ? aTypes[lType].szLabel : nullptr;
}

QMSide QMTypeSide(int32_t lType)
{
    return IsKnown(lType) ? aTypes[lType].side : QMSide::None;
}

int32_t LookupTypeName(const char* szText)
{
    return Lookup(aTypeNames, szText);
}

int32_t LookupFieldName(const char* szText)
{
    return Lookup(aFieldNames, szText);
}
