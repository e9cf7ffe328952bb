// Small random accounts: the register compared with its rules, which are stated a second time,
// simply and slowly.
#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <random>
#include <string>
#include <tuple>
#include <vector>

#include "base/vtext.h"
#include "register/qmregistermodel.h"
#include "register/qmrowtable.h"
#include "tests/support/register_support.h"

namespace {

const struct
{
    const char* szName;
    uint32_t uBit;
    uint8_t QMAccountHeader::*pShown;
} aColumns[] = {
    {"Date", 1, &QMAccountHeader::bShowDate},
    {"Number", 2, &QMAccountHeader::bShowNumber},
    {"Description", 4, &QMAccountHeader::bShowDescription},
    {"Debit", 8, &QMAccountHeader::bShowDebit},
    {"Credit", 16, &QMAccountHeader::bShowCredit},
    {"Balance", 32, &QMAccountHeader::bShowBalance},
    {"Memo", 64, &QMAccountHeader::bShowMemo},
    {"Category", 128, &QMAccountHeader::bShowCategory},
    {"Tag", 256, &QMAccountHeader::bShowTag},
    {"Cleared", 512, &QMAccountHeader::bShowCleared},
};

template <class... Values>
std::string Print(const char* szFormat, Values... values)
{
    char szText[600];
    snprintf(szText, sizeof szText, szFormat, values...);
    return szText;
}

// 'D' for a debit type, 'C' for a credit type, '?' for any other.
char SideOf(int32_t lType)
{
    return lType >= 0 && lType < 12 ? "DCDDCDCDDCDC"[lType] : '?';
}

double CentsOf(float fAmount)
{
    return strtod(Print("%.2f", static_cast<double>(fAmount)).c_str(), nullptr);
}

// The rules of the register. Every answer is computed anew from the transactions.
class PlainRegister
{
public:
    void Rebuild(bool bWithColumns)
    {
        if (bWithColumns) {
            uVisible = 0;
            for (const auto& column : aColumns) {
                uVisible |= header.*column.pShown != 0 ? column.uBit : 0;
            }
        }
        rows.clear();
        for (size_t u = 0; u < transactions.size(); ++u) {
            if (IsShown(u)) {
                rows.emplace_back();
            }
        }
    }

    bool Refresh(size_t uFrom, uint32_t uMask)
    {
        if (transactions.empty() || uFrom >= transactions.size()) {
            return transactions.empty();
        }
        size_t uRow = uFrom > uFirstShown ? uFrom - uFirstShown : 0;
        size_t uLast = transactions.size() - 1;
        for (size_t u = uFrom; u < transactions.size(); ++u) {
            if (!IsShown(u)) {
                continue;
            }
            if (uRow >= rows.size()) {
                uLast = u;
                break;
            }
            WriteRow(rows[uRow++], u, uVisible & uMask);
        }
        dBalance = SumUpTo(uLast, false);
        dAvailable = SumUpTo(uLast, true);
        uFirstShown = FindFirstShown();
        return true;
    }

    std::vector<QMTransactionFields> transactions;
    QMAccountHeader header = QMDefaultHeader();
    bool bFilter = false;
    bool bIncludeUncleared = true;

    std::vector<RecordedRow> rows;
    size_t uFirstShown = 0;
    double dBalance = 0;
    double dAvailable = 0;

private:
    bool IsShown(size_t uPosition) const
    {
        const auto parts = [](const QMDate& date) {
            return std::tuple(date.wYear, date.wMonth, date.wDay);
        };
        const auto date = parts(transactions[uPosition].dtDate);
        return !bFilter || header.lDisplayPeriod == 0 ||
               (parts(header.dtPeriodFrom) <= date && date <= parts(header.dtPeriodTo));
    }

    size_t FindFirstShown() const
    {
        for (size_t u = 0; u < transactions.size(); ++u) {
            if (IsShown(u)) {
                return u;
            }
        }
        return 0;
    }

    double SumUpTo(size_t uPosition, bool bWithUncleared) const
    {
        double dSum = 0;
        for (size_t u = 0; u <= uPosition; ++u) {
            const QMTransactionFields& fields = transactions[u];
            const bool bCounts = (fields.lFlags & (bWithUncleared ? 1 : 1 | 16)) == 0;
            if (bCounts && SideOf(fields.lType) == 'D') {
                dSum -= CentsOf(fields.fAmount);
            } else if (bCounts && SideOf(fields.lType) == 'C') {
                dSum += CentsOf(fields.fAmount);
            }
        }
        return dSum;
    }

