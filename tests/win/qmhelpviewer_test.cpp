// How the program finds the help viewer of Windows: by the class in the registry, by its name, or
// not at all.

#include "shell/qmhelpviewer.h"

#include <gtest/gtest.h>

#include "tests/win/classesroot.h"
#include "tests/win/standinfiles.h"
#include "tests/win/standins/viewer.h"

namespace {

constexpr char g_szClass[] = "CLSID\\{ADB880A6-D8FF-11CF-9377-00AA003B7A11}\\InprocServer32";

class QMHelpViewerTest : public testing::Test
{
protected:
    // The program keeps the library loaded until it ends. A test must unload its own.
    ~QMHelpViewerTest() override
    {
        if (HMODULE hModule = GetModuleHandleA(m_sViewer.c_str())) {
            FreeLibrary(hModule);
        }
    }

    const ViewerCalls* GetCalls() const
    {
        HMODULE hModule = GetModuleHandleA(m_sViewer.c_str());
        return hModule == nullptr ? nullptr
                                  : reinterpret_cast<const ViewerCalls*>(reinterpret_cast<void*>(
                                        GetProcAddress(hModule, VIEWER_CALLS)));
    }

    StandinFolder m_folder{"quillmark viewers"};
    std::string m_sViewer = m_folder.Copy("standin_viewer.dll", "viewer of help.dll");
    ScopedClassesRoot m_classes;
    QMHelpViewer m_viewer;
};

} // namespace

TEST_F(QMHelpViewerTest, CallsTheRegisteredViewerWithItsArguments)
{
    m_classes.Set(g_szClass, m_sViewer);
    HWND hWindow = GetDesktopWindow();
    EXPECT_EQ(m_viewer.Call(hWindow, "c:\\q\\quillmark.chm::/html\\a.htm", 2, 7),
              reinterpret_cast<HWND>(UINT_PTR{VIEWER_ANSWER}));
    const ViewerCalls* pCalls = GetCalls();
    ASSERT_NE(pCalls, nullptr);
    EXPECT_EQ(pCalls->nCount, 1);
    EXPECT_EQ(pCalls->hWindow, hWindow);
    EXPECT_STREQ(pCalls->szFile, "c:\\q\\quillmark.chm::/html\\a.htm");
    EXPECT_EQ(pCalls->uCommand, 2U);
    EXPECT_EQ(pCalls->uData, 7U);
}

TEST_F(QMHelpViewerTest, LoadsTheViewerOnce)
{
    m_classes.Set(g_szClass, m_sViewer);
    m_viewer.Call(nullptr, "one", 0, 0);
    m_classes.Set(g_szClass, "c:\\somewhere\\else.dll");
    m_viewer.Call(nullptr, "two", 1, 0);
    const ViewerCalls* pCalls = GetCalls();
    ASSERT_NE(pCalls, nullptr);
    EXPECT_EQ(pCalls->nCount, 2);
    EXPECT_STREQ(pCalls->szFile, "two");
    EXPECT_EQ(pCalls->uCommand, 1U);
}

TEST_F(QMHelpViewerTest, GivesNothingWithoutTheEntryPoint)
{
    const std::string sOther = m_folder.Copy("standin_noviewer.dll", "no viewer.dll");
    m_classes.Set(g_szClass, sOther);
    EXPECT_EQ(m_viewer.Call(nullptr, "x", 0, 0), nullptr);
    // The viewer is not looked for again, even when one is there now.
    m_classes.Set(g_szClass, m_sViewer);
    EXPECT_EQ(m_viewer.Call(nullptr, "x", 0, 0), nullptr);
    EXPECT_EQ(GetCalls(), nullptr);
    HMODULE hOther = GetModuleHandleA(sOther.c_str());
    ASSERT_NE(hOther, nullptr);
    FreeLibrary(hOther);
}

TEST_F(QMHelpViewerTest, TakesNoPathThatIsTooLong)
{
    // A path that is too long is ignored. The name alone is tried next, as without a path.
    m_classes.Set(g_szClass, m_sViewer + std::string(300, ' '));
    HMODULE hBefore = GetModuleHandleA("hhctrl.ocx");
    m_viewer.Call(nullptr, "x", 0xFFFF, 0);
    EXPECT_EQ(GetCalls(), nullptr);
    HMODULE hByName = GetModuleHandleA("hhctrl.ocx");
    EXPECT_NE(hByName, nullptr) << "the viewer of Windows must be loaded by its name";
    if (hByName != hBefore) {
        FreeLibrary(hByName);
    }
}

// Windows looks for a name in the folder of the program first. So it finds the stand-in before its
// own viewer.
TEST_F(QMHelpViewerTest, FindsTheViewerByItsNameWhereNoneIsRegistered)
{
    m_sViewer = m_folder.Copy("standin_viewer.dll", "hhctrl.ocx");
    ASSERT_EQ(GetModuleHandleA("hhctrl.ocx"), nullptr)
        << "a viewer is loaded already, so the test cannot tell which one is found";
    SetDllDirectoryA(m_folder.Get().c_str());
    HWND hAnswer = m_viewer.Call(nullptr, "by name", 0, 0);
    SetDllDirectoryA(nullptr);
    ASSERT_NE(GetCalls(), nullptr)
        << "this system loads its own viewer before the one in the program's folder";
    EXPECT_EQ(hAnswer, reinterpret_cast<HWND>(UINT_PTR{VIEWER_ANSWER}));
    EXPECT_STREQ(GetCalls()->szFile, "by name");
}
