// Makes a folder the current one of the test program until the end of the scope. A program that is
// started meanwhile gets it as its own.
#pragma once

#include <windows.h>

#include <string>

class CurrentFolder
{
public:
    explicit CurrentFolder(const std::string& sFolder)
    {
        GetCurrentDirectoryA(sizeof m_szBefore, m_szBefore);
        SetCurrentDirectoryA(sFolder.c_str());
    }
    CurrentFolder(const CurrentFolder&) = delete;
    CurrentFolder& operator=(const CurrentFolder&) = delete;
    ~CurrentFolder() { SetCurrentDirectoryA(m_szBefore); }

private:
    char m_szBefore[MAX_PATH] = "";
};