    void WriteRow(RecordedRow& row, size_t uPosition, uint32_t uWritten) const
    {
        const QMTransactionFields& fields = transactions[uPosition];
        const double dShown = SumUpTo(uPosition, bIncludeUncleared);
        for (const auto& column : aColumns) {
            const bool bAmount = (column.uBit & (8 | 16)) != 0;
            const bool bMarks = (column.uBit & (256 | 512)) != 0;
            const bool bHasText = !bMarks && !(bAmount && SideOf(fields.lType) == '?');
            if (bHasText && (uWritten & column.uBit) != 0) {
                row.texts[column.szName] = TextOf(fields, column.uBit, dShown);
            }
        }
        row.uDecoration = DecorationOf(fields.lFlags, dShown, uWritten);
    }

    static std::string TextOf(const QMTransactionFields& fields, uint32_t uBit, double dShown)
    {
        const char cSide = SideOf(fields.lType);
        if (cSide == '?') {
            return "";
        }
        const QMDate& date = fields.dtDate;
        switch (uBit) {
            case 1:
                return Print("%2d/%2d/%02d", date.wMonth, date.wDay, date.wYear % 100);
            case 2:
                return fields.lType == 0 ? Print("%5d", fields.lNumber) : "     ";
            case 4:
                return DescriptionOf(fields);
            case 8:
            case 16:
                return (uBit == 8) == (cSide == 'D')
                           ? Print("%10.2f", static_cast<double>(fields.fAmount))
                           : "";
            case 32:
                return Print("%.2f", dShown);
            default:
                return uBit == 64 ? fields.szMemo : fields.szCategory;
        }
    }

    static std::string DescriptionOf(const QMTransactionFields& fields)
    {
        std::string sText = fields.szDescription;
        if (fields.lType != 0) {
            sText = (sText.size() < 2 ? "" : " - ") + (sText.size() < 2 ? "" : sText);
            sText = g_typeLabels[static_cast<size_t>(fields.lType)] + sText;
        }
        return (fields.lFlags & 1) != 0 ? sText + "   (voided)" : sText;
    }

    static uint32_t DecorationOf(uint32_t uFlags, double dShown, uint32_t uWritten)
    {
        const uint32_t uCleared = (uFlags & 1) != 0 ? 16 : (uFlags & 16) == 0 ? 32 : 0;
        const uint32_t uTag = (uFlags & 4) != 0 ? 4 : (uFlags & 2) != 0 ? 8 : 0;
        const uint32_t uSign = dShown >= 0 ? 1 : 2;
        return ((uWritten & 512) != 0 ? uCleared : 0) + ((uWritten & 256) != 0 ? uTag : 0) +
               ((uWritten & 32) != 0 ? uSign : 0);
    }

    uint32_t uVisible = 0;
};

// A register that is changed and refreshed at random, its rules beside it, and a third register
// that writes into a table.
class RandomWalk
{
public:
    explicit RandomWalk(unsigned uSeed) : m_random(uSeed)
    {
        const uint32_t uCount = Below(30);
        for (uint32_t u = 0; u < uCount; ++u) {
            Add();
        }
        Rebuild(true);
    }

    void Step()
    {
        switch (Below(10)) {
            case 0:
                return Add();
            case 1:
                return ChangeOne();
            case 2:
                return RemoveOne();
            case 3:
                return SetPeriod();
            case 4:
                return ToggleColumn();
            case 5:
                return SetOptions();
            case 6:
                return Rebuild(Below(3) == 0);
            default:
                return Refresh();
        }
    }

    void ExpectAsPlain() const
    {
        EXPECT_EQ(DescribeRows(m_register.rows.GetRows()), DescribeRows(m_plain.rows));
        EXPECT_EQ(static_cast<size_t>(m_register.model.GetFirstShown()), m_plain.uFirstShown);
        EXPECT_EQ(m_register.model.GetBalance(false), m_plain.dBalance);
        EXPECT_EQ(m_register.model.GetBalance(true), m_plain.dAvailable);
    }

    void ExpectTableAsPlain() const
    {
        ASSERT_EQ(static_cast<size_t>(m_table.GetRowCount()), m_plain.rows.size());
        for (int32_t lRow = 0; lRow < m_table.GetRowCount(); ++lRow) {
            RecordedRow row = m_plain.rows[static_cast<size_t>(lRow)];
            EXPECT_EQ(m_table.GetDecoration(lRow), row.uDecoration) << "row " << lRow;
            for (int32_t i = 0; i < m_table.GetColumnCount(); ++i) {
                const std::string& sColumn =
                    m_register.rows.GetColumnNames()[static_cast<size_t>(i)];
                EXPECT_EQ(m_table.GetCellText(lRow, i), row.texts[sColumn]) << sColumn;
            }
        }
    }

private:
    uint32_t Below(uint32_t uEnd) { return static_cast<uint32_t>(m_random() % uEnd); }

