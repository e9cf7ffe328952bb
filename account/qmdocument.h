// QMDocument: an account that the user works on. It knows the account's folder and file name and
// whether there are unsaved changes, and it saves the account.
#pragma once

#include <cstdint>
#include <memory>

#include "account/qmaccount.h"
#include "base/vstring.h"

class QMDocument
{
public:
    QMDocument() = default;
    QMDocument(const QMDocument&) = delete;
    QMDocument& operator=(const QMDocument&) = delete;
    virtual ~QMDocument() = default;

    // Takes an account over. Its file's name gives the folder and the file name. The document is
    // not modified afterwards.
    void SetAccount(std::unique_ptr<QMAccount> pAccount);

    // Null before SetAccount.
    QMAccount* GetAccount() { return m_pAccount.get(); }
    const QMAccount* GetAccount() const { return m_pAccount.get(); }

    const VString& GetFileName() const { return m_sFileName; }
    // The folder, with a separator at its end. Empty for an account that was never saved.
    const VString& GetFolder() const { return m_sFolder; }
    VString GetFullName() const;

    // The file name without its folder. " *" follows it while there are unsaved changes.
    VString GetTitle() const;

    bool IsModified() const { return m_bModified; }
    void MarkModified();
    void ClearModified();

    // The header; null without an account. bMarkModified marks the document as modified first.
    QMAccountHeader* GetHeader(bool bMarkModified);
    // Whether the user has made the account read-only; false without an account. This is a mark in
    // the header. It has nothing to do with the file's own permissions.
    bool IsReadOnly() const;
    void GetPeriod(uint32_t& uSelection, QMDate& dtFrom, QMDate& dtTo) const;

    // Copy the account, or its transactions alone, for a report, an export or a printout. Return
    // false, or a count of -1, when there is no account, when memory ran out, and when pProgress,
    // which may be null, gave the work up.
    bool CopyAccount(QMAccountData& into) const;
    int32_t GetTransactions(QMTransactionStore& into, QMProgress* pProgress = nullptr) const;

    // In both saves pProgress may be null. It may give the work up until the old contents of the
    // file are gone; the result is false then.

    // Writes the account to its file, and creates the file if it does not exist. An account of an
    // older format becomes one of format 2.0. On false the document is as modified as before, and
    // there is no file where there was none.
    bool Save(QMProgress* pProgress = nullptr);

    // Writes the account under another name, in the format version lVersion if that is a known one.
    // The document then goes on with what was written, read back: a format without categories drops
    // them here too. On false the file, the name and the account are as before. The file that the
    // document has open cannot be named: it is locked.
    bool SaveAs(const char* szFullName, int32_t lVersion, QMProgress* pProgress = nullptr);

protected:
    // Called when the title may have changed: the name was set, or the modified state was set.
    virtual void OnTitleChanged() {}

private:
    void SetModified(bool bModified);

    std::unique_ptr<QMAccount> m_pAccount;
    VString m_sFolder;
    VString m_sFileName;
    bool m_bModified = false;
};
