// Accounts with random transactions, sound ones and damaged ones, the same for the same seed.
#pragma once

#include <cstddef>
#include <cstdint>
#include <random>

#include "account/qmaccountdata.h"

class Random
{
public:
    explicit Random(uint32_t uSeed) : m_random(uSeed) {}

    uint32_t Below(uint32_t uLimit) { return static_cast<uint32_t>(m_random() % uLimit); }
    bool OneIn(uint32_t u) { return Below(u) == 0; }

    template <class T, size_t u>
    T Of(const T (&a)[u])
    {
        return a[Below(u)];
    }

private:
    std::mt19937 m_random;
};

// A day from 2003 to 2005; a damaged one may be no day at all.
QMDate RandomDate(Random& random, bool bDamaged);

// Adds transactions, and gives the account a bank. Damaged ones may have unknown types, impossible
// dates, amounts that are no numbers, unknown flags, and texts of full length with every byte
// value.
void FillAtRandom(QMAccountData& account, Random& random, uint32_t uCount, bool bDamaged);
