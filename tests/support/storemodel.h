// StoreModel: the order of a store stated a second time, as simply as possible: a vector, and one
// insertion after another.
#pragma once

#include <cstdint>
#include <random>
#include <vector>

#include "account/qmtransactionstore.h"

// The values that decide the order, and a number that identifies the entry.
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
    // Takes over the mode of the other, adds its entries one by one, and then moves to the entry of
    // its cursor.
    void AssignFrom(const StoreModel& other);
    // Sets the mode, copies all entries into a temporary model of that mode, and copies them back.
    int32_t Resort(int32_t lMode);
    // Replaces an entry in its place. The order may be wrong afterwards.
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

// uCount entries with the ids 1, 2, 3 and so on, on at most uDays different days.
std::vector<ModelEntry> RandomEntries(std::mt19937& random, uint32_t uCount, uint32_t uDays);

// The same for a store, with the id as the check number.
QMTransaction TransactionOf(const ModelEntry& entry);
std::vector<uint32_t> IdsOf(const QMTransactionStore& store);
// The id at the cursor; 0 without a cursor.
uint32_t CurrentId(const QMTransactionStore& store);
