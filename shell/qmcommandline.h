// The arguments of the program as one text, which a second instance hands to the first.
#pragma once

#include "base/vstring.h"

inline constexpr char QM_ARGUMENT_SEPARATOR = ',';

// Joins the arguments after the name of the program, with a comma after each. A name that holds a
// comma will be split at it.
VString QMJoinArguments(int nCount, const char* const* aszArguments);

// Makes the names of existing files in such a text full, by the current folder of this process;
// also the names in import orders. A name of no file stays as the user typed it. So does a name
// whose full form would be split at a comma in its folder.
VString QMWithFullNames(const VString& sText);

// Returns the full name of a file that exists, and any other name unchanged.
VString QMFullName(const VString& sName);

// Whether an argument is an option and no name.
bool QMIsOption(const char* szArgument);
