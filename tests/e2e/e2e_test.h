// What every end-to-end test starts from: no settings at all, an empty folder for its accounts, and
// a program that is gone at its end.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "account/qmaccount.h"
#include "resources/resource.h"
#include "tests/e2e/program.h"
#include "tests/e2e/settingsstore.h"
#include "tests/e2e/wait.h"
#include "tests/e2e/windowlist.h"
#include "tests/support/support.h"

class E2ETest : public testing::Test
{
protected:
    E2ETest();

    // A path in the test's folder, in its long form.
    std::string PathOf(const std::string& sName) const { return m_sFolder + "\\" + sName; }

    // The household sample under a name in the folder; returns the path.
    std::string CopySample(const std::string& sName = "household.qmk") const;
    // An account of that many transactions, the last one with the memo "the last one"; fill changes
    // it before it is written.
    std::string MakeAccount(
        const std::string& sName, int nTransactions,
        const std::function<void(QMAccount&)>& fill = [](QMAccount&) {}) const;
    // A file with these bytes.
    std::string MakeFile(const std::string& sName, const std::string& sBytes) const;

    // The list of the active document.
    WindowList ActiveList() const;
    // Starts the program once more with arguments and returns the exit code of that second one.
    DWORD StartAgain(const std::vector<std::string>& arguments) const;
    // The same with a file, and waits until it is the active document.
    void HandOverFile(const std::string& sPath) const;

    TemporaryFolder m_folder;
    Program m_program;

private:
    std::string m_sFolder;
};

// Whether another program holds the file open without sharing it.
bool IsLocked(const std::string& sPath);

// True under Wine, which lacks a few things that tests would look at.
bool IsWine();
