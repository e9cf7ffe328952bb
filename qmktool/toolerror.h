// What qmktool says when it refuses: always one line on standard error.
#pragma once

// The exit codes.
inline constexpr int QM_EXIT_DONE = 0;
inline constexpr int QM_EXIT_REFUSED = 1;
inline constexpr int QM_EXIT_USAGE = 2;

// Writes "qmktool: " and the text to standard error. Control characters, which a file's name may
// hold, become question marks.
void WriteError(const char* szFormat, ...) __attribute__((format(printf, 1, 2)));

// "cannot WHAT 'FILE': WHY"; returns QM_EXIT_REFUSED.
int RefuseFile(const char* szWhat, const char* szFile, const char* szWhy);
