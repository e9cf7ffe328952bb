#include "exchange/qmlinereader.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "exchange/qmlinefile.h"
#include "tests/core/allocationfault.h"
#include "tests/support/support.h"

namespace {

// Notes each line as "NUMBER:TEXT", and a blank line as "NUMBER".
class Notes : public QMLineReader
{
public:
    bool ParseLine(char* szText, int32_t lLine, int32_t lLength) override
    {
        std::string sNote = std::to_string(lLine);
        if (szText != nullptr) {
            EXPECT_EQ(szText[lLength], '\0');
            sNote += ":" + std::string(szText, static_cast<size_t>(lLength));
            // The reader may overwrite a line, up to its end and not beyond.
            memset(szText, '\n', static_cast<size_t>(lLength));
        } else {
            EXPECT_EQ(lLength, 0);
        }
        lines.push_back(sNote);
        return lLine != lStopAt;
    }

    Texts lines;
    int32_t lStopAt = 0;
};

Texts LinesOf(const std::string& sBytes, bool bDeliverBlank = true, int32_t nMaxLine = 0)
{
    const TemporaryFolder folder;
    WriteWholeFile(folder.PathOf("f"), sBytes);
    Notes notes;
    const bool bRead = notes.Read(folder.PathOf("f").c_str(), bDeliverBlank, nMaxLine);
    EXPECT_EQ(bRead, !notes.lines.empty());
    return bRead ? notes.lines : Texts{"(refused)"};
}

std::string Wide(const std::string& sText, bool bBigEndian)
{
    std::string sBytes;
    for (const char c : sText) {
        sBytes += bBigEndian ? '\0' : c;
        sBytes += bBigEndian ? c : '\0';
    }
    return sBytes;
}

struct Kind
{
    const char* szName;
    QMTextEncoding encoding;
    std::string sMark;
};

const Kind aKinds[] = {
    {"plain", QM_TEXT_PLAIN, ""},
    {"eight-bit", QM_TEXT_EIGHT_BIT, ""},
    {"UTF-8", QM_TEXT_UTF8, "\xEF\xBB\xBF"},
    {"UTF-16 big-endian", QM_TEXT_UTF16_BIG, "\xFE\xFF"},
    {"UTF-16 little-endian", QM_TEXT_UTF16_LITTLE, "\xFF\xFE"},
};

bool IsWide(const Kind& kind)
{
    return kind.sMark.size() == 2;
}

// The bytes of a file of that kind whose text begins with a character that suits the kind.
std::string FileOf(const Kind& kind, std::string sText)
{
    if (kind.encoding == QM_TEXT_EIGHT_BIT && !sText.empty()) {
        sText[0] = '\xC4';
    }
    return kind.sMark + (IsWide(kind) ? Wide(sText, kind.encoding == QM_TEXT_UTF16_BIG) : sText);
}

// The reader written a second time, as simply as possible: it reads blocks of 128 bytes from the
// beginning of the line, looks at one character after the other, and seeks to the end of the line.
class PlainReader
{
public:
    PlainReader(const Kind& kind, std::string sBytes, size_t uMaxLine)
        : m_sBytes(std::move(sBytes)),
          m_uPosition(kind.sMark.size()),
          m_uSize(IsWide(kind) ? 2 : 1),
          m_bBigEndian(kind.encoding == QM_TEXT_UTF16_BIG),
          m_uLimit(uMaxLine - 2)
    {}

    Texts ReadAll()
    {
        Texts lines;
        std::string sLine;
        while (ReadLine(sLine)) {
            lines.push_back(std::to_string(lines.size() + 1) + (sLine.empty() ? "" : ":" + sLine));
        }
        return lines.empty() ? Texts{"(refused)"} : lines;
    }

private:
    bool ReadLine(std::string& sLine)
    {
        sLine.clear();
        for (;;) {
            const std::string sBlock = m_sBytes.substr(m_uPosition, 128);
            if (sBlock.empty()) {
                return !sLine.empty();
            }
            if (sBlock.size() % m_uSize != 0) {
                return false;
            }
            for (size_t u = 0; u < sBlock.size(); u += m_uSize) {
                const char c = CharacterOf(sBlock, u);
                if (c == '\n' || c == '\r') {
                    m_uPosition += u + m_uSize;
                    EatOther(c);
                    return true;
                }
                sLine += c;
                if (sLine.size() == m_uLimit) {
                    m_uPosition += u + m_uSize;
                    return true;
                }
            }
            m_uPosition += sBlock.size();
        }
    }

    void EatOther(char cEnd)
    {
        const std::string sNext = m_sBytes.substr(m_uPosition, m_uSize);
        if (sNext.size() == m_uSize && CharacterOf(sNext, 0) == (cEnd == '\n' ? '\r' : '\n')) {
            m_uPosition += m_uSize;
        }
    }

