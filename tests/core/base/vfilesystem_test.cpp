#include "base/vfilesystem.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <set>
#include <string>
#include <vector>

#include "account/qmfile.h"
#include "tests/support/process_support.h"
#include "tests/support/support.h"

namespace {

VFileFault WriteText(const std::string& sPath, const std::string& sText, bool bReplace)
{
    return VWriteWholeFile(sPath.c_str(), sText.data(), sText.size(), bReplace);
}

// A path with the platform's separator for every "/".
std::string Path(std::string sPath)
{
    for (char& c : sPath) {
        c = c == '/' ? VPathSeparator : c;
    }
    return sPath;
}

} // namespace

TEST(VFileSystem, FileExistsForARegularFileOnly)
{
    const TemporaryFolder folder;
    const std::string sPath = folder.PathOf("a.qmk");
    EXPECT_FALSE(FileExists(sPath.c_str()));
    WriteWholeFile(sPath, "");
    EXPECT_TRUE(FileExists(sPath.c_str()));
    EXPECT_FALSE(FileExists(folder.GetPath().c_str()));
    EXPECT_FALSE(FileExists(folder.PathOf("none/a.qmk").c_str()));
    EXPECT_FALSE(FileExists(""));
    EXPECT_FALSE(FileExists(nullptr));
}

TEST(VFileSystem, SplitsAPathBehindTheLastSeparator)
{
    struct
    {
        const char* szPath;
        const char* szFolder;
        const char* szFileName;
    } const aCases[] = {
        {"", "", ""},
        {"a.qmk", "", "a.qmk"},
        {"b/a.qmk", "b/", "a.qmk"},
        {"/a.qmk", "/", "a.qmk"},
        {"c/b/a.qmk", "c/b/", "a.qmk"},
        {"c/b/", "c/b/", ""},
        {"/", "/", ""},
        {"c//a", "c//", "a"},
    };
    for (const auto& test : aCases) {
        VString sFolder("before");
        VString sFileName("before");
        VSplitPath(Path(test.szPath).c_str(), sFolder, sFileName);
        EXPECT_EQ(sFolder.GetText(), Path(test.szFolder)) << test.szPath;
        EXPECT_EQ(sFileName.GetText(), Path(test.szFileName)) << test.szPath;
    }
}

TEST(VFileSystem, EveryFaultHasAPhraseOfItsOwn)
{
    std::set<std::string> phrases;
    for (int n = static_cast<int>(VFileFault::None); n <= static_cast<int>(VFileFault::Other);
         ++n) {
        phrases.insert(VFileFaultText(static_cast<VFileFault>(n)));
    }
    EXPECT_EQ(phrases.size(), 9u);
    EXPECT_STREQ(VFileFaultText(VFileFault::None), "");
    EXPECT_STREQ(VFileFaultText(VFileFault::NotFound), "no such file or folder");
}

TEST(VCanReplaceFile, AllowsANewAndAnExistingFileAndTouchesNeither)
{
    const TemporaryFolder folder;
    WriteWholeFile(folder.PathOf("old"), "text");
    EXPECT_EQ(VCanReplaceFile(folder.PathOf("new").c_str(), 1000), VFileFault::None);
    EXPECT_EQ(VCanReplaceFile(folder.PathOf("old").c_str(), 1000), VFileFault::None);
    EXPECT_EQ(folder.GetNames(), (Texts{"old"}));
    EXPECT_EQ(ReadWholeFile(folder.PathOf("old")), "text");
}

TEST(VCanReplaceFile, MissesRoomForAnAbsurdSize)
{
    const TemporaryFolder folder;
    WriteWholeFile(folder.PathOf("old"), "text");
    EXPECT_EQ(VCanReplaceFile(folder.PathOf("new").c_str(), UINT64_MAX), VFileFault::NoRoom);
    EXPECT_EQ(VCanReplaceFile(folder.PathOf("old").c_str(), UINT64_MAX), VFileFault::NoRoom);
}

TEST(VCanReplaceFile, RefusesAFolderAndAMissingFolder)
{
    const TemporaryFolder folder;
    EXPECT_EQ(VCanReplaceFile(folder.GetPath().c_str(), 1), VFileFault::NotAFile);
    EXPECT_EQ(VCanReplaceFile(folder.PathOf(Path("none/a")).c_str(), 1), VFileFault::NotFound);
}

TEST(VWriteWholeFile, MakesANewFile)
{
    const TemporaryFolder folder;
    for (const bool bReplace : {false, true}) {
        const std::string sPath = folder.PathOf(bReplace ? "b" : "a");
        EXPECT_EQ(WriteText(sPath, std::string("a\0b\r\n\xFF", 6), bReplace), VFileFault::None);
        EXPECT_EQ(ReadWholeFile(sPath), std::string("a\0b\r\n\xFF", 6));
    }
    EXPECT_EQ(folder.GetNames(), (Texts{"a", "b"}));
}

TEST(VWriteWholeFile, MakesAnEmptyAndALargeFile)
{
    const TemporaryFolder folder;
    const std::string sLarge(3'000'000, 'q');
    EXPECT_EQ(WriteText(folder.PathOf("empty"), "", false), VFileFault::None);
    EXPECT_EQ(WriteText(folder.PathOf("large"), sLarge, false), VFileFault::None);
    EXPECT_EQ(ReadWholeFile(folder.PathOf("empty")), "");
    EXPECT_TRUE(ReadWholeFile(folder.PathOf("large")) == sLarge);
}

