// The submenu of recent files, and the list in the registry.

#include <algorithm>

#include "tests/e2e/dialogwindow.h"
#include "tests/e2e/e2e_test.h"

namespace {

constexpr char szKey[] = "Recent File List";
constexpr UINT uFirst = IDM_FILE_RECENT_FIRST;

std::string SlotName(size_t uSlot)
{
    return "File" + std::to_string(uSlot + 1);
}

std::string DoesNotExist(const std::string& sPath)
{
    return "File '" + sPath + "' does not exist.";
}

class RecentTest : public E2ETest
{
protected:
    // Settings as an earlier run left them, with these files.
    static void Remember(const Texts& paths, bool bReload = false)
    {
        for (size_t u = 0; u < 10; ++u) {
            WriteSettingText(szKey, SlotName(u).c_str(), u < paths.size() ? paths[u] : "Empty");
        }
        WriteSettingNumber("Settings", "Options - General", bReload ? 11 : 10);
        WriteSettingNumber("Settings", "Flags", 14);
    }

    // The files in the registry, without the free slots at the end.
    static Texts Stored()
    {
        Texts texts;
        for (size_t u = 0; u < 10; ++u) {
            texts.push_back(ReadSettingText(szKey, SlotName(u).c_str()));
        }
        while (!texts.empty() && texts.back() == "Empty") {
            texts.pop_back();
        }
        return texts;
    }

    // The lines that the submenu shows.
    Texts Labels() const
    {
        Texts labels;
        for (UINT uId = uFirst; uId <= IDM_FILE_RECENT_EMPTY; ++uId) {
            if (m_program.GetMenuItem(uId) != MenuItem::Missing) {
                labels.push_back(m_program.GetMenuText(uId));
            }
        }
        return labels;
    }

    // Accounts a.qmk, b.qmk and so on, with one transaction, two and so on.
    Texts MakeAccounts(size_t uCount) const
    {
        Texts paths;
        for (size_t u = 0; u < uCount; ++u) {
            paths.push_back(MakeAccount(std::string(1, static_cast<char>('a' + u)) + ".qmk",
                                        static_cast<int>(u) + 1));
        }
        return paths;
    }

