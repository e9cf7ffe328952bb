// VRegKey: one key of the registry, closed with the object.
#pragma once

#include <windows.h>

#include "base/vstring.h"

class VRegKey
{
public:
    // Bytes of a text that ReadText takes at the most, terminator included.
    static constexpr DWORD uMaxText = 1024;

    VRegKey() = default;
    VRegKey(const VRegKey&) = delete;
    VRegKey& operator=(const VRegKey&) = delete;
    ~VRegKey() { Close(); }

    // False when already open, when path or hive is empty, and when the system refuses. Create
    // makes what is missing.
    bool Open(const char* szPath, HKEY hHive = HKEY_CURRENT_USER, REGSAM uAccess = KEY_ALL_ACCESS);
    bool Create(const char* szPath, HKEY hHive = HKEY_CURRENT_USER,
                REGSAM uAccess = KEY_ALL_ACCESS);
    // "Software\VENDOR\PRODUCT"; a null product means the application's name.
    bool CreateAppKey(const char* szVendor, const char* szProduct, HKEY hHive = HKEY_CURRENT_USER);
    void Close();
    bool IsOpen() const { return m_hKey != nullptr; }

    // False, with the text as it was, when the value is missing, of another kind, or too long.
    bool ReadText(const char* szName, VString& sText) const;
    // uDefault when the key is closed, the name null, or the value missing or of another kind.
    DWORD ReadNumber(const char* szName, DWORD uDefault) const;
    // An empty or null text deletes the value.
    bool WriteText(const char* szName, const char* szText);
    // A value of 0 writes uFallback instead.
    bool WriteNumber(const char* szName, DWORD uValue, DWORD uFallback = 0);
    bool DeleteValue(const char* szName);

private:
    HKEY m_hKey = nullptr;
};
