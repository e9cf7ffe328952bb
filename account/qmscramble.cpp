#include "account/qmscramble.h"

#include <cstdint>
#include <cstring>

namespace {

constexpr unsigned char cBlank = 0x20;

// Complements each of the four bytes of a word, except blanks.
uint32_t ComplementWord(uint32_t uWord)
{
    constexpr uint32_t uLowBits = 0x7F7F7F7F;
    const uint32_t uOdd = uWord ^ 0x20202020; // a blank gives a zero byte
    const uint32_t uOthers = ((((uOdd & uLowBits) + uLowBits) | uOdd) & ~uLowBits) >> 7;
    return uWord ^ (uOthers * 0xFF);
}

// Complementing and reversing can be done in either order with the same result, so one function
// serves both ways.
void Convert(void* pRegion, size_t uSize)
{
    auto* p = static_cast<unsigned char*>(pRegion);
    if (p == nullptr) {
        return;
    }
    for (; uSize >= 4; uSize -= 4, p += 4) {
        uint32_t uWord;
        memcpy(&uWord, p, sizeof uWord);
        uWord = __builtin_bswap32(ComplementWord(uWord));
        memcpy(p, &uWord, sizeof uWord);
    }
    for (; uSize > 0; --uSize, ++p) {
        *p = *p == cBlank ? cBlank : static_cast<unsigned char>(~*p);
    }
}

} // namespace

void QMScramble(void* pRegion, size_t uSize)
{
    Convert(pRegion, uSize);
}

void QMUnscramble(void* pRegion, size_t uSize)
{
    Convert(pRegion, uSize);
}
