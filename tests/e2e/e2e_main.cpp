// The main function of the end-to-end tests. They need the screen, the user's settings and the only
// instance of the program for themselves. Of every failure they save a picture of the screen.

#include <windows.h>

#include <gtest/gtest.h>

#include <string>

#include "tests/e2e/process.h"
#include "tests/e2e/program.h"
#include "tests/e2e/screen.h"
#include "tests/e2e/settingsstore.h"

namespace {

// Saves a picture at the first failure of each test, in the folder e2e-pictures beside the
// program's folder.
class PictureTaker : public testing::EmptyTestEventListener
{
public:
    void OnTestStart(const testing::TestInfo& test) override
    {
        m_sName = std::string(test.test_suite_name()) + "." + test.name();
    }

    void OnTestPartResult(const testing::TestPartResult& result) override
    {
        if (!result.failed() || m_sName.empty()) {
            return;
        }
        const std::string sFolder = ProgramFolder() + "..\\e2e-pictures\\";
        CreateDirectoryA(sFolder.c_str(), nullptr);
        // The names of tests with parameters contain a slash.
        for (char& c : m_sName) {
            c = c == '/' ? '-' : c;
        }
        ScreenPicture().Save(sFolder + m_sName + ".bmp");
        m_sName.clear();
    }

private:
    std::string m_sName; // of the running test; empty once its picture is taken
};

// Sets WINEDEBUG for the programs that the tests start, from a variable of the environment. So Wine
// reports, for example, what its checking heap finds in them. The test program itself is not slowed
// down.
void SetDebugOfPrograms()
{
    char szDebug[256] = "";
    if (GetEnvironmentVariableA("QUILLMARK_PROGRAM_DEBUG", szDebug, sizeof szDebug) > 0) {
        SetEnvironmentVariableA("WINEDEBUG", szDebug);
    }
}

} // namespace

int main(int nArguments, char** apArguments)
{
    testing::InitGoogleTest(&nArguments, apArguments);
    if (FindRunningInstance() != nullptr) {
        fprintf(stderr, "e2e_tests: quillmark is running; the tests need to be alone\n");
        return 2;
    }
    testing::UnitTest::GetInstance()->listeners().Append(new PictureTaker);
    SetDebugOfPrograms();
    const SettingsGuard guard;
    return RUN_ALL_TESTS();
}
