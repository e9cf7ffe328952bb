// The arguments of a start of the program as one text, which a second start hands to the first.
#pragma once

#include "base/vstring.h"

inline constexpr char QM_ARGUMENT_SEPARATOR = ',';

// The arguments behind the program's own name, each with a comma behind it; a name with a comma
// falls apart at it.
VString QMJoinArguments(int nCount, const char* const* aszArguments);

// Such a text with the names of files that exist, those in import orders too, made full by the
// process's own folder. What does not exist stays as it was typed, and so does a name that would
// fall apart at a comma in its folder.
VString QMWithFullNames(const VString& sText);

// The full name of a file that exists; any other name as it stands.
VString QMFullName(const VString& sName);

// Whether an argument is an option and no name.
bool QMIsOption(const char* szArgument);
