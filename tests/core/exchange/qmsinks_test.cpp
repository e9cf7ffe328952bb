// Writers into sinks and readers from sources. The result must not depend on the pieces in which
// the bytes come.
#include <gtest/gtest.h>

#include <cstring>
#include <memory>
#include <random>
#include <string>

#include "account/qmaccountwriter.h"
#include "account/qmmerge.h"
#include "base/vfilesystem.h"
#include "base/vtext.h"
#include "exchange/qmexchange.h"
#include "tests/support/exchange_support.h"
#include "tests/support/support.h"

namespace {

struct StringSink : QMByteSink
{
    bool Write(const char* pBytes, size_t uSize) override
    {
        sBytes.append(pBytes, uSize);
        return true;
    }
    std::string sBytes;
};

std::string Written(const std::string& sText)
{
    StringSink sink;
    QMTextWriter writer(sink);
    writer.Add(sText);
    EXPECT_TRUE(writer.Finish());
    return sink.sBytes;
}

// A document with records of many lengths, so that a piece may end at any place within a record.
std::string LongDocument(int nRecords, const std::string& sBreak)
{
    std::string sText = "<q>";
    for (int i = 0; i < nRecords; ++i) {
        sText += "<transaction type='fee'>" + sBreak + "<date>12/" + std::to_string(i % 28 + 1) +
                 "/2004</date><amount>" + std::to_string(1000 + i) + ".25</amount>" + sBreak +
                 "<memo>" + std::string(static_cast<size_t>(i % 97), 'm') + "</memo></transaction>";
    }
    return sText + "</q>";
}

void ExpectAllRead(const std::string& sDocument, int nRecords)
{
    QMTransactionStore store;
    QMMemorySource source(sDocument.data(), sDocument.size());
    ASSERT_TRUE(QMImportFrom(source, QMExchangeKind::Xml, store));
    ASSERT_EQ(store.GetCount(), nRecords);
    store.ForEach([](const QMTransaction& transaction) {
        const int i = static_cast<int>(transaction.fAmount) - 1000;
        EXPECT_EQ(transaction.dtDate.wYear, 2004);
        EXPECT_EQ(transaction.dtDate.wMonth, 12);
        EXPECT_EQ(transaction.dtDate.wDay, i % 28 + 1);
        EXPECT_EQ(transaction.fAmount, static_cast<float>(1000 + i) + 0.25F);
        EXPECT_EQ(strlen(transaction.szMemo), static_cast<size_t>(i % 97));
    });
}

std::string AsUtf16(const std::string& sText)
{
    std::string sWide = "\xFF\xFE";
    for (const char c : sText) {
        sWide += c;
        sWide += '\0';
    }
    return sWide;
}

class FailingSource : public QMByteSource
{
public:
    int64_t GetSize() override { return -1; }
    int64_t ReadSome(void* pBuffer, size_t uSize) override
    {
        memset(pBuffer, '\n', uSize);
        return m_bFirst-- ? static_cast<int64_t>(uSize) : -1;
    }

private:
    int m_bFirst = 1;
};

// A large store is written in another way than a small one, with the same bytes.
TEST(AccountSink, GetsALargeStoreInOrder)
{
    for (const int32_t lCount : {19999, 20000, 20001, 30000}) {
        QMAccount account("");
        QMStoreFiller filler(account.store);
        std::mt19937 random(5);
        for (int32_t i = 0; i < lCount; ++i) {
            auto pTransaction = std::make_unique<QMTransaction>();
            pTransaction->dtDate = QMMakeDate(static_cast<uint16_t>(1990 + random() % 30), 5, 17);
            VCopyText(pTransaction->szMemo, std::to_string(i).c_str());
            filler.Add(std::move(pTransaction));
        }
        ASSERT_TRUE(filler.Finish());
        StringSink sink;
        ASSERT_TRUE(QMWriteAccountTo(sink, account));
        const QMFileImage image = QMMakeAccountImage(account);
        ASSERT_EQ(sink.sBytes.size(), image.uSize);
        ASSERT_EQ(memcmp(sink.sBytes.data(), image.pBytes.get(), image.uSize), 0)
            << "count " << lCount;
    }
}

} // namespace

TEST(TextWriter, EndsLinesAsThePlatformDoes)
{
    const std::string sEnd = VLineEnd;
    EXPECT_EQ(sEnd, VPathSeparator == '\\' ? "\r\n" : "\n");
    EXPECT_EQ(Written("a\n\nb"), "a" + sEnd + sEnd + "b");
    EXPECT_EQ(Written(""), "");
}

