// A browser as other programs see it: a DDE server in a thread of its own. It notes what it is
// asked.
#pragma once

#include <windows.h>

#include <string>

// At its end it destroys the windows of DDE conversations that did not come about. Wine 8 leaves
// such windows, and Windows does not.
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

    // There may be one server at a time.
    DdeServer(const std::string& sService, Manner manner);
    DdeServer(const DdeServer&) = delete;
    DdeServer& operator=(const DdeServer&) = delete;
    ~DdeServer();

    // "topic|item" of each question, with a line feed after it. Waits for a question that is under
    // way.
    std::string TakeQuestions();

private:
    static DWORD WINAPI Run(void* pServer);
    void Serve();

    std::string m_sService;
    HANDLE m_hReady;
    HANDLE m_hThread;
    DWORD m_uThreadId = 0;
};
