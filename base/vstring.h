// VString: growable 8-bit text that copies by value; every copy has a buffer of its own.
#pragma once

#include <cstdint>

#include "base/vflagset.h"

class VString
{
public:
    static constexpr uint32_t uNoLimit = 0xFFFFFFFF;
    static constexpr uint32_t uDefaultBlockSize = 64;

    // A bit of GetStatus. It is set when memory ran out and stays until Clear resets it.
    static constexpr uint32_t uStatusOutOfMemory = 1;

    VString() = default;
    // Copies at most uMaxLength characters of the text. A null text counts as empty.
    VString(const char* szText, uint32_t uMaxLength = uNoLimit);
    VString(const VString& other);
    VString(VString&& other) noexcept;
    virtual ~VString();

    VString& operator=(const VString& other);
    VString& operator=(VString&& other) noexcept;
    VString& operator=(const char* szText);

    // Assigning and appending return false when memory ran out. The text is then as it was before.
    // The source may lie inside this text.
    bool Assign(const char* szText, uint32_t uMaxLength = uNoLimit);
    bool Append(const char* szText, uint32_t uMaxLength = uNoLimit);
    bool Append(const VString& other);
    bool AppendCharacter(char c);
    bool AppendNumber(uint32_t uNumber);

    // Never null. The pointer is valid until the text changes.
    const char* GetText() const { return m_pBuffer == nullptr ? "" : m_pBuffer; }
    uint32_t GetLength() const { return m_uLength; }
    uint32_t GetCapacity() const { return m_uCapacity; }
    bool IsEmpty() const { return m_uLength == 0; }
    const VFlagSet& GetStatus() const { return m_status; }

    // The buffer grows in steps of this many bytes; 0 stands for the default.
    void SetBlockSize(uint32_t uBlockSize) { m_uBlockSize = uBlockSize; }

    // The character at uIndex; the terminating zero for an index at or after the end.
    char GetAt(uint32_t uIndex) const { return uIndex < m_uLength ? m_pBuffer[uIndex] : '\0'; }

    // The index of the first or of the last occurrence; -1 when there is none.
    int32_t Find(char c, bool bMatchCase = true) const;
    int32_t FindLast(char c, bool bMatchCase = true) const;

    // Parts of the text. Characters asked for outside it are left out.
    VString Left(uint32_t uCount) const { return Mid(0, uCount); }
    VString Mid(uint32_t uStart, uint32_t uCount = uNoLimit) const;
    VString Right(uint32_t uCount) const;

    int CompareNoCase(const char* szText) const;

    // Take white space off both ends, off the beginning, or off the end.
    void Trim();
    void TrimLeft();
    void TrimRight();
    void ToLower();

    // Empties the text. The buffer is freed, unless bFreeBuffer is false.
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
    uint32_t m_uLength = 0;   // characters, without the terminating zero
    uint32_t m_uCapacity = 0; // bytes allocated
    uint32_t m_uBlockSize = uDefaultBlockSize;
};

bool operator==(const VString& a, const VString& b);
bool operator==(const VString& a, const char* szB);
