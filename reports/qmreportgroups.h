// QMReportGroups: the groups of a report, and the selected transactions in each of them.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "account/qmtransactionstore.h"

// The texts of a field (a QMFieldKind), with the same result as QMTransactionStore::FillEditList
// for a list with QM_EDIT_ALPHABETICAL. Such a list compares each text with all others; this takes
// no longer for many groups than for few.
std::vector<std::string> QMCollectGroups(const QMTransactionStore& store, uint32_t uField,
                                         int32_t lLimit);

using QMReportRows = std::vector<const QMTransaction*>;

class QMReportGroups
{
public:
    // Finds the groups of a report of uKind for the choice szGroup: types, or texts of a field.
    // Texts come from the whole store, inside and outside the range.
    QMReportGroups(const QMTransactionStore& store, uint32_t uKind, const char* szGroup);

    // Puts each transaction into its group, in one walk. Voided ones get into none. The rows must
    // live longer than this object.
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
