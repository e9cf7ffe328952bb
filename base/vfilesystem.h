// The little that the program asks of the file system beyond an account's own file. Names are bytes
// in the system's code page.
#pragma once

#include <cstddef>
#include <cstdint>

#include "base/vstring.h"

// Why the system refused a file.
enum class VFileFault
{
    None,
    NameTooLong,
    NotFound, // the file or its folder
    NotAFile, // a folder or a device
    Exists,
    Locked, // open elsewhere
    NoAccess,
    NoRoom,
    Other,
};

// A phrase for the end of a sentence, such as "no such file or folder"; empty for None.
const char* VFileFaultText(VFileFault fault);

// "\" on Windows, "/" elsewhere.
extern const char VPathSeparator;

// True for an existing regular file; false for a folder, and for an empty or null path.
bool FileExists(const char* szPath);

// Splits behind the last separator: the folder keeps it, and is empty when there is none.
void VSplitPath(const char* szPath, VString& sFolder, VString& sFileName);

// Tells what would keep a file of uSize bytes from taking the place of szPath, without touching
// anything: the folder, the permission, the room on the volume (with what the present file gives
// back counted in).
VFileFault VCanReplaceFile(const char* szPath, uint64_t uSize);

// Writes a whole file so that szPath is never seen half written: the bytes go to a new file beside
// it, which then takes its name. An existing file is refused unless bReplace is set, one that is
// open elsewhere always. On a fault nothing is changed.
VFileFault VWriteWholeFile(const char* szPath, const void* pBytes, size_t uSize, bool bReplace);
