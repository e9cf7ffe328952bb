// Packed transactions: the same file as from a store, in any order and version, and what fails.
#include "account/qmpackedtransactions.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include "account/qmaccountwriter.h"
#include "base/vtext.h"
#include "tests/core/allocationfault.h"
#include "tests/support/support.h"

namespace {

// Takes so many bytes and refuses those that follow.
struct StringSink : QMByteSink
{
    bool Write(const char* pBytes, size_t uSize) override
    {
        sBytes.append(pBytes, uSize);
        return sBytes.size() <= uLimit;
    }

    std::string sBytes;
    size_t uLimit = SIZE_MAX;
};

// Gives up at a step.
struct Impatient : QMProgress
{
    explicit Impatient(int nSteps) : nLeft(nSteps) {}
    bool OnStep(uint64_t uDone, uint64_t uTotal) override
    {
        EXPECT_LE(uDone, uTotal);
        return nLeft-- > 0;
    }

    int nLeft;
};

std::vector<QMTransaction> MakeRandom(int nCount, bool bSorted)
{
    std::mt19937 random(11);
    std::vector<QMTransaction> transactions(static_cast<size_t>(nCount));
    int nDay = 0;
    for (QMTransaction& t : transactions) {
        nDay = bSorted ? nDay + static_cast<int>(random() % 2) : static_cast<int>(random() % 9000);
        // 2015 is among the years: one of its bytes is not read back as it was scrambled.
        t.dtDate = QMMakeDate(static_cast<uint16_t>(2000 + nDay / 336),
                              static_cast<uint16_t>(nDay / 28 % 12 + 1),
                              static_cast<uint16_t>(nDay % 28 + 1));
        t.lType = static_cast<int32_t>(random() % 12);
        t.fAmount = static_cast<float>(random() % 10000) / 100;
        VCopyText(t.szDescription, std::string(random() % 256, 'd').c_str());
        VCopyText(t.szMemo, std::to_string(random()).c_str());
        VCopyText(t.szCategory, std::string(random() % 128, 'c').c_str());
    }
    return transactions;
}

std::string FileOf(QMAccount& account, const std::vector<QMTransaction>& transactions)
{
    QMStoreFiller filler(account.store);
    for (const QMTransaction& t : transactions) {
        filler.Add(std::make_unique<QMTransaction>(t));
    }
    EXPECT_TRUE(filler.Finish());
    StringSink sink;
    EXPECT_TRUE(QMWriteAccountTo(sink, account));
    account.store.Clear();
    return sink.sBytes;
}

} // namespace

TEST(PackedTransactions, GiveTheFileThatAStoreGives)
{
    for (const int32_t lVersion : {QM_VERSION_1_0, QM_VERSION_1_1, QM_VERSION_2_0}) {
        for (const bool bSorted : {true, false}) {
            for (const int nCount : {0, 1, 2, 700, 6000}) {
                const auto transactions = MakeRandom(nCount, bSorted);
                QMAccount account("");
                account.SetVersion(lVersion);
                QMPackedTransactions packed(lVersion);
                for (const QMTransaction& t : transactions) {
                    ASSERT_TRUE(packed.Add(t));
                }
                EXPECT_EQ(packed.GetCount(), nCount);
                StringSink sink;
                ASSERT_TRUE(QMWriteAccountTo(sink, account, packed));
                EXPECT_TRUE(sink.sBytes == FileOf(account, transactions))
                    << lVersion << " " << bSorted << " " << nCount;
            }
        }
    }
}

TEST(PackedTransactions, TellWhenMemoryRunsOut)
{
    const auto transactions = MakeRandom(3000, false);
    QMAccount account("");
    for (int nBefore = 0; nBefore < 3; ++nBefore) {
        QMPackedTransactions packed(account.lVersion);
        bool bAll = true;
        {
            const AllocationFault fault(nBefore);
            for (const QMTransaction& t : transactions) {
                bAll = bAll && packed.Add(t);
            }
        }
        EXPECT_FALSE(bAll) << nBefore;
    }
    QMPackedTransactions packed(account.lVersion);
    for (const QMTransaction& t : transactions) {
        ASSERT_TRUE(packed.Add(t));
    }
    StringSink sink;
    sink.sBytes.reserve(1 << 12);
    bool bWritten = true;
    {
        const AllocationFault fault;
        bWritten = QMWriteAccountTo(sink, account, packed);
    }
    EXPECT_FALSE(bWritten);
}

TEST(PackedTransactions, EndWhereTheSinkRefusesOrTheWorkIsGivenUp)
{
    for (const bool bSorted : {true, false}) {
        const auto transactions = MakeRandom(6000, bSorted);
        QMAccount account("");
        const size_t uWhole = FileOf(account, transactions).size();
        const auto Pack = [&](QMPackedTransactions& packed) {
            for (const QMTransaction& t : transactions) {
                packed.Add(t);
            }
        };
        for (const size_t uLimit : {size_t{10}, uWhole / 2, uWhole - 1}) {
            QMPackedTransactions packed(account.lVersion);
            Pack(packed);
            StringSink sink;
            sink.uLimit = uLimit;
            EXPECT_FALSE(QMWriteAccountTo(sink, account, packed));
        }
        for (const int nSteps : {0, 2}) {
            QMPackedTransactions packed(account.lVersion);
            Pack(packed);
            StringSink sink;
            Impatient progress(nSteps);
            EXPECT_FALSE(QMWriteAccountTo(sink, account, packed, &progress));
            EXPECT_LT(sink.sBytes.size(), uWhole);
        }
        QMPackedTransactions packed(account.lVersion);
        Pack(packed);
        StringSink sink;
        Impatient patient(1000000);
        EXPECT_TRUE(QMWriteAccountTo(sink, account, packed, &patient));
        EXPECT_EQ(sink.sBytes.size(), uWhole);
    }
}