    QMDate RandomDate()
    {
        return QMMakeDate(static_cast<uint16_t>(2003 + Below(2)),
                          static_cast<uint16_t>(1 + Below(3)), static_cast<uint16_t>(1 + Below(9)));
    }

    // All changes that leave the order of the store as it is.
    void FillIn(QMTransactionFields& fields)
    {
        fields.lType = Below(15) == 0 ? static_cast<int32_t>(Below(2)) * 13 - 1
                                      : static_cast<int32_t>(Below(12));
        fields.lNumber = Below(200000);
        fields.fAmount = static_cast<float>(Below(100000)) / 1000;
        fields.lFlags = Below(3) == 0 ? Below(32) : Below(2) * 16;
        VCopyText(fields.szDescription, std::string(Below(4), 'd').c_str());
        VCopyText(fields.szMemo, std::string(Below(40), 'm').c_str());
        VCopyText(fields.szCategory, std::string(Below(20), 'c').c_str());
    }

    void Add()
    {
        QMTransaction transaction;
        FillIn(transaction);
        transaction.dtDate = RandomDate();
        AddTo(m_register.Store(), transaction);
        TakeOver();
    }

    void ChangeOne()
    {
        if (!m_plain.transactions.empty()) {
            FillIn(m_register.At(RandomPosition()));
            TakeOver();
        }
    }

    void RemoveOne()
    {
        if (!m_plain.transactions.empty()) {
            m_register.At(RandomPosition());
            m_register.Store().Remove();
            TakeOver();
        }
    }

    int32_t RandomPosition()
    {
        return static_cast<int32_t>(Below(static_cast<uint32_t>(m_plain.transactions.size())));
    }

    void SetPeriod()
    {
        m_register.Header().lDisplayPeriod = Below(5);
        m_register.Header().dtPeriodFrom = RandomDate();
        m_register.Header().dtPeriodTo = RandomDate();
        TakeOver();
    }

    void ToggleColumn()
    {
        m_register.Header().*aColumns[Below(10)].pShown ^= 1;
        TakeOver();
    }

    void SetOptions()
    {
        m_plain.bFilter = Below(2) == 0;
        m_plain.bIncludeUncleared = Below(2) == 0;
        for (QMRegisterModel* pModel : {&m_register.model, &m_tableModel}) {
            pModel->SetPeriodFilter(m_plain.bFilter, false);
            pModel->SetIncludeUncleared(m_plain.bIncludeUncleared);
        }
    }

    void TakeOver()
    {
        m_plain.header = m_register.Header();
        m_plain.transactions.clear();
        m_register.Store().ForEach(
            [&](const QMTransaction& transaction) { m_plain.transactions.push_back(transaction); });
    }

    void Rebuild(bool bWithColumns)
    {
        m_plain.Rebuild(bWithColumns);
        EXPECT_TRUE(m_register.model.RebuildRows(bWithColumns));
        EXPECT_TRUE(m_tableModel.RebuildRows(bWithColumns));
    }

    void Refresh()
    {
        constexpr uint32_t aMasks[] = {1023, 1023, 800, 32, 0};
        const uint32_t uFrom = Below(2) * Below(35);
        const uint32_t uMask = Below(2) == 0 ? aMasks[Below(5)] : Below(1024);
        const bool bExpected = m_plain.Refresh(uFrom, uMask);
        const auto lFrom = static_cast<int32_t>(uFrom);
        EXPECT_EQ(m_register.model.RefreshRows(lFrom, uMask, false), bExpected);
        EXPECT_EQ(m_tableModel.RefreshRows(lFrom, uMask, false), bExpected);
    }

    std::mt19937 m_random;
    TestRegister m_register;
    QMRowTable m_table;
    QMRegisterModel m_tableModel{m_register.document, m_table};
    PlainRegister m_plain;
};

} // namespace

TEST(QMRegisterRandom, RowsAndSumsAreThoseOfThePlainRules)
{
    for (unsigned uSeed = 0; uSeed < 400 && !testing::Test::HasFailure(); ++uSeed) {
        RandomWalk walk(uSeed);
        for (int nStep = 0; nStep < 40 && !testing::Test::HasFailure(); ++nStep) {
            SCOPED_TRACE(Print("seed %u, step %d", uSeed, nStep));
            walk.Step();
            walk.ExpectAsPlain();
        }
    }
}

TEST(QMRegisterRandom, TableShowsWhatThePlainRulesSay)
{
    for (unsigned uSeed = 1000; uSeed < 1200 && !testing::Test::HasFailure(); ++uSeed) {
        RandomWalk walk(uSeed);
        for (int nStep = 0; nStep < 40 && !testing::Test::HasFailure(); ++nStep) {
            SCOPED_TRACE(Print("seed %u, step %d", uSeed, nStep));
            walk.Step();
            walk.ExpectTableAsPlain();
        }
    }
}
