// What the program writes into the registry, and what it makes of what it finds there.

#include "resources/resource.h"
#include "tests/e2e/currentfolder.h"
#include "tests/e2e/dialogwindow.h"
#include "tests/e2e/e2e_test.h"

namespace {

class SettingsTest : public E2ETest
{
protected:
    static std::vector<std::string> Defaults(const std::string& sPosition)
    {
        const std::string sFolder = ProgramFolder().substr(0, ProgramFolder().size() - 1);
        return {"Page Setup|Margins|text|0750 0750 0750 0750",
                "Page Setup|Orientation|number|1",
                "Page Setup|Paper Size|number|1",
                "Page Setup|Paper Source|number|7",
                "Recent File List|File10|text|Empty",
                "Recent File List|File1|text|Empty",
                "Recent File List|File2|text|Empty",
                "Recent File List|File3|text|Empty",
                "Recent File List|File4|text|Empty",
                "Recent File List|File5|text|Empty",
                "Recent File List|File6|text|Empty",
                "Recent File List|File7|text|Empty",
                "Recent File List|File8|text|Empty",
                "Recent File List|File9|text|Empty",
                "Settings|Balance Color Neg|number|2638537",
                "Settings|Balance Color Pos|number|8760651",
                "Settings|Calculator Position|text|0000 0000",
                "Settings|Directory - Current|text|" + sFolder,
                "Settings|Directory - Install|text|" + sFolder,
                "Settings|Flags|number|14",
                "Settings|Options - General|number|11",
                "Settings|Options - Printing|number|3",
                "Settings|Position|text|" + sPosition};
    }

