// The program frees all objects of Windows when documents and dialogs close.

#include <winternl.h>

#include "tests/e2e/dialogwindow.h"
#include "tests/e2e/e2e_test.h"
#include "tests/e2e/remoteprocess.h"
#include "tests/support/printeddocument.h"
#include "tests/support/wine_support_win.h"

namespace {

// ---- Under Wine, which does not count them, GDI's objects are found in the table that each
// process has of them.
//
// Wine 8 keeps the device contexts of windows that GetDC and BeginPaint give. One that is released
// stays for the next caller, with a region and a surface of its own, and new ones come whenever
// several are in use at once. Their number wanders by dozens and tells nothing about the program.
// Wine marks those that wait, so they can be told from the device contexts that are in use; all
// other objects are the program's, or the common controls' for as long as they are shown.

struct GdiEntry
{
    UINT64 uObject;
    UINT uOwner;
    USHORT uUnique;
    BYTE uType; // 0 for a free entry
    BYTE uFlags;
    UINT64 uUser; // of a device context: where its DeviceContextState is
};

constexpr BYTE uTypeDeviceContext = 1;
constexpr int nObjectsOfCachedContext = 3; // itself, its region and its surface

struct DeviceContextState
{
    UINT uHandle;
    LONG lDisabled; // not 0 while it waits for the next caller
};
constexpr size_t uGdiEntries = 0x4000;

#ifdef _WIN64
constexpr size_t uTableOffset = 0xF8; // in the process's environment block
#else
constexpr size_t uTableOffset = 0x94;
#endif

const char* EnvironmentBlock(HANDLE hProcess)
{
    using Query = NTSTATUS(NTAPI*)(HANDLE, PROCESSINFOCLASS, void*, ULONG, ULONG*);
    const FARPROC pFunction =
        GetProcAddress(GetModuleHandleA("ntdll.dll"), "NtQueryInformationProcess");
    const auto pQuery = reinterpret_cast<Query>(reinterpret_cast<void*>(pFunction));
    PROCESS_BASIC_INFORMATION information = {};
    pQuery(hProcess, ProcessBasicInformation, &information, sizeof information, nullptr);
    return reinterpret_cast<const char*>(information.PebBaseAddress);
}

bool IsCachedContext(HANDLE hProcess, const GdiEntry& entry)
{
    DeviceContextState state = {};
    const auto* pState = reinterpret_cast<const char*>(static_cast<UINT_PTR>(entry.uUser));
    return ReadRemote(hProcess, pState, &state, sizeof state) && state.lDisabled != 0;
}

// The objects of the program itself, without those that Wine keeps.
int CountInTable(HANDLE hProcess)
{
    const char* pBlock = EnvironmentBlock(hProcess);
    const char* pTable = nullptr;
    std::vector<GdiEntry> entries(uGdiEntries);
    if (pBlock == nullptr || !ReadRemote(hProcess, pBlock + uTableOffset, &pTable, sizeof pTable) ||
        !ReadRemote(hProcess, pTable, entries.data(), entries.size() * sizeof(GdiEntry))) {
        FailTest("cannot read the table of GDI objects");
    }
    int nCount = 0;
    for (const GdiEntry& entry : entries) {
        nCount += entry.uType != 0 ? 1 : 0;
        if (entry.uType == uTypeDeviceContext && IsCachedContext(hProcess, entry)) {
            nCount -= nObjectsOfCachedContext;
        }
    }
    return nCount;
}

class GuiResourcesTest : public E2ETest
{
protected:
    int CountGdi() const
    {
        return IsWine() ? CountInTable(m_program.GetProcess())
                        : static_cast<int>(GetGuiResources(m_program.GetProcess(), GR_GDIOBJECTS));
    }
    int CountUser() const
    {
        return static_cast<int>(GetGuiResources(m_program.GetProcess(), GR_USEROBJECTS));
    }
    int CountWindows() const { return static_cast<int>(AllWindows(m_program.GetId()).size()); }

    // Opens ten accounts one after the other and closes them all.
    void OpenAndCloseTen(const std::vector<std::string>& paths) const
    {
        EXPECT_EQ(StartAgain(paths), 1U);
        ASSERT_EQ(m_program.GetDocuments().size(), paths.size());
        m_program.Post(IDM_FILE_CLOSEALL);
        m_program.Settle();
        m_program.AwaitDocuments(0);
    }

    std::vector<std::string> MakeTen() const
    {
        std::vector<std::string> paths;
        for (int i = 0; i < 10; ++i) {
            paths.push_back(MakeAccount("account" + std::to_string(i) + ".qmk", 30));
        }
        return paths;
    }

