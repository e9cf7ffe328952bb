#include "settings/qmsettings.h"

#include <algorithm>
#include <cstdio>

#include "base/vfilesystem.h"

namespace {

constexpr char szRootKey[] = R"(Software\Tarn Software\Quillmark)";
constexpr char szPageSetupKey[] = R"(Software\Tarn Software\Quillmark\Page Setup)";
constexpr char szSettingsKey[] = R"(Software\Tarn Software\Quillmark\Settings)";
constexpr char szRecentKey[] = R"(Software\Tarn Software\Quillmark\Recent File List)";

constexpr char szFallbackDirectory[] = R"(C:\Program Files\Tarn Software\Quillmark)";

// VRegKey::ReadNumber returns the default for a missing value, so a stored -1 counts as missing
// too.
constexpr DWORD uMissing = static_cast<DWORD>(-1);

void ReadOver(const VRegKey& key, const char* szName, DWORD& uValue)
{
    const DWORD uRead = key.ReadNumber(szName, uMissing);
    uValue = uRead == uMissing ? uValue : uRead;
}

VString SlotName(int nSlot)
{
    VString sName("File");
    sName.AppendNumber(static_cast<uint32_t>(nSlot + 1));
    return sName;
}

VString ProgramDirectory()
{
    char szPath[MAX_PATH] = "";
    GetModuleFileNameA(nullptr, szPath, sizeof szPath);
    VString sFolder;
    VString sFileName;
    VSplitPath(szPath, sFolder, sFileName);
    return sFolder.IsEmpty() ? VString(szFallbackDirectory) : sFolder.Left(sFolder.GetLength() - 1);
}

} // namespace

QMRegistrySlots::QMRegistrySlots()
{
    m_key.Open(szRecentKey);
}

bool QMRegistrySlots::Read(int nSlot, VString& sText) const
{
    return m_key.ReadText(SlotName(nSlot).GetText(), sText);
}

void QMRegistrySlots::Write(int nSlot, const char* szText)
{
    m_key.WriteText(SlotName(nSlot).GetText(), szText);
}

bool QMSettings::Load()
{
    VRegKey root;
    if (!root.Open(szRootKey)) {
        root.Create(szRootKey);
        WriteDefaults();
        return true;
    }
    VRegKey key;
    if (key.Open(szSettingsKey)) {
        ReadOver(key, "Options - General", m_uOptionsGeneral);
        ReadOver(key, "Options - Printing", m_uOptionsPrinting);
        ReadOver(key, "Balance Color Pos", m_crBalancePositive);
        ReadOver(key, "Balance Color Neg", m_crBalanceNegative);
        ReadOver(key, "Flags", m_uFlags);
        key.ReadText("Directory - Current", m_sCurrentDirectory);
        key.ReadText("Directory - Install", m_sInstallDirectory);
    }
    return false;
}

void QMSettings::WriteDefaults()
{
    m_sInstallDirectory = ProgramDirectory();
    VRegKey page;
    if (page.Create(szPageSetupKey)) {
        page.WriteText("Margins", "0750 0750 0750 0750");
        page.WriteNumber("Orientation", 1);
        page.WriteNumber("Paper Size", 1);
        page.WriteNumber("Paper Source", 7);
    }
    VRegKey settings;
    if (settings.Create(szSettingsKey)) {
        // Kept: only the registry gets this value. In memory the current directory stays empty
        // until a file dialog sets it.
        settings.WriteText("Directory - Current", m_sInstallDirectory.GetText());
        settings.WriteText("Directory - Install", m_sInstallDirectory.GetText());
        settings.WriteNumber("Flags", m_uFlags);
        settings.WriteNumber("Options - General", m_uOptionsGeneral);
        settings.WriteNumber("Options - Printing", m_uOptionsPrinting);
        settings.WriteNumber("Balance Color Pos", m_crBalancePositive);
        settings.WriteNumber("Balance Color Neg", m_crBalanceNegative);
        settings.WriteText("Position", "0000 0000 0000 0000");
        settings.WriteText("Calculator Position", "0000 0000");
    }
    VRegKey recent;
    if (recent.Create(szRecentKey)) {
        for (int nSlot = 0; nSlot < QM_RECENT_COUNT; ++nSlot) {
            recent.WriteText(SlotName(nSlot).GetText(), QM_RECENT_EMPTY);
        }
    }
}

void QMSettings::SetCurrentDirectory(const char* szPath)
{
    m_sCurrentDirectory = szPath;
    VRegKey key;
    if (key.Open(szSettingsKey)) {
        key.WriteText("Directory - Current", szPath);
    }
}