    std::string FramePosition() const
    {
        const VRect place = WindowRect(m_program.GetFrame());
        char szText[64];
        snprintf(szText, sizeof szText, "%04d %04d %04d %04d", place.left, place.top,
                 place.GetWidth(), place.GetHeight());
        return szText;
    }
};

TEST_F(SettingsTest, FirstStartWritesTheDefaultsAndNothingElse)
{
    m_program.Open();
    // The program has stored the place that Windows gave to the frame.
    const std::string sPosition = ReadPosition();
    EXPECT_EQ(sPosition, FramePosition());
    EXPECT_EQ(AllSettings(), Defaults(sPosition));
}

// Kept: the registry gets the folder of installation as the current one, and the first run does
// not.
TEST_F(SettingsTest, FirstStartOpensFilesWhereItWasStarted)
{
    const std::string sPath = CopySample("here.qmk");
    {
        const CurrentFolder folder(PathOf(""));
        m_program.Open();
    }
    m_program.Post(IDM_FILE_OPEN);
    AwaitFileDialog(m_program, "Open").Enter("here.qmk");
    Await("the account", [&] { return m_program.GetDocumentTitles() == Texts{sPath}; });
    EXPECT_EQ(ReadSettingText("Settings", "Directory - Current"),
              sPath.substr(0, sPath.rfind('\\')));
}

TEST_F(SettingsTest, FirstRunThatChangesNothingLeavesTheDefaults)
{
    m_program.Open();
    const std::vector<std::string> before = AllSettings();
    EXPECT_EQ(m_program.Close(), 0U);
    EXPECT_EQ(AllSettings(), before);
}

TEST_F(SettingsTest, LaterStartTakesWhatIsThere)
{
    m_program.Open();
    m_program.Close();
    WriteSettingNumber("Settings", "Flags", 0);
    m_program.Open();
    EXPECT_FALSE(IsWindowVisible(m_program.GetToolbar()));
    EXPECT_FALSE(IsWindowVisible(m_program.GetStatusBar()));
    EXPECT_EQ(ReadFlags(), 0U);
    m_program.NewDocument(1);
    EXPECT_FALSE(IsZoomed(m_program.GetActiveDocument()));
}

TEST_F(SettingsTest, RemovedValuesTakeTheirDefaultsAndStayRemoved)
{
    m_program.Open();
    m_program.Close();
    for (const char* szName : {"Options - General", "Options - Printing", "Balance Color Pos",
                               "Balance Color Neg", "Position", "Directory - Current"}) {
        RemoveSetting("Settings", szName);
    }
    m_program.Open({CopySample()});
    EXPECT_EQ(m_program.GetDocuments().size(), 1U);
    SetWindowPos(m_program.GetFrame(), nullptr, 50, 60, 700, 500, SWP_NOZORDER);
    EXPECT_EQ(m_program.Close(), 0U);
    EXPECT_EQ(ReadPosition(), "(none)");
    EXPECT_EQ(ReadSettingNumber("Settings", "Options - General"), 0xFFFFFFFF);
    EXPECT_EQ(ReadSettingNumber("Settings", "Options - Printing"), 0xFFFFFFFF);
    EXPECT_EQ(ReadSettingNumber("Settings", "Balance Color Pos"), 0xFFFFFFFF);
    EXPECT_EQ(ReadSettingNumber("Settings", "Balance Color Neg"), 0xFFFFFFFF);
    EXPECT_EQ(ReadSettingText("Settings", "Directory - Current"), "(none)");
}

TEST_F(SettingsTest, RootKeyAloneIsNoFirstStart)
{
    WriteSettingText("", "made", "by hand");
    m_program.Open();
    EXPECT_TRUE(IsWindowVisible(m_program.GetToolbar()));
    EXPECT_TRUE(IsWindowVisible(m_program.GetStatusBar()));
    EXPECT_EQ(AllSettings(), std::vector<std::string>{"|made|text|by hand"});
}

TEST_F(SettingsTest, OptionIncludeUnclearedDecidesTheBalances)
{
    const auto fill = [](QMAccount& account) {
        account.store.Add(std::make_unique<QMTransaction>(
            MakeTransaction(QM_TRANS_CHECK, "1/2/2004", 10, 0, "cleared")));
        account.store.Add(std::make_unique<QMTransaction>(
            MakeTransaction(QM_TRANS_DEPOSIT, "1/3/2004", 25, QM_TRANS_FLAG_NOT_CLEARED)));
    };
    const std::string sPath = MakeAccount("two.qmk", 0, fill);
    constexpr int nBalanceColumn = 6;
    m_program.Open({sPath});
    EXPECT_EQ(ActiveList().ReadCell(1, nBalanceColumn), "15.00");
    EXPECT_EQ(ActiveList().ReadData(0, 2), (std::vector<uint32_t>{2 | 32, 1}));
    m_program.Close();
    WriteSettingNumber("Settings", "Options - General", 3);
    m_program.Open({sPath});
    EXPECT_EQ(ActiveList().ReadCell(1, nBalanceColumn), "-10.00");
    EXPECT_EQ(ActiveList().ReadData(0, 2), (std::vector<uint32_t>{2 | 32, 2}));
    EXPECT_EQ(m_program.GetPaneText(2), " Balance: $-10.00");
    EXPECT_EQ(m_program.GetPaneText(3), " Available: $15.00");
}

// ---- Damaged settings.

struct Damage
{
    const char* szName;
    const char* szValue;
    DWORD uType;
    std::string sBytes;
};

std::string NumberBytes(DWORD uNumber)
{
    return {reinterpret_cast<const char*>(&uNumber), sizeof uNumber};
}

const Damage aDamages[] = {
    {"FlagsAsText", "Flags", REG_SZ, std::string("fourteen", 9)},
    {"FlagsTooShort", "Flags", REG_DWORD, std::string("\x01", 1)},
    {"FlagsTooLong", "Flags", REG_BINARY, std::string(3000, '\xFF')},
    {"FlagsAllSet", "Flags", REG_DWORD, NumberBytes(0xFFFFFFFE)},
    {"FlagsMissing", "Flags", REG_DWORD, NumberBytes(0xFFFFFFFF)},
    {"OptionsAllSet", "Options - General", REG_DWORD, NumberBytes(0xFFFFFFF7)},
    {"OptionsAsText", "Options - General", REG_SZ, std::string("x\0", 2)},
    {"PrintingAbsurd", "Options - Printing", REG_DWORD, NumberBytes(0x80000000)},
    {"ColorAbsurd", "Balance Color Pos", REG_DWORD, NumberBytes(0xFF123456)},
    {"PositionAsNumber", "Position", REG_DWORD, NumberBytes(77)},
    {"PositionWords", "Position", REG_SZ, std::string("left top wide high", 19)},
    {"PositionThreeNumbers", "Position", REG_SZ, std::string("1 2 3", 6)},
    {"PositionHuge", "Position", REG_SZ,
     std::string("2147483647 2147483647 2147483647 2147483647", 44)},
    {"PositionBeyondNumbers", "Position", REG_SZ,
     std::string("99999999999999999999 -99999999999999999999 1 1", 47)},
    {"PositionNegative", "Position", REG_SZ,
     std::string("-2147483648 -2147483648 -2147483648 -2147483648", 48)},
    {"PositionUnended", "Position", REG_SZ, std::string("0010 0010 0600 0400")},
    {"PositionTooLong", "Position", REG_SZ, std::string(5000, '9')},
    {"DirectoryTooLong", "Directory - Current", REG_SZ, std::string(5000, 'd')},
    {"DirectoryJustTooLong", "Directory - Current", REG_SZ, std::string(1024, 'd')},
    {"DirectoryBinary", "Directory - Install", REG_BINARY, std::string(2000, '\x80')},
    {"DirectoryEmpty", "Directory - Install", REG_SZ, ""},
};

class DamagedSettingsTest : public E2ETest, public testing::WithParamInterface<Damage>
{};

TEST_P(DamagedSettingsTest, DoNotKeepTheProgramFromWorking)
{
    const Damage& damage = GetParam();
    m_program.Open();
    m_program.Close();
    WriteSettingBytes("Settings", damage.szValue, damage.uType, damage.sBytes);
    m_program.Open({CopySample()});
    EXPECT_TRUE(m_program.GetBoxes().empty());
    EXPECT_EQ(ActiveList().GetRowCount(), 447);
    EXPECT_EQ(m_program.Close(), 0U);
}

std::string NameOfDamage(const testing::TestParamInfo<Damage>& test)
{
    return test.param.szName;
}

INSTANTIATE_TEST_SUITE_P(All, DamagedSettingsTest, testing::ValuesIn(aDamages), NameOfDamage);

// ---- The same damage to every value of every key at once.

struct Absurdity
{
    const char* szName;
    DWORD uType;
    std::string sBytes;
};

const Absurdity aAbsurdities[] = {
    {"AllBitsSet", REG_DWORD, NumberBytes(0xFFFFFFFE)},
    {"HighestBit", REG_DWORD, NumberBytes(0x80000000)},
    {"GreatestNumber", REG_DWORD, NumberBytes(0x7FFFFFFF)},
    {"Zero", REG_DWORD, NumberBytes(0)},
    {"NumberOfOneByte", REG_DWORD, std::string("\x01", 1)},
    {"NumberOfEightBytes", REG_QWORD, std::string(8, '\xFF')},
    {"NoBytesOfANumber", REG_DWORD, ""},
    {"NoBytesOfAText", REG_SZ, ""},
    {"EmptyText", REG_SZ, std::string(1, '\0')},
    {"Words", REG_SZ, std::string("none of your business", 22)},
    {"TextWithoutAnEnd", REG_SZ, "0010 0010 0600 0400"},
    {"HugeNumbersAsText", REG_SZ,
     std::string("99999999999 99999999999 99999999999 99999999999", 48)},
    {"NegativeNumbersAsText", REG_SZ,
     std::string("-2147483648 -2147483648 -2147483648 -2147483648", 48)},
    {"Formats", REG_SZ, std::string("%s%s%n%d %d%%x", 15)},
    {"TextOf5000", REG_SZ, std::string(5000, 'd') + std::string(1, '\0')},
    {"TextThatAsksForMore", REG_EXPAND_SZ, std::string("%PATH%%PATH%%PATH%", 19)},
    {"ManyTexts", REG_MULTI_SZ, std::string("one\0two\0\0", 10)},
    {"Bytes", REG_BINARY, std::string(3000, '\x80')},
    {"NoTypeAtAll", REG_NONE, ""},
};

class AbsurdSettingsTest : public E2ETest, public testing::WithParamInterface<Absurdity>
{
protected:
    // Replaces every value that a first start has made.
    static void SpoilAll(const Absurdity& absurdity)
    {
        int nSpoilt = 0;
        for (const std::string& sLine : AllSettings()) {
            const size_t uName = sLine.find('|') + 1;
            const std::string sKey = sLine.substr(0, uName - 1);
            const std::string sName = sLine.substr(uName, sLine.find('|', uName) - uName);
            WriteSettingBytes(sKey.c_str(), sName.c_str(), absurdity.uType, absurdity.sBytes);
            ++nSpoilt;
        }
        EXPECT_EQ(nSpoilt, 23) << "the test must spoil all values of the three keys";
    }

