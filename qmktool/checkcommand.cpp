#include <cmath>

#include "qmktool/commands.h"
#include "qmktool/output.h"
#include "qmktool/toolaccount.h"

namespace {

constexpr struct
{
    uint32_t uFault;
    const char* szReason;
} aReasons[] = {
    {QM_FAULT_TYPE, "the type is not one of the twelve"},
    {QM_FAULT_DAY, "a date has no such day"},
    {QM_FAULT_MONTH, "a date has no such month"},
    {QM_FAULT_YEAR, "a year is not within 1752 to 3000"},
    {QM_FAULT_NUMBER, "the check number is not within 1 to 9999999"},
    {QM_FAULT_AMOUNT, "the amount is 0, negative or above 10000000000"},
    {QM_FAULT_FLAGS, "the tags are not a possible set"},
};

// Findings: reports what is wrong with the file and counts it.
class Findings
{
public:
    Findings(Output& output, bool bAll) : m_output(output), m_bAll(bAll) {}

    void Mended(int32_t lEntries, const char* szWhat)
    {
        if (lEntries > 0) {
            m_output.Format("mended at reading: %s: %d\n", szWhat, lEntries);
            ++m_lCount;
        }
    }

    void Entry(int32_t lPosition, const char* szReason)
    {
        if (m_bAll || m_lEntries < lFirstEntries) {
            m_output.Format("position %d: %s\n", lPosition, szReason);
        }
        ++m_lEntries;
        ++m_lCount;
    }

    // To be called after the last entry.
    void EndEntries()
    {
        if (!m_bAll && m_lEntries > lFirstEntries) {
            m_output.Format("and %d more (all of them with --all)\n", m_lEntries - lFirstEntries);
        }
    }

    void Trailing(uint64_t uBytes)
    {
        if (uBytes > 0) {
            m_output.Format("trailing bytes: %llu\n", static_cast<unsigned long long>(uBytes));
            ++m_lCount;
        }
    }

    int32_t GetCount() const { return m_lCount; }

private:
    static constexpr int32_t lFirstEntries = 20;

    Output& m_output;
    bool m_bAll;
    int32_t m_lEntries = 0;
    int32_t m_lCount = 0;
};

void CheckEntries(const QMAccount& account, Findings& findings)
{
    int32_t lPosition = 0;
    account.store.ForEach([&](const QMTransaction& transaction) {
        const uint32_t uFaults = transaction.Validate();
        for (const auto& reason : aReasons) {
            if ((uFaults & reason.uFault) != 0) {
                findings.Entry(lPosition, reason.szReason);
            }
        }
        // NaN passes both comparisons with the limits of an amount, so it needs a test of its own.
        if (std::isnan(transaction.fAmount)) {
            findings.Entry(lPosition, "the amount is not a number");
        }
        ++lPosition;
    });
}

} // namespace

int RunCheck(const ToolOptions& options)
{
    const char* szFile = options.aFiles[0];
    QMReadReport report;
    auto pOpened = OpenToolAccount(szFile, options, report);
    if (pOpened == nullptr) {
        return QM_EXIT_REFUSED;
    }
    const QMAccount& account = KeepUntilExit(std::move(pOpened));
    Output output;
    output.Format("format: %s (%d)\n", FormatName(account.lVersion), account.lVersion);
    output.Format("transactions: %d\n", account.store.GetCount());
    output.Format("order in the file: %s\n", report.bInOrder ? "by date" : "not by date");
    Findings findings(output, options.bAll);
    findings.Mended(report.lClearedDates, "cleared before the date of the transaction");
    findings.Mended(report.lVoided, "voided but marked as cleared");
    findings.Mended(report.lHeaderTexts, "header texts without an end");
    findings.Mended(report.lTexts, "texts with a zero byte within");
    CheckEntries(account, findings);
    findings.EndEntries();
    findings.Trailing(report.uTrailingBytes);
    if (findings.GetCount() == 0) {
        output.Add("sound\n");
        return output.Finish();
    }
    if (output.Finish() == QM_EXIT_DONE) {
        WriteError("'%s' is not sound: %d finding%s", szFile, findings.GetCount(),
                   findings.GetCount() == 1 ? "" : "s");
    }
    return QM_EXIT_REFUSED;
}