    // In the first round the program may make objects that it keeps. In later rounds it may not.
    void ExpectNoGrowth(const char* szWhat, int nLate, const std::function<int()>& count)
    {
        const std::vector<std::string> paths = MakeTen();
        m_program.Open();
        OpenAndCloseTen(paths);
        const int nBefore = count();
        EXPECT_GT(nBefore, 0) << szWhat;
        // One lost object for each of twenty documents would give twenty more. Some systems make a
        // few objects late, when they first paint a caption or a scroll bar, and keep them.
        OpenAndCloseTen(paths);
        OpenAndCloseTen(paths);
        Await("no more " + std::string(szWhat) + " than about " + std::to_string(nBefore),
              [&] { return count() <= nBefore + nLate; });
    }
};

TEST_F(GuiResourcesTest, DocumentsLeaveNoGdiObjects)
{
    ExpectNoGrowth("GDI objects", 9, [&] { return CountGdi(); });
}

TEST_F(GuiResourcesTest, DocumentsLeaveNoUserObjects)
{
    if (IsWine()) {
        GTEST_SKIP() << "Wine does not count USER objects";
    }
    ExpectNoGrowth("USER objects", 9, [&] { return CountUser(); });
}

TEST_F(GuiResourcesTest, DocumentsLeaveNoWindows)
{
    ExpectNoGrowth("windows", 0, [&] { return CountWindows(); });
}

// ---- Dialogs.

class DialogResourcesTest : public GuiResourcesTest
{
protected:
    // Opens every dialog and box that an account has, and closes it.
    void RunDialogs() const
    {
        const struct
        {
            UINT uCommand;
            const char* szCaption;
        } aDialogs[] = {{IDM_TRANSACTION_ADD, "Add Transaction"},
                        {IDM_TRANSACTION_EDIT, "Edit Transaction"},
                        {IDM_FILE_PASSWORD, "Set Password"}};
        for (const auto& dialog : aDialogs) {
            m_program.Post(dialog.uCommand);
            AwaitDialog(m_program, dialog.szCaption).End(IDCANCEL);
            m_program.Settle();
        }
        m_program.Post(IDM_TRANSACTION_REMOVE);
        m_program.AnswerQuestion("Are you sure you want to remove this transaction?", {IDYES, IDNO},
                                 IDNO);
        m_program.Settle();
    }

    // One lost object for each dialog would give two hundred more, and one for each dialog of a
    // single kind would give fifty.
    void RunTwoHundred() const
    {
        for (int i = 0; i < 50; ++i) {
            RunDialogs();
        }
    }

    // The common controls make objects for the first dialogs and keep them.
    void RunFirst() const
    {
        for (int i = 0; i < 6; ++i) {
            RunDialogs();
        }
    }

    static void AwaitNoMoreThan(int nLimit, const char* szWhat, const std::function<int()>& count)
    {
        Await("no more than " + std::to_string(nLimit) + " " + szWhat,
              [&] { return count() <= nLimit; });
    }

    static constexpr int nLate = 10; // objects
};

TEST_F(DialogResourcesTest, TwoHundredDialogsLeaveNoGdiObjectsAndNoWindows)
{
    m_program.Open({MakeAccount("account.qmk", 30)});
    RunFirst();
    const int nGdi = CountGdi();
    const int nWindows = CountWindows();
    EXPECT_GT(nGdi, 0);
    EXPECT_GT(nWindows, 0);
    RunTwoHundred();
    AwaitNoMoreThan(nGdi + nLate, "GDI objects", [&] { return CountGdi(); });
    AwaitNoMoreThan(nWindows, "windows", [&] { return CountWindows(); });
}

TEST_F(DialogResourcesTest, TwoHundredDialogsLeaveNoUserObjects)
{
    if (IsWine()) {
        GTEST_SKIP() << "Wine does not count USER objects";
    }
    m_program.Open({MakeAccount("account.qmk", 30)});
    RunFirst();
    const int nUser = CountUser();
    EXPECT_GT(nUser, 0);
    RunTwoHundred();
    AwaitNoMoreThan(nUser + nLate, "USER objects", [&] { return CountUser(); });
}

// ---- Reports.

class ReportResourcesTest : public DialogResourcesTest
{
protected:
    // Runs a statement and a list, and previews where there is a printer.
    void RunReports() const
    {
        m_program.Post(IDM_TOOLS_REPORTS);
        const DialogWindow dialog = AwaitDialog(m_program, "Reports - account.qmk");
        dialog.Press(IDC_REPORT_RUN);
        Await("a report", [&] { return dialog.IsEnabled(IDC_REPORT_PREVIEW); });
        dialog.Choose(IDC_REPORT_TYPE, 4);
        dialog.Press(IDC_REPORT_RUN);
        if (PrintedDocument::HasSpooler()) {
            dialog.Press(IDC_REPORT_PREVIEW);
            AwaitDialog(m_program, "Print Preivew - Quillmark Report").End(IDC_PREVIEW_CLOSE);
            Await("the report again", [&] { return IsWindowEnabled(dialog.GetHandle()) != FALSE; });
        }
        dialog.End(IDC_REPORT_CLOSE);
        m_program.Settle();
    }

    // One object that is lost each time makes so many.
    static constexpr int nRounds = 15;
};

TEST_F(ReportResourcesTest, ReportsLeaveNoGdiObjectsAndNoWindows)
{
    m_program.Open({MakeAccount("account.qmk", 30)});
    for (int i = 0; i < 3; ++i) {
        RunReports();
    }
    const int nGdi = CountGdi();
    const int nWindows = CountWindows();
    EXPECT_GT(nGdi, 0);
    EXPECT_GT(nWindows, 0);
    for (int i = 0; i < nRounds; ++i) {
        RunReports();
    }
    AwaitNoMoreThan(nGdi + nLate, "GDI objects", [&] { return CountGdi(); });
    AwaitNoMoreThan(nWindows, "windows", [&] { return CountWindows(); });
}

TEST_F(GuiResourcesTest, OpenDocumentsDoCountForSomething)
{
    m_program.Open();
    const int nGdi = CountGdi();
    const int nWindows = CountWindows();
    EXPECT_EQ(StartAgain(MakeTen()), 1U);
    EXPECT_GT(CountGdi(), nGdi);
    EXPECT_GE(CountWindows(), nWindows + 30);
}

} // namespace