    // Opens what reads settings of its own, and closes it again.
    void Visit(UINT uCommand, const std::string& sCaption) const
    {
        m_program.Post(uCommand);
        const DialogWindow dialog = AwaitDialog(m_program, sCaption);
        dialog.Close();
        dialog.AwaitEnd();
        m_program.Settle();
    }
};

TEST_P(AbsurdSettingsTest, DoNotKeepTheProgramFromWorking)
{
    const std::string sPath = CopySample();
    m_program.Open();
    m_program.Close();
    SpoilAll(GetParam());
    m_program.Open({sPath});
    m_program.AwaitActive(sPath);
    EXPECT_EQ(ActiveList().GetRowCount(), 447);
    Visit(IDM_TOOLS_OPTIONS, "Options - household.qmk");
    Visit(IDM_TOOLS_CALCULATOR, "Calculator");
    Visit(IDM_FILE_OPEN, "Open");
    EXPECT_TRUE(m_program.GetBoxes().empty());
    EXPECT_EQ(m_program.Close(), 0U);
    // And once more, with what that run has left.
    m_program.Open({sPath});
    m_program.AwaitActive(sPath);
    EXPECT_EQ(m_program.Close(), 0U);
}

std::string NameOfAbsurdity(const testing::TestParamInfo<Absurdity>& test)
{
    return test.param.szName;
}

INSTANTIATE_TEST_SUITE_P(All, AbsurdSettingsTest, testing::ValuesIn(aAbsurdities), NameOfAbsurdity);

TEST_F(SettingsTest, EveryValueOfAWrongTypeAtOnceLeavesTheDefaults)
{
    m_program.Open();
    m_program.Close();
    for (const char* szName : {"Options - General", "Options - Printing", "Balance Color Pos",
                               "Balance Color Neg", "Flags"}) {
        WriteSettingText("Settings", szName, "no number");
    }
    WriteSettingNumber("Settings", "Position", 5);
    WriteSettingNumber("Settings", "Directory - Current", 5);
    m_program.Open();
    EXPECT_TRUE(IsWindowVisible(m_program.GetToolbar()));
    EXPECT_TRUE(IsWindowVisible(m_program.GetStatusBar()));
    m_program.NewDocument(1);
    EXPECT_TRUE(IsZoomed(m_program.GetActiveDocument()));
}

} // namespace
