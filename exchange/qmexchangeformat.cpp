#include "exchange/qmexchangeformat.h"

#include <cmath>
#include <cstring>

#include "account/qmmoney.h"
#include "base/vtext.h"

namespace {

int32_t SettledType(const QMTransaction& transaction)
{
    if (transaction.fAmount > 0) {
        return transaction.IsCreditType() ? transaction.lType : QM_TRANS_DEPOSIT;
    }
    if (transaction.lType == QM_TRANS_CHECK && transaction.lNumber == 0) {
        return QM_TRANS_WITHDRAWAL;
    }
    const bool bStays = transaction.IsDebitType() || transaction.lType == QM_TRANS_INTEREST_PAID;
    return bStays ? transaction.lType : QM_TRANS_WITHDRAWAL;
}

} // namespace

void QMSettleRecord(QMTransaction& transaction)
{
    transaction.lType = SettledType(transaction);
    if (QMDateIsAfter(transaction.dtDate, transaction.dtCleared)) {
        transaction.dtCleared = transaction.dtDate;
    }
    transaction.fAmount = std::fabs(transaction.fAmount);
}

QMSignedAmount::QMSignedAmount(const QMTransaction& transaction)
{
    char* pDigits = szText;
    if (transaction.IsDebitType()) {
        *pDigits++ = '-';
    }
    const size_t uDigits =
        QMFormatMoney(transaction.GetRoundedAmount(), 0, pDigits, sizeof szText - 1);
    uLength = static_cast<size_t>(pDigits - szText) + uDigits;
}

bool QMExchangeFormat::Import(const char* szPath, QMTransactionStore& store)
{
    return ImportFrom(szPath, store);
}

bool QMExchangeFormat::Import(QMByteSource& source, QMTransactionStore& store)
{
    return ImportFrom(source, store);
}

bool QMExchangeFormat::Import(QMByteSource& source, QMRecordTaker& taker)
{
    m_records.Begin(&taker);
    ResetPending();
    return Read(source, true, 0) && m_records.IsComplete();
}

template <class T>
bool QMExchangeFormat::ImportFrom(T&& source, QMTransactionStore& store)
{
    m_records.Begin();
    ResetPending();
    if (!Read(source, true, 0)) {
        storeTemp.Clear();
        return false;
    }
    return m_records.HandOver(store);
}

bool QMExchangeFormat::Export(const char* /*szPath*/, QMTransactionStore& /*store*/)
{
    return true;
}

void QMExchangeFormat::Commit()
{
    QMSettleRecord(txPending);
    m_records.Add(txPending);
    ResetPending();
}

void QMExchangeFormat::ResetPending()
{
    txPending.SetDefaults();
    // A number makes the record a check. So there is none until the file gives one.
    //
    // Kept: the date cleared stays 1 January 2000 until the file gives one. So a record of before
    // 2000 comes in as cleared on that day.
    txPending.lNumber = 0;
}

void QMExchangeFormat::ParsePayee(const char* szPayee)
{
    const int32_t lType = LookupTypeName(szPayee);
    if (lType < 0) {
        if (*szPayee != '\0') {
            VCopyText(txPending.szDescription, szPayee);
        }
        return;
    }
    txPending.lType = lType;
    char szShown[QM_FIELD_TEXT_SIZE];
    const int32_t lShown = txPending.FormatField(QM_FIELD_DESCRIPTION, szShown, true, 0);
    const auto uShown = static_cast<size_t>(lShown);
    // Kept: " - " between the name of the type and the description stays in the description. So the
    // description gets one more " - " each time a record is written and read.
    if (lType != QM_TRANS_CHECK && strlen(szPayee) > uShown) {
        VCopyText(txPending.szDescription, szPayee + uShown);
    }
}