    // Chooses a line of the submenu. nLine counts from 1.
    void Choose(UINT uLine) const
    {
        m_program.Post(uFirst + uLine - 1);
        m_program.Settle();
    }
};

// ---- What the submenu shows.

TEST_F(RecentTest, EmptyListShowsOneDisabledLine)
{
    m_program.Open();
    EXPECT_EQ(Labels(), Texts{"Empty"});
    EXPECT_EQ(m_program.GetMenuItem(IDM_FILE_RECENT_EMPTY), MenuItem::Grayed);
    // The same for a command that a key sends, and for a slot that the menu does not show.
    m_program.Post(IDM_FILE_RECENT_EMPTY);
    Choose(1);
    Choose(10);
    EXPECT_TRUE(m_program.GetDocuments().empty());
    EXPECT_TRUE(m_program.GetBoxes().empty());
}

TEST_F(RecentTest, OpenedFilesAreNumberedFromTheLatest)
{
    const Texts paths = MakeAccounts(3);
    m_program.Open(paths);
    EXPECT_EQ(Labels(), (Texts{"&1 c.qmk", "&2 b.qmk", "&3 a.qmk"}));
    EXPECT_EQ(Stored(), (Texts{paths[2], paths[1], paths[0]}));
    for (UINT uId = uFirst; uId < uFirst + 3; ++uId) {
        EXPECT_EQ(m_program.GetMenuItem(uId), MenuItem::Enabled);
    }
    EXPECT_EQ(m_program.GetMenuItem(IDM_FILE_RECENT_EMPTY), MenuItem::Missing);
}

TEST_F(RecentTest, FilesOfTheSameNameLookAlike)
{
    CreateDirectoryA(PathOf("other").c_str(), nullptr);
    const Texts paths = {MakeAccount("same.qmk", 1), MakeAccount("other\\same.qmk", 2)};
    m_program.Open(paths);
    EXPECT_EQ(Labels(), (Texts{"&1 same.qmk", "&2 same.qmk"}));
    Choose(2);
    m_program.AwaitActive(paths[0]);
}

TEST_F(RecentTest, AmpersandOfANameIsNoMnemonic)
{
    m_program.Open({MakeAccount("yours & mine.qmk", 1)});
    EXPECT_EQ(Labels(), Texts{"&1 yours && mine.qmk"});
}

TEST_F(RecentTest, TenthLineHasItsWholeNumber)
{
    Remember(Texts(10, "C:\\folder\\file.qmk"));
    m_program.Open();
    ASSERT_EQ(Labels().size(), 10U);
    EXPECT_EQ(Labels()[8], "&9 file.qmk");
    EXPECT_EQ(Labels()[9], "&10 file.qmk");
}

TEST_F(RecentTest, GapByHandCutsTheMenu)
{
    const Texts paths = MakeAccounts(3);
    Remember({paths[0], "Empty", paths[2]});
    m_program.Open();
    EXPECT_EQ(Labels(), Texts{"&1 a.qmk"});
    m_program.Close();
    Remember({"Empty", paths[1], paths[2]});
    m_program.Open();
    EXPECT_EQ(Labels(), Texts{"Empty"});
    EXPECT_EQ(m_program.GetMenuItem(IDM_FILE_RECENT_EMPTY), MenuItem::Grayed);
    // The gap moves down like a file. The files after it show again when they are opened.
    HandOverFile(paths[2]);
    EXPECT_EQ(Labels(), Texts{"&1 c.qmk"});
    EXPECT_EQ(Stored(), (Texts{paths[2], "Empty", paths[1]}));
}

TEST_F(RecentTest, NewDocumentIsNoFile)
{
    m_program.Open();
    m_program.NewDocument(1);
    EXPECT_EQ(Labels(), Texts{"Empty"});
    EXPECT_EQ(Stored(), Texts{});
}

TEST_F(RecentTest, ListIsThereAgainInTheNextRun)
{
    const Texts paths = MakeAccounts(2);
    m_program.Open(paths);
    m_program.Close();
    const Texts stored = Stored();
    WriteSettingNumber("Settings", "Options - General", 10);
    m_program.Open();
    EXPECT_EQ(Labels(), (Texts{"&1 b.qmk", "&2 a.qmk"}));
    EXPECT_EQ(Stored(), stored);
    EXPECT_TRUE(m_program.GetDocuments().empty());
}

// ---- What changes the list.

TEST_F(RecentTest, EleventhFileDropsTheOldest)
{
    Texts paths = MakeAccounts(11);
    m_program.Open(paths);
    std::reverse(paths.begin(), paths.end());
    paths.pop_back();
    EXPECT_EQ(Stored(), paths);
    ASSERT_EQ(Labels().size(), 10U);
    EXPECT_EQ(Labels()[0], "&1 k.qmk");
    EXPECT_EQ(Labels()[9], "&10 b.qmk");
}

TEST_F(RecentTest, SeventhMovesUpAndTheLastThreeStay)
{
    Texts paths = MakeAccounts(10);
    Remember(paths);
    m_program.Open();
    Choose(7);
    m_program.AwaitActive(paths[6]);
    EXPECT_EQ(ActiveList().GetRowCount(), 7);
    std::rotate(paths.begin(), paths.begin() + 6, paths.begin() + 7);
    EXPECT_EQ(Stored(), paths);
    EXPECT_EQ(Labels()[0], "&1 g.qmk");
    EXPECT_EQ(Labels()[6], "&7 f.qmk");
    EXPECT_EQ(Labels()[7], "&8 h.qmk");
}

TEST_F(RecentTest, ChoosingAnOpenFileActivatesItAndMovesItUp)
{
    const Texts paths = MakeAccounts(3);
    m_program.Open(paths);
    Choose(3);
    m_program.AwaitActive(paths[0]);
    EXPECT_EQ(m_program.GetDocuments().size(), 3U);
    EXPECT_EQ(Stored(), (Texts{paths[0], paths[2], paths[1]}));
    EXPECT_EQ(Labels(), (Texts{"&1 a.qmk", "&2 c.qmk", "&3 b.qmk"}));
}

TEST_F(RecentTest, OpeningAnOpenFileInAnotherWayLeavesTheList)
{
    const Texts paths = MakeAccounts(2);
    m_program.Open(paths);
    HandOverFile(paths[0]);
    EXPECT_EQ(Stored(), (Texts{paths[1], paths[0]}));
}

TEST_F(RecentTest, FileInOtherLettersIsTheSame)
{
    const Texts paths = MakeAccounts(2);
    std::string sCapitals = paths[1];
    CharUpperA(sCapitals.data());
    Remember({paths[0], sCapitals});
    m_program.Open({paths[1]});
    EXPECT_EQ(Stored(), (Texts{paths[1], paths[0]}));
    EXPECT_EQ(Labels(), (Texts{"&1 b.qmk", "&2 a.qmk"}));
}

TEST_F(RecentTest, DeadEntryIsNamedAndTakenOff)
{
    const Texts paths = MakeAccounts(3);
    Remember({paths[0], PathOf("gone.qmk"), paths[1], paths[2]});
    m_program.Open();
    // The program does not test whether a file exists before the user chooses it.
    EXPECT_EQ(Labels(), (Texts{"&1 a.qmk", "&2 gone.qmk", "&3 b.qmk", "&4 c.qmk"}));
    m_program.Post(uFirst + 1);
    m_program.AnswerBox(DoesNotExist(PathOf("gone.qmk")));
    m_program.Settle();
    EXPECT_EQ(Stored(), (Texts{paths[0], paths[1], paths[2]}));
    EXPECT_EQ(Labels(), (Texts{"&1 a.qmk", "&2 b.qmk", "&3 c.qmk"}));
    EXPECT_TRUE(m_program.GetDocuments().empty());
    Choose(2);
    m_program.AwaitActive(paths[1]);
}

TEST_F(RecentTest, FolderInTheListIsDead)
{
    CreateDirectoryA(PathOf("folder.qmk").c_str(), nullptr);
    Remember({PathOf("folder.qmk")});
    m_program.Open();
    m_program.Post(uFirst);
    m_program.AnswerBox(DoesNotExist(PathOf("folder.qmk")));
    m_program.Settle();
    EXPECT_EQ(Labels(), Texts{"Empty"});
    EXPECT_EQ(m_program.GetMenuItem(IDM_FILE_RECENT_EMPTY), MenuItem::Grayed);
}

TEST_F(RecentTest, RefusedFileStaysInItsPlace)
{
    const Texts paths = MakeAccounts(2);
    const std::string sBad = MakeFile("bad.qmk", "no account");
    Remember({paths[0], sBad, paths[1]});
    m_program.Open();
    m_program.Post(uFirst + 1);
    m_program.AnswerBox("Failed to open file '" + sBad + "'.");
    m_program.Settle();
    EXPECT_EQ(Stored(), (Texts{paths[0], sBad, paths[1]}));
    EXPECT_EQ(Labels(), (Texts{"&1 a.qmk", "&2 bad.qmk", "&3 b.qmk"}));
}

TEST_F(RecentTest, FileThatIsRefusedByNameDoesNotComeIn)
{
    const std::string sBad = MakeFile("bad.qmk", "no account");
    m_program.Start({sBad});
    m_program.AnswerBox("Failed to open file '" + sBad + "'.");
    m_program.AwaitFrame();
    EXPECT_EQ(Labels(), Texts{"Empty"});
}

TEST_F(RecentTest, SavingInPlaceLeavesTheList)
{
    const Texts paths = MakeAccounts(2);
    m_program.Open(paths);
    HandOverFile(paths[0]);
    m_program.Post(IDM_FILE_SAVE);
    m_program.Post(IDM_FILE_SAVEALL);
    m_program.Settle();
    EXPECT_TRUE(m_program.GetBoxes().empty());
    EXPECT_EQ(Stored(), (Texts{paths[1], paths[0]}));
    EXPECT_EQ(Labels(), (Texts{"&1 b.qmk", "&2 a.qmk"}));
}

TEST_F(RecentTest, SavingUnderANameComesOnTop)
{
    const Texts paths = MakeAccounts(2);
    m_program.Open(paths);
    HandOverFile(paths[0]);
    m_program.Post(IDM_FILE_SAVEAS);
    AwaitFileDialog(m_program, "Save As").Enter(PathOf("new.qmk"));
    m_program.Settle();
    // The old name stays in the list.
    EXPECT_EQ(Stored(), (Texts{PathOf("new.qmk"), paths[1], paths[0]}));
    EXPECT_EQ(Labels(), (Texts{"&1 new.qmk", "&2 b.qmk", "&3 a.qmk"}));
}

TEST_F(RecentTest, FirstSaveOfANewDocumentComesOnTop)
{
    const Texts paths = MakeAccounts(1);
    m_program.Open(paths);
    m_program.NewDocument(1);
    m_program.Post(IDM_FILE_SAVE);
    AwaitFileDialog(m_program, "Save As").Enter(PathOf("first.qmk"));
    m_program.Settle();
    EXPECT_EQ(Stored(), (Texts{PathOf("first.qmk"), paths[0]}));
    EXPECT_EQ(Labels(), (Texts{"&1 first.qmk", "&2 a.qmk"}));
    m_program.Post(IDM_FILE_SAVE);
    m_program.Settle();
    EXPECT_EQ(Stored(), (Texts{PathOf("first.qmk"), paths[0]}));
}

TEST_F(RecentTest, CancelledSaveLeavesTheList)
{
    const Texts paths = MakeAccounts(1);
    m_program.Open(paths);
    m_program.Post(IDM_FILE_SAVEAS);
    AwaitFileDialog(m_program, "Save As").End(IDCANCEL);
    m_program.Settle();
    EXPECT_EQ(Stored(), paths);
}

TEST_F(RecentTest, FileOfTheOpenDialogComesOnTop)
{
    const Texts paths = MakeAccounts(2);
    m_program.Open({paths[0]});
    m_program.Post(IDM_FILE_OPEN);
    AwaitFileDialog(m_program, "Open").Enter(paths[1]);
    m_program.AwaitActive(paths[1]);
    m_program.Settle();
    EXPECT_EQ(Stored(), (Texts{paths[1], paths[0]}));
    EXPECT_EQ(Labels(), (Texts{"&1 b.qmk", "&2 a.qmk"}));
}

// ---- Reload Last File.

TEST_F(RecentTest, LastFileIsReloadedAtStart)
{
    const Texts paths = MakeAccounts(2);
    Remember({paths[1], paths[0]}, true);
    m_program.Open();
    m_program.AwaitActive(paths[1]);
    EXPECT_EQ(m_program.GetDocuments().size(), 1U);
    EXPECT_EQ(Stored(), (Texts{paths[1], paths[0]}));
}

TEST_F(RecentTest, WithoutTheOptionNothingIsReloaded)
{
    Remember(MakeAccounts(2), false);
    m_program.Open();
    EXPECT_TRUE(m_program.GetDocuments().empty());
    EXPECT_TRUE(m_program.GetBoxes().empty());
}

TEST_F(RecentTest, FileOfTheCommandLineComesInsteadOfTheLast)
{
    const Texts paths = MakeAccounts(2);
    Remember({paths[0]}, true);
    m_program.Open({paths[1]});
    EXPECT_EQ(m_program.GetDocumentTitles(), Texts{paths[1]});
    EXPECT_EQ(Stored(), (Texts{paths[1], paths[0]}));
}

TEST_F(RecentTest, VanishedLastFileIsNamedAtStartAndTakenOff)
{
    const Texts paths = MakeAccounts(1);
    Remember({PathOf("gone.qmk"), paths[0]}, true);
    m_program.Start({});
    m_program.AnswerBox(DoesNotExist(PathOf("gone.qmk")));
    m_program.AwaitFrame();
    EXPECT_TRUE(m_program.GetDocuments().empty());
    EXPECT_EQ(Stored(), Texts{paths[0]});
    EXPECT_EQ(Labels(), Texts{"&1 a.qmk"});
}

TEST_F(RecentTest, NothingToReloadIsNothingToSay)
{
    Remember({}, true);
    m_program.Open();
    EXPECT_TRUE(m_program.GetDocuments().empty());
    EXPECT_TRUE(m_program.GetBoxes().empty());
}

// ---- Damage.

TEST_F(RecentTest, WithoutTheKeyNothingIsKeptNorSaid)
{
    const Texts paths = MakeAccounts(2);
    Remember({paths[0]}, true);
    RemoveSettingsKey(szKey);
    m_program.Open();
    EXPECT_TRUE(m_program.GetDocuments().empty());
    EXPECT_EQ(Labels(), Texts{"Empty"});
    EXPECT_EQ(m_program.GetMenuItem(IDM_FILE_RECENT_EMPTY), MenuItem::Grayed);
    Choose(1);
    HandOverFile(paths[1]);
    EXPECT_TRUE(m_program.GetBoxes().empty());
    EXPECT_EQ(Labels(), Texts{"Empty"});
    EXPECT_EQ(ReadSettingText(szKey, "File1"), "(none)");
}

TEST_F(RecentTest, KeyThatGoesDuringTheRunLeavesTheMenuAsItWas)
{
    const Texts paths = MakeAccounts(2);
    m_program.Open({paths[0]});
    RemoveSettingsKey(szKey);
    HandOverFile(paths[1]);
    Choose(1);
    EXPECT_TRUE(m_program.GetBoxes().empty());
    EXPECT_EQ(Labels(), Texts{"&1 a.qmk"});
    EXPECT_EQ(m_program.GetActiveTitle(), paths[1]);
}

TEST_F(RecentTest, MissingValueCutsTheMenuAndIsFilledFromAbove)
{
    const Texts paths = MakeAccounts(4);
    Remember({paths[0], paths[1], paths[2]});
    RemoveSetting(szKey, "File2");
    m_program.Open();
    EXPECT_EQ(Labels(), Texts{"&1 a.qmk"});
    HandOverFile(paths[3]);
    // The third file stays in its place and also moves down, because nothing came from above it.
    EXPECT_EQ(Stored(), (Texts{paths[3], paths[0], paths[2], paths[2]}));
    EXPECT_EQ(Labels(), (Texts{"&1 d.qmk", "&2 a.qmk", "&3 c.qmk", "&4 c.qmk"}));
}

struct Damage
{
    const char* szName;
    DWORD uType;
    std::string sBytes;
};

// None of these can be read as a text.
const Damage aDamages[] = {
    {"Number", REG_DWORD, std::string("\x05\0\0\0", 4)},
    {"Binary", REG_BINARY, std::string("C:\\a.qmk", 9)},
    {"SeveralTexts", REG_MULTI_SZ, std::string("C:\\a.qmk\0\0", 10)},
    {"Text1024", REG_SZ, std::string(1024, 'd') + std::string(1, '\0')},
    {"Text5000", REG_SZ, std::string(5000, 'd') + std::string(1, '\0')},
    {"NothingAtAll", REG_NONE, std::string()},
};

class DamagedRecentTest : public RecentTest, public testing::WithParamInterface<Damage>
{};

TEST_P(DamagedRecentTest, IsPassedOverInSilence)
{
    const Texts paths = MakeAccounts(2);
    Remember({"damaged below", paths[0]}, true);
    WriteSettingBytes(szKey, "File1", GetParam().uType, GetParam().sBytes);
    m_program.Open();
    EXPECT_TRUE(m_program.GetDocuments().empty());
    EXPECT_TRUE(m_program.GetBoxes().empty());
    EXPECT_EQ(Labels(), Texts{"Empty"});
    Choose(1);
    EXPECT_TRUE(m_program.GetDocuments().empty());
    // A slot that cannot be read does not move, and the file after it stays and also moves down.
    HandOverFile(paths[1]);
    EXPECT_EQ(Stored(), (Texts{paths[1], paths[0], paths[0]}));
    EXPECT_EQ(Labels(), (Texts{"&1 b.qmk", "&2 a.qmk", "&3 a.qmk"}));
    EXPECT_EQ(m_program.Close(), 0U);
}

std::string NameOfDamage(const testing::TestParamInfo<Damage>& test)
{
    return test.param.szName;
}

INSTANTIATE_TEST_SUITE_P(All, DamagedRecentTest, testing::ValuesIn(aDamages), NameOfDamage);

TEST_F(RecentTest, LongestPathThatCanBeReadIsShown)
{
    const std::string sLong(1023, 'd');
    Remember({sLong});
    m_program.Open();
    // The test reads at most 1023 characters of a menu item.
    EXPECT_EQ(Labels(), Texts{("&1 " + sLong).substr(0, 1023)});
}

TEST_F(RecentTest, LongPathIsNamedInFull)
{
    const std::string sLong(980, 'd');
    Remember({sLong});
    m_program.Open();
    m_program.Post(uFirst);
    m_program.AnswerBox(DoesNotExist(sLong));
    m_program.Settle();
    EXPECT_EQ(Labels(), Texts{"Empty"});
}

TEST_F(RecentTest, TextWithoutItsEndIsRead)
{
    const Texts paths = MakeAccounts(1);
    Remember({"damaged below"});
    WriteSettingBytes(szKey, "File1", REG_SZ, paths[0]);
    m_program.Open();
    EXPECT_EQ(Labels(), Texts{"&1 a.qmk"});
    Choose(1);
    m_program.AwaitActive(paths[0]);
    EXPECT_EQ(Stored(), paths);
}

TEST_F(RecentTest, EmptyTextIsAFileThatDoesNotExist)
{
    Remember({"damaged below"});
    WriteSettingBytes(szKey, "File1", REG_SZ, std::string(1, '\0'));
    m_program.Open();
    m_program.Post(uFirst);
    m_program.AnswerBox(DoesNotExist(""));
    m_program.Settle();
    EXPECT_EQ(Labels(), Texts{"Empty"});
}

TEST_F(RecentTest, SlotOfNumbersAllTheWayDoesNotStopAnything)
{
    for (size_t u = 0; u < 10; ++u) {
        WriteSettingNumber(szKey, SlotName(u).c_str(), 7);
    }
    const Texts paths = MakeAccounts(2);
    m_program.Open(paths);
    EXPECT_EQ(Labels(), (Texts{"&1 b.qmk", "&2 a.qmk"}));
    EXPECT_EQ(m_program.Close(), 0U);
}

} // namespace
