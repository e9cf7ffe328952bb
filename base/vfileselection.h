// VFileSelection: what the system's file dialog leaves in its buffer after a multiple selection.
#pragma once

#include <cstddef>

#include "base/vstring.h"

struct VFileSelection
{
    VString sPath;      // of a single file; empty for several
    VString sDirectory; // of the files, without a backslash at its end
    VString sNames;     // of the files, with a tab between

    // Reads a buffer of uSize bytes: one full path, or a folder and then names, with a zero behind
    // each and two behind the last. pIsFile tells a file from a folder. False when no file is
    // named. Nothing is read past the end of the buffer, whatever stands in it.
    bool Read(const char* pBuffer, size_t uSize, bool (*pIsFile)(const char* szPath));

    // The path of one of the names: in the folder, unless the name has a path of its own.
    static VString Join(const VString& sDirectory, const char* szName);
};
