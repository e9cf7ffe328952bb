// Measures reports by processor time: each kind against a plain loop that formats the same lines,
// and many groups against few.

#include <cstdio>
#include <cstring>
#include <map>
#include <memory>
#include <string>
#include <utility>

#include "bench/ratios.h"
#include "bench/reportaccounts.h"
#include "reports/qmreport.h"

namespace {

constexpr int32_t lMany = 100000;

constexpr const char* aszKinds[QM_REPORT_KIND_COUNT] = {
    "Statement", "Type",     "Description", "Memo",       "Category",
    "Tax",       "Expenses", "Voided",      "NotCleared",
};

// ---- Accounts.

QMAccountData& GetAccount(int32_t lCount, int32_t lGroups)
{
    static std::map<std::pair<int32_t, int32_t>, std::unique_ptr<QMAccountData>> accounts;
    auto& pAccount = accounts[{lCount, lGroups}];
    if (pAccount == nullptr) {
        pAccount = std::make_unique<QMAccountData>();
        FillForReports(*pAccount, lCount, lGroups);
    }
    return *pAccount;
}

// ---- A report, measured and drawn on a surface that keeps nothing.

class NoSurface : public QMReportSurface
{
public:
    QMReportFont SelectFont(QMReportFont font) override { return std::exchange(m_font, font); }
    QMReportPen SelectPen(QMReportPen pen) override { return pen; }
    QMReportExtent TextExtent(std::string_view text) override
    {
        return {static_cast<int32_t>(text.size()) * 6, 12};
    }
    void PutText(std::string_view text, const VRect&, QMReportAlign) override
    {
        benchmark::DoNotOptimize(text.data());
        ++m_uTexts;
    }
    void PutLine(int32_t, int32_t, int32_t, int32_t) override {}
    void PutEdges(const VRect&, uint32_t) override {}
    void PutFill(const VRect&, uint32_t) override {}
    uint32_t GetBkColor() override { return m_crBackground; }
    uint32_t SetBkColor(uint32_t cr) override { return std::exchange(m_crBackground, cr); }

    size_t GetTextCount() const { return m_uTexts; }

private:
    QMReportFont m_font = QMReportFont::Standard;
    uint32_t m_crBackground = 0xFFFFFF;
    size_t m_uTexts = 0;
};

const QMDate g_dtFrom = QMMakeDate(1900, 1, 1);
const QMDate g_dtTo = QMMakeDate(2900, 12, 31);

size_t DrawReport(QMAccountData& account, uint32_t uKind)
{
    QMReport report(account);
    report.SetRange(g_dtFrom, g_dtTo);
    report.SetGroup(uKind == QM_REPORT_TYPE ? "Check" : QM_REPORT_ALL_GROUPS);
    NoSurface surface;
    VRect page = {0, 0, QM_REPORT_SCREEN_WIDTH, 0};
    const bool bDrawn = report.Measure(uKind, surface, page, {}) && report.Draw(surface, page, {});
    return bDrawn ? surface.GetTextCount() : 0;
}

// ---- The same lines by a plain loop.

bool IsListed(const QMTransaction& t, uint32_t uKind)
{
    const bool bVoided = (t.lFlags & QM_TRANS_FLAG_VOIDED) != 0;
    switch (uKind) {
        case QM_REPORT_STATEMENT:
            return (t.lFlags & QM_TRANS_FLAG_NOT_CLEARED) == 0;
        case QM_REPORT_TYPE:
            return t.lType == QM_TRANS_CHECK && !bVoided;
        case QM_REPORT_DESCRIPTION:
        case QM_REPORT_MEMO:
        case QM_REPORT_CATEGORY:
            return !bVoided;
        case QM_REPORT_VOIDED:
            return bVoided;
        default:
            return (t.lFlags & QMGetReportInfo(uKind)->uFlag) != 0 && !bVoided;
    }
}

size_t FormatLine(const QMTransaction& t, double& dTotal)
{
    char szDate[32];
    char szNumber[16] = "";
    char szText[600];
    char szAmount[64];
    snprintf(szDate, sizeof szDate, "%2d/%2d/%2d", t.dtDate.wMonth, t.dtDate.wDay, t.dtDate.wYear);
    if (t.lType == QM_TRANS_CHECK) {
        snprintf(szNumber, sizeof szNumber, "%d", static_cast<int>(t.lNumber));
        snprintf(szText, sizeof szText, "%s", t.szDescription);
    } else {
        snprintf(szText, sizeof szText, "%s - %s - %s", QMTypeLabel(t.lType), t.szDescription,
                 t.szMemo);
    }
    dTotal += static_cast<double>(t.fAmount);
    snprintf(szAmount, sizeof szAmount, "%0.2f", static_cast<double>(t.fAmount));
    return strlen(szDate) + strlen(szNumber) + strlen(szText) + strlen(szAmount);
}

size_t FormatPlainly(QMAccountData& account, uint32_t uKind)
{
    size_t uCharacters = 0;
    double dTotal = 0;
    account.store.ForEach([&](const QMTransaction& t) {
        if (IsListed(t, uKind)) {
            uCharacters += FormatLine(t, dTotal);
        }
    });
    benchmark::DoNotOptimize(dTotal);
    return uCharacters;
}

// ---- Registering.

using Work = size_t (*)(QMAccountData& account, uint32_t uKind);

std::string Add(const std::string& sName, Work pWork, uint32_t uKind, int32_t lCount,
                int32_t lGroups)
{
    return AddMeasured(sName, lCount, [=] {
        QMAccountData& account = GetAccount(lCount, lGroups);
        Measurement result;
        const double dStart = ProcessorSeconds();
        result.bDone = pWork(account, uKind) > 0;
        result.dSeconds = ProcessorSeconds() - dStart;
        return result;
    });
}

void RegisterKinds()
{
    for (uint32_t uKind = 0; uKind < QM_REPORT_KIND_COUNT; ++uKind) {
        const std::string sName = aszKinds[uKind];
        const std::string sReport = Add(sName, DrawReport, uKind, lMany, lReportGroups);
        const std::string sLoop = Add(sName + "Loop", FormatPlainly, uKind, lMany, lReportGroups);
        CompareWith(sReport, sLoop, 3);
        if (QMReportHasTextGroups(uKind)) {
            // A hundred times as many groups have their own lines, and cost no walk each.
            CompareWith(sReport, Add(sName + "TenGroups", DrawReport, uKind, lMany, 10), 1.5);
        }
    }
}

} // namespace

int main(int argc, char** argv)
{
    RegisterKinds();
    return RunWithRatios(argc, argv);
}