    char CharacterOf(const std::string& sBytes, size_t u) const
    {
        return sBytes[m_bBigEndian ? u + 1 : u];
    }

    std::string m_sBytes;
    size_t m_uPosition;
    size_t m_uSize;
    bool m_bBigEndian;
    size_t m_uLimit;
};

Texts PlainLinesOf(const Kind& kind, const std::string& sBytes, size_t uMaxLine = 16384)
{
    return PlainReader(kind, sBytes, uMaxLine).ReadAll();
}

QMTextEncoding Tell(const std::string& sBytes)
{
    return QMTellEncoding(sBytes.data(), sBytes.size());
}

} // namespace

TEST(LineFile, TellsTheKindByTheFirstThreeBytes)
{
    EXPECT_EQ(Tell("abc"), QM_TEXT_PLAIN);
    EXPECT_EQ(Tell("\x7F"), QM_TEXT_PLAIN);
    EXPECT_EQ(Tell(""), QM_TEXT_PLAIN);
    EXPECT_EQ(Tell("\x80"), QM_TEXT_EIGHT_BIT);
    EXPECT_EQ(Tell("\xEF\xBB"), QM_TEXT_EIGHT_BIT);
    EXPECT_EQ(Tell("\xFE\xFE"), QM_TEXT_EIGHT_BIT);
    EXPECT_EQ(Tell("\xEF\xBB\xBF"), QM_TEXT_UTF8);
    EXPECT_EQ(Tell("\xFE\xFF"), QM_TEXT_UTF16_BIG);
    EXPECT_EQ(Tell("\xFF\xFE"), QM_TEXT_UTF16_LITTLE);
}

TEST(LineFile, RefusesWithAKindOfItsOwn)
{
    const TemporaryFolder folder;
    const std::string sPath = folder.PathOf("f");
    WriteWholeFile(sPath, "a");
    EXPECT_EQ(QMLineFile().Open(nullptr, 0), QM_TEXT_BAD_ARGUMENT);
    EXPECT_EQ(QMLineFile().Open(sPath.c_str(), -1), QM_TEXT_BAD_ARGUMENT);
    EXPECT_EQ(QMLineFile().Open(sPath.c_str(), 2), QM_TEXT_BAD_ARGUMENT);
    EXPECT_EQ(QMLineFile().Open(sPath.c_str(), INT32_MAX), QM_TEXT_BAD_ARGUMENT);
    EXPECT_EQ(QMLineFile().Open(sPath.c_str(), 3), QM_TEXT_PLAIN);
    EXPECT_EQ(QMLineFile().Open(folder.PathOf("absent").c_str(), 0), QM_TEXT_UNREADABLE);
    EXPECT_EQ(QMLineFile().Open(folder.GetPath().c_str(), 0), QM_TEXT_UNREADABLE);
    EXPECT_EQ(QMLineFile().Open("", 0), QM_TEXT_UNREADABLE);
}

TEST(LineReader, TakesFourLineEndsAsSingleOnes)
{
    for (const char* szEnd : {"\r", "\n", "\r\n", "\n\r"}) {
        const std::string sEnd = szEnd;
        EXPECT_EQ(LinesOf("a" + sEnd + "b"), (Texts{"1:a", "2:b"}));
        EXPECT_EQ(LinesOf("a" + sEnd + "b" + sEnd), (Texts{"1:a", "2:b"}));
        EXPECT_EQ(LinesOf("a" + sEnd + sEnd + "b"), (Texts{"1:a", "2", "3:b"}));
        EXPECT_EQ(LinesOf(sEnd), (Texts{"1"}));
        EXPECT_EQ(LinesOf(sEnd + sEnd), (Texts{"1", "2"}));
    }
}

TEST(LineReader, TakesTwoLikeCharactersAsTwoLineEnds)
{
    EXPECT_EQ(LinesOf("a\r\rb"), (Texts{"1:a", "2", "3:b"}));
    EXPECT_EQ(LinesOf("a\n\nb"), (Texts{"1:a", "2", "3:b"}));
    EXPECT_EQ(LinesOf("a\r\r\nb"), (Texts{"1:a", "2", "3:b"}));
    EXPECT_EQ(LinesOf("a\n\r\nb"), (Texts{"1:a", "2", "3:b"}));
    EXPECT_EQ(LinesOf("a\r\n\r\nb"), (Texts{"1:a", "2", "3:b"}));
    EXPECT_EQ(LinesOf("a\r\n\n\rb"), (Texts{"1:a", "2", "3:b"}));
}

