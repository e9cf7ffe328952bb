// How qmktool tells of a failure: always by one line on standard error.
#pragma once

// The exit codes.
inline constexpr int QM_EXIT_DONE = 0;
inline constexpr int QM_EXIT_REFUSED = 1;
inline constexpr int QM_EXIT_USAGE = 2;

// Writes "qmktool: " and the text as one line to standard error. Control characters, which the name
// of a file may hold, are shown as their pictures.
void WriteError(const char* szFormat, ...) __attribute__((format(printf, 1, 2)));

// Writes "cannot WHAT 'FILE': WHY". Returns QM_EXIT_REFUSED.
int RefuseFile(const char* szWhat, const char* szFile, const char* szWhy);
