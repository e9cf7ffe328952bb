// A claim of the program about itself that turned out wrong. The program goes on.
#pragma once

// Reports the failed condition: on Windows to the debugger, elsewhere to standard error.
void VAssertFailed(const char* szCondition, const char* szFile, int nLine);

// Answers whether the condition holds, and reports one that does not.
#define V_VERIFY(condition) \
    ((condition) ? true : (VAssertFailed(#condition, __FILE__, __LINE__), false))