TEST(TextWriter, PassesTextsOnWholeWhateverTheirLength)
{
    for (const size_t uLength : {1U, 32767U, 32768U, 32769U, 100000U}) {
        const std::string sText(uLength, 'x');
        EXPECT_TRUE(Written(sText) == sText) << "length " << uLength;
    }
    const std::string sLines(40000, '\n');
    EXPECT_EQ(Written(sLines).size(), 40000 * strlen(VLineEnd));
}

TEST(TextWriter, WritesNumbersAndDatesAsPrintfDoes)
{
    StringSink sink;
    QMTextWriter writer(sink);
    writer.AddNumber(-2147483647 - 1);
    writer.Add(' ');
    writer.AddDate(QMMakeDate(2004, 3, 14), '0');
    writer.AddDate(QMMakeDate(3, 0, 65535), ' ');
    EXPECT_TRUE(writer.Finish());
    EXPECT_EQ(sink.sBytes, "-2147483648 03/14/2004 0/65535/3");
}

TEST(XmlPieces, EndInNoDateNoAmountAndNoText)
{
    for (const char* szBreak : {"\n", "\r\n", "\n\n\t"}) {
        ExpectAllRead(LongDocument(20000, szBreak), 20000);
    }
}

TEST(XmlPieces, AreOneWhereThereIsNoLineFeedAndInUtf16)
{
    ExpectAllRead(LongDocument(9000, ""), 9000);
    ExpectAllRead(AsUtf16(LongDocument(9000, "\n")), 9000);
}

TEST(XmlPieces, KeepNothingOfADocumentThatGoesWrongLate)
{
    std::string sDocument = LongDocument(9000, "\n");
    sDocument.resize(sDocument.size() - 1);
    QMTransactionStore store;
    AddTo(store, MakeTransaction(1, "3/14/2004", 5));
    QMMemorySource source(sDocument.data(), sDocument.size());
    EXPECT_FALSE(QMImportFrom(source, QMExchangeKind::Xml, store));
    EXPECT_EQ(store.GetCount(), 1);
}

TEST(ImportFrom, ReadsWhatAFileOfTheKindReads)
{
    const std::string sQif = "!Type:Bank\nD3/14/2004\nT-12.50\nPRent\n^\n";
    QMTransactionStore store;
    QMMemorySource source(sQif.data(), sQif.size());
    ASSERT_TRUE(QMImportFrom(source, QMExchangeKind::Qif, store));
    EXPECT_EQ(FullText(RecordsOf(store).front()), Import("a.qif", sQif).front());
}

TEST(ImportFrom, RefusesWhatIsNoFormatAndASourceThatFails)
{
    QMTransactionStore store;
    for (const QMExchangeKind kind : {QMExchangeKind::None, QMExchangeKind::Text}) {
        QMMemorySource source("x", 1);
        EXPECT_FALSE(QMImportFrom(source, kind, store));
    }
    FailingSource failing;
    EXPECT_FALSE(QMImportFrom(failing, QMExchangeKind::Xml, store));
}

TEST(AccountWriter, HandsASinkTheBytesOfTheImage)
{
    for (const int32_t lVersion : {QM_VERSION_1_0, QM_VERSION_1_1, QM_VERSION_2_0}) {
        QMAccount account("");
        account.SetVersion(lVersion);
        for (int i = 0; i < 500; ++i) {
            AddTo(account.store, MakeFull(i % 12, "3/14/2004", 5, std::string(255, 'd'), "memo",
                                          std::string(127, 'c')));
        }
        const QMFileImage image = QMMakeAccountImage(account);
        StringSink sink;
        EXPECT_TRUE(QMWriteAccountTo(sink, account));
        EXPECT_TRUE(sink.sBytes ==
                    std::string(image.pBytes.get(), image.pBytes.get() + image.uSize));
    }
}

TEST(MergeAll, LeavesTheAccountAsMergingMarkedCopiesWould)
{
    for (const bool bEmpty : {true, false}) {
        QMTransactionStore from;
        QMTransactionStore into;
        for (const char* szDate : {"3/14/2004", "1/1/2004", "3/14/2004"}) {
            AddTo(from, MakeTransaction(1, szDate, 5, 16, "new"));
            if (!bEmpty) {
                AddTo(into, MakeTransaction(1, szDate, 6, 16, "old"));
            }
        }
        QMTransactionStore copies;
        QMTransactionStore expected;
        copies.AssignFrom(from);
        expected.AssignFrom(into);
        for (copies.First(); copies.SetImportMark(true), copies.Next();) {
        }
        EXPECT_EQ(QMMergeMarked(copies, expected), 3);
        EXPECT_EQ(QMMergeAll(from, into), 3);
        EXPECT_EQ(ContentsOf(into), ContentsOf(expected));
        EXPECT_EQ(into.GetPosition(), expected.GetPosition());
        EXPECT_TRUE(from.IsEmpty());
        EXPECT_EQ(QMMergeAll(from, into), 0);
    }
}
