// QMTransaction: one line of a check register.
#pragma once

#include <cstddef>
#include <cstdint>

#include "account/qmdate.h"
#include "account/qmnametables.h"
#include "account/qmnodelist.h"

// Tag flags. Note the sense of the last: set means that the bank has not cleared it yet.
inline constexpr uint32_t QM_TRANS_FLAG_VOIDED = 1;
inline constexpr uint32_t QM_TRANS_FLAG_EXPENSE = 2;
inline constexpr uint32_t QM_TRANS_FLAG_TAX = 4;
inline constexpr uint32_t QM_TRANS_FLAG_NOT_CLEARED = 16;
// A mark of the import review; it never enters an account.
inline constexpr uint32_t QM_TRANS_FLAG_IMPORT = 0x10000000;

enum QMFieldKind : uint32_t
{
    QM_FIELD_DATE = 0,
    QM_FIELD_NUMBER = 1,
    QM_FIELD_PAYEE = 2,
    QM_FIELD_DESCRIPTION = 3,
    QM_FIELD_AMOUNT = 4,
    QM_FIELD_BALANCE = 5,
    QM_FIELD_MEMO = 6,
    QM_FIELD_CATEGORY = 7,
    QM_FIELD_TAG = 8,
    QM_FIELD_DATE_CLEARED = 9,
    QM_FIELD_COUNT = 10,
};

// Bytes that hold the text of any field, terminator included.
inline constexpr size_t QM_FIELD_TEXT_SIZE = 256;

// What Validate finds, as bits. The texts have places in the mask and no tests: a fixed array
// cannot hold a wrong one.
inline constexpr uint32_t QM_FAULT_TYPE = 1;
inline constexpr uint32_t QM_FAULT_DAY = 2;
inline constexpr uint32_t QM_FAULT_MONTH = 4;
inline constexpr uint32_t QM_FAULT_YEAR = 8;
inline constexpr uint32_t QM_FAULT_NUMBER = 16;
inline constexpr uint32_t QM_FAULT_DESCRIPTION = 32;
inline constexpr uint32_t QM_FAULT_AMOUNT = 64;
inline constexpr uint32_t QM_FAULT_MEMO = 128;
inline constexpr uint32_t QM_FAULT_FLAGS = 256;
inline constexpr uint32_t QM_FAULT_CATEGORY = 512;

// The largest check number and amount that Validate accepts.
inline constexpr uint32_t QM_MAX_CHECK_NUMBER = 9999999;
inline constexpr float QM_MAX_AMOUNT = 1e10F;

// What a transaction holds, laid out as in the account file: the numbers and dates up to dtCleared
// are filed as they stand. Texts end with a zero within their array.
struct QMTransactionFields
{
    int32_t lType = QM_TRANS_CHECK;
    QMDate dtDate = QMMakeDate(2000, 1, 1);
    uint32_t lNumber = 1000; // check number; kept for every type
    float fAmount = 0;       // dollars, never negative: the type gives the sign
    uint32_t lFlags = QM_TRANS_FLAG_NOT_CLEARED;
    QMDate dtCleared = QMMakeDate(2000, 1, 1);
    char szDescription[256] = {};
    char szMemo[256] = {};
    char szCategory[128] = {};
};
inline constexpr size_t QM_TRANS_BLOCK_SIZE = 48;
static_assert(offsetof(QMTransactionFields, szDescription) == QM_TRANS_BLOCK_SIZE);
static_assert(sizeof(QMTransactionFields) == 688);

class QMTransaction : public QMListNode, public QMTransactionFields
{
public:
    // Back to the state of a new transaction: a check of 1 January 2000, number 1000, amount 0, not
    // cleared, no texts.
    void SetDefaults();

    // Takes over everything but the place in a list.
    void CopyFrom(const QMTransactionFields& other);

    bool IsTypeValid() const { return QMTypeLabel(lType) != nullptr; }
    bool IsDebitType() const { return QMTypeSide(lType) == QMSide::Debit; }
    bool IsCreditType() const { return QMTypeSide(lType) == QMSide::Credit; }
    bool HasFlag(uint32_t uFlag) const { return (lFlags & uFlag) != 0; }

    // Dollars rounded to cents as printing does it. All sums and comparisons of money use this.
    double GetRoundedAmount() const;

    // Adds this transaction into two running sums: a debit type is taken off, a credit type added.
    // A voided one counts in neither, one not cleared in dAvailable only. Returns the new dBalance.
    double ApplyToBalances(double& dBalance, double& dAvailable) const;

    // The text of a field (QMFieldKind) as the register shows it, in a buffer of at least
    // QM_FIELD_TEXT_SIZE bytes. bAppendVoided adds "   (voided)" to a voided description; dBalance
    // is what the balance field shows. Returns the buffer; null, with an empty text, when the type
    // or the kind is unknown.
    char* GetFieldText(uint32_t uKind, char* szBuffer, bool bAppendVoided, double dBalance) const;

    // The same, returning the length of the text, or -1.
    int32_t FormatField(uint32_t uKind, char* szBuffer, bool bAppendVoided, double dBalance) const;

    // Sets the tag 1, 2, 4 or 16. Voided, expense and tax shut one another out, and a voided
    // transaction is always not cleared.
    void SetTag(uint32_t uTag);

    // The QM_FAULT_ bits of what keeps this from being a proper entry; 0 for none.
    uint32_t Validate() const;

    // Fill a field from text; an empty or null text leaves it as it is. Dates follow QMParseDate.
    // Commas in an amount are passed over, and a text that holds no number reads as 0.
    void ParseDate(const char* szText);
    void ParseClearedDate(const char* szText);
    void ParseNumber(const char* szText);
    void ParseAmount(const char* szText);

private:
    size_t FormatDescription(char* szBuffer, bool bAppendVoided) const;
    size_t FormatTag(char* szBuffer) const;
};
