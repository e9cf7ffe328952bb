// A folder for stand-ins of programs and libraries. It is removed at the end of the scope.
#pragma once

#include <windows.h>

#include <string>

class StandinFolder
{
public:
    explicit StandinFolder(const std::string& sName);
    StandinFolder(const StandinFolder&) = delete;
    StandinFolder& operator=(const StandinFolder&) = delete;
    // Windows holds the file of a program that still runs. So it waits a moment for its end.
    ~StandinFolder();

    const std::string& Get() const { return m_sPath; } // in lower case, without a separator behind

    // Copies a stand-in ("standin_browser.exe") to another name, which may begin with folders.
    // Returns the path of the copy.
    std::string Copy(const std::string& sStandin, const std::string& sName) const;

private:
    std::string m_sPath;
};

// The contents of a file; empty when there is none.
std::string ContentsOf(const std::string& sPath);
