#include "account/qmdocument.h"

#include <new>

#include "account/qmaccountwriter.h"
#include "base/vfilesystem.h"

namespace {

std::unique_ptr<QMAccount> MakeAccount(const char* szFullName)
{
    return std::unique_ptr<QMAccount>(new (std::nothrow) QMAccount(szFullName));
}

// Writes a copy of the account under another name and closes that file again. A file of that name
// is not touched when it is known beforehand that the copy cannot be written.
bool WriteCopy(const QMAccount& account, const char* szFullName, int32_t lVersion)
{
    const auto pCopy = MakeAccount(szFullName);
    if (pCopy == nullptr || !pCopy->CopyFrom(account)) {
        return false;
    }
    pCopy->SetVersion(lVersion);
    return pCopy->CanReplace(QMAccountImageSize(*pCopy)) && pCopy->Create() && pCopy->Write();
}

} // namespace

void QMDocument::SetAccount(std::unique_ptr<QMAccount> pAccount)
{
    m_pAccount = std::move(pAccount);
    VSplitPath(m_pAccount->GetFileName(), m_sFolder, m_sFileName);
    ClearModified();
}

VString QMDocument::GetFullName() const
{
    VString sFullName = m_sFolder;
    sFullName.Append(m_sFileName);
    return sFullName;
}

VString QMDocument::GetTitle() const
{
    VString sTitle = m_sFileName;
    if (m_bModified) {
        sTitle.Append(" *");
    }
    return sTitle;
}

void QMDocument::MarkModified()
{
    SetModified(true);
}

void QMDocument::ClearModified()
{
    SetModified(false);
}

void QMDocument::SetModified(bool bModified)
{
    m_bModified = bModified;
    OnTitleChanged();
}

QMAccountHeader* QMDocument::GetHeader(bool bMarkModified)
{
    if (m_pAccount == nullptr) {
        return nullptr;
    }
    if (bMarkModified) {
        MarkModified();
    }
    return &m_pAccount->header;
}

bool QMDocument::IsReadOnly() const
{
    return m_pAccount != nullptr && m_pAccount->header.bReadOnly != 0;
}

void QMDocument::GetPeriod(uint32_t& uSelection, QMDate& dtFrom, QMDate& dtTo) const
{
    if (m_pAccount != nullptr) {
        uSelection = m_pAccount->header.lDisplayPeriod;
        dtFrom = m_pAccount->header.dtPeriodFrom;
        dtTo = m_pAccount->header.dtPeriodTo;
    }
}

bool QMDocument::CopyAccount(QMAccountData& into) const
{
    return m_pAccount != nullptr && into.AssignFrom(*m_pAccount);
}

int32_t QMDocument::GetTransactions(QMTransactionStore& into) const
{
    const bool bCopied = m_pAccount != nullptr && into.AssignFrom(m_pAccount->store);
    return bCopied ? into.GetCount() : -1;
}

bool QMDocument::Save()
{
    if (m_pAccount == nullptr) {
        return false;
    }
    if (!FileExists(m_pAccount->GetFileName()) && !m_pAccount->Create()) {
        return false;
    }
    if (m_pAccount->lVersion < QM_VERSION_2_0) {
        m_pAccount->lVersion = QM_VERSION_2_0;
    }
    if (!m_pAccount->Write()) {
        return false;
    }
    ClearModified();
    return true;
}

bool QMDocument::SaveAs(const char* szFullName, int32_t lVersion)
{
    if (m_pAccount == nullptr || szFullName == nullptr || *szFullName == '\0' ||
        !WriteCopy(*m_pAccount, szFullName, lVersion)) {
        return false;
    }
    auto pNew = MakeAccount(szFullName);
    if (pNew == nullptr || !pNew->Read()) {
        return false;
    }
    SetAccount(std::move(pNew));
    return true;
}
