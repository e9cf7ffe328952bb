// Where the readers of files take their bytes from, and a buffer before it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>

#include "account/qmfile.h"

class QMByteSource
{
public:
    virtual ~QMByteSource() = default;

    // Bytes from the beginning to the end; -1 when they cannot be told.
    virtual int64_t GetSize() = 0;

    // The next bytes; fewer than asked for at the end only, -1 on failure.
    virtual int64_t ReadSome(void* pBuffer, size_t uSize) = 0;
};

// An open file, which it does not own, from the beginning.
class QMFileSource : public QMByteSource
{
public:
    explicit QMFileSource(QMFile& file);
    int64_t GetSize() override;
    int64_t ReadSome(void* pBuffer, size_t uSize) override;

private:
    QMFile& m_file;
    bool m_bReady;
};

// Bytes in memory, which it does not own.
class QMMemorySource : public QMByteSource
{
public:
    QMMemorySource(const void* pBytes, size_t uSize);
    int64_t GetSize() override;
    int64_t ReadSome(void* pBuffer, size_t uSize) override;

private:
    const char* m_pBytes;
    size_t m_uSize;
    size_t m_uPosition = 0;
};

// Reads a source through a buffer and knows what is left of it.
class QMByteReader
{
public:
    explicit QMByteReader(QMByteSource& source);

    // False when there was no memory for the buffer: nothing can be taken then.
    bool HasMemory() const { return m_pBuffer != nullptr; }

    // Bytes not taken yet, as the source's size promised.
    uint64_t GetRemaining() const { return m_uRemaining; }

    // Takes uSize bytes; false, with the target in no certain state, when there are fewer.
    bool Take(void* pInto, size_t uSize);

    // Takes one number as it stands.
    template <class T>
    bool TakeNumber(T& number)
    {
        return Take(&number, sizeof number);
    }

private:
    bool Fill();

    static constexpr size_t uBufferSize = 1 << 16;

    QMByteSource& m_source;
    uint64_t m_uRemaining;
    std::unique_ptr<char[]> m_pBuffer;
    size_t m_uNext = 0;
    size_t m_uEnd = 0;
};
