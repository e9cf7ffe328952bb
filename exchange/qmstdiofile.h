// Files of the C library, closed by their owner.
#pragma once

#include <cstdio>
#include <memory>

#include "account/qmbytesource.h"
#include "base/vfilesystem.h"

struct QMStdioCloser
{
    void operator()(FILE* pFile) const { fclose(pFile); }
};
using QMStdioFile = std::unique_ptr<FILE, QMStdioCloser>;

// Opens a file for reading. Returns null when it cannot be opened, and when it is not a regular
// file: on some systems a folder can be opened, and a pipe would wait for its writer.
inline QMStdioFile QMOpenForReading(const char* szPath)
{
    return QMStdioFile(FileExists(szPath) ? fopen(szPath, "rb") : nullptr);
}

// Creates an empty file to write bytes to. Returns null when it cannot be created.
inline QMStdioFile QMCreateFile(const char* szPath)
{
    return QMStdioFile(szPath == nullptr ? nullptr : fopen(szPath, "wb"));
}

// The bytes of a file that is open for reading, which stays the caller's, from where it stands.
class QMStdioSource : public QMByteSource
{
public:
    explicit QMStdioSource(FILE* pFile) : m_pFile(pFile) {}

    // Not known: the file may be a pipe.
    int64_t GetSize() override { return -1; }
    int64_t ReadSome(void* pBuffer, size_t uSize) override
    {
        const size_t uRead = fread(pBuffer, 1, uSize, m_pFile);
        return uRead < uSize && ferror(m_pFile) != 0 ? -1 : static_cast<int64_t>(uRead);
    }

private:
    FILE* m_pFile;
};
