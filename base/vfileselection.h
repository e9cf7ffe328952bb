// VFileSelection: reads the buffer that the file dialog of Windows fills.
#pragma once

#include <cstddef>

#include "base/vstring.h"

struct VFileSelection
{
    VString sPath;      // of a single file; empty when the user chose several
    VString sDirectory; // the folder of several files, without a backslash at its end
    VString sNames;     // the names of several files, with a tab between them

    // Reads a buffer of uSize bytes. It holds one full path, or a folder and then the names in it.
    // Each text ends with a zero byte, and a second zero byte follows the last. pIsFile tells
    // whether a path is a file or a folder. Returns false when the buffer names no file. The buffer
    // may hold anything: nothing after its end is read.
    bool Read(const char* pBuffer, size_t uSize, bool (*pIsFile)(const char* szPath));

    // The full path of one of the names. A name that has a path of its own is returned as it is;
    // any other is a name in sDirectory.
    static VString Join(const VString& sDirectory, const char* szName);
};
