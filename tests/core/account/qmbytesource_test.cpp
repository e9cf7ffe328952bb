#include "account/qmbytesource.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <string>
#include <vector>

#include "tests/support/support.h"

namespace {

constexpr size_t uBufferSize = 65536;

std::string Pattern(size_t uSize)
{
    std::string sBytes(uSize, '\0');
    for (size_t u = 0; u < uSize; ++u) {
        sBytes[u] = static_cast<char>(u * 7 + u / 256);
    }
    return sBytes;
}

// A source that may tell a wrong size, gives its bytes in parts, and fails on demand.
class OddSource : public QMByteSource
{
public:
    explicit OddSource(std::string sBytes)
        : m_sBytes(std::move(sBytes)), nSize(static_cast<int64_t>(m_sBytes.size()))
    {}

    int64_t GetSize() override { return nSize; }

    int64_t ReadSome(void* pBuffer, size_t uSize) override
    {
        ++nReads;
        if (m_uNext >= uFailAt) {
            return -1;
        }
        const size_t uCount = std::min({uSize, uPart, m_sBytes.size() - m_uNext});
        memcpy(pBuffer, m_sBytes.data() + m_uNext, uCount);
        m_uNext += uCount;
        return static_cast<int64_t>(uCount);
    }

private:
    std::string m_sBytes;
    size_t m_uNext = 0;

public:
    int64_t nSize;
    size_t uPart = SIZE_MAX;
    size_t uFailAt = SIZE_MAX;
    int nReads = 0;
};

// The next uSize bytes; "(refused)" when there are fewer.
std::string TakeText(QMByteReader& reader, size_t uSize)
{
    std::string sBytes(uSize, '\0');
    return reader.Take(sBytes.data(), uSize) ? sBytes : "(refused)";
}

std::vector<std::string> TakeAll(QMByteSource& source, const std::vector<size_t>& sizes)
{
    QMByteReader reader(source);
    std::vector<std::string> taken;
    taken.reserve(sizes.size());
    for (const size_t uSize : sizes) {
        taken.push_back(TakeText(reader, uSize));
    }
    return taken;
}

} // namespace

TEST(MemorySource, HandsOutItsBytesOnce)
{
    const std::string sBytes = "abcdef";
    QMMemorySource source(sBytes.data(), sBytes.size());
    char szBuffer[8] = {};
    EXPECT_EQ(source.GetSize(), 6);
    EXPECT_EQ(source.ReadSome(szBuffer, 4), 4);
    EXPECT_EQ(std::string(szBuffer, 4), "abcd");
    EXPECT_EQ(source.GetSize(), 6);
    EXPECT_EQ(source.ReadSome(szBuffer, 4), 2);
    EXPECT_EQ(std::string(szBuffer, 2), "ef");
    EXPECT_EQ(source.ReadSome(szBuffer, 4), 0);
}

TEST(MemorySource, MayBeEmpty)
{
    QMMemorySource source(nullptr, 0);
    char c = 'x';
    EXPECT_EQ(source.GetSize(), 0);
    EXPECT_EQ(source.ReadSome(&c, 1), 0);
    EXPECT_EQ(c, 'x');
}

TEST(FileSource, ReadsFromTheBeginningWhereverTheFileStands)
{
    const TemporaryFolder folder;
    WriteWholeFile(folder.PathOf("a"), "abcdef");
    QMFile file(folder.PathOf("a").c_str());
    ASSERT_TRUE(file.Open());
    ASSERT_TRUE(file.Seek(4));
    QMFileSource source(file);
    char szBuffer[8] = {};
    EXPECT_EQ(source.GetSize(), 6);
    EXPECT_EQ(source.ReadSome(szBuffer, 8), 6);
    EXPECT_STREQ(szBuffer, "abcdef");
    EXPECT_EQ(source.ReadSome(szBuffer, 8), 0);
}

TEST(FileSource, FailsWithAClosedFile)
{
    QMFile file("a");
    QMFileSource source(file);
    char c = 0;
    EXPECT_EQ(source.GetSize(), -1);
    EXPECT_EQ(source.ReadSome(&c, 1), -1);
    QMByteReader reader(source);
    EXPECT_EQ(reader.GetRemaining(), 0U);
    EXPECT_FALSE(reader.Take(&c, 1));
}

TEST(ByteReader, TakesBytesInOrderAndKnowsWhatIsLeft)
{
    QMMemorySource source("abcdef", 6);
    QMByteReader reader(source);
    EXPECT_EQ(reader.GetRemaining(), 6U);
    EXPECT_EQ(TakeText(reader, 2), "ab");
    EXPECT_EQ(reader.GetRemaining(), 4U);
    EXPECT_EQ(TakeText(reader, 0), "");
    EXPECT_EQ(TakeText(reader, 4), "cdef");
    EXPECT_EQ(reader.GetRemaining(), 0U);
    EXPECT_EQ(TakeText(reader, 0), "");
    EXPECT_EQ(TakeText(reader, 1), "(refused)");
}

