// QMBrowserLauncher: shows a web address in the user's browser. A browser that runs is asked over
// DDE; only then the program is started that the registry names for web pages.
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
        NoConversation, // no browser answers; no launch ends with this
        NoBrowser       // and the registry names none
    };

    // Milliseconds that a browser which took the call has for its answer.
    explicit QMBrowserLauncher(DWORD uTimeOut = 60000) : m_uTimeOut(uTimeOut) {}
    QMBrowserLauncher(const QMBrowserLauncher&) = delete;
    QMBrowserLauncher& operator=(const QMBrowserLauncher&) = delete;
    ~QMBrowserLauncher();

    // Messages are handled while a browser takes its time.
    Result Launch(const char* szUrl);

    // Puts the path of the browser's program into an empty sPath; whether sPath exists as a file.
    static bool FindBrowser(VString& sPath);

private:
    Result Ask(const char* szUrl, const char* szService);
    Result Converse(const char* szUrl, const char* szService);

    DWORD m_uTimeOut;
    DWORD m_uDdeInstance = 0;               // 0 until first used
    const char* m_pszLastService = nullptr; // the one that answered last
};
