// QMByteSource: where the reader of an account file takes its bytes from. QMByteReader reads one
// through a buffer.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>

#include "account/qmfile.h"

class QMByteSource
{
public:
    virtual ~QMByteSource() = default;

    // The number of bytes from the beginning to the end; -1 when it is not known.
    virtual int64_t GetSize() = 0;

    // Reads the next bytes and returns how many: fewer than uSize at the end only, and -1 on
    // failure.
    virtual int64_t ReadSome(void* pBuffer, size_t uSize) = 0;
};

// Reads an open file from its beginning. The file stays the caller's.
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

// Reads bytes in memory. They stay the caller's.
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

// Reads a source through a buffer, and knows how much of the source is left. A length in a file is
// compared with that before anything is allocated.
class QMByteReader
{
public:
    explicit QMByteReader(QMByteSource& source);

    // Returns false when there was no memory for the buffer. Take then always fails.
    bool HasMemory() const { return m_pBuffer != nullptr; }

    // How many bytes were not taken yet, by the size that the source gave.
    uint64_t GetRemaining() const { return m_uRemaining; }

    // Takes uSize bytes. Returns false when there are fewer; what pInto holds is then not defined.
    bool Take(void* pInto, size_t uSize);

    // Takes one little-endian number.
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
