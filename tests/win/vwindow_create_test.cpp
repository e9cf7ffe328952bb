// How windows are created.

#include <gtest/gtest.h>

#include "tests/win/support.h"
#include "toolkit/vapplication.h"
#include "toolkit/vwindow.h"

namespace {

// Notes the creation record, and may change it.
class VCreationWindow : public VWindow
{
public:
    bool OnPreCreate(CREATESTRUCTA& create) override
    {
        m_create = create;
        return false;
    }

    CREATESTRUCTA m_create = {};
};

class VOtherClassWindow : public VWindow
{
    bool OnPreCreate(CREATESTRUCTA& create) override
    {
        create.lpszClass = "Static";
        create.lpszName = "changed";
        create.cx = 33;
        return true;
    }
};

BOOL CALLBACK CountWindow(HWND, LPARAM lCount)
{
    ++*reinterpret_cast<DWORD*>(lCount);
    return TRUE;
}

DWORD CountThreadWindows()
{
    DWORD uCount = 0;
    EnumThreadWindows(GetCurrentThreadId(), CountWindow, reinterpret_cast<LPARAM>(&uCount));
    return uCount;
}

} // namespace

TEST(VWindowCreate, FillsTheCreationRecord)
{
    VCreationWindow window;
    const auto hParent = reinterpret_cast<HWND>(static_cast<UINT_PTR>(0x1234));
    EXPECT_FALSE(
        window.Create(hParent, {10, 20, 40, 60}, WS_CHILD | WS_BORDER, "Edit", "Title", 9));
    const CREATESTRUCTA& create = window.m_create;
    EXPECT_EQ(create.hwndParent, hParent);
    EXPECT_EQ(create.x, 10);
    EXPECT_EQ(create.y, 20);
    EXPECT_EQ(create.cx, 30);
    EXPECT_EQ(create.cy, 40);
    EXPECT_EQ(static_cast<DWORD>(create.style), WS_CHILD | WS_BORDER);
    EXPECT_STREQ(create.lpszClass, "Edit");
    EXPECT_STREQ(create.lpszName, "Title");
    EXPECT_EQ(reinterpret_cast<UINT_PTR>(create.hMenu), 9U);
    EXPECT_EQ(window.GetHandle(), nullptr);
}

TEST(VWindowCreate, ANullClassIsTheRegisteredOne)
{
    VCreationWindow window;
    window.Create(nullptr, g_testRect, WS_POPUP, nullptr, "", 0);
    EXPECT_STREQ(window.m_create.lpszClass, "vorek window tests");
    VApplication::SetClassName("");
    window.Create(nullptr, g_testRect, WS_POPUP, nullptr, "", 0);
    EXPECT_STREQ(window.m_create.lpszClass, "VWindow");
    VApplication::SetClassName("vorek window tests");
}

TEST(VWindowCreate, AnEmptyRectangleLetsTheSystemPlaceATopLevelWindow)
{
    VCreationWindow window;
    const int nDefault = static_cast<int>(0x80000000U);
    for (const VRect& rect : {VRect(), VRect{5, 5, 5, 9}, VRect{9, 9, 3, 3}}) {
        window.Create(nullptr, rect, WS_OVERLAPPEDWINDOW, nullptr, "", 0);
        EXPECT_EQ(window.m_create.x, nDefault);
        EXPECT_EQ(window.m_create.y, nDefault);
        EXPECT_EQ(window.m_create.cx, nDefault);
        EXPECT_EQ(window.m_create.cy, nDefault);
    }
}

TEST(VWindowCreate, AnEmptyRectangleMakesAnEmptyChild)
{
    VWindow parent;
    ASSERT_TRUE(CreateTestWindow(parent));
    VWindow child;
    ASSERT_TRUE(child.Create(parent.GetHandle(), {}, WS_CHILD, nullptr, "", 3));
    EXPECT_TRUE(child.GetWindowRect().IsEmpty());
    EXPECT_EQ(child.GetId(), 3U);
    EXPECT_EQ(child.GetParent(), parent.GetHandle());
    VWindow placed;
    ASSERT_TRUE(placed.Create(nullptr, {}, WS_OVERLAPPEDWINDOW, nullptr, "", 0));
    EXPECT_FALSE(placed.GetWindowRect().IsEmpty());
}

TEST(VWindowCreate, CallsInOrderForTheOwnClass)
{
    Record record;
    VRecordingWindow window(record);
    record.watched = {WM_NCCREATE, WM_CREATE};
    ASSERT_TRUE(CreateTestWindow(window));
    EXPECT_TRUE(window.IsAttached());
    EXPECT_TRUE(window.IsValid());
    ASSERT_GE(record.calls.size(), 4U);
    record.calls.resize(4);
    EXPECT_EQ(record.Take(), "OnPreCreate OnInitialize DefaultProc(129) DefaultProc(1)");
    EXPECT_EQ(VWindow::FromHandle(window.GetHandle()), &window);
}

