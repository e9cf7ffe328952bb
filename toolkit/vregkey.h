// VRegKey: one key of the registry. The object closes it at its end.
#pragma once

#include <windows.h>

#include "base/vstring.h"

class VRegKey
{
public:
    // The longest text that ReadText reads, in bytes, with the terminating zero.
    static constexpr DWORD uMaxText = 1024;

    VRegKey() = default;
    VRegKey(const VRegKey&) = delete;
    VRegKey& operator=(const VRegKey&) = delete;
    ~VRegKey() { Close(); }

    // Open an existing key, or create one with all the keys above it. Return false when this object
    // has a key open, when szPath is empty or hHive null, and when Windows refuses.
    bool Open(const char* szPath, HKEY hHive = HKEY_CURRENT_USER, REGSAM uAccess = KEY_ALL_ACCESS);
    bool Create(const char* szPath, HKEY hHive = HKEY_CURRENT_USER,
                REGSAM uAccess = KEY_ALL_ACCESS);
    // Creates and opens "Software\VENDOR\PRODUCT". A null product means the name of the
    // application.
    bool CreateAppKey(const char* szVendor, const char* szProduct, HKEY hHive = HKEY_CURRENT_USER);
    void Close();
    bool IsOpen() const { return m_hKey != nullptr; }

    // Reads a text. Returns false, and leaves sText as it is, when the value does not exist, has
    // another type, or is too long.
    bool ReadText(const char* szName, VString& sText) const;
    // Reads a number. Returns uDefault when the key is closed, when szName is null, and when the
    // value does not exist or has another type.
    DWORD ReadNumber(const char* szName, DWORD uDefault) const;
    // Writes a text. An empty or null text deletes the value.
    bool WriteText(const char* szName, const char* szText);
    // Writes a number. For the value 0 it writes uFallback.
    bool WriteNumber(const char* szName, DWORD uValue, DWORD uFallback = 0);
    bool DeleteValue(const char* szName);

private:
    HKEY m_hKey = nullptr;
};
