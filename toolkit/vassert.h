// A claim of the program about itself that turned out wrong. The program goes on.
#pragma once

using VAssertHandler = void (*)(const char* szCondition, const char* szFile, int nLine);

// Tells the handler; without one, the debugger.
void VAssertFailed(const char* szCondition, const char* szFile, int nLine);

// Returns the handler from before; null for none.
VAssertHandler VSetAssertHandler(VAssertHandler pHandler);

// Answers whether the condition holds, and tells of one that does not.
#define V_VERIFY(condition) \
    ((condition) ? true : (VAssertFailed(#condition, __FILE__, __LINE__), false))
