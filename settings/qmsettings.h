// What the program remembers between runs, in the current user's branch of the registry. Each value
// is written at the moment it changes; no failure is ever reported.
#pragma once

#include <windows.h>

#include "base/vrect.h"
#include "base/vstring.h"
#include "settings/qmrecentlist.h"
#include "toolkit/vregkey.h"

// The platform's headers give this name to a macro of theirs.
#undef SetCurrentDirectory

// Bits of Flags.
inline constexpr DWORD QM_FLAG_FRAME_MAXIMIZED = 1;
inline constexpr DWORD QM_FLAG_CHILD_MAXIMIZED = 2;
inline constexpr DWORD QM_FLAG_TOOLBAR = 4;
inline constexpr DWORD QM_FLAG_STATUS_BAR = 8;
inline constexpr DWORD QM_FLAG_TRANSACTIONS_BAR = 16;

// Bits of Options - General.
inline constexpr DWORD QM_OPTION_RELOAD_LAST_FILE = 1;
inline constexpr DWORD QM_OPTION_CONFIRM_REMOVE = 2;
inline constexpr DWORD QM_OPTION_SHOW_SPLASH = 4;
inline constexpr DWORD QM_OPTION_INCLUDE_UNCLEARED = 8;
inline constexpr DWORD QM_OPTION_SORT_EDIT_LISTS = 16;

// The slots of the recent files in the registry. Without their key nothing is read or written.
class QMRegistrySlots : public QMRecentSlots
{
public:
    QMRegistrySlots();

    bool IsOpen() const { return m_key.IsOpen(); }
    bool Read(int nSlot, VString& sText) const override;
    void Write(int nSlot, const char* szText) override;

private:
    VRegKey m_key;
};

class QMSettings
{
public:
    // Reads what is there over the defaults. True on the very first start: every default is then
    // written, the directories taken from the program's own path.
    bool Load();

    DWORD GetFlags() const { return m_uFlags; }
    void SetFlag(DWORD uFlag, bool bSet);
    // The word as the registry has it now, if it is there, into memory.
    bool ReloadFlags();
    void WriteFlags() const;

    bool HasOption(DWORD uOption) const { return (m_uOptionsGeneral & uOption) != 0; }
    COLORREF GetBalancePositive() const { return m_crBalancePositive; }
    COLORREF GetBalanceNegative() const { return m_crBalanceNegative; }
    const VString& GetCurrentDirectory() const { return m_sCurrentDirectory; }
    void SetCurrentDirectory(const char* szPath);
    const VString& GetInstallDirectory() const { return m_sInstallDirectory; }

    // The frame's place when it is not maximized; empty when none is remembered.
    VRect GetPosition() const;
    // Replace one half of the place that is remembered; where none is, nothing is made.
    void WriteOrigin(int nLeft, int nTop) const;
    void WriteExtent(int nWidth, int nHeight) const;

private:
    void WriteDefaults();
    bool ReadPosition(int (&anNumbers)[4]) const;
    void WritePosition(const int (&anNumbers)[4]) const;

    DWORD m_uFlags = QM_FLAG_CHILD_MAXIMIZED | QM_FLAG_TOOLBAR | QM_FLAG_STATUS_BAR;
    DWORD m_uOptionsGeneral =
        QM_OPTION_RELOAD_LAST_FILE | QM_OPTION_CONFIRM_REMOVE | QM_OPTION_INCLUDE_UNCLEARED;
    DWORD m_uOptionsPrinting = 3; // page numbers, bank name
    COLORREF m_crBalancePositive = 8760651;
    COLORREF m_crBalanceNegative = 2638537;
    VString m_sCurrentDirectory;
    VString m_sInstallDirectory;
};
