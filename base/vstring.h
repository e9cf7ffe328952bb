// VString: growable 8-bit text that copies by value; every copy has a buffer of its own.
#pragma once

#include <cstdint>

#include "base/vflagset.h"

class VString
{
public:
    static constexpr uint32_t uNoLimit = 0xFFFFFFFF;
    static constexpr uint32_t uDefaultBlockSize = 64;

    // Set in the status once memory ran out; stays until Clear resets it.
    static constexpr uint32_t uStatusOutOfMemory = 1;

    VString() = default;
    // A null text counts as empty; at most uMaxLength characters are taken.
    VString(const char* szText, uint32_t uMaxLength = uNoLimit);
    VString(const VString& other);
    VString(VString&& other) noexcept;
    virtual ~VString();

    VString& operator=(const VString& other);
    VString& operator=(VString&& other) noexcept;
    VString& operator=(const char* szText);

    // Assigning and appending answer false when memory ran out; the text is then as it was. The
    // source may lie inside this text.
    bool Assign(const char* szText, uint32_t uMaxLength = uNoLimit);
    bool Append(const char* szText, uint32_t uMaxLength = uNoLimit);
    bool Append(const VString& other);
    bool AppendCharacter(char c);
    bool AppendNumber(uint32_t uNumber);

    // Never null; valid until the text changes.
    const char* GetText() const { return m_pBuffer == nullptr ? "" : m_pBuffer; }
    uint32_t GetLength() const { return m_uLength; }
    uint32_t GetCapacity() const { return m_uCapacity; }
    bool IsEmpty() const { return m_uLength == 0; }
    const VFlagSet& GetStatus() const { return m_status; }

    // The step of growth in bytes; 0 stands for the default.
    void SetBlockSize(uint32_t uBlockSize) { m_uBlockSize = uBlockSize; }

    // The terminator for an index at or past the end.
    char GetAt(uint32_t uIndex) const { return uIndex < m_uLength ? m_pBuffer[uIndex] : '\0'; }

    // Index of the first or last occurrence; -1 for none.
    int32_t Find(char c, bool bMatchCase = true) const;
    int32_t FindLast(char c, bool bMatchCase = true) const;

    // Parts of the text; what lies outside it is left out.
    VString Left(uint32_t uCount) const { return Mid(0, uCount); }
    VString Mid(uint32_t uStart, uint32_t uCount = uNoLimit) const;
    VString Right(uint32_t uCount) const;

    int CompareNoCase(const char* szText) const;

    // White space is taken off at both ends, or at one.
    void Trim();
    void TrimLeft();
    void TrimRight();
    void ToLower();

    // Empties the text, keeping the buffer unless bFreeBuffer is set.
    void Clear(bool bFreeBuffer = true, bool bResetStatus = true);

protected:
    // Called when the buffer cannot grow.
    virtual void OnOutOfMemory() {}

private:
    bool AssignBytes(const char* pSource, uint32_t uCount);
    bool AppendBytes(const char* pSource, uint32_t uCount);
    bool Reserve(uint64_t uNeeded);
    void TakeFrom(VString& other);

    VFlagSet m_status;
    char* m_pBuffer = nullptr;
    uint32_t m_uLength = 0;   // without the zero
    uint32_t m_uCapacity = 0; // bytes allocated
    uint32_t m_uBlockSize = uDefaultBlockSize;
};

bool operator==(const VString& a, const VString& b);
bool operator==(const VString& a, const char* szB);
