#include "tests/e2e/e2e_test.h"

#include <memory>

#include "base/vtext.h"

namespace {

std::string LongPath(const std::string& sPath)
{
    char szLong[MAX_PATH] = "";
    const DWORD uLength = GetLongPathNameA(sPath.c_str(), szLong, sizeof szLong);
    return uLength > 0 && uLength < sizeof szLong ? szLong : sPath;
}

} // namespace

E2ETest::E2ETest() : m_sFolder(LongPath(m_folder.GetPath()))
{
    ClearSettings();
}

std::string E2ETest::CopySample(const std::string& sName) const
{
    return MakeFile(sName, ReadWholeFile(ProgramFolder() + "household.qmk"));
}

std::string E2ETest::MakeFile(const std::string& sName, const std::string& sBytes) const
{
    WriteWholeFile(PathOf(sName), sBytes);
    return PathOf(sName);
}

std::string E2ETest::MakeAccount(const std::string& sName, int nTransactions,
                                 const std::function<void(QMAccount&)>& fill) const
{
    constexpr int nPerDay = 40;
    QMAccount account(PathOf(sName).c_str());
    for (int i = 0; i < nTransactions; ++i) {
        auto p = std::make_unique<QMTransaction>();
        const int nDay = i / nPerDay;
        p->dtDate = QMMakeDate(static_cast<uint16_t>(1990 + nDay / 336),
                               static_cast<uint16_t>(nDay / 28 % 12 + 1),
                               static_cast<uint16_t>(nDay % 28 + 1));
        p->lType = i % 3 == 0 ? QM_TRANS_CHECK : QM_TRANS_DEPOSIT;
        p->lNumber = static_cast<uint32_t>(1000 + i);
        p->fAmount = static_cast<float>(i % 1000) / 4;
        VCopyText(p->szDescription, ("transaction " + std::to_string(i)).c_str());
        VCopyText(p->szMemo, i + 1 == nTransactions ? "the last one" : "");
        account.store.Add(std::move(p));
    }
    fill(account);
    EXPECT_TRUE(account.Create() && account.Write()) << sName;
    account.Close();
    return PathOf(sName);
}

WindowList E2ETest::ActiveList() const
{
    return {m_program.GetProcess(), Program::GetList(m_program.GetActiveDocument())};
}

DWORD E2ETest::StartAgain(const std::vector<std::string>& arguments) const
{
    Process second;
    second.Start(ProgramFolder() + "quillmark.exe", arguments);
    return second.AwaitExit();
}

void E2ETest::HandOverFile(const std::string& sPath) const
{
    EXPECT_EQ(StartAgain({sPath}), 1U);
    m_program.AwaitActive(sPath);
}

bool IsLocked(const std::string& sPath)
{
    HANDLE hFile = CreateFileA(sPath.c_str(), GENERIC_READ,
                               FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                               OPEN_EXISTING, 0, nullptr);
    if (hFile == INVALID_HANDLE_VALUE) {
        const DWORD uError = GetLastError();
        EXPECT_EQ(uError, static_cast<DWORD>(ERROR_SHARING_VIOLATION)) << sPath;
        return uError == ERROR_SHARING_VIOLATION;
    }
    CloseHandle(hFile);
    return false;
}
