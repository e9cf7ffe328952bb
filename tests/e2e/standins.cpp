#include "tests/e2e/standins.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>

#include "tests/e2e/process.h"

namespace {

void SetClass(const std::string& sKey, const std::string& sText)
{
    EXPECT_EQ(RegSetValueA(HKEY_CLASSES_ROOT, sKey.c_str(), REG_SZ, sText.c_str(), 0),
              ERROR_SUCCESS)
        << sKey;
}

} // namespace

ScopedClass::ScopedClass(const std::string& sKey, const std::string& sText) : m_sKey(sKey)
{
    HKEY hKey = nullptr;
    m_bWasKey = RegOpenKeyExA(HKEY_CLASSES_ROOT, sKey.c_str(), 0, KEY_READ, &hKey) == ERROR_SUCCESS;
    if (m_bWasKey) {
        char szBefore[1024] = "";
        DWORD uSize = sizeof szBefore - 1;
        m_bWasValue = RegQueryValueExA(hKey, nullptr, nullptr, nullptr,
                                       reinterpret_cast<BYTE*>(szBefore), &uSize) == ERROR_SUCCESS;
        m_sBefore = szBefore;
        RegCloseKey(hKey);
    }
    SetClass(sKey, sText);
}

ScopedClass::~ScopedClass()
{
    if (m_bWasValue) {
        SetClass(m_sKey, m_sBefore);
    } else if (!m_bWasKey) {
        RegDeleteTreeA(HKEY_CLASSES_ROOT, m_sKey.substr(0, m_sKey.find('\\')).c_str());
    }
}

std::string CopyStandin(const char* szName, const std::string& sPath)
{
    EXPECT_TRUE(CopyFileA((ProgramFolder() + szName).c_str(), sPath.c_str(), FALSE)) << szName;
    return sPath;
}

std::string NotesOf(const std::string& sPath)
{
    std::ifstream file(sPath + ".txt", std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}