TEST(LineReader, CountsBlankLinesWhetherDeliveredOrNot)
{
    EXPECT_EQ(LinesOf("a\n\nb\n"), (Texts{"1:a", "2", "3:b"}));
    EXPECT_EQ(LinesOf("a\n\nb\n", false), (Texts{"1:a", "3:b"}));
}

TEST(LineReader, FailsWithoutALineToDeliver)
{
    EXPECT_EQ(LinesOf(""), Texts{"(refused)"});
    for (const Kind& kind : aKinds) {
        EXPECT_EQ(LinesOf(kind.sMark), Texts{"(refused)"}) << kind.szName;
    }
    EXPECT_EQ(LinesOf("\n\n", false), Texts{"(refused)"});
    EXPECT_EQ(LinesOf("\n\n", true), (Texts{"1", "2"}));
}

TEST(LineReader, FailsForAFileThatIsNotThere)
{
    const TemporaryFolder folder;
    Notes notes;
    EXPECT_FALSE(notes.Read(folder.PathOf("absent").c_str(), true, 0));
    EXPECT_FALSE(notes.Read(folder.GetPath().c_str(), true, 0));
    EXPECT_FALSE(notes.Read(nullptr, true, 0));
    EXPECT_TRUE(notes.lines.empty());
}

TEST(LineReader, FailsWithoutMemory)
{
    const TemporaryFolder folder;
    const std::string sPath = folder.PathOf("f");
    WriteWholeFile(sPath, "a");
    QMLineReader reader;
    EXPECT_TRUE(reader.Read(sPath.c_str(), true, 0));
    bool bRead = true;
    {
        const AllocationFault fault;
        bRead = reader.Read(sPath.c_str(), true, 0);
    }
    EXPECT_FALSE(bRead);
}

TEST(LineReader, StopsWhereALineIsNotWanted)
{
    const TemporaryFolder folder;
    WriteWholeFile(folder.PathOf("f"), "a\nb\nc\n");
    Notes notes;
    notes.lStopAt = 2;
    EXPECT_TRUE(notes.Read(folder.PathOf("f").c_str(), true, 0));
    EXPECT_EQ(notes.lines, (Texts{"1:a", "2:b"}));
}

TEST(LineReader, ReadsEveryKindWithEveryLineEnd)
{
    for (const Kind& kind : aKinds) {
        for (const char* szEnd : {"\r", "\n", "\r\n", "\n\r"}) {
            for (const char* szLast : {"", szEnd}) {
                const std::string sText = std::string("One") + szEnd + szEnd + "Three" + szLast;
                const std::string sFirst =
                    kind.encoding == QM_TEXT_EIGHT_BIT ? "1:\xC4ne" : "1:One";
                EXPECT_EQ(LinesOf(FileOf(kind, sText)), (Texts{sFirst, "2", "3:Three"}))
                    << kind.szName;
            }
        }
    }
}

TEST(LineReader, LeavesUtf8AsItIs)
{
    EXPECT_EQ(LinesOf("\xEF\xBB\xBF"
                      "caf\xC3\xA9\n"),
              Texts{"1:caf\xC3\xA9"});
    EXPECT_EQ(LinesOf("caf\xC3\xA9\n"), Texts{"1:caf\xC3\xA9"});
}

TEST(LineReader, TakesTheLowHalfOfUtf16AndAsksAboutTheRest)
{
    using namespace std::string_literals;
    EXPECT_EQ(LinesOf("\xFE\xFF\0\xE9\x20\xAC\0a"s), Texts{"1:\xE9?a"});
    EXPECT_EQ(LinesOf("\xFF\xFE\xE9\0\xAC\x20"
                      "a\0"s),
              Texts{"1:\xE9?a"});
    // These characters end no line.
    EXPECT_EQ(LinesOf("\xFE\xFF\x0A\x0B\x0D\x0C\0a"s), Texts{"1:??a"});
}

TEST(LineReader, DeliversTheZeroesOfAFileWithoutMarkAndEndsTheOthersThere)
{
    using namespace std::string_literals;
    EXPECT_EQ(LinesOf("a\0b\nc"s), (Texts{"1:a\0b"s, "2:c"}));
    EXPECT_EQ(LinesOf("\xEF\xBB\xBF"
                      "a\0b\nc"s),
              (Texts{"1:a", "2:c"}));
    EXPECT_EQ(LinesOf("\xFE\xFF\0a\0\0\0b\0\n\0c"s), (Texts{"1:a", "2:c"}));
}

