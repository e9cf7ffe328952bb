// Accounts for reports of any size, to measure with.
#pragma once

#include <cstdint>

#include "account/qmaccountdata.h"

// As many groups as a report takes.
inline constexpr int32_t lReportGroups = 1000;

// Fills an empty account with lCount transactions of lGroups different memos, categories and
// payees, and gives every tag to some of them: three tenths are expenses that are not voided.
void FillForReports(QMAccountData& account, int32_t lCount, int32_t lGroups);

// A file with such an account. It is removed with the object.
class ReportFile
{
public:
    explicit ReportFile(int32_t lCount);
    ReportFile(const ReportFile&) = delete;
    ReportFile& operator=(const ReportFile&) = delete;
    ~ReportFile();

    const char* GetPath() const { return m_szPath; }

private:
    char m_szPath[32] = "/tmp/reports-XXXXXX";
};
