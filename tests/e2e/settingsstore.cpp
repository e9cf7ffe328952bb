#include "tests/e2e/settingsstore.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>

namespace {

const std::string sRoot = "Software\\Tarn Software\\Quillmark";
// A copy of the user's settings, in a registry key of its own, if there were any.
const std::string sAside = "Software\\Tarn Software\\Quillmark put aside by its tests";
const std::string sAsideCopy = sAside + "\\Copy";

bool HasKey(const std::string& sPath)
{
    HKEY hKey = nullptr;
    const bool bOpen =
        RegOpenKeyExA(HKEY_CURRENT_USER, sPath.c_str(), 0, KEY_READ, &hKey) == ERROR_SUCCESS;
    if (bOpen) {
        RegCloseKey(hKey);
    }
    return bOpen;
}

HKEY MakeKey(const std::string& sPath)
{
    HKEY hKey = nullptr;
    EXPECT_EQ(RegCreateKeyExA(HKEY_CURRENT_USER, sPath.c_str(), 0, nullptr, 0, KEY_ALL_ACCESS,
                              nullptr, &hKey, nullptr),
              ERROR_SUCCESS)
        << sPath;
    return hKey;
}

void RemoveTree(const std::string& sPath)
{
    if (HasKey(sPath)) {
        EXPECT_EQ(RegDeleteTreeA(HKEY_CURRENT_USER, sPath.c_str()), ERROR_SUCCESS) << sPath;
    }
}

void CopyTree(const std::string& sFrom, const std::string& sTo)
{
    HKEY hTo = MakeKey(sTo);
    EXPECT_EQ(RegCopyTreeA(HKEY_CURRENT_USER, sFrom.c_str(), hTo), ERROR_SUCCESS) << sFrom;
    RegCloseKey(hTo);
}

std::string PathOf(const char* szKey)
{
    return *szKey == '\0' ? sRoot : sRoot + "\\" + szKey;
}

// Returns false when there is no such value.
bool ReadValue(const char* szKey, const char* szName, DWORD uType, std::string& sBytes)
{
    char szBytes[16384];
    DWORD uSize = sizeof szBytes;
    DWORD uFound = 0;
    HKEY hKey = nullptr;
    if (RegOpenKeyExA(HKEY_CURRENT_USER, PathOf(szKey).c_str(), 0, KEY_READ, &hKey) !=
        ERROR_SUCCESS) {
        return false;
    }
    const bool bRead = RegQueryValueExA(hKey, szName, nullptr, &uFound,
                                        reinterpret_cast<BYTE*>(szBytes), &uSize) == ERROR_SUCCESS;
    RegCloseKey(hKey);
    sBytes.assign(szBytes, bRead ? uSize : 0);
    return bRead && uFound == uType;
}

DWORD NumberOf(const std::string& sBytes)
{
    DWORD uNumber = 0;
    memcpy(&uNumber, sBytes.data(), std::min(sizeof uNumber, sBytes.size()));
    return uNumber;
}

std::string Describe(DWORD uType, const std::string& sBytes)
{
    switch (uType) {
        case REG_SZ:
            return "text|" + std::string(sBytes.c_str());
        case REG_DWORD:
            return "number|" + std::to_string(NumberOf(sBytes));
        default:
            return "type " + std::to_string(uType) + "|" + std::to_string(sBytes.size()) + " bytes";
    }
}

void DescribeValues(HKEY hKey, const std::string& sName, std::vector<std::string>& lines)
{
    for (DWORD u = 0;; ++u) {
        char szValue[256];
        char szBytes[16384];
        DWORD uValueSize = sizeof szValue;
        DWORD uSize = sizeof szBytes;
        DWORD uType = 0;
        if (RegEnumValueA(hKey, u, szValue, &uValueSize, nullptr, &uType,
                          reinterpret_cast<BYTE*>(szBytes), &uSize) != ERROR_SUCCESS) {
            return;
        }
        lines.push_back(sName + "|" + szValue + "|" + Describe(uType, std::string(szBytes, uSize)));
    }
}

void DescribeKey(const std::string& sPath, const std::string& sName,
                 std::vector<std::string>& lines)
{
    HKEY hKey = nullptr;
    if (RegOpenKeyExA(HKEY_CURRENT_USER, sPath.c_str(), 0, KEY_READ, &hKey) != ERROR_SUCCESS) {
        return;
    }
    DescribeValues(hKey, sName, lines);
    char szSubKey[256];
    for (DWORD u = 0; RegEnumKeyA(hKey, u, szSubKey, sizeof szSubKey) == ERROR_SUCCESS; ++u) {
        const std::string sSubName = sName.empty() ? szSubKey : sName + "\\" + szSubKey;
        DescribeKey(sPath + "\\" + szSubKey, sSubName, lines);
    }
    RegCloseKey(hKey);
}

} // namespace

SettingsGuard::SettingsGuard()
{
    if (!HasKey(sAside)) {
        RegCloseKey(MakeKey(sAside));
        if (HasKey(sRoot)) {
            CopyTree(sRoot, sAsideCopy);
        }
    }
    ClearSettings();
}

SettingsGuard::~SettingsGuard()
{
    ClearSettings();
    if (HasKey(sAsideCopy)) {
        CopyTree(sAsideCopy, sRoot);
    }
    RemoveTree(sAside);
}

void ClearSettings()
{
    RemoveTree(sRoot);
}

bool HasSettings()
{
    return HasKey(sRoot);
}

std::vector<std::string> AllSettings()
{
    std::vector<std::string> lines;
    DescribeKey(sRoot, "", lines);
    std::sort(lines.begin(), lines.end());
    return lines;
}

std::string ReadSettingText(const char* szKey, const char* szName)
{
    std::string sBytes;
    return ReadValue(szKey, szName, REG_SZ, sBytes) ? std::string(sBytes.c_str()) : "(none)";
}

DWORD ReadSettingNumber(const char* szKey, const char* szName)
{
    std::string sBytes;
    return ReadValue(szKey, szName, REG_DWORD, sBytes) ? NumberOf(sBytes) : 0xFFFFFFFF;
}

void WriteSettingText(const char* szKey, const char* szName, const std::string& sText)
{
    WriteSettingBytes(szKey, szName, REG_SZ, std::string(sText.c_str(), sText.size() + 1));
}

void WriteSettingNumber(const char* szKey, const char* szName, DWORD uNumber)
{
    WriteSettingBytes(szKey, szName, REG_DWORD,
                      std::string(reinterpret_cast<const char*>(&uNumber), sizeof uNumber));
}

void WriteSettingBytes(const char* szKey, const char* szName, DWORD uType,
                       const std::string& sBytes)
{
    HKEY hKey = MakeKey(PathOf(szKey));
    EXPECT_EQ(RegSetValueExA(hKey, szName, 0, uType, reinterpret_cast<const BYTE*>(sBytes.data()),
                             static_cast<DWORD>(sBytes.size())),
              ERROR_SUCCESS)
        << szName;
    RegCloseKey(hKey);
}

void RemoveSetting(const char* szKey, const char* szName)
{
    HKEY hKey = MakeKey(PathOf(szKey));
    RegDeleteValueA(hKey, szName);
    RegCloseKey(hKey);
}

void RemoveSettingsKey(const char* szKey)
{
    RemoveTree(PathOf(szKey));
}