TEST(VWriteWholeFile, ReplacesALongerFileWhole)
{
    const TemporaryFolder folder;
    const std::string sPath = folder.PathOf("a");
    WriteWholeFile(sPath, "a much longer text");
    EXPECT_EQ(WriteText(sPath, "short", true), VFileFault::None);
    EXPECT_EQ(ReadWholeFile(sPath), "short");
    EXPECT_EQ(folder.GetNames(), (Texts{"a"}));
}

TEST(VWriteWholeFile, RefusesAnExistingFileUnlessToldToReplaceIt)
{
    const TemporaryFolder folder;
    const std::string sPath = folder.PathOf("a");
    WriteWholeFile(sPath, "old");
    EXPECT_EQ(WriteText(sPath, "new", false), VFileFault::Exists);
    EXPECT_EQ(ReadWholeFile(sPath), "old");
    EXPECT_EQ(folder.GetNames(), (Texts{"a"}));
}

TEST(VWriteWholeFile, RefusesAFileThatIsOpenElsewhere)
{
    const TemporaryFolder folder;
    const std::string sPath = folder.PathOf("a");
    WriteWholeFile(sPath, "old");
    QMFile file(sPath.c_str());
    ASSERT_TRUE(file.Open());
    EXPECT_EQ(WriteText(sPath, "new", true), VFileFault::Locked);
    EXPECT_EQ(folder.GetNames(), (Texts{"a"}));
    file.Close();
    EXPECT_EQ(ReadWholeFile(sPath), "old");
    EXPECT_EQ(WriteText(sPath, "new", true), VFileFault::None);
    EXPECT_EQ(ReadWholeFile(sPath), "new");
}

TEST(VWriteWholeFile, RefusesAFileThatIsOpenForReadingElsewhere)
{
    const TemporaryFolder folder;
    const std::string sPath = folder.PathOf("a");
    WriteWholeFile(sPath, "old");
    QMFile file(sPath.c_str());
    ASSERT_TRUE(file.OpenForReading());
    EXPECT_EQ(WriteText(sPath, "new", true), VFileFault::Locked);
    file.Close();
    EXPECT_EQ(ReadWholeFile(sPath), "old");
}

TEST(VWriteWholeFile, RefusesAFolder)
{
    const TemporaryFolder folder;
    const std::string sPath = folder.PathOf("sub");
    std::filesystem::create_directory(sPath);
    EXPECT_EQ(WriteText(sPath, "new", true), VFileFault::NotAFile);
    EXPECT_EQ(WriteText(sPath, "new", false), VFileFault::NotAFile);
    EXPECT_TRUE(std::filesystem::is_directory(sPath));
    EXPECT_EQ(folder.GetNames(), (Texts{"sub"}));
}

TEST(VWriteWholeFile, RefusesAMissingFolder)
{
    const TemporaryFolder folder;
    const std::string sPath = folder.PathOf(Path("none/a"));
    EXPECT_EQ(WriteText(sPath, "new", true), VFileFault::NotFound);
    EXPECT_EQ(WriteText(sPath, "new", false), VFileFault::NotFound);
    EXPECT_EQ(folder.GetNames(), Texts{});
}

TEST(VWriteWholeFile, LeavesNeighboursWithSimilarNamesAlone)
{
    const TemporaryFolder folder;
    WriteWholeFile(folder.PathOf("a.new"), "neighbour");
    EXPECT_EQ(WriteText(folder.PathOf("a"), "text", false), VFileFault::None);
    EXPECT_EQ(folder.GetNames(), (Texts{"a", "a.new"}));
    EXPECT_EQ(ReadWholeFile(folder.PathOf("a.new")), "neighbour");
}

TEST(VNewNameBeside, IsShortAndInTheSameFolder)
{
    const std::string sLong(255, 'n');
    for (const std::string& sFolder : {std::string(), Path("a/b/"), Path("/"), std::string("x/")}) {
        EXPECT_EQ(VNewNameBeside((sFolder + sLong).c_str(), 4294967295U, 100),
                  VString((sFolder + ".new-4294967295-100").c_str()))
            << sFolder;
    }
}

TEST(VWriteWholeFile, IsNotHinderedByWhatAnEndedProcessLeftBehind)
{
    const TemporaryFolder folder;
    const std::string sPath = folder.PathOf("a");
    std::set<std::string> left;
    for (int nTry = 1; nTry <= 3; ++nTry) {
        const VString sLeft = VNewNameBeside(sPath.c_str(), OwnProcess(), nTry);
        WriteWholeFile(sLeft.GetText(), "left");
        left.insert(sLeft.GetText());
    }
    for (const bool bReplace : {false, true}) {
        EXPECT_EQ(WriteText(sPath, bReplace ? "second" : "first", bReplace), VFileFault::None);
        EXPECT_EQ(ReadWholeFile(sPath), bReplace ? "second" : "first");
    }
    EXPECT_EQ(folder.GetNames().size(), left.size() + 1);
    for (const std::string& sLeft : left) {
        EXPECT_EQ(ReadWholeFile(sLeft), "left");
    }
}
