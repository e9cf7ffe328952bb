#include "tests/support/entry_support.h"

#include "base/vtext.h"

EntryArgs* EntryArgs::pCurrent = nullptr;

QMTransaction ProperEntry(int32_t lType, uint32_t uFlags)
{
    QMTransaction entry = MakeTransaction(lType, "3/14/2004", 12.5F, uFlags, "Rent");
    entry.lNumber = 77;
    VCopyText(entry.szMemo, "for March");
    VCopyText(entry.szCategory, "Housing");
    return entry;
}

EntryArgs::EntryArgs(const std::vector<QMTransaction>& given, bool bAddMode) : entries(given)
{
    for (size_t u = 0; u < given.size(); ++u) {
        usersA.push_back(100 + u);
        usersB.push_back(200 + u);
    }
    block.bAddMode = bAddMode;
    block.nCount = static_cast<int32_t>(given.size());
    block.pTransactions = entries.data();
    block.pUserA = usersA.data();
    block.pUserB = usersB.data();
}

void EntryArgs::UseCommit()
{
    pCurrent = this;
    block.pfnCommit = &Commit;
}

bool EntryArgs::Commit(QMTransaction& entry, uintptr_t uUserA, uintptr_t uUserB)
{
    pCurrent->commits.push_back(TextOf(entry) + ", " + std::to_string(uUserA) + ", " +
                                std::to_string(uUserB));
    if (pCurrent->bAccepts) {
        const QMDate dtDate = entry.dtDate;
        entry.SetDefaults();
        entry.dtDate = entry.dtCleared = dtDate;
        entry.lNumber = 1001;
    }
    return pCurrent->bAccepts;
}
