#include "tests/win/standinfiles.h"

#include <gtest/gtest.h>

#include <cctype>
#include <fstream>
#include <iterator>

#include "tests/win/support.h"

namespace {

std::string Lower(std::string sText)
{
    for (char& c : sText) {
        c = static_cast<char>(tolower(static_cast<unsigned char>(c)));
    }
    return sText;
}

std::string OwnFolder()
{
    char szPath[MAX_PATH] = "";
    GetModuleFileNameA(nullptr, szPath, sizeof szPath);
    const std::string sPath = szPath;
    return sPath.substr(0, sPath.find_last_of('\\'));
}

bool RemoveTree(const std::string& sFolder)
{
    WIN32_FIND_DATAA found = {};
    HANDLE hFind = FindFirstFileA((sFolder + "\\*").c_str(), &found);
    if (hFind == INVALID_HANDLE_VALUE) {
        return true;
    }
    do {
        const std::string sName = found.cFileName;
        const std::string sPath = sFolder + "\\" + sName;
        if ((found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) == 0) {
            DeleteFileA(sPath.c_str());
        } else if (sName != "." && sName != "..") {
            RemoveTree(sPath);
        }
    } while (FindNextFileA(hFind, &found));
    FindClose(hFind);
    return RemoveDirectoryA(sFolder.c_str()) != FALSE;
}

} // namespace

StandinFolder::StandinFolder(const std::string& sName)
{
    char szTemp[MAX_PATH] = "";
    GetTempPathA(sizeof szTemp, szTemp);
    char szLong[MAX_PATH] = "";
    GetLongPathNameA(szTemp, szLong, sizeof szLong);
    m_sPath = Lower(szLong) + sName;
    RemoveTree(m_sPath);
    EXPECT_TRUE(CreateDirectoryA(m_sPath.c_str(), nullptr)) << m_sPath;
}

StandinFolder::~StandinFolder()
{
    EXPECT_TRUE(PumpUntil([this] { return RemoveTree(m_sPath); })) << m_sPath;
}

std::string StandinFolder::Copy(const std::string& sStandin, const std::string& sName) const
{
    for (size_t u = sName.find('\\'); u != std::string::npos; u = sName.find('\\', u + 1)) {
        CreateDirectoryA((m_sPath + "\\" + sName.substr(0, u)).c_str(), nullptr);
    }
    const std::string sPath = m_sPath + "\\" + sName;
    EXPECT_TRUE(CopyFileA((OwnFolder() + "\\" + sStandin).c_str(), sPath.c_str(), FALSE))
        << sStandin << " to " << sPath;
    return sPath;
}

std::string ContentsOf(const std::string& sPath)
{
    std::ifstream file(sPath, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}
