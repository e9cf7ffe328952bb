#include "account/qmdocument.h"

#include <cstdio>
#include <new>

#include "account/qmaccountwriter.h"
#include "base/vfilesystem.h"

namespace {

std::unique_ptr<QMAccount> MakeAccount(const char* szFullName)
{
    return std::unique_ptr<QMAccount>(new (std::nothrow) QMAccount(szFullName));
}

// The parts of SaveAs.
enum Part
{
    Making,
    Writing,
    Reading,
    PartCount
};

// Writes the account under another name and closes that file again. A file of that name is not
// touched when it is known beforehand that the account cannot be written there.
bool WriteUnder(const QMAccount& account, const char* szFullName, int32_t lVersion,
                QMProgress* pProgress)
{
    const int32_t lWritten = QMIsVersionOffered(lVersion) ? lVersion : account.lVersion;
    QMProgressPart making(pProgress, Making, PartCount);
    QMProgressPart writing(pProgress, Writing, PartCount);
    QMFile file(szFullName);
    return lWritten >= QM_VERSION_1_0 &&
           QMReplaceByImage(file, QMMakeAccountImage(account, lWritten, &making), &writing);
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

int32_t QMDocument::GetTransactions(QMTransactionStore& into, QMProgress* pProgress) const
{
    const bool bCopied = m_pAccount != nullptr && into.AssignStore(m_pAccount->store, pProgress);
    return bCopied ? into.GetCount() : -1;
}

bool QMDocument::Save(QMProgress* pProgress)
{
    if (m_pAccount == nullptr) {
        return false;
    }
    const bool bExists = FileExists(m_pAccount->GetFileName());
    // A file that is open and yet not there was moved away with its folder.
    const bool bNew = !bExists && !m_pAccount->IsOpen();
    if (!bExists && !m_pAccount->Create()) {
        return false;
    }
    if (m_pAccount->lVersion < QM_VERSION_2_0) {
        m_pAccount->lVersion = QM_VERSION_2_0;
    }
    if (!m_pAccount->Write(pProgress)) {
        if (bNew) {
            m_pAccount->Close();
            remove(m_pAccount->GetFileName());
        }
        return false;
    }
    ClearModified();
    return true;
}

bool QMDocument::SaveAs(const char* szFullName, int32_t lVersion, QMProgress* pProgress)
{
    if (m_pAccount == nullptr || szFullName == nullptr || *szFullName == '\0' ||
        !WriteUnder(*m_pAccount, szFullName, lVersion, pProgress)) {
        return false;
    }
    QMProgressPart reading(pProgress, Reading, PartCount);
    auto pNew = MakeAccount(szFullName);
    if (pNew == nullptr || !pNew->Read(&reading)) {
        return false;
    }
    SetAccount(std::move(pNew));
    return true;
}
