// A plain statement of the store's rule of order: a vector, and one insertion after the other.
#pragma once

#include <cstdint>
#include <random>
#include <vector>

#include "account/qmtransactionstore.h"

// A transaction stripped to what the order depends on, and a number to know it by.
struct ModelEntry
{
    uint32_t uId = 0;
    QMDate date;
    QMDate cleared;
};

class StoreModel
{
public:
    explicit StoreModel(int32_t lMode) : m_lMode(lMode) {}

    int32_t Add(const ModelEntry& entry);
    // Takes over the other's mode and adds its entries one by one, then finds its cursor's entry.
    void AssignFrom(const StoreModel& other);
    // By its definition: sets the mode, copies everything into a temporary model and back.
    int32_t Resort(int32_t lMode);
    // In place, so that the order may be wrong then.
    void Replace(int32_t lPosition, const ModelEntry& entry);
    void MoveTo(int32_t lPosition) { m_lCursor = lPosition; }

    int32_t GetCursor() const { return m_lCursor; }
    const std::vector<ModelEntry>& GetEntries() const { return m_entries; }
    std::vector<uint32_t> GetIds() const;

private:
    const QMDate& KeyOf(const ModelEntry& entry) const;
    bool IsDescending() const { return m_lMode == 1 || m_lMode == 3; }
    int32_t PlaceOf(const ModelEntry& entry) const;

    int32_t m_lMode;
    int32_t m_lCursor = 0;
    std::vector<ModelEntry> m_entries;
};

// uCount entries with ids from 1 on, on uDays different days at most.
std::vector<ModelEntry> RandomEntries(std::mt19937& random, uint32_t uCount, uint32_t uDays);

// The store's side of the same: the id goes into the check number.
QMTransaction TransactionOf(const ModelEntry& entry);
std::vector<uint32_t> IdsOf(const QMTransactionStore& store);
// The id at the cursor, and 0 without one.
uint32_t CurrentId(const QMTransactionStore& store);
