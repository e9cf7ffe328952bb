// What the program asks of the file system, apart from the account's own file (QMFile). Names are
// bytes in the code page of the system.
#pragma once

#include <cstddef>
#include <cstdint>

#include "base/vstring.h"

// Why the system refused to open, read or write a file.
enum class VFileFault
{
    None,
    NameTooLong,
    NotFound, // the file or its folder does not exist
    NotAFile, // it is a folder, a pipe or a device
    Exists,
    Locked, // another program has it open, or this one has it open already
    NoAccess,
    NoRoom,
    Other,
};

// A phrase that ends a sentence, such as "no such file or folder". Empty for None.
const char* VFileFaultText(VFileFault fault);

// The character between the parts of a path: "\" on Windows, "/" elsewhere.
extern const char VPathSeparator;

// How the platform ends a line of text: "\r\n" on Windows, "\n" elsewhere.
extern const char VLineEnd[3];

// True for an existing regular file; false for a folder, and for an empty or null path.
bool FileExists(const char* szPath);

// Splits a path after its last separator. The folder keeps the separator; it is empty when the path
// has none.
void VSplitPath(const char* szPath, VString& sFolder, VString& sFileName);

// The name of a new file beside szPath, to be renamed to it once it is complete. It is short, so
// that a folder that may hold a long file name may hold this one. uProcess is the process's number;
// nTry, from 1 to VNewNameTries, leads past files of that name that an ended process left behind.
VString VNewNameBeside(const char* szPath, uint32_t uProcess, int nTry);
inline constexpr int VNewNameTries = 100;

// Tests whether a file of uSize bytes could take the place of szPath, without touching anything:
// whether the folder exists, whether the user may write there, and whether the volume has room. The
// room that the present file would give back counts as free. Returns the first fault found. None is
// no promise: the write itself may still fail.
VFileFault VCanReplaceFile(const char* szPath, uint64_t uSize);

// Writes a whole file so that nobody ever sees szPath half written. The bytes go to a new file
// beside it, and that file then takes the name szPath. A file that exists is refused unless
// bReplace is set. A file that somebody has open is always refused. On a fault szPath is as it was
// before.
VFileFault VWriteWholeFile(const char* szPath, const void* pBytes, size_t uSize, bool bReplace);
