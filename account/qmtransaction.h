// QMTransaction: one line of a check register.
#pragma once

#include <cstddef>
#include <cstdint>

#include "account/qmdate.h"
#include "account/qmnametables.h"
#include "account/qmnodelist.h"

// Tag flags. QM_TRANS_FLAG_NOT_CLEARED has the reverse sense of the others: when it is set, the
// bank has not cleared the transaction yet.
inline constexpr uint32_t QM_TRANS_FLAG_VOIDED = 1;
inline constexpr uint32_t QM_TRANS_FLAG_EXPENSE = 2;
inline constexpr uint32_t QM_TRANS_FLAG_TAX = 4;
inline constexpr uint32_t QM_TRANS_FLAG_NOT_CLEARED = 16;
// The import review marks a transaction with it. It never gets into an account.
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

// The size of a buffer that can hold the text of any field, terminating zero included.
inline constexpr size_t QM_FIELD_TEXT_SIZE = 256;

// The bits that Validate returns. The texts have bits too, but no tests: an array of fixed size
// cannot hold a wrong text.
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

// The fields of a transaction, laid out as in the account file: the part up to dtCleared is written
// as it is in memory. Each text ends with a zero byte within its array.
struct QMTransactionFields
{
    int32_t lType = QM_TRANS_CHECK;
    QMDate dtDate = QMMakeDate(2000, 1, 1);
    uint32_t lNumber = 1000; // check number; every type has one, only a check shows it
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
    // Sets the values of a new transaction: a check of 1 January 2000 with the number 1000 and the
    // amount 0, not cleared, without texts.
    void SetDefaults();

    // Copies all fields. The place in a list stays.
    void CopyFrom(const QMTransactionFields& other);

    bool IsTypeValid() const { return QMTypeLabel(lType) != nullptr; }
    bool IsDebitType() const { return QMTypeSide(lType) == QMSide::Debit; }
    bool IsCreditType() const { return QMTypeSide(lType) == QMSide::Credit; }
    bool HasFlag(uint32_t uFlag) const { return (lFlags & uFlag) != 0; }

    // The amount in dollars, rounded to cents by QMRoundToCents. All sums and comparisons of money
    // use it.
    double GetRoundedAmount() const;

    // Adds this transaction to two running sums. A debit type is subtracted and a credit type is
    // added. A voided transaction changes neither sum. One that is not cleared changes dAvailable
    // only. Returns the new dBalance.
    double ApplyToBalances(double& dBalance, double& dAvailable) const;

    // Writes the text of a field (a QMFieldKind) as the register shows it into szBuffer, which must
    // have QM_FIELD_TEXT_SIZE bytes. bAppendVoided adds " (voided)" to the description of a voided
    // transaction. dBalance is what the balance field shows. Returns szBuffer; null, with an empty
    // text in szBuffer, for an unknown type or kind.
    char* GetFieldText(uint32_t uKind, char* szBuffer, bool bAppendVoided, double dBalance) const;

    // The same, but returns the length of the text, or -1.
    int32_t FormatField(uint32_t uKind, char* szBuffer, bool bAppendVoided, double dBalance) const;

    // Sets the tag 1, 2, 4 or 16. At most one of voided, expense and tax is set: setting one clears
    // the others. A voided transaction is always not cleared.
    void SetTag(uint32_t uTag);

    // The QM_FAULT_ bits of everything that is wrong with this transaction; 0 when nothing is.
    uint32_t Validate() const;

    // Read a field from a text. An empty or null text leaves the field as it is. Dates are read by
    // QMParseDate. An amount may have commas, which are ignored; a text without a number reads as
    // 0.
    void ParseDate(const char* szText);
    void ParseClearedDate(const char* szText);
    void ParseNumber(const char* szText);
    void ParseAmount(const char* szText);

private:
    size_t FormatDescription(char* szBuffer, bool bAppendVoided) const;
    size_t FormatTag(char* szBuffer) const;
};