const char* QMSettings::GetKeyPath()
{
    return szSettingsKey;
}

void QMSettings::SetOptions(DWORD uGeneral, DWORD uPrinting, COLORREF crPositive,
                            COLORREF crNegative)
{
    m_uOptionsGeneral = uGeneral;
    m_uOptionsPrinting = uPrinting;
    m_crBalancePositive = crPositive;
    m_crBalanceNegative = crNegative;
    VRegKey key;
    if (key.Open(szSettingsKey)) {
        key.WriteNumber("Options - General", uGeneral);
        key.WriteNumber("Options - Printing", uPrinting);
        key.WriteNumber("Balance Color Pos", crPositive);
        key.WriteNumber("Balance Color Neg", crNegative);
    }
}

void QMSettings::SetFlag(DWORD uFlag, bool bSet)
{
    m_uFlags = bSet ? m_uFlags | uFlag : m_uFlags & ~uFlag;
    WriteFlags();
}

bool QMSettings::ReloadFlags()
{
    VRegKey key;
    const DWORD uRead = key.Open(szSettingsKey) ? key.ReadNumber("Flags", uMissing) : uMissing;
    if (uRead == uMissing) {
        return false;
    }
    m_uFlags = uRead;
    return true;
}

void QMSettings::WriteFlags() const
{
    VRegKey key;
    if (key.Open(szSettingsKey)) {
        key.WriteNumber("Flags", m_uFlags);
    }
}

QMPageSetup QMSettings::ReadPageSetup() const
{
    QMPageSetup setup;
    VRegKey key;
    if (key.Open(szPageSetupKey)) {
        key.ReadText("Margins", setup.sMargins);
        setup.lOrientation = static_cast<int32_t>(key.ReadNumber("Orientation", uMissing));
        setup.lPaperSize = static_cast<int32_t>(key.ReadNumber("Paper Size", uMissing));
        setup.lPaperSource = static_cast<int32_t>(key.ReadNumber("Paper Source", uMissing));
    }
    return setup;
}

void QMSettings::WritePageSetup(const QMPageSetup& setup) const
{
    VRegKey key;
    if (!key.Open(szPageSetupKey)) {
        return;
    }
    key.WriteText("Margins", setup.sMargins.GetText());
    const auto Write = [&](const char* szName, int32_t lValue) {
        if (lValue != QMPageSetup::lMissing) {
            key.WriteNumber(szName, static_cast<DWORD>(lValue));
        }
    };
    Write("Orientation", setup.lOrientation);
    Write("Paper Size", setup.lPaperSize);
    Write("Paper Source", setup.lPaperSource);
}

bool QMSettings::ReadPosition(int (&anNumbers)[4]) const
{
    VRegKey key;
    VString sText;
    return key.Open(szSettingsKey) && key.ReadText("Position", sText) &&
           sscanf(sText.GetText(), "%d %d %d %d", &anNumbers[0], &anNumbers[1], &anNumbers[2],
                  &anNumbers[3]) == 4;
}

void QMSettings::WritePosition(const int (&anNumbers)[4]) const
{
    VRegKey key;
    char szText[64];
    snprintf(szText, sizeof szText, "%04d %04d %04d %04d", anNumbers[0], anNumbers[1], anNumbers[2],
             anNumbers[3]);
    if (key.Open(szSettingsKey)) {
        key.WriteText("Position", szText);
    }
}

VRect QMSettings::GetPosition() const
{
    // Far outside any screen, and small enough that sums do not overflow.
    constexpr int nLimit = 100000;
    int anNumbers[4] = {};
    if (!ReadPosition(anNumbers)) {
        return {};
    }
    for (int& nNumber : anNumbers) {
        nNumber = std::clamp(nNumber, -nLimit, nLimit);
    }
    return {anNumbers[0], anNumbers[1], anNumbers[0] + anNumbers[2], anNumbers[1] + anNumbers[3]};
}

void QMSettings::WriteOrigin(int nLeft, int nTop) const
{
    int anNumbers[4];
    if (ReadPosition(anNumbers)) {
        anNumbers[0] = std::max(nLeft, 0);
        anNumbers[1] = std::max(nTop, 0);
        WritePosition(anNumbers);
    }
}

void QMSettings::WriteExtent(int nWidth, int nHeight) const
{
    int anNumbers[4];
    if (ReadPosition(anNumbers)) {
        anNumbers[2] = std::max(nWidth, 0);
        anNumbers[3] = std::max(nHeight, 0);
        WritePosition(anNumbers);
    }
}
