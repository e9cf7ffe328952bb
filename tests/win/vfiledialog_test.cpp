// VFileDialog, with the real dialog of Windows, driven as by a user.

#include "toolkit/vfiledialog.h"

#include <gtest/gtest.h>

#include <windows.h>

#include <dlgs.h> // needs the former

#include "base/vfilesystem.h"
#include "tests/win/modaldriver.h"
#include "tests/win/support.h"

namespace {

// A folder for one test, in the folder of Windows for temporary files.
class ScopedFolder
{
public:
    ScopedFolder()
    {
        char szBase[MAX_PATH] = "";
        GetTempPathA(sizeof szBase, szBase);
        // The dialog returns long names.
        char szLong[MAX_PATH] = "";
        GetLongPathNameA(szBase, szLong, sizeof szLong);
        m_sPath = std::string(szLong) + "vorek" + std::to_string(GetCurrentProcessId());
        CreateDirectoryA(m_sPath.c_str(), nullptr);
    }
    ScopedFolder(const ScopedFolder&) = delete;
    ScopedFolder& operator=(const ScopedFolder&) = delete;
    ~ScopedFolder()
    {
        for (const std::string& sFile : m_files) {
            DeleteFileA(sFile.c_str());
        }
        RemoveDirectoryA(m_sPath.c_str());
    }

    const char* Get() const { return m_sPath.c_str(); }
    std::string Path(const char* szName) const { return m_sPath + "\\" + szName; }

    void Make(const char* szName)
    {
        m_files.push_back(Path(szName));
        CloseHandle(CreateFileA(m_files.back().c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
                                FILE_ATTRIBUTE_NORMAL, nullptr));
    }

private:
    std::string m_sPath;
    std::vector<std::string> m_files;
};

// Notes its notifications.
class RecordingFileDialog : public VFileDialog
{
public:
    ~RecordingFileDialog() override { Detach(); }

    void OnInitDone() override { m_record.calls.emplace_back("init"); }
    bool OnFileOK(const char* szPath) override
    {
        m_record.calls.push_back(std::string("ok:") + strrchr(szPath, '\\'));
        return m_nRefusals-- <= 0;
    }
    void OnFilterChange(uint32_t uIndex) override
    {
        m_record.calls.push_back("filter:" + std::to_string(uIndex));
        VFileDialog::OnFilterChange(uIndex);
    }
    void OnBeforeShow(OPENFILENAMEA& record) override { m_shown = record; }

    Record m_record;
    int m_nRefusals = 0;
    OPENFILENAMEA m_shown = {};
};

class VFileDialogTest : public testing::Test
{
protected:
    void SetUp() override
    {
        m_folder.Make("a.qmk");
        m_folder.Make("b.qmk");
        m_dialog.AddFilter("Quillmark Files (*.qmk)", "qmk");
        m_dialog.AddFilter("Text Files (*.txt)", "txt");
        m_dialog.AddFilter("All Files (*.*)", "*");
    }

    bool Open(DWORD uFlags = 0)
    {
        return m_dialog.Run(nullptr, {.uFlags = uFlags,
                                      .szDirectory = m_folder.Get(),
                                      .szDefaultExtension = "qmk",
                                      .szTitle = "Open It"});
    }
    bool Save()
    {
        return m_dialog.Run(
            nullptr, {.bOpen = false, .szDirectory = m_folder.Get(), .szDefaultExtension = "qmk"});
    }

    ScopedAcceleratorTables m_tables;
    ScopedFolder m_folder;
    RecordingFileDialog m_dialog;
    ModalDriver m_driver;
};

ModalDriver::Action Choosing(const std::string& sName)
{
    return [=](HWND hDialog) {
        Type(hDialog, cmb13, sName.c_str());
        Press(hDialog, IDOK);
    };
}

ModalDriver::Action Pressing(int nId)
{
    return [=](HWND hDialog) { Press(hDialog, nId); };
}

// Selects a line of the list of file types, with the notifications of that list. nLine counts from
// 1.
void PickType(HWND hDialog, int nLine)
{
    HWND hTypes = GetDlgItem(hDialog, cmb1);
    SendMessageA(hTypes, CB_SETCURSEL, static_cast<WPARAM>(nLine - 1), 0);
    for (const int nCode : {CBN_SELENDOK, CBN_SELCHANGE, CBN_CLOSEUP}) {
        SendMessageA(hDialog, WM_COMMAND, MAKEWPARAM(cmb1, nCode),
                     reinterpret_cast<LPARAM>(hTypes));
    }
}

std::string CurrentDirectory()
{
    char szPath[MAX_PATH] = "";
    GetCurrentDirectoryA(sizeof szPath, szPath);
    return szPath;
}

} // namespace

