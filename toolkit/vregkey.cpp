#include "toolkit/vregkey.h"

#include <cstring>

#include "toolkit/vapplication.h"

namespace {

bool IsEmpty(const char* szText)
{
    return szText == nullptr || *szText == '\0';
}

} // namespace

bool VRegKey::Open(const char* szPath, HKEY hHive, REGSAM uAccess)
{
    if (IsOpen() || IsEmpty(szPath) || hHive == nullptr) {
        return false;
    }
    return RegOpenKeyExA(hHive, szPath, 0, uAccess, &m_hKey) == ERROR_SUCCESS;
}

bool VRegKey::Create(const char* szPath, HKEY hHive, REGSAM uAccess)
{
    if (IsOpen() || IsEmpty(szPath) || hHive == nullptr) {
        return false;
    }
    return RegCreateKeyExA(hHive, szPath, 0, nullptr, REG_OPTION_NON_VOLATILE, uAccess, nullptr,
                           &m_hKey, nullptr) == ERROR_SUCCESS;
}

bool VRegKey::CreateAppKey(const char* szVendor, const char* szProduct, HKEY hHive)
{
    VString sPath("Software\\");
    sPath.Append(szVendor);
    sPath.Append("\\");
    sPath.Append(szProduct == nullptr ? GetApplication().GetName() : szProduct);
    return Create(sPath.GetText(), hHive);
}

void VRegKey::Close()
{
    if (m_hKey != nullptr) {
        RegCloseKey(m_hKey);
        m_hKey = nullptr;
    }
}

bool VRegKey::ReadText(const char* szName, VString& sText) const
{
    char szText[uMaxText];
    DWORD uSize = sizeof szText;
    DWORD uType = 0;
    if (m_hKey == nullptr || szName == nullptr ||
        RegQueryValueExA(m_hKey, szName, nullptr, &uType, reinterpret_cast<BYTE*>(szText),
                         &uSize) != ERROR_SUCCESS ||
        (uType != REG_SZ && uType != REG_EXPAND_SZ)) {
        return false;
    }
    // RegSetValueEx stores a text with or without a terminating zero, as its caller gave it.
    return sText.Assign(szText, uSize);
}

DWORD VRegKey::ReadNumber(const char* szName, DWORD uDefault) const
{
    DWORD uValue = 0;
    DWORD uSize = sizeof uValue;
    DWORD uType = 0;
    if (m_hKey == nullptr || szName == nullptr ||
        RegQueryValueExA(m_hKey, szName, nullptr, &uType, reinterpret_cast<BYTE*>(&uValue),
                         &uSize) != ERROR_SUCCESS ||
        uType != REG_DWORD || uSize != sizeof uValue) {
        return uDefault;
    }
    return uValue;
}

bool VRegKey::WriteText(const char* szName, const char* szText)
{
    if (m_hKey == nullptr || szName == nullptr) {
        return false;
    }
    if (IsEmpty(szText)) {
        return DeleteValue(szName);
    }
    return RegSetValueExA(m_hKey, szName, 0, REG_SZ, reinterpret_cast<const BYTE*>(szText),
                          static_cast<DWORD>(strlen(szText) + 1)) == ERROR_SUCCESS;
}

bool VRegKey::WriteNumber(const char* szName, DWORD uValue, DWORD uFallback)
{
    const DWORD uWritten = uValue == 0 ? uFallback : uValue;
    return m_hKey != nullptr && szName != nullptr &&
           RegSetValueExA(m_hKey, szName, 0, REG_DWORD, reinterpret_cast<const BYTE*>(&uWritten),
                          sizeof uWritten) == ERROR_SUCCESS;
}

bool VRegKey::DeleteValue(const char* szName)
{
    return m_hKey != nullptr && szName != nullptr &&
           RegDeleteValueA(m_hKey, szName) == ERROR_SUCCESS;
}
