// The base of every end-to-end test. It starts without settings and with an empty folder for
// accounts, and ends the program.
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

    // The long path of a file name in the test's folder.
    std::string PathOf(const std::string& sName) const { return m_sFolder + "\\" + sName; }

    // Copies the household sample into the folder under a name. Returns the path.
    std::string CopySample(const std::string& sName = "household.qmk") const;
    // Makes an account with that many transactions. The last one has the memo "the last one". fill
    // changes the account before it is written.
    std::string MakeAccount(
        const std::string& sName, int nTransactions,
        const std::function<void(QMAccount&)>& fill = [](QMAccount&) {}) const;
    // Makes a file with these bytes.
    std::string MakeFile(const std::string& sName, const std::string& sBytes) const;

    // The list of the active register.
    WindowList ActiveList() const;
    // Starts the program a second time with arguments. Returns the exit code of that second start.
    DWORD StartAgain(const std::vector<std::string>& arguments) const;
    // Starts the program a second time with a file, and waits until that is the active document.
    void HandOverFile(const std::string& sPath) const;

    TemporaryFolder m_folder;
    Program m_program;

private:
    std::string m_sFolder;
};

// Whether another program holds the file open without sharing it.
bool IsLocked(const std::string& sPath);
