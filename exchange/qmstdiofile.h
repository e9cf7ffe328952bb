// Files of the C library, closed by their owner.
#pragma once

#include <cstdio>
#include <memory>

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

// Creates an empty file to write text to; lines end as on the system. Returns null when it cannot
// be created.
inline QMStdioFile QMCreateTextFile(const char* szPath)
{
    return QMStdioFile(szPath == nullptr ? nullptr : fopen(szPath, "w"));
}
