// QMSettings: what the program remembers between runs, in the registry of the current user. Each
// value is written when it changes. No failure is ever reported: without the registry, the values
// in memory serve for this run.
#pragma once

#include <windows.h>

#include "base/vrect.h"
#include "base/vstring.h"
#include "settings/qmpagesetup.h"
#include "settings/qmrecentlist.h"
#include "toolkit/vregkey.h"

// windows.h defines a macro of this name, which would rename the function below.
#undef SetCurrentDirectory

// Bits of the value "Flags".
inline constexpr DWORD QM_FLAG_FRAME_MAXIMIZED = 1;
inline constexpr DWORD QM_FLAG_CHILD_MAXIMIZED = 2;
inline constexpr DWORD QM_FLAG_TOOLBAR = 4;
inline constexpr DWORD QM_FLAG_STATUS_BAR = 8;
inline constexpr DWORD QM_FLAG_TRANSACTIONS_BAR = 16;

// Bits of the value "Options - General".
inline constexpr DWORD QM_OPTION_RELOAD_LAST_FILE = 1;
inline constexpr DWORD QM_OPTION_CONFIRM_REMOVE = 2;
inline constexpr DWORD QM_OPTION_SHOW_SPLASH = 4;
inline constexpr DWORD QM_OPTION_INCLUDE_UNCLEARED = 8;
inline constexpr DWORD QM_OPTION_SORT_EDIT_LISTS = 16;

// The recent files in the registry. Without their key nothing is read and nothing is written.
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
    // Reads the values that exist; the others keep their defaults. Returns true on the very first
    // start. Every default is then written, and the directories are taken from the path of the
    // program.
    bool Load();

    DWORD GetFlags() const { return m_uFlags; }
    void SetFlag(DWORD uFlag, bool bSet);
    // Reads "Flags" again from the registry into memory. Returns false when the value does not
    // exist.
    bool ReloadFlags();
    void WriteFlags() const;

    // Where the values are that the rest of the program keeps for itself, below the current user's
    // branch.
    static const char* GetKeyPath();

    DWORD GetGeneralOptions() const { return m_uOptionsGeneral; }
    // Takes over what the options' sheet ended with, and writes it where the key can be opened.
    void SetOptions(DWORD uGeneral, DWORD uPrinting, COLORREF crPositive, COLORREF crNegative);

    bool HasOption(DWORD uOption) const { return (m_uOptionsGeneral & uOption) != 0; }
    DWORD GetPrintingOptions() const { return m_uOptionsPrinting; }
    COLORREF GetBalancePositive() const { return m_crBalancePositive; }
    COLORREF GetBalanceNegative() const { return m_crBalanceNegative; }
    const VString& GetCurrentDirectory() const { return m_sCurrentDirectory; }
    void SetCurrentDirectory(const char* szPath);
    const VString& GetInstallDirectory() const { return m_sInstallDirectory; }

    // The page setup. Missing values are written as they are: not at all.
    QMPageSetup ReadPageSetup() const;
    void WritePageSetup(const QMPageSetup& setup) const;

    // The place of the frame when it is not maximized, in pixels of the screen. Empty when none is
    // stored.
    VRect GetPosition() const;
    // Replace the left and top, or the width and height, of the stored place. When no place is
    // stored, they do nothing.
    void WriteOrigin(int nLeft, int nTop) const;
    void WriteExtent(int nWidth, int nHeight) const;

private:
    void WriteDefaults();
    bool ReadPosition(int (&anNumbers)[4]) const;
    void WritePosition(const int (&anNumbers)[4]) const;

    DWORD m_uFlags = QM_FLAG_CHILD_MAXIMIZED | QM_FLAG_TOOLBAR | QM_FLAG_STATUS_BAR;
    DWORD m_uOptionsGeneral =
        QM_OPTION_RELOAD_LAST_FILE | QM_OPTION_CONFIRM_REMOVE | QM_OPTION_INCLUDE_UNCLEARED;
    DWORD m_uOptionsPrinting = 3; // bit 0: page numbers, bit 1: bank name
    COLORREF m_crBalancePositive = 8760651;
    COLORREF m_crBalanceNegative = 2638537;
    VString m_sCurrentDirectory;
    VString m_sInstallDirectory;
};
