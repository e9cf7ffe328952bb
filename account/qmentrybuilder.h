// The bytes of an account file, one part after the other.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>

#include "account/qmaccountdata.h"
#include "account/qmaccountformat.h"
#include "account/qmbytesink.h"
#include "account/qmscramble.h"
#include "account/qmtransaction.h"

// Writes parts of an account file into memory, where the caller has room for them.
class QMEntryBuilder
{
public:
    explicit QMEntryBuilder(unsigned char* pBytes) : m_pNext(pBytes) {}

    const unsigned char* GetEnd() const { return m_pNext; }

    void Add(const void* pBytes, size_t uSize)
    {
        memcpy(m_pNext, pBytes, uSize);
        m_pNext += uSize;
    }

    void AddScrambled(const void* pBytes, size_t uSize)
    {
        Add(pBytes, uSize);
        QMScramble(m_pNext - uSize, uSize);
    }

    void AddNumber(uint32_t uNumber) { Add(&uNumber, sizeof uNumber); }

    void AddText(const char* szText)
    {
        const size_t uLength = strlen(szText);
        AddNumber(static_cast<uint32_t>(uLength));
        AddScrambled(szText, uLength);
    }

    void AddEntry(const QMTransactionFields& fields, int32_t lVersion)
    {
        if (QMVersionScramblesBlock(lVersion)) {
            AddScrambled(&fields, QM_TRANS_BLOCK_SIZE);
        } else {
            Add(&fields, QM_TRANS_BLOCK_SIZE);
        }
        AddTexts(fields, lVersion);
    }

    void AddTexts(const QMTransactionFields& fields, int32_t lVersion)
    {
        AddText(fields.szDescription);
        AddText(fields.szMemo);
        if (QMVersionHasCategory(lVersion)) {
            AddText(fields.szCategory);
        }
    }

private:
    unsigned char* m_pNext;
};

// No entry is as large: its block and three texts with their lengths.
inline constexpr size_t QM_LARGEST_PART = 2048;
static_assert(QM_LARGEST_PART > sizeof(QMTransactionFields) + 3 * sizeof(uint32_t));
static_assert(QM_LARGEST_PART > QM_HEADER_SIZE + 5 * sizeof(uint32_t));

// A buffer for the builder that goes to a sink as it fills.
class QMPieceWriter
{
public:
    explicit QMPieceWriter(QMByteSink& sink) : m_sink(sink) {}

    // There is always room for the front or for one entry more.
    QMEntryBuilder& GetBuilder() { return m_builder; }

    // Hands over what is there, unless there is room for more and bAll is not set. Returns false
    // when the sink refused anything so far.
    bool HandOver(bool bAll)
    {
        const auto uLength = static_cast<size_t>(m_builder.GetEnd() - m_aBuffer);
        if (bAll || uLength > sizeof m_aBuffer - QM_LARGEST_PART) {
            m_bTaken = m_bTaken && m_sink.Write(reinterpret_cast<const char*>(m_aBuffer), uLength);
            m_builder = QMEntryBuilder(m_aBuffer);
        }
        return m_bTaken;
    }

private:
    QMByteSink& m_sink;
    bool m_bTaken = true;
    unsigned char m_aBuffer[1 << 15];
    QMEntryBuilder m_builder{m_aBuffer};
};
