// The base of the tests that work in a register.
#pragma once

#include <string>
#include <vector>

#include "tests/e2e/dialogwindow.h"
#include "tests/e2e/e2e_test.h"
#include "tests/e2e/entry.h"

inline const std::string sReadOnlySentence = "This command cannot be performed in read-only mode.";

class WorkTest : public E2ETest
{
protected:
    // Opens the program with an account.
    void OpenAccount(const std::string& sPath);
    // The same with a new document.
    void OpenNew();

    // Opens the dialog by its command.
    DialogWindow BeginAdding() const;
    DialogWindow BeginEditing() const;
    // Adds a transaction by the dialog and closes the dialog.
    void Add(const Entry& entry) const;

    // Posts a command and waits until it is done. The command must open no window.
    void Do(UINT uCommand) const;
    // Posts a command that must open a box with that text, answers the box, and waits until the
    // command is done.
    void DoAnswering(UINT uCommand, const std::string& sText) const;
    void DoAnswering(UINT uCommand, const std::string& sQuestion, const std::vector<int>& buttons,
                     int nAnswer) const;

    // Waits for the title of the active document, which tells whether it has unsaved changes.
    void AwaitTitle(const std::string& sTitle) const;
    bool IsMarked() const;
    void AwaitPane(int nPane, const std::string& sText) const;
    void AwaitRowCount(int nRows) const;
    // The texts of a column, without the blanks that align numbers and dates.
    std::vector<std::string> Column(const std::string& sHeading) const;
    // Selects these rows and no others.
    void Select(const std::vector<int>& rows) const;

    // Saves under a name by the dialog, and waits until the document has that name. nType is the
    // line of the file type; -1 keeps the one that the dialog proposes.
    void SaveAs(const std::string& sPath, int nType = -1) const;
    // Chooses a file in the dialog and waits for the dialog's end.
    void ChooseToOpen(const std::string& sPath) const;
    // Closes the active document and answers its question. An nAnswer of 0 expects that there is
    // none.
    void CloseAnswering(const std::string& sName, int nAnswer) const;
    // Saves the active document, closes it, and returns the transactions in its file.
    std::vector<std::string> SaveCloseAndRead(const std::string& sPath) const;
};

// The marks of a row are told from the data of its item.
inline constexpr uint32_t uRowTax = 4;
inline constexpr uint32_t uRowExpense = 8;
inline constexpr uint32_t uRowVoided = 16;
inline constexpr uint32_t uRowCleared = 32;
