// The program's settings in the registry of the current user.
#pragma once

#include <windows.h>

#include <cstdint>
#include <string>
#include <vector>

// Puts the user's own settings aside while the object lives. If an earlier test run was killed, it
// first brings back the settings that this run had put aside.
class SettingsGuard
{
public:
    SettingsGuard();
    SettingsGuard(const SettingsGuard&) = delete;
    SettingsGuard& operator=(const SettingsGuard&) = delete;
    ~SettingsGuard();
};

// Removes all settings. The next start is then a very first start.
void ClearSettings();
bool HasSettings();

// One line for each value, sorted: the key below the root key, the name, the type and the contents,
// such as "Settings|Flags|number|14".
std::vector<std::string> AllSettings();

// A value by the name of its key ("Settings", "Page Setup", "Recent File List", or empty for the
// root) and its own name. A missing text reads as "(none)", a missing number as 0xFFFFFFFF.
std::string ReadSettingText(const char* szKey, const char* szName);
DWORD ReadSettingNumber(const char* szKey, const char* szName);

void WriteSettingText(const char* szKey, const char* szName, const std::string& sText);
void WriteSettingNumber(const char* szKey, const char* szName, DWORD uNumber);
// Writes a value of any type and with any bytes.
void WriteSettingBytes(const char* szKey, const char* szName, DWORD uType,
                       const std::string& sBytes);
void RemoveSetting(const char* szKey, const char* szName);
// Removes a key with everything in it.
void RemoveSettingsKey(const char* szKey);

inline DWORD ReadFlags()
{
    return ReadSettingNumber("Settings", "Flags");
}
inline std::string ReadPosition()
{
    return ReadSettingText("Settings", "Position");
}
