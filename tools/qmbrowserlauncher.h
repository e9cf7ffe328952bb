// QMBrowserLauncher: shows a web address in the user's browser. It first asks a running browser
// over DDE. If none answers, it starts the program that the registry names for web pages.
#pragma once

#include <windows.h>

#include "base/vstring.h"

class QMBrowserLauncher
{
public:
    enum Result
    {
        Done,
        NotStarted,     // the program could not be started
        NoConversation, // no browser answers; Launch never returns it
        NoBrowser       // no browser answers, and the registry names none
    };

    // uTimeOut is how long a browser that has accepted the conversation may take to answer, in
    // milliseconds.
    explicit QMBrowserLauncher(DWORD uTimeOut = 60000) : m_uTimeOut(uTimeOut) {}
    QMBrowserLauncher(const QMBrowserLauncher&) = delete;
    QMBrowserLauncher& operator=(const QMBrowserLauncher&) = delete;
    ~QMBrowserLauncher();

    // Shows the address. While it waits for a browser, messages are handled.
    Result Launch(const char* szUrl);

    // Finds the path of the browser's program; sPath must be empty. Returns whether that file
    // exists.
    static bool FindBrowser(VString& sPath);

private:
    Result Ask(const char* szUrl, const char* szService);
    Result Converse(const char* szUrl, const char* szService);

    DWORD m_uTimeOut;
    DWORD m_uDdeInstance = 0;               // 0 before the first use
    const char* m_pszLastService = nullptr; // the service that answered last
};