TEST(VWindowCreate, ForeignClassesAreAttachedAfterTheirCreation)
{
    Record record;
    VRecordingWindow window(record);
    record.watched = {WM_NCCREATE, WM_CREATE};
    ASSERT_TRUE(window.Create(nullptr, g_testRect, WS_POPUP, "Static", "text", 0));
    EXPECT_EQ(record.Take(), "OnPreCreate OnInitialize");
    EXPECT_TRUE(window.IsAttached());
    EXPECT_EQ(Text(window.GetText()), "text");
}

TEST(VWindowCreate, PreCreateMayChangeTheRecord)
{
    VOtherClassWindow window;
    ASSERT_TRUE(window.Create(nullptr, g_testRect, WS_POPUP, nullptr, "before", 0));
    EXPECT_EQ(VWindow::KindOfWindow(window.GetHandle()), V_KIND_STATIC);
    EXPECT_EQ(Text(window.GetText()), "changed");
    EXPECT_EQ(window.GetWindowRect().GetWidth(), 33);
}

TEST(VWindowCreate, ARefusedPreCreateMakesNoWindow)
{
    Record record;
    VRecordingWindow window(record);
    record.bRefusesPreCreate = true;
    const DWORD uBefore = CountThreadWindows();
    EXPECT_FALSE(CreateTestWindow(window));
    EXPECT_EQ(record.Take(), "OnPreCreate");
    EXPECT_EQ(CountThreadWindows(), uBefore);
    EXPECT_FALSE(window.IsAttached());
}

TEST(VWindowCreate, ARefusedInitializeLeavesNoWindow)
{
    for (const char* szClass : {static_cast<const char*>(nullptr), "Static"}) {
        Record record;
        VRecordingWindow window(record);
        record.bRefusesInitialize = true;
        const DWORD uBefore = CountThreadWindows();
        EXPECT_FALSE(window.Create(nullptr, g_testRect, WS_POPUP, szClass, "", 0));
        EXPECT_EQ(record.Take(), "OnPreCreate OnInitialize");
        EXPECT_EQ(CountThreadWindows(), uBefore);
        EXPECT_EQ(window.GetHandle(), nullptr);
        EXPECT_FALSE(window.IsAttached());

        record.bRefusesInitialize = false;
        EXPECT_TRUE(window.Create(nullptr, g_testRect, WS_POPUP, szClass, "", 0));
    }
}

TEST(VWindowCreate, AnObjectThatDeletesItselfStaysWithItsMakerWhenRefused)
{
    for (const char* szClass : {static_cast<const char*>(nullptr), "Static"}) {
        Record record;
        record.bRefusesInitialize = true;
        auto* pWindow = new VRecordingWindow(record);
        pWindow->GetFlags().Set(V_FLAG_DELETE_SELF);
        EXPECT_FALSE(pWindow->Create(nullptr, g_testRect, WS_POPUP, szClass, "", 0));
        EXPECT_TRUE(VWindow::IsLive(pWindow));
        delete pWindow;
    }
}

TEST(VWindowCreate, AnUnknownClassMakesNoWindow)
{
    VWindow window;
    EXPECT_FALSE(window.Create(nullptr, g_testRect, WS_POPUP, "no such class", "", 0));
    EXPECT_EQ(window.GetHandle(), nullptr);
    EXPECT_FALSE(window.IsValid());
    EXPECT_TRUE(CreateTestWindow(window));
}

TEST(VWindowCreate, InitializeCanBeLeftToTheCreator)
{
    Record record;
    VRecordingWindow window(record);
    window.GetFlags().Set(V_FLAG_INITIALIZE_LATER);
    ASSERT_TRUE(CreateTestWindow(window));
    EXPECT_EQ(record.Take().find("OnInitialize"), std::string::npos);
    EXPECT_TRUE(window.OnInitialize());
}

TEST(VWindowCreate, TheObjectMayDeleteItselfWithItsWindow)
{
    Record record;
    auto* pWindow = new VRecordingWindow(record);
    pWindow->GetFlags().Set(V_FLAG_DELETE_SELF);
    ASSERT_TRUE(CreateTestWindow(*pWindow, record));
    DestroyWindow(pWindow->GetHandle());
    EXPECT_EQ(record.Take(), "OnDestroy OnFinalDestroy gone");
    EXPECT_FALSE(VWindow::IsLive(pWindow));
}

TEST(VWindowCreate, DeletingTheObjectDestroysItsWindowOnce)
{
    Record record;
    auto* pWindow = new VRecordingWindow(record);
    pWindow->GetFlags().Set(V_FLAG_DELETE_SELF);
    ASSERT_TRUE(CreateTestWindow(*pWindow, record));
    HWND hWnd = pWindow->GetHandle();
    delete pWindow;
    EXPECT_FALSE(IsWindow(hWnd));
    EXPECT_EQ(record.Take(), "gone");
}
