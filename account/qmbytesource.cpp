#include "account/qmbytesource.h"

#include <algorithm>
#include <cstring>
#include <new>

QMFileSource::QMFileSource(QMFile& file) : m_file(file), m_bReady(file.Seek(0)) {}

int64_t QMFileSource::GetSize()
{
    return m_file.GetSize();
}

int64_t QMFileSource::ReadSome(void* pBuffer, size_t uSize)
{
    return m_bReady ? m_file.ReadSome(pBuffer, uSize) : -1;
}

QMMemorySource::QMMemorySource(const void* pBytes, size_t uSize)
    : m_pBytes(static_cast<const char*>(pBytes)), m_uSize(uSize)
{}

int64_t QMMemorySource::GetSize()
{
    return static_cast<int64_t>(m_uSize);
}

int64_t QMMemorySource::ReadSome(void* pBuffer, size_t uSize)
{
    const size_t uCount = std::min(uSize, m_uSize - m_uPosition);
    if (uCount > 0) {
        memcpy(pBuffer, m_pBytes + m_uPosition, uCount);
        m_uPosition += uCount;
    }
    return static_cast<int64_t>(uCount);
}

QMByteReader::QMByteReader(QMByteSource& source)
    : m_source(source),
      m_uRemaining(static_cast<uint64_t>(std::max<int64_t>(source.GetSize(), 0))),
      m_pBuffer(new (std::nothrow) char[uBufferSize])
{}

bool QMByteReader::Take(void* pInto, size_t uSize)
{
    if (uSize > m_uRemaining) {
        return false;
    }
    m_uRemaining -= uSize;
    char* p = static_cast<char*>(pInto);
    while (uSize > m_uEnd - m_uNext) {
        const size_t uPart = m_uEnd - m_uNext;
        memcpy(p, m_pBuffer.get() + m_uNext, uPart);
        p += uPart;
        uSize -= uPart;
        if (!Fill()) {
            return false;
        }
    }
    memcpy(p, m_pBuffer.get() + m_uNext, uSize);
    m_uNext += uSize;
    return true;
}

bool QMByteReader::Fill()
{
    if (!HasMemory()) {
        return false;
    }
    const int64_t nRead = m_source.ReadSome(m_pBuffer.get(), uBufferSize);
    m_uNext = 0;
    m_uEnd = static_cast<size_t>(std::max<int64_t>(nRead, 0));
    return m_uEnd > 0;
}
