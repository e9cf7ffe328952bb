// Writing transactions into a sink.
#include <gtest/gtest.h>

#include <cstdio>
#include <string>

#include "exchange/qmexchange.h"
#include "exchange/qmstdiofile.h"
#include "tests/support/support.h"

namespace {

constexpr struct
{
    const char* szName;
    QMExchangeKind kind;
} aKinds[] = {
    {"out.qif", QMExchangeKind::Qif},
    {"out.csv", QMExchangeKind::Csv},
    {"out.xml", QMExchangeKind::Xml},
};

void Fill(QMTransactionStore& store)
{
    AddTo(store, MakeTransaction(QM_TRANS_CHECK, "3/14/2004", 12.5F, 0, "Oak Street"));
    AddTo(store, MakeTransaction(QM_TRANS_DEPOSIT, "3/15/2004", 250.0F));
}

// Accepts a number of pieces and refuses all others.
struct CountingSink : QMByteSink
{
    explicit CountingSink(int n) : nTaken(n) {}
    bool Write(const char* pBytes, size_t uSize) override
    {
        const bool bTaken = nCalls++ < nTaken;
        sTaken.append(pBytes, bTaken ? uSize : 0);
        return bTaken;
    }

    int nTaken;
    int nCalls = 0;
    std::string sTaken;
};

} // namespace

TEST(QMExportTo, WritesWhatExportingToAPathWrites)
{
    const TemporaryFolder folder;
    QMTransactionStore store;
    Fill(store);
    for (const auto& entry : aKinds) {
        const std::string sPath = folder.PathOf(entry.szName);
        ASSERT_TRUE(QMExportFile(sPath.c_str(), store));
        const std::string sOther = folder.PathOf("other");
        {
            const QMStdioFile pFile = QMCreateFile(sOther.c_str());
            ASSERT_NE(pFile, nullptr);
            QMStdioSink sink(pFile.get());
            EXPECT_TRUE(QMExportTo(sink, entry.kind, store));
        }
        EXPECT_EQ(ReadWholeFile(sOther), ReadWholeFile(sPath)) << entry.szName;
        EXPECT_GT(ReadWholeFile(sPath).size(), 60U) << entry.szName;
    }
}

TEST(QMExportTo, GoesOnWhereTheFileIs)
{
    const TemporaryFolder folder;
    const std::string sPath = folder.PathOf("out");
    QMTransactionStore store;
    Fill(store);
    {
        const QMStdioFile pFile = QMCreateFile(sPath.c_str());
        ASSERT_NE(pFile, nullptr);
        fputs("in front ", pFile.get());
        QMStdioSink sink(pFile.get());
        EXPECT_TRUE(QMExportTo(sink, QMExchangeKind::Qif, store));
    }
    EXPECT_EQ(ReadWholeFile(sPath).rfind("in front !Type:Bank", 0), 0U);
}

TEST(QMExportTo, RefusesWhatIsNoFormat)
{
    QMTransactionStore store;
    Fill(store);
    for (const QMExchangeKind kind : {QMExchangeKind::None, QMExchangeKind::Text}) {
        CountingSink sink(0);
        EXPECT_FALSE(QMExportTo(sink, kind, store));
        EXPECT_EQ(sink.nCalls, 0);
    }
}

// An export to a path does not notice this.
TEST(QMExportTo, TellsWhetherTheFileTookEverything)
{
    const TemporaryFolder folder;
    const std::string sPath = folder.PathOf("out");
    WriteWholeFile(sPath, "for reading only");
    QMTransactionStore store;
    Fill(store);
    for (const auto& entry : aKinds) {
        const QMStdioFile pFile = QMOpenForReading(sPath.c_str());
        ASSERT_NE(pFile, nullptr);
        setvbuf(pFile.get(), nullptr, _IONBF, 0);
        QMStdioSink sink(pFile.get());
        EXPECT_FALSE(QMExportTo(sink, entry.kind, store)) << entry.szName;
    }
    EXPECT_EQ(ReadWholeFile(sPath), "for reading only");
}

TEST(QMExportTo, AsksASinkThatRefusedNoMore)
{
    QMTransactionStore store;
    for (int i = 0; i < 2000; ++i) {
        Fill(store);
    }
    for (const auto& entry : aKinds) {
        CountingSink all(1000);
        EXPECT_TRUE(QMExportTo(all, entry.kind, store)) << entry.szName;
        EXPECT_GT(all.nCalls, 2) << entry.szName;
        CountingSink one(1);
        EXPECT_FALSE(QMExportTo(one, entry.kind, store)) << entry.szName;
        EXPECT_EQ(one.nCalls, 2) << entry.szName;
        EXPECT_EQ(one.sTaken, all.sTaken.substr(0, one.sTaken.size())) << entry.szName;
    }
}
