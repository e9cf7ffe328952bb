#include "base/vfileselection.h"

#include <gtest/gtest.h>

#include <ostream>
#include <random>
#include <sstream>
#include <string>
#include <vector>

#include "tests/support/support.h"

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

// The zeroes within the literal are part of the text.
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
        // The text after the double zero is left over from an earlier use of the buffer.
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
    // Each length in a buffer of its own, so that a read beyond its end meets other bytes.
    const std::string sWhole = Bytes("C:\\Money\0ab\0cd\0");
    for (size_t uSize = 0; uSize <= sWhole.size(); ++uSize) {
        std::string sCut = sWhole.substr(0, uSize) + "XXXX";
        VFileSelection selection;
        selection.Read(sCut.data(), uSize, &IsFile);
        EXPECT_EQ(Text(selection.sDirectory).find('X'), std::string::npos) << "size " << uSize;
        EXPECT_EQ(Text(selection.sNames).find('X'), std::string::npos) << "size " << uSize;
    }
}

// ---- Buffers that no dialog makes.

namespace {

struct Selected
{
    bool bChosen = false;
    std::string sPath;
    std::string sDirectory;
    std::string sNames;

    bool operator==(const Selected&) const = default;
};

std::ostream& operator<<(std::ostream& stream, const Selected& selected)
{
    return stream << selected.bChosen << testing::PrintToString(selected.sPath)
                  << testing::PrintToString(selected.sDirectory)
                  << testing::PrintToString(selected.sNames);
}

// The memory has exactly this size, so that a sanitizer reports every byte that is read beyond it.
Selected ReadExactly(const std::string& sBytes)
{
    const std::vector<char> buffer(sBytes.begin(), sBytes.end());
    VFileSelection selection;
    const bool bChosen = selection.Read(buffer.data(), buffer.size(), &IsFile);
    return {bChosen, Text(selection.sPath), Text(selection.sDirectory), Text(selection.sNames)};
}

// The rules stated a second time: the texts up to the first empty one. The first text is the path
// of a file, or a folder.
Selected ReadByRule(const std::string& sBytes)
{
    Texts texts;
    std::istringstream stream(sBytes);
    for (std::string sText;
         std::getline(stream, sText, '\0') && (texts.empty() || !sText.empty());) {
        texts.push_back(sText);
    }
    if (texts.empty()) {
        return {};
    }
    const std::string& sFirst = texts.front();
    if (IsFile(sFirst.c_str())) {
        const size_t uEnd = sFirst.rfind('\\');
        const bool bBare = uEnd == std::string::npos;
        return {true, sFirst, bBare ? "" : sFirst.substr(0, uEnd),
                bBare ? sFirst : sFirst.substr(uEnd + 1)};
    }
    Selected selected = {texts.size() > 1, "", sFirst, ""};
    if (!sFirst.empty() && sFirst.back() == '\\') {
        selected.sDirectory.pop_back();
    }
    for (size_t u = 1; u < texts.size(); ++u) {
        selected.sNames += (u > 1 ? "\t" : "") + texts[u];
    }
    return selected;
}

std::string EveryByte()
{
    std::string sBytes;
    for (int i = 1; i < 256; ++i) {
        sBytes += static_cast<char>(i);
    }
    return sBytes;
}

} // namespace

TEST(VFileSelection, TakesHostileBuffers)
{
    const std::string sZero(1, '\0');
    const std::string sLong(70000, 'a');
    const struct
    {
        const char* szWhat;
        std::string sBytes;
        Selected expected;
    } aCases[] = {
        {"no bytes", "", {}},
        {"a zero", sZero, {}},
        {"zeroes", std::string(300, '\0'), {}},
        {"one byte without an end", "x", {false, "", "x", ""}},
        {"a file without an end", "C:\\a.qmk", {true, "C:\\a.qmk", "C:", "a.qmk"}},
        {"a folder without an end", "C:\\Money", {false, "", "C:\\Money", ""}},
        {"a name without an end", "C:" + sZero + "ab", {true, "", "C:", "ab"}},
        {"a name of one byte without an end", "C:" + sZero + "a", {true, "", "C:", "a"}},
        {"a name without a folder", sZero + "ab" + sZero, {true, "", "", "ab"}},
        {"a backslash", "\\", {false, "", "", ""}},
        {"backslashes", "\\\\\\", {false, "", "\\\\", ""}},
        {"a file in the root", "\\a.qmk", {true, "\\a.qmk", "", "a.qmk"}},
        {"nothing but the ending", ".qmk", {false, "", ".qmk", ""}},
        {"a path that ends with a backslash", "a.qmk\\", {false, "", "a.qmk", ""}},
        {"a tab in a name", "C:" + sZero + "a\tb", {true, "", "C:", "a\tb"}},
        {"a folder of every byte", EveryByte(), {false, "", EveryByte(), ""}},
        {"a name of every byte", "C:" + sZero + EveryByte(), {true, "", "C:", EveryByte()}},
        {"bytes above 127", "\xFF\xFE" + sZero + "\x80", {true, "", "\xFF\xFE", "\x80"}},
        {"a long folder without an end", sLong, {false, "", sLong, ""}},
        {"a long name without an end", "C:" + sZero + sLong, {true, "", "C:", sLong}},
        {"a long file", sLong + ".qmk", {true, sLong + ".qmk", "", sLong + ".qmk"}},
    };
    for (const auto& test : aCases) {
        EXPECT_EQ(ReadExactly(test.sBytes), test.expected) << test.szWhat;
        EXPECT_EQ(ReadByRule(test.sBytes), test.expected) << test.szWhat;
    }
}

TEST(VFileSelection, TakesThousandsOfNames)
{
    std::string sBytes = "C:\\";
    std::string sNames;
    for (int i = 0; i < 20000; ++i) {
        sBytes += '\0' + std::to_string(i);
        sNames += (i > 0 ? "\t" : "") + std::to_string(i);
    }
    EXPECT_EQ(ReadExactly(sBytes), (Selected{true, "", "C:", sNames}));
}

TEST(VFileSelection, TakesRandomBytesByTheRule)
{
    std::mt19937 random(20260);
    const std::string sAlphabet = std::string(3, '\0') + "\\\\\t.:ab\x80\xFF";
    for (int i = 0; i < 20000; ++i) {
        std::string sBytes;
        for (auto u = random() % 24; u > 0; --u) {
            sBytes += random() % 8 == 0 ? std::string(".qmk")
                                        : std::string(1, sAlphabet[random() % sAlphabet.size()]);
        }
        ASSERT_EQ(ReadExactly(sBytes), ReadByRule(sBytes)) << testing::PrintToString(sBytes);
    }
}

TEST(VFileSelection, JoinsAPlainNameToTheDirectory)
{
    EXPECT_EQ(Text(VFileSelection::Join("C:\\Money", "a.qmk")), "C:\\Money\\a.qmk");
    EXPECT_EQ(Text(VFileSelection::Join("C:", "a.qmk")), "C:\\a.qmk");
    EXPECT_EQ(Text(VFileSelection::Join("C:\\Money", "D:\\b.qmk")), "D:\\b.qmk");
}
