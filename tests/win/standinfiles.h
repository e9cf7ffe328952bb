// A folder for the stand-ins of programs and libraries, which goes with its scope.
#pragma once

#include <windows.h>

#include <string>

class StandinFolder
{
public:
    explicit StandinFolder(const std::string& sName);
    StandinFolder(const StandinFolder&) = delete;
    StandinFolder& operator=(const StandinFolder&) = delete;
    // A program that still runs keeps its file for a moment, which is waited for.
    ~StandinFolder();

    const std::string& Get() const { return m_sPath; } // in lower case, without a separator behind

    // Copies a stand-in ("standin_browser.exe") under another name, which may have folders before
    // it. Returns the copy's path.
    std::string Copy(const std::string& sStandin, const std::string& sName) const;

private:
    std::string m_sPath;
};

// The whole of a file; empty when there is none.
std::string ContentsOf(const std::string& sPath);