TEST_F(VFileDialogTest, OpensATypedName)
{
    const std::string sBefore = CurrentDirectory();
    m_driver.Next([&](HWND hDialog) {
        EXPECT_EQ(Text(VWindow::WindowText(hDialog)), "Open It");
        EXPECT_TRUE(m_dialog.IsValid());
        EXPECT_TRUE(hDialog == m_dialog.GetHandle() || IsChild(hDialog, m_dialog.GetHandle()));
        Choosing("a.qmk")(hDialog);
    });
    ASSERT_TRUE(Open());
    EXPECT_EQ(Text(m_dialog.GetPath()), m_folder.Path("a.qmk"));
    EXPECT_EQ(Text(m_dialog.GetDirectory()), m_folder.Get());
    EXPECT_EQ(m_dialog.GetFilterIndex(), 1U);
    EXPECT_EQ(m_dialog.GetHandle(), nullptr);
    EXPECT_EQ(m_dialog.m_record.Take(), "init ok:\\a.qmk");
    EXPECT_EQ(CurrentDirectory(), sBefore);
    VString sPath("unchanged");
    EXPECT_FALSE(m_dialog.NextPath(sPath));
    EXPECT_EQ(Text(sPath), "unchanged");
}

TEST_F(VFileDialogTest, ACancelKeepsTheNamesOfBefore)
{
    m_driver.Next(Choosing("a.qmk"));
    ASSERT_TRUE(Open());
    m_driver.Next(Pressing(IDCANCEL));
    EXPECT_FALSE(Open());
    EXPECT_EQ(Text(m_dialog.GetPath()), m_folder.Path("a.qmk"));
    EXPECT_EQ(m_dialog.GetHandle(), nullptr);
}

TEST_F(VFileDialogTest, TellsTheLineOfTheTypeList)
{
    m_driver.Next([](HWND hDialog) {
        PickType(hDialog, 3);
        Choosing("a.qmk")(hDialog);
    });
    ASSERT_TRUE(Open());
    EXPECT_EQ(m_dialog.GetFilterIndex(), 3U);
    EXPECT_NE(m_dialog.m_record.Take().find("filter:3"), std::string::npos);
    m_driver.Next(Choosing("a.qmk"));
    ASSERT_TRUE(Open());
    EXPECT_EQ(m_dialog.GetFilterIndex(), 1U);
}

TEST_F(VFileDialogTest, AMultipleSelectionGivesItsPathsOneByOne)
{
    m_driver.Next(Choosing("\"a.qmk\" \"b.qmk\""));
    ASSERT_TRUE(Open(OFN_ALLOWMULTISELECT));
    EXPECT_EQ(Text(m_dialog.GetPath()), "");
    EXPECT_EQ(Text(m_dialog.GetDirectory()), m_folder.Get());
    VString sPath;
    ASSERT_TRUE(m_dialog.NextPath(sPath));
    EXPECT_EQ(Text(sPath), m_folder.Path("a.qmk"));
    ASSERT_TRUE(m_dialog.NextPath(sPath));
    EXPECT_EQ(Text(sPath), m_folder.Path("b.qmk"));
    EXPECT_FALSE(m_dialog.NextPath(sPath));
}

TEST_F(VFileDialogTest, AMultipleSelectionOfOneFileIsItsFullPath)
{
    m_driver.Next(Choosing("b.qmk"));
    ASSERT_TRUE(Open(OFN_ALLOWMULTISELECT));
    EXPECT_EQ(Text(m_dialog.GetPath()), m_folder.Path("b.qmk"));
    EXPECT_EQ(Text(m_dialog.GetDirectory()), m_folder.Get());
    VString sPath;
    ASSERT_TRUE(m_dialog.NextPath(sPath));
    EXPECT_EQ(Text(sPath), m_folder.Path("b.qmk"));
    EXPECT_FALSE(m_dialog.NextPath(sPath));
}

TEST_F(VFileDialogTest, ARefusedNameKeepsTheDialogOpen)
{
    m_dialog.m_nRefusals = 1;
    m_driver.Next(Choosing("a.qmk"));
    m_driver.When([&](HWND) { return m_dialog.m_nRefusals < 1; }, Choosing("b.qmk"));
    ASSERT_TRUE(Open());
    EXPECT_EQ(Text(m_dialog.GetPath()), m_folder.Path("b.qmk"));
    EXPECT_EQ(m_dialog.m_record.Take(), "init ok:\\a.qmk ok:\\b.qmk");
}

