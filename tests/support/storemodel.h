// StoreModel: the order of a store stated a second time, as plainly as can be: a vector, and one
// insertion after another.
#pragma once

#include <cstdint>
#include <random>
#include <vector>

#include "account/qmtransactionstore.h"

// What the order depends on, and a number by which the entry is known.
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
    // Takes the other's mode, adds its entries one by one, and then finds the entry of its cursor.
    void AssignFrom(const StoreModel& other);
    // Sets the mode, copies everything into a temporary model in that mode, and copies it back.
    int32_t Resort(int32_t lMode);
    // Replaces an entry where it is; the order may be wrong afterwards.
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

// The same for a store: the id is in the check number.
QMTransaction TransactionOf(const ModelEntry& entry);
std::vector<uint32_t> IdsOf(const QMTransactionStore& store);
// The id at the cursor, and 0 without one.
uint32_t CurrentId(const QMTransactionStore& store);
