// QMDocument: an account that is being worked on: where it lives, whether it has unsaved changes,
// and the ways to save it.
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

    // Takes an account over; folder and file name come from its file's name. The document counts
    // as not modified.
    void SetAccount(std::unique_ptr<QMAccount> pAccount);

    // Null before SetAccount.
    QMAccount* GetAccount() { return m_pAccount.get(); }
    const QMAccount* GetAccount() const { return m_pAccount.get(); }

    const VString& GetFileName() const { return m_sFileName; }
    // With its trailing separator; empty for an account that was never saved.
    const VString& GetFolder() const { return m_sFolder; }
    VString GetFullName() const;

    // The bare file name, with " *" behind it while there are unsaved changes.
    VString GetTitle() const;

    bool IsModified() const { return m_bModified; }
    void MarkModified();
    void ClearModified();

    // The header, null without an account; bMarkModified first marks the document modified.
    QMAccountHeader* GetHeader(bool bMarkModified);
    // Whether the user protected the account; false without one.
    bool IsReadOnly() const;
    void GetPeriod(uint32_t& uSelection, QMDate& dtFrom, QMDate& dtTo) const;

    // Copies for those who must not work on the account itself; false, or a count of -1, without
    // an account or memory.
    bool CopyAccount(QMAccountData& into) const;
    int32_t GetTransactions(QMTransactionStore& into) const;

    // Writes the account's file, made if it does not exist; an older format becomes 2.0. On false
    // the document is modified as before.
    bool Save();

    // Writes the account under another name, in the format of that version word if it is a known
    // one, and goes on with what was written, read back: a format without categories drops them
    // here too. On false, file, name and account are as before. The present file cannot be named:
    // it is open.
    bool SaveAs(const char* szFullName, int32_t lVersion);

protected:
    // The title, or the modified state it shows, was set.
    virtual void OnTitleChanged() {}

private:
    void SetModified(bool bModified);

    std::unique_ptr<QMAccount> m_pAccount;
    VString m_sFolder;
    VString m_sFileName;
    bool m_bModified = false;
};
