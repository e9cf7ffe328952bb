#include "base/vstring.h"

#include <charconv>
#include <cstdlib>
#include <cstring>

#include "base/vtext.h"

namespace {

uint32_t BoundedLength(const char* szText, uint32_t uMaxLength)
{
    return szText == nullptr ? 0 : static_cast<uint32_t>(strnlen(szText, uMaxLength));
}

bool Matches(char a, char b, bool bMatchCase)
{
    return bMatchCase ? a == b : VToLower(a) == VToLower(b);
}

} // namespace

VString::VString(const char* szText, uint32_t uMaxLength)
{
    Append(szText, uMaxLength);
}

VString::VString(const VString& other)
{
    Append(other);
}

VString::VString(VString&& other) noexcept
{
    TakeFrom(other);
}

VString::~VString()
{
    free(m_pBuffer);
}

VString& VString::operator=(const VString& other)
{
    if (this != &other) {
        AssignBytes(other.m_pBuffer, other.m_uLength);
    }
    return *this;
}

VString& VString::operator=(VString&& other) noexcept
{
    if (this != &other) {
        free(m_pBuffer);
        TakeFrom(other);
    }
    return *this;
}

VString& VString::operator=(const char* szText)
{
    Assign(szText);
    return *this;
}

void VString::TakeFrom(VString& other)
{
    m_pBuffer = other.m_pBuffer;
    m_uLength = other.m_uLength;
    m_uCapacity = other.m_uCapacity;
    other.m_pBuffer = nullptr;
    other.m_uLength = 0;
    other.m_uCapacity = 0;
}

bool VString::Assign(const char* szText, uint32_t uMaxLength)
{
    return AssignBytes(szText, BoundedLength(szText, uMaxLength));
}

bool VString::AssignBytes(const char* pSource, uint32_t uCount)
{
    if (uCount == 0) {
        Clear(false, false);
        return true;
    }
    VString sNew;
    sNew.m_uBlockSize = m_uBlockSize;
    if (!sNew.AppendBytes(pSource, uCount)) {
        m_status.Set(uStatusOutOfMemory);
        OnOutOfMemory();
        return false;
    }
    free(m_pBuffer);
    TakeFrom(sNew);
    return true;
}

bool VString::Append(const char* szText, uint32_t uMaxLength)
{
    return AppendBytes(szText, BoundedLength(szText, uMaxLength));
}

bool VString::Append(const VString& other)
{
    return AppendBytes(other.m_pBuffer, other.m_uLength);
}

bool VString::AppendCharacter(char c)
{
    return AppendBytes(&c, 1);
}

bool VString::AppendNumber(uint32_t uNumber)
{
    char szDigits[10];
    const auto result = std::to_chars(szDigits, szDigits + sizeof szDigits, uNumber);
    return AppendBytes(szDigits, static_cast<uint32_t>(result.ptr - szDigits));
}

bool VString::AppendBytes(const char* pSource, uint32_t uCount)
{
    if (uCount == 0) {
        return true;
    }
    // The source may lie in this buffer, and realloc may move the buffer. So the place is noted as
    // an offset.
    const bool bInside =
        m_pBuffer != nullptr && pSource >= m_pBuffer && pSource < m_pBuffer + m_uLength;
    const size_t uOffset = bInside ? static_cast<size_t>(pSource - m_pBuffer) : 0;
    if (!Reserve(uint64_t{m_uLength} + uCount + 1)) {
        return false;
    }
    memmove(m_pBuffer + m_uLength, bInside ? m_pBuffer + uOffset : pSource, uCount);
    m_uLength += uCount;
    m_pBuffer[m_uLength] = '\0';
    return true;
}

bool VString::Reserve(uint64_t uNeeded)
{
    if (m_pBuffer != nullptr && m_uCapacity >= uNeeded) {
        return true;
    }
    const uint64_t uBlock = m_uBlockSize == 0 ? uDefaultBlockSize : m_uBlockSize;
    const uint64_t uCapacity = (uNeeded / uBlock + 1) * uBlock;
    void* pBuffer = nullptr;
    if (uCapacity <= UINT32_MAX) {
        pBuffer = realloc(m_pBuffer, static_cast<size_t>(uCapacity));
    }
    if (pBuffer == nullptr) {
        m_status.Set(uStatusOutOfMemory);
        OnOutOfMemory();
        return false;
    }
    m_pBuffer = static_cast<char*>(pBuffer);
    m_uCapacity = static_cast<uint32_t>(uCapacity);
    return true;
}

int32_t VString::Find(char c, bool bMatchCase) const
{
    for (uint32_t i = 0; i < m_uLength; ++i) {
        if (Matches(m_pBuffer[i], c, bMatchCase)) {
            return static_cast<int32_t>(i);
        }
    }
    return -1;
}

int32_t VString::FindLast(char c, bool bMatchCase) const
{
    for (uint32_t i = m_uLength; i > 0; --i) {
        if (Matches(m_pBuffer[i - 1], c, bMatchCase)) {
            return static_cast<int32_t>(i - 1);
        }
    }
    return -1;
}

VString VString::Mid(uint32_t uStart, uint32_t uCount) const
{
    VString sPart;
    if (uStart < m_uLength) {
        const uint32_t uLeft = m_uLength - uStart;
        sPart.AppendBytes(m_pBuffer + uStart, uCount < uLeft ? uCount : uLeft);
    }
    return sPart;
}

VString VString::Right(uint32_t uCount) const
{
    return uCount < m_uLength ? Mid(m_uLength - uCount) : *this;
}

int VString::CompareNoCase(const char* szText) const
{
    return VCompareNoCase(GetText(), szText == nullptr ? "" : szText);
}

void VString::Trim()
{
    TrimRight();
    TrimLeft();
}

void VString::TrimLeft()
{
    uint32_t uBlanks = 0;
    while (uBlanks < m_uLength && VIsSpace(m_pBuffer[uBlanks])) {
        ++uBlanks;
    }
    if (uBlanks > 0) {
        m_uLength -= uBlanks;
        memmove(m_pBuffer, m_pBuffer + uBlanks, size_t{m_uLength} + 1);
    }
}

void VString::TrimRight()
{
    while (m_uLength > 0 && VIsSpace(m_pBuffer[m_uLength - 1])) {
        m_pBuffer[--m_uLength] = '\0';
    }
}

void VString::ToLower()
{
    for (uint32_t i = 0; i < m_uLength; ++i) {
        m_pBuffer[i] = VToLower(m_pBuffer[i]);
    }
}

void VString::Clear(bool bFreeBuffer, bool bResetStatus)
{
    if (bFreeBuffer) {
        free(m_pBuffer);
        m_pBuffer = nullptr;
        m_uCapacity = 0;
    } else if (m_pBuffer != nullptr) {
        m_pBuffer[0] = '\0';
    }
    m_uLength = 0;
    if (bResetStatus) {
        m_status = VFlagSet();
    }
}

bool operator==(const VString& a, const VString& b)
{
    return a.GetLength() == b.GetLength() && memcmp(a.GetText(), b.GetText(), a.GetLength()) == 0;
}

bool operator==(const VString& a, const char* szB)
{
    return VCompare(a.GetText(), szB == nullptr ? "" : szB) == 0;
}
