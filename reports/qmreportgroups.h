// QMReportGroups: the groups of a report, and which of the selected transactions each of them
// holds.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "account/qmtransactionstore.h"

// The texts of a field (QMFieldKind) as QMTransactionStore::FillEditList would put them into a
// list that is sorted ascending, without duplicates, ignoring case: the same texts in the same
// order. A list compares each text with all it holds; here that many groups cost no more than few.
std::vector<std::string> QMCollectGroups(const QMTransactionStore& store, uint32_t uField,
                                         int32_t lLimit);

using QMReportRows = std::vector<const QMTransaction*>;

class QMReportGroups
{
public:
    // The groups that a report of uKind has with szGroup chosen: of the transactions' types or of
    // the texts of a field. Texts come from the whole store, in range or not.
    QMReportGroups(const QMTransactionStore& store, uint32_t uKind, const char* szGroup);

    // Puts each transaction into its group, in one walk; voided ones stand in none. The rows must
    // outlive this.
    void Distribute(const QMReportRows& selected);

    size_t GetCount() const { return m_names.size(); }
    const std::string& GetName(size_t uGroup) const { return m_names[uGroup]; }
    // The rows of a group, in the order in which they were selected.
    const QMReportRows& GetRows(size_t uGroup) const { return m_rows[uGroup]; }

private:
    void DistributeByType(const QMReportRows& selected);
    void DistributeByText(const QMReportRows& selected);

    uint32_t m_uKind;
    std::vector<std::string> m_names;
    std::vector<QMReportRows> m_rows;
};
