#include "reports/qmreportgroups.h"

#include <algorithm>
#include <cstring>
#include <string_view>
#include <unordered_map>
#include <unordered_set>

#include "base/vtext.h"
#include "reports/qmreportkind.h"

namespace {

const char* FieldOf(const QMTransaction& transaction, uint32_t uKind)
{
    switch (uKind) {
        case QM_REPORT_DESCRIPTION:
            return transaction.szDescription;
        case QM_REPORT_MEMO:
            return transaction.szMemo;
        default:
            return transaction.szCategory;
    }
}

void MakeLowerCase(std::string& sText)
{
    std::transform(sText.begin(), sText.end(), sText.begin(), VToLower);
}

std::vector<std::string> NamesOf(const QMTransactionStore& store, uint32_t uKind,
                                 const char* szGroup)
{
    const QMReportInfo& info = *QMGetReportInfo(uKind);
    if (QMReportHasTextGroups(uKind) &&
        strncmp(szGroup, QM_REPORT_ALL_GROUPS, info.uCompareLimit) == 0) {
        return QMCollectGroups(store, info.uField, QM_REPORT_GROUP_LIMIT);
    }
    return {szGroup};
}

} // namespace

std::vector<std::string> QMCollectGroups(const QMTransactionStore& store, uint32_t uField,
                                         int32_t lLimit)
{
    std::vector<std::string> names;
    std::unordered_set<std::string> known;
    char szText[QM_FIELD_TEXT_SIZE];
    std::string sKey;
    store.ForEachFromLastWhile([&](const QMTransaction& transaction) {
        const int32_t lLength = transaction.FormatField(uField, szText, false, 0);
        if (lLength <= 0) {
            return true;
        }
        sKey.assign(szText, static_cast<size_t>(lLength));
        MakeLowerCase(sKey);
        if (known.insert(sKey).second) {
            names.emplace_back(szText);
        }
        return names.size() < static_cast<size_t>(lLimit);
    });
    // No two names are equal, so every sort gives the same order.
    std::sort(names.begin(), names.end(), [](const std::string& sA, const std::string& sB) {
        return VCompareNoCase(sA.c_str(), sB.c_str()) < 0;
    });
    return names;
}

QMReportGroups::QMReportGroups(const QMTransactionStore& store, uint32_t uKind, const char* szGroup)
    : m_uKind(uKind), m_names(NamesOf(store, uKind, szGroup)), m_rows(m_names.size())
{}

void QMReportGroups::Distribute(const QMReportRows& selected)
{
    if (QMReportHasTextGroups(m_uKind)) {
        DistributeByText(selected);
    } else {
        DistributeByType(selected);
    }
}

void QMReportGroups::DistributeByType(const QMReportRows& selected)
{
    const int32_t lType = LookupTypeName(m_names[0].c_str());
    for (const QMTransaction* pTransaction : selected) {
        // A damaged file may hold the type -1, which is not the type of any group.
        if (lType >= 0 && pTransaction->lType == lType &&
            !pTransaction->HasFlag(QM_TRANS_FLAG_VOIDED)) {
            m_rows[0].push_back(pTransaction);
        }
    }
}

void QMReportGroups::DistributeByText(const QMReportRows& selected)
{
    // Kept: names differ by more than case, but a row belongs to a group only if its text is
    // spelled exactly as the group's. Of two spellings the older one's rows stand in no group.
    std::unordered_map<std::string_view, size_t> groups;
    for (size_t u = 0; u < m_names.size(); ++u) {
        groups.emplace(m_names[u], u);
    }
    for (const QMTransaction* pTransaction : selected) {
        if (pTransaction->HasFlag(QM_TRANS_FLAG_VOIDED)) {
            continue;
        }
        const auto found = groups.find(FieldOf(*pTransaction, m_uKind));
        if (found != groups.end()) {
            m_rows[found->second].push_back(pTransaction);
        }
    }
}
