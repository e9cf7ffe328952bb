#include "exchange/qmtemporaryrecords.h"

#include <memory>
#include <new>
#include <utility>

void QMTemporaryRecords::Begin(QMRecordTaker* pTaker)
{
    m_pTaker = pTaker;
    m_store.Clear();
    m_filler.emplace(m_store);
    m_bComplete = true;
    m_tally = QMImportTally();
}

void QMTemporaryRecords::Add(const QMTransaction& transaction)
{
    if (m_pTaker != nullptr) {
        m_tally.Count(transaction);
        m_bComplete = m_pTaker->Take(transaction) && m_bComplete;
        return;
    }
    std::unique_ptr<QMTransaction> pCopy(new (std::nothrow) QMTransaction(transaction));
    if (pCopy == nullptr) {
        m_bComplete = false;
        return;
    }
    m_tally.Count(*pCopy);
    if (!m_filler.has_value()) {
        m_filler.emplace(m_store);
    }
    m_filler->Add(std::move(pCopy));
}

bool QMTemporaryRecords::HandOver(QMTransactionStore& into)
{
    const bool bDone = m_bComplete && (!m_filler.has_value() || m_filler->Finish());
    m_filler.reset();
    if (bDone) {
        into.TakeFrom(m_store);
    }
    m_store.Clear();
    return bDone;
}