TEST_F(VFileDialogTest, AnOpenedFileMustExist)
{
    m_driver.Next(Choosing("none.qmk"));
    m_driver.Next(Pressing(IDOK)); // the system's box
    m_driver.Again(Pressing(IDCANCEL));
    EXPECT_FALSE(Open());
}

TEST_F(VFileDialogTest, SavingOverAFileAsksFirst)
{
    m_driver.Next(Choosing("a.qmk"));
    m_driver.Next(Pressing(IDNO));
    m_driver.Again(Choosing("a.qmk"));
    m_driver.Next(Pressing(IDYES));
    ASSERT_TRUE(Save());
    EXPECT_EQ(Text(m_dialog.GetPath()), m_folder.Path("a.qmk"));
}

TEST_F(VFileDialogTest, SavesUnderANewNameWithTheDefaultExtension)
{
    m_driver.Next(Choosing("new"));
    ASSERT_TRUE(Save());
    EXPECT_EQ(Text(m_dialog.GetPath()), m_folder.Path("new.qmk"));
    EXPECT_FALSE(FileExists(m_dialog.GetPath().GetText()));
}

TEST_F(VFileDialogTest, AsksTheSystemAsItShould)
{
    const DWORD uAlways =
        OFN_EXPLORER | OFN_NOCHANGEDIR | OFN_PATHMUSTEXIST | OFN_ENABLEHOOK | OFN_ENABLESIZING;
    m_driver.Next(Pressing(IDCANCEL));
    Open(OFN_HIDEREADONLY | OFN_ALLOWMULTISELECT);
    EXPECT_EQ(m_dialog.m_shown.Flags,
              uAlways | OFN_FILEMUSTEXIST | OFN_HIDEREADONLY | OFN_ALLOWMULTISELECT);
    m_driver.Next(Pressing(IDCANCEL));
    m_dialog.Run(nullptr, {.bOpen = false, .uFlags = OFN_HIDEREADONLY | OFN_ALLOWMULTISELECT});
    EXPECT_EQ(m_dialog.m_shown.Flags, uAlways | OFN_OVERWRITEPROMPT | OFN_HIDEREADONLY);
    EXPECT_EQ(m_dialog.m_shown.nMaxFile, 16384U);
    EXPECT_EQ(m_dialog.m_shown.nFilterIndex, 1U);
}

// Notes what the dialog starts with, before it is shown.
class StartingFileDialog : public VFileDialog
{
public:
    ~StartingFileDialog() override { Detach(); }

    void OnBeforeShow(OPENFILENAMEA& record) override
    {
        m_sName = record.lpstrFile;
        m_sDirectory = record.lpstrInitialDir;
        const char* p = record.lpstrFilter;
        while (*p != '\0') {
            m_sFilter += std::string(p) + "|";
            p += strlen(p) + 1;
        }
    }

    std::string m_sName;
    std::string m_sDirectory;
    std::string m_sFilter;
};

TEST_F(VFileDialogTest, StartsWhereItWasLast)
{
    StartingFileDialog dialog;
    dialog.AddFilter("Quillmark Files (*.qmk)", "qmk");
    dialog.AddFilter("All Files (*.*)", "*");
    m_driver.Next(Choosing(m_folder.Path("a.qmk")));
    ASSERT_TRUE(dialog.Run(nullptr, {}));
    EXPECT_EQ(dialog.m_sName, "");
    EXPECT_EQ(dialog.m_sDirectory, CurrentDirectory());
    EXPECT_EQ(dialog.m_sFilter, "Quillmark Files (*.qmk)|*.qmk|All Files (*.*)|*.*|");
    m_driver.Next(Pressing(IDCANCEL));
    EXPECT_FALSE(dialog.Run(nullptr, {}));
    EXPECT_EQ(dialog.m_sName, m_folder.Path("a.qmk"));
    EXPECT_EQ(dialog.m_sDirectory, m_folder.Get());
    m_driver.Next(Pressing(IDCANCEL));
    EXPECT_FALSE(
        dialog.Run(nullptr, {.bOpen = false, .szFileName = "given.qmk", .szDirectory = "C:\\"}));
    EXPECT_EQ(dialog.m_sName, "given.qmk");
    EXPECT_EQ(dialog.m_sDirectory, "C:\\");
}

TEST_F(VFileDialogTest, CutsAStartingNameToItsBuffer)
{
    StartingFileDialog dialog;
    m_driver.When([](HWND) { return true; }, Pressing(IDCANCEL));
    const std::string sLong(20000, 'x');
    dialog.Run(nullptr, {.szFileName = sLong.c_str()});
    EXPECT_EQ(dialog.m_sName.size(), 16383U);
}
