#include "tests/support/randomaccount.h"

#include <limits>

#include "base/vtext.h"
#include "tests/support/support.h"

namespace {

float RandomAmount(Random& random, bool bDamaged)
{
    if (bDamaged && random.OneIn(4)) {
        constexpr float afOdd[] = {-12.5F,
                                   3.4e38F,
                                   1e-30F,
                                   -0.0F,
                                   std::numeric_limits<float>::infinity(),
                                   std::numeric_limits<float>::quiet_NaN()};
        return random.Of(afOdd);
    }
    constexpr float afScale[] = {0.01F, 1.0F, 100.0F, 12345.67F};
    return static_cast<float>(random.Below(100000)) * random.Of(afScale);
}

template <size_t u>
void RandomText(Random& random, char (&szInto)[u], bool bDamaged)
{
    constexpr const char* apTexts[] = {"",  "Rent",  "rent", "RENT",        "Food & more", "Car",
                                       "a", "Books", "All",  "Water,\tgas", "Bücher",      "car"};
    VCopyText(szInto, random.Of(apTexts));
    if (bDamaged && random.OneIn(3)) {
        for (size_t i = 0; i + 1 < u; ++i) {
            szInto[i] = static_cast<char>(1 + random.Below(255));
        }
        szInto[u - 1] = '\0';
    }
}

} // namespace

QMDate RandomDate(Random& random, bool bDamaged)
{
    if (bDamaged && random.OneIn(4)) {
        return QMMakeDate(static_cast<uint16_t>(random.Below(65536)),
                          static_cast<uint16_t>(random.Below(20)),
                          static_cast<uint16_t>(random.Below(70)));
    }
    return QMMakeDate(static_cast<uint16_t>(2003 + random.Below(3)),
                      static_cast<uint16_t>(1 + random.Below(12)),
                      static_cast<uint16_t>(1 + random.Below(28)));
}

void FillAtRandom(QMAccountData& account, Random& random, uint32_t uCount, bool bDamaged)
{
    constexpr uint32_t auFlags[] = {0, 0, 0, 16, 17, 2, 4, 18, 20, 1, 3, 5};
    VCopyText(account.header.szBankName, "First Bank");
    for (uint32_t i = 0; i < uCount; ++i) {
        QMTransaction t;
        t.lType = static_cast<int32_t>(random.Below(12));
        if (bDamaged && random.OneIn(6)) {
            t.lType = static_cast<int32_t>(random.Below(40)) - 20;
        }
        t.dtDate = RandomDate(random, bDamaged);
        t.dtCleared = random.OneIn(2) ? t.dtDate : RandomDate(random, bDamaged);
        t.lNumber = bDamaged && random.OneIn(5) ? 0xFFFFFFFF - random.Below(9) : random.Below(9999);
        t.fAmount = RandomAmount(random, bDamaged);
        t.lFlags = bDamaged && random.OneIn(5) ? random.Below(0xFFFFFFFF) : random.Of(auFlags);
        RandomText(random, t.szDescription, bDamaged);
        RandomText(random, t.szMemo, bDamaged);
        RandomText(random, t.szCategory, bDamaged);
        AddTo(account.store, t);
    }
}
