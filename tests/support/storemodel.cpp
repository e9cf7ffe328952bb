#include "tests/support/storemodel.h"

namespace {

QMDate RandomDate(std::mt19937& random, uint32_t uDays)
{
    // Dates of neighbouring days lie in different months and years.
    const auto uDay = static_cast<uint16_t>(random() % uDays);
    return QMMakeDate(static_cast<uint16_t>(2000 + uDay / 4),
                      static_cast<uint16_t>(1 + uDay / 2 % 2),
                      static_cast<uint16_t>(30 + uDay % 2));
}

} // namespace

const QMDate& StoreModel::KeyOf(const ModelEntry& entry) const
{
    return m_lMode == 2 || m_lMode == 3 ? entry.cleared : entry.date;
}

int32_t StoreModel::PlaceOf(const ModelEntry& entry) const
{
    const QMDate& key = KeyOf(entry);
    const auto lCount = static_cast<int32_t>(m_entries.size());
    const auto IsNotEarlierThan = [&](int32_t lPosition) {
        return !QMDateIsBefore(key, KeyOf(m_entries[static_cast<size_t>(lPosition)]));
    };
    if (IsDescending()) {
        for (int32_t l = 0; l < lCount; ++l) {
            if (IsNotEarlierThan(l)) {
                return l;
            }
        }
        return lCount;
    }
    for (int32_t l = lCount - 1; l >= 0; --l) {
        if (IsNotEarlierThan(l)) {
            return l + 1;
        }
    }
    return 0;
}

int32_t StoreModel::Add(const ModelEntry& entry)
{
    m_lCursor = PlaceOf(entry);
    m_entries.insert(m_entries.begin() + m_lCursor, entry);
    return m_lCursor;
}

void StoreModel::AssignFrom(const StoreModel& other)
{
    m_lMode = other.m_lMode;
    m_entries.clear();
    m_lCursor = 0;
    for (const ModelEntry& entry : other.m_entries) {
        Add(entry);
    }
    for (size_t u = 0; u < m_entries.size(); ++u) {
        if (m_entries[u].uId == other.m_entries[static_cast<size_t>(other.m_lCursor)].uId) {
            m_lCursor = static_cast<int32_t>(u);
            return;
        }
    }
}

int32_t StoreModel::Resort(int32_t lMode)
{
    m_lMode = lMode;
    StoreModel temporary(lMode);
    temporary.AssignFrom(*this);
    AssignFrom(temporary);
    return m_lCursor;
}

void StoreModel::Replace(int32_t lPosition, const ModelEntry& entry)
{
    m_entries[static_cast<size_t>(lPosition)] = entry;
}

std::vector<uint32_t> StoreModel::GetIds() const
{
    std::vector<uint32_t> ids;
    for (const ModelEntry& entry : m_entries) {
        ids.push_back(entry.uId);
    }
    return ids;
}

std::vector<ModelEntry> RandomEntries(std::mt19937& random, uint32_t uCount, uint32_t uDays)
{
    std::vector<ModelEntry> entries;
    for (uint32_t uId = 1; uId <= uCount; ++uId) {
        entries.push_back({uId, RandomDate(random, uDays), RandomDate(random, uDays)});
    }
    return entries;
}

QMTransaction TransactionOf(const ModelEntry& entry)
{
    QMTransaction transaction;
    transaction.lNumber = entry.uId;
    transaction.dtDate = entry.date;
    transaction.dtCleared = entry.cleared;
    return transaction;
}

std::vector<uint32_t> IdsOf(const QMTransactionStore& store)
{
    std::vector<uint32_t> ids;
    store.ForEach([&](const QMTransaction& transaction) { ids.push_back(transaction.lNumber); });
    return ids;
}

uint32_t CurrentId(const QMTransactionStore& store)
{
    const QMTransaction* pCurrent = store.GetCurrentNode();
    return pCurrent == nullptr ? 0 : pCurrent->lNumber;
}
