// A browser as others see it: a DDE server in a thread of its own that notes what it is asked.
#pragma once

#include <windows.h>

#include <string>

// Destroys at its end the windows of conversations that came to nothing: Wine 8 leaves them, while
// Windows does not.
class ScopedDdeWindows
{
public:
    ScopedDdeWindows() = default;
    ScopedDdeWindows(const ScopedDdeWindows&) = delete;
    ScopedDdeWindows& operator=(const ScopedDdeWindows&) = delete;
    ~ScopedDdeWindows();
};

class DdeServer
{
public:
    enum Manner
    {
        Answers,
        Refuses, // every conversation
        IsSilent // takes the question and does not answer it
    };

    // One at a time.
    DdeServer(const std::string& sService, Manner manner);
    DdeServer(const DdeServer&) = delete;
    DdeServer& operator=(const DdeServer&) = delete;
    ~DdeServer();

    // "topic|item" of each question, with a line feed behind it. Waits for what is under way.
    std::string TakeQuestions();

private:
    static DWORD WINAPI Run(void* pServer);
    void Serve();

    std::string m_sService;
    HANDLE m_hReady;
    HANDLE m_hThread;
    DWORD m_uThreadId = 0;
};
