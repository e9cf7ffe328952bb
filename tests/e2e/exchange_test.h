// The base of the tests of import and export.
#pragma once

#include "tests/e2e/e2e_test.h"
#include "tests/e2e/expectedregister.h"
#include "tests/e2e/reviewwindow.h"

class ExchangeTest : public E2ETest
{
protected:
    // The argument that makes the program import a file into an account.
    static std::string Order(const std::string& sFile, const std::string& sAccount)
    {
        return "-I" + sFile + "|" + sAccount;
    }
    static std::string Failure(const std::string& sFile)
    {
        return "Failed to import transactions from file\n'" + sFile + "'.";
    }

    // Presses OK in the box that tells the result of an import or export.
    void AnswerResult(const std::string& sCaption, const std::string& sText) const;
    void AnswerImported(int nCount, const std::string& sFile) const;
    void AnswerExported(int nCount, const std::string& sFile) const;

    // Imports all records of a file into the active account, by the menu.
    void ImportAll(const std::string& sFile, int nCount) const;
    // Chooses File/Import or File/Export, and then the file.
    void ImportByMenu(const std::string& sFile) const;
    void ExportByMenu(const std::string& sFile) const;

    bool IsModified() const;
    // Saves the active account in place.
    void Save() const;

    // The transactions of an account file, which nobody may have open.
    static std::vector<QMTransaction> Load(const std::string& sPath);

    // What an account holds after a file was imported into it, computed without the program from a
    // copy. tick(row) and cleared(row) tell what the user chooses for each row of the review.
    std::string Merged(
        const std::string& sAccount, const std::string& sFile, const std::function<bool(int)>& tick,
        const std::function<bool(int)>& toggleCleared = [](int) { return false; }) const;
};

// All values of a transaction in one line.
std::string Describe(const QMTransaction& transaction);
std::vector<std::string> Describe(const std::vector<QMTransaction>& transactions);