TEST(LineReader, ReadsLineEndsOnEachSideOfABlock)
{
    // Texts of one block and of two, with characters of one byte and of two.
    constexpr size_t aLengths[] = {61,  62,  63,  64,  65,  125, 126, 127, 128,
                                   129, 130, 189, 191, 192, 254, 255, 256, 257};
    for (const Kind& kind : aKinds) {
        for (const size_t uLength : aLengths) {
            for (const char* szEnd : {"\r", "\n", "\r\n", "\n\r", "\r\r", "\n\n"}) {
                for (const char* szLast : {"", szEnd}) {
                    const std::string sBytes =
                        FileOf(kind, std::string(uLength, 'x') + szEnd +
                                         std::string(uLength % 7, 'y') + szEnd + "z" + szLast);
                    ASSERT_EQ(LinesOf(sBytes), PlainLinesOf(kind, sBytes))
                        << kind.szName << ", length " << uLength;
                }
            }
        }
    }
}

TEST(LineReader, LosesTheLineThatReachesIntoAnOddBlockOfUtf16)
{
    for (const Kind& kind : {aKinds[3], aKinds[4]}) {
        const auto Read = [&](const std::string& sText) {
            return LinesOf(FileOf(kind, sText) + '\0');
        };
        // One block holds everything, with the line ends.
        EXPECT_EQ(Read("one\ntwo\n"), Texts{"(refused)"});
        const std::string sFull(63, 'a');
        // One whole block with the line end in it, and then the block with the odd byte.
        EXPECT_EQ(Read(sFull + "\n"), Texts{"1:" + sFull});
        EXPECT_EQ(Read(sFull + "\ntwo\n"), Texts{"1:" + sFull});
        // The line end is in the block with the odd byte.
        EXPECT_EQ(Read(sFull + "a\n"), Texts{"(refused)"});
    }
}

TEST(LineReader, ReadsUtf16CutAnywhereAsTheBlockRuleTells)
{
    for (const Kind& kind : {aKinds[3], aKinds[4]}) {
        std::string sText;
        for (size_t uLength = 0; uLength < 11; ++uLength) {
            sText += std::string(uLength * 3, 'x') + (uLength % 2 == 0 ? "\r\n" : "\n");
        }
        const std::string sBytes = FileOf(kind, sText);
        for (size_t uSize = kind.sMark.size(); uSize < sBytes.size(); ++uSize) {
            const std::string sPart = sBytes.substr(0, uSize);
            ASSERT_EQ(LinesOf(sPart), PlainLinesOf(kind, sPart))
                << kind.szName << ", size " << uSize;
        }
    }
}

TEST(LineReader, CutsALineAt16382CharactersAndDeliversTheRestAsTheNext)
{
    for (const Kind& kind : aKinds) {
        for (const size_t uLength : {16381, 16382, 16383, 32763, 32764, 32765, 70000}) {
            const std::string sBytes = FileOf(kind, std::string(uLength, 'x') + "\nnext");
            const Texts lines = LinesOf(sBytes);
            EXPECT_EQ(lines, PlainLinesOf(kind, sBytes)) << kind.szName << ", length " << uLength;
            EXPECT_EQ(lines[0].size(), 2 + std::min<size_t>(uLength, 16382));
        }
    }
}

TEST(LineReader, MakesABlankLineOfTheEndBehindACut)
{
    const std::string sLong(16382, 'x');
    EXPECT_EQ(LinesOf(sLong + "\n"), (Texts{"1:" + sLong, "2"}));
    EXPECT_EQ(LinesOf(sLong), (Texts{"1:" + sLong}));
    EXPECT_EQ(LinesOf("abc\ndefg\n", true, 5), (Texts{"1:abc", "2", "3:def", "4:g"}));
    EXPECT_EQ(LinesOf("abc", true, 3), (Texts{"1:a", "2:b", "3:c"}));
}

TEST(LineReader, ReadsRandomFilesAsThePlainReaderDoes)
{
    std::mt19937 random(4711);
    for (int i = 0; i < 400; ++i) {
        const Kind& kind = aKinds[random() % std::size(aKinds)];
        const size_t uMaxLine = 3 + random() % 300;
        std::string sText;
        const size_t uParts = random() % 40;
        for (size_t u = 0; u < uParts; ++u) {
            sText += std::string(random() % 150, static_cast<char>('a' + random() % 26));
            sText += std::string(random() % 3, random() % 2 == 0 ? '\n' : '\r');
        }
        std::string sBytes = FileOf(kind, sText);
        if (sBytes.size() > kind.sMark.size() && random() % 2 == 0) {
            sBytes.pop_back();
        }
        ASSERT_EQ(LinesOf(sBytes, true, static_cast<int32_t>(uMaxLine)),
                  PlainLinesOf(kind, sBytes, uMaxLine))
            << "file " << i << ", " << kind.szName;
    }
}
