// The run-time library's files, closed by their owner.
#pragma once

#include <cstdio>
#include <memory>

#include "base/vfilesystem.h"

struct QMStdioCloser
{
    void operator()(FILE* pFile) const { fclose(pFile); }
};
using QMStdioFile = std::unique_ptr<FILE, QMStdioCloser>;

// Null when the file cannot be opened, and for anything but a regular file: a folder opens on some
// systems, and a pipe would wait for its writer.
inline QMStdioFile QMOpenForReading(const char* szPath)
{
    return QMStdioFile(FileExists(szPath) ? fopen(szPath, "rb") : nullptr);
}

// An empty file in which a line ends as the platform ends it; null when it cannot be made.
inline QMStdioFile QMCreateTextFile(const char* szPath)
{
    return QMStdioFile(szPath == nullptr ? nullptr : fopen(szPath, "w"));
}
