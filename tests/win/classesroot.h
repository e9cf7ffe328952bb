// A stand-in for the classes in the registry. While the object lives, this process finds under
// HKEY_CLASSES_ROOT only what the test writes there.
#pragma once

#include <string>

#include "tests/win/support.h"

class ScopedClassesRoot
{
public:
    ScopedClassesRoot() : m_path("classes")
    {
        RegCreateKeyExA(HKEY_CURRENT_USER, m_path.Get(), 0, nullptr, 0, KEY_ALL_ACCESS, nullptr,
                        &m_hKey, nullptr);
        RegOverridePredefKey(HKEY_CLASSES_ROOT, m_hKey);
    }
    ScopedClassesRoot(const ScopedClassesRoot&) = delete;
    ScopedClassesRoot& operator=(const ScopedClassesRoot&) = delete;
    ~ScopedClassesRoot()
    {
        RegOverridePredefKey(HKEY_CLASSES_ROOT, nullptr);
        RegCloseKey(m_hKey);
    }

    // Sets the unnamed value of a key.
    void Set(const std::string& sKey, const std::string& sText) const
    {
        HKEY hKey = nullptr;
        RegCreateKeyExA(m_hKey, sKey.c_str(), 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &hKey,
                        nullptr);
        RegSetValueExA(hKey, nullptr, 0, REG_SZ, reinterpret_cast<const BYTE*>(sText.c_str()),
                       static_cast<DWORD>(sText.size() + 1));
        RegCloseKey(hKey);
    }

private:
    ScopedRegistryPath m_path;
    HKEY m_hKey = nullptr;
};
