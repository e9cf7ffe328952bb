// Assertions. One that turns out wrong is reported, and the program goes on.
#pragma once

// Reports a condition that does not hold: on Windows to the debugger, elsewhere to standard error.
void VAssertFailed(const char* szCondition, const char* szFile, int nLine);

// Returns whether the condition holds. One that does not is reported.
#define V_VERIFY(condition) \
    ((condition) ? true : (VAssertFailed(#condition, __FILE__, __LINE__), false))