TEST(ByteReader, RefusedTakeUsesNothingUp)
{
    QMMemorySource source("abc", 3);
    QMByteReader reader(source);
    EXPECT_EQ(TakeText(reader, 4), "(refused)");
    EXPECT_EQ(reader.GetRemaining(), 3U);
    EXPECT_EQ(TakeText(reader, 3), "abc");
}

TEST(ByteReader, TakesNumbersAsTheyStand)
{
    QMMemorySource source("\x01\x02\x03\x04\xFF\xFF\xFF\xFF\x05", 9);
    QMByteReader reader(source);
    uint32_t uNumber = 0;
    int32_t lNumber = 0;
    uint16_t wNumber = 7;
    EXPECT_TRUE(reader.TakeNumber(uNumber));
    EXPECT_EQ(uNumber, 0x04030201U);
    EXPECT_TRUE(reader.TakeNumber(lNumber));
    EXPECT_EQ(lNumber, -1);
    EXPECT_FALSE(reader.TakeNumber(wNumber));
}

TEST(ByteReader, TakesAcrossTheEndsOfItsBuffer)
{
    const std::string sBytes = Pattern(4 * uBufferSize + 10);
    const std::vector<std::vector<size_t>> runs = {
        {uBufferSize - 1, 1, 1}, {uBufferSize, 1},
        {uBufferSize + 1, 1},    {uBufferSize - 2, 4, uBufferSize - 2, 4},
        {1, 2 * uBufferSize, 1}, {3 * uBufferSize + 5, uBufferSize + 5},
        {4 * uBufferSize + 10},  {uBufferSize, uBufferSize, uBufferSize, uBufferSize, 10},
    };
    for (const auto& sizes : runs) {
        QMMemorySource source(sBytes.data(), sBytes.size());
        size_t uNext = 0;
        for (const std::string& sTaken : TakeAll(source, sizes)) {
            EXPECT_EQ(sTaken, sBytes.substr(uNext, sTaken.size())) << "at byte " << uNext;
            uNext += sTaken.size();
        }
        size_t uSum = 0;
        for (const size_t uSize : sizes) {
            uSum += uSize;
        }
        EXPECT_EQ(uNext, uSum);
    }
}

TEST(ByteReader, PutsTogetherWhatComesInParts)
{
    for (const size_t uPart : {size_t{1}, size_t{3}, size_t{100}}) {
        OddSource source(Pattern(1000));
        source.uPart = uPart;
        const auto taken = TakeAll(source, {1, 7, 500, 492, 1});
        EXPECT_EQ(taken[0] + taken[1] + taken[2] + taken[3], Pattern(1000)) << "parts of " << uPart;
        EXPECT_EQ(taken[4], "(refused)");
    }
}

TEST(ByteReader, AsksTheSourceForWholeBuffersOnly)
{
    OddSource source(Pattern(3 * uBufferSize));
    TakeAll(source, std::vector<size_t>(3 * uBufferSize / 4, 4));
    EXPECT_EQ(source.nReads, 3);
}

TEST(ByteReader, StopsWhereThePromisedBytesDoNotCome)
{
    OddSource source("abc");
    source.nSize = 1000;
    QMByteReader reader(source);
    EXPECT_EQ(reader.GetRemaining(), 1000U);
    EXPECT_EQ(TakeText(reader, 2), "ab");
    EXPECT_EQ(TakeText(reader, 2), "(refused)");
    EXPECT_EQ(TakeText(reader, 1), "(refused)");
    EXPECT_LE(reader.GetRemaining(), 998U);
}

TEST(ByteReader, DoesNotTakeMoreThanPromised)
{
    OddSource source("abcdef");
    source.nSize = 3;
    EXPECT_EQ(TakeAll(source, {2, 2, 1, 1}),
              (std::vector<std::string>{"ab", "(refused)", "c", "(refused)"}));
}

TEST(ByteReader, UnknownSizeHoldsNothing)
{
    OddSource source("abcdef");
    source.nSize = -1;
    QMByteReader reader(source);
    EXPECT_EQ(reader.GetRemaining(), 0U);
    EXPECT_EQ(TakeText(reader, 1), "(refused)");
    EXPECT_EQ(source.nReads, 0);
}

TEST(ByteReader, FailureOfTheSourceIsARefusal)
{
    OddSource source(Pattern(100));
    source.uPart = 10;
    source.uFailAt = 20;
    const auto taken = TakeAll(source, {15, 5, 1, 1});
    EXPECT_EQ(taken[0] + taken[1], Pattern(20));
    EXPECT_EQ(taken[2], "(refused)");
    EXPECT_EQ(taken[3], "(refused)");
}
