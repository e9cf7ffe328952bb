// Writing transactions into a file that is open already.
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
            const QMStdioFile pFile = QMCreateTextFile(sOther.c_str());
            ASSERT_NE(pFile, nullptr);
            EXPECT_TRUE(QMExportTo(pFile.get(), entry.kind, store));
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
        const QMStdioFile pFile = QMCreateTextFile(sPath.c_str());
        ASSERT_NE(pFile, nullptr);
        fputs("in front ", pFile.get());
        EXPECT_TRUE(QMExportTo(pFile.get(), QMExchangeKind::Qif, store));
    }
    EXPECT_EQ(ReadWholeFile(sPath).rfind("in front !Type:Bank", 0), 0U);
}

TEST(QMExportTo, RefusesWhatIsNoFormat)
{
    const TemporaryFolder folder;
    const std::string sPath = folder.PathOf("out");
    QMTransactionStore store;
    Fill(store);
    for (const QMExchangeKind kind : {QMExchangeKind::None, QMExchangeKind::Text}) {
        {
            const QMStdioFile pFile = QMCreateTextFile(sPath.c_str());
            ASSERT_NE(pFile, nullptr);
            EXPECT_FALSE(QMExportTo(pFile.get(), kind, store));
        }
        EXPECT_EQ(ReadWholeFile(sPath), "");
    }
}

// Exporting to a path cannot tell this.
TEST(QMExportTo, LeavesItToTheFileWhetherItTookEverything)
{
    const TemporaryFolder folder;
    const std::string sPath = folder.PathOf("out");
    WriteWholeFile(sPath, "for reading only");
    QMTransactionStore store;
    Fill(store);
    for (const auto& entry : aKinds) {
        const QMStdioFile pFile = QMOpenForReading(sPath.c_str());
        ASSERT_NE(pFile, nullptr);
        EXPECT_TRUE(QMExportTo(pFile.get(), entry.kind, store));
        EXPECT_NE(ferror(pFile.get()), 0) << entry.szName;
    }
    EXPECT_EQ(ReadWholeFile(sPath), "for reading only");
}
