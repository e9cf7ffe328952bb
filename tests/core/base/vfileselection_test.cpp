#include "base/vfileselection.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

std::string Text(const VString& sText)
{
    return {sText.GetText(), sText.GetLength()};
}

bool IsFile(const char* szPath)
{
    const std::string sPath(szPath);
    return sPath.size() > 4 && sPath.compare(sPath.size() - 4, 4, ".qmk") == 0;
}

struct SelectionCase
{
    std::string sBuffer; // a zero follows
    bool bChosen;
    const char* szPath;
    const char* szDirectory;
    const char* szNames;
};

// The literal's inner zeroes are part of the text.
template <size_t uSize>
std::string Bytes(const char (&szText)[uSize])
{
    return std::string(szText, uSize);
}

std::vector<SelectionCase> Cases()
{
    return {
        {Bytes("C:\\Money\\a.qmk\0"), true, "C:\\Money\\a.qmk", "C:\\Money", "a.qmk"},
        {Bytes("C:\\a.qmk\0"), true, "C:\\a.qmk", "C:", "a.qmk"},
        {Bytes("a.qmk\0"), true, "a.qmk", "", "a.qmk"},
        {Bytes("C:\\Money\0a.qmk\0b c.qmk\0"), true, "", "C:\\Money", "a.qmk\tb c.qmk"},
        {Bytes("C:\\Money\0a.qmk\0"), true, "", "C:\\Money", "a.qmk"},
        {Bytes("C:\\\0a.qmk\0b.qmk\0"), true, "", "C:", "a.qmk\tb.qmk"},
        {Bytes("C:\\Money\0a.qmk\0D:\\b.qmk\0"), true, "", "C:\\Money", "a.qmk\tD:\\b.qmk"},
        // What stands behind the double zero is left from before.
        {Bytes("C:\\Money\0a.qmk\0\0b.qmk\0"), true, "", "C:\\Money", "a.qmk"},
        {Bytes("C:\\a.qmk\0b.qmk\0"), true, "C:\\a.qmk", "C:", "a.qmk"},
        {Bytes("C:\\Money\0"), false, "", "C:\\Money", ""},
        {Bytes(""), false, "", "", ""},
    };
}

} // namespace

TEST(VFileSelection, ReadsWhatTheDialogLeft)
{
    for (const SelectionCase& test : Cases()) {
        SCOPED_TRACE(testing::PrintToString(test.sBuffer));
        VFileSelection selection;
        EXPECT_EQ(selection.Read(test.sBuffer.data(), test.sBuffer.size(), &IsFile), test.bChosen);
        EXPECT_EQ(Text(selection.sPath), test.szPath);
        EXPECT_EQ(Text(selection.sDirectory), test.szDirectory);
        EXPECT_EQ(Text(selection.sNames), test.szNames);
    }
}

TEST(VFileSelection, ForgetsWhatItHeldBefore)
{
    VFileSelection selection;
    const std::string sFull = Bytes("C:\\Money\\a.qmk\0");
    const std::string sEmpty = Bytes("");
    ASSERT_TRUE(selection.Read(sFull.data(), sFull.size(), &IsFile));
    EXPECT_FALSE(selection.Read(sEmpty.data(), sEmpty.size(), &IsFile));
    EXPECT_EQ(Text(selection.sPath), "");
    EXPECT_EQ(Text(selection.sDirectory), "");
    EXPECT_EQ(Text(selection.sNames), "");
}

TEST(VFileSelection, ReadsNothingPastTheBuffer)
{
    // Every cut of a buffer of its own, so that a reader beyond the end meets other bytes.
    const std::string sWhole = Bytes("C:\\Money\0ab\0cd\0");
    for (size_t uSize = 0; uSize <= sWhole.size(); ++uSize) {
        std::string sCut = sWhole.substr(0, uSize) + "XXXX";
        VFileSelection selection;
        selection.Read(sCut.data(), uSize, &IsFile);
        EXPECT_EQ(Text(selection.sDirectory).find('X'), std::string::npos) << uSize;
        EXPECT_EQ(Text(selection.sNames).find('X'), std::string::npos) << uSize;
    }
}

TEST(VFileSelection, JoinsAPlainNameToTheDirectory)
{
    EXPECT_EQ(Text(VFileSelection::Join("C:\\Money", "a.qmk")), "C:\\Money\\a.qmk");
    EXPECT_EQ(Text(VFileSelection::Join("C:", "a.qmk")), "C:\\a.qmk");
    EXPECT_EQ(Text(VFileSelection::Join("C:\\Money", "D:\\b.qmk")), "D:\\b.qmk");
}
