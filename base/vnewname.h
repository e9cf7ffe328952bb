// How VNewFile finds a name for its new file.
#pragma once

#include "base/vfilesystem.h"

// Calls open(szName) with one name after another in the folder of szPath, until open returns
// another value than VFileFault::Exists. Returns that value. When it is None, sNew is the name.
// uProcess is the number of this process.
template <class F>
VFileFault VOpenNewBeside(const char* szPath, uint32_t uProcess, VString& sNew, F open)
{
    for (int nTry = 1; nTry <= VNewNameTries; ++nTry) {
        const VString sName = VNewNameBeside(szPath, uProcess, nTry);
        const VFileFault fault = open(sName.GetText());
        if (fault == VFileFault::None) {
            sNew = sName;
        }
        if (fault != VFileFault::Exists) {
            return fault;
        }
    }
    return VFileFault::Other;
}
