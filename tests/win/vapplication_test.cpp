#include "toolkit/vapplication.h"

#include <gtest/gtest.h>

#include "tests/win/resource.h"
#include "tests/win/support.h"
#include "toolkit/vwindow.h"

namespace {

HINSTANCE Module()
{
    return GetModuleHandleA(nullptr);
}

bool IsRegistered(const char* szClass, WNDCLASSA& record)
{
    return GetClassInfoA(Module(), szClass, &record) != FALSE;
}

// Each of these tests has an application object of its own. Afterwards the one of all tests is
// back.
class VApplicationTest : public testing::Test
{
protected:
    void SetUp() override
    {
        SetApplication(std::make_unique<VApplication>());
        VApplication::SetClassName("");
    }

    void TearDown() override
    {
        SetApplication(nullptr);
        ASSERT_TRUE(InitializeApplication());
    }
};

class VLoggingApplication : public VApplication
{
public:
    explicit VLoggingApplication(int& nDeleted) : m_nDeleted(nDeleted) {}
    ~VLoggingApplication() override { ++m_nDeleted; }

private:
    int& m_nDeleted;
};

} // namespace

TEST_F(VApplicationTest, StartsWithTheSystemsAnswers)
{
    EXPECT_EQ(GetApplication().GetInstance(), Module());
    EXPECT_EQ(GetApplication().GetResourceModule(), Module());
    EXPECT_STREQ(GetApplication().GetName(), "");
    EXPECT_STREQ(VApplication::GetClassName(), "VWindow");
    GetApplication().SetName("Name");
    EXPECT_STREQ(GetApplication().GetName(), "Name");
}

TEST_F(VApplicationTest, IsMadeOnDemand)
{
    SetApplication(nullptr);
    VApplication& made = GetApplication();
    EXPECT_EQ(&made, &GetApplication());
}

TEST_F(VApplicationTest, AnotherObjectTakesThePlaceOfTheFormer)
{
    int nDeleted = 0;
    auto pOwn = std::make_unique<VLoggingApplication>(nDeleted);
    const VApplication* pAddress = pOwn.get();
    SetApplication(std::move(pOwn));
    EXPECT_EQ(&GetApplication(), pAddress);
    EXPECT_EQ(nDeleted, 0);
    SetApplication(std::make_unique<VApplication>());
    EXPECT_EQ(nDeleted, 1);
}

TEST_F(VApplicationTest, InitializeMakesARecord)
{
    VApplication::SetClassName("made by the test");
    ASSERT_TRUE(GetApplication().Initialize(Module(), SW_SHOWMINIMIZED, 0, 6));
    EXPECT_EQ(GetApplication().GetShowCommand(), SW_SHOWMINIMIZED);
    EXPECT_EQ(GetApplication().GetInstance(), Module());
    EXPECT_EQ(GetApplication().GetResourceModule(), Module());
    WNDCLASSA record = {};
    ASSERT_TRUE(IsRegistered("made by the test", record));
    EXPECT_EQ(record.style, 11U);
    EXPECT_EQ(reinterpret_cast<UINT_PTR>(record.hbrBackground), 6U);
    EXPECT_EQ(record.hIcon, LoadIconA(nullptr, IDI_APPLICATION));
    EXPECT_EQ(record.hCursor, LoadCursorA(nullptr, IDC_ARROW));
    EXPECT_EQ(record.lpfnWndProc, &VWindow::WindowProc);
    EXPECT_EQ(record.hInstance, Module());
}

TEST_F(VApplicationTest, InitializeFillsWhatARecordLeavesOut)
{
    WNDCLASSA given = {};
    given.style = CS_PARENTDC;
    given.cbWndExtra = 8;
    given.lpfnWndProc = &DefWindowProcA;
    given.hCursor = LoadCursorA(nullptr, IDC_CROSS);
    given.lpszClassName = "given by the test";
    ASSERT_TRUE(GetApplication().Initialize(Module(), SW_SHOW, 0, 6, &given));
    WNDCLASSA record = {};
    ASSERT_TRUE(IsRegistered("given by the test", record));
    EXPECT_EQ(record.style, static_cast<UINT>(CS_PARENTDC));
    EXPECT_EQ(record.cbWndExtra, 8);
    EXPECT_EQ(record.lpfnWndProc, &DefWindowProcA);
    EXPECT_EQ(record.hbrBackground, nullptr);
    EXPECT_EQ(record.hCursor, LoadCursorA(nullptr, IDC_CROSS));
    EXPECT_EQ(record.hIcon, LoadIconA(nullptr, IDI_APPLICATION));
    EXPECT_STREQ(VApplication::GetClassName(), "given by the test");
}

TEST_F(VApplicationTest, AnEmptyRecordGetsTheDefaultClassName)
{
    const WNDCLASSA given = {};
    ASSERT_TRUE(GetApplication().Initialize(Module(), SW_SHOW, 0, 6, &given));
    WNDCLASSA record = {};
    ASSERT_TRUE(IsRegistered("VWindow", record));
    EXPECT_EQ(record.lpfnWndProc, &VWindow::WindowProc);
    VWindow window;
    EXPECT_TRUE(CreateTestWindow(window));
}

TEST_F(VApplicationTest, AClassIsRegisteredOnceAndUnregisteredAtTheEnd)
{
    VApplication::SetClassName("made by the test");
    ASSERT_TRUE(GetApplication().Initialize(Module(), SW_SHOW, 0, 6));
    VApplication other;
    EXPECT_FALSE(other.Initialize(Module(), SW_SHOW, 0, 6));
    WNDCLASSA record = {};
    EXPECT_TRUE(IsRegistered("made by the test", record));
    SetApplication(nullptr);
    EXPECT_FALSE(IsRegistered("made by the test", record));
}

TEST_F(VApplicationTest, ARecordsOwnInstanceIsUnregisteredToo)
{
    WNDCLASSA given = {};
    given.hInstance = GetModuleHandleA("gdi32.dll");
    given.lpszClassName = "of another module";
    ASSERT_TRUE(GetApplication().Initialize(Module(), SW_SHOW, 0, 6, &given));
    WNDCLASSA record = {};
    EXPECT_TRUE(GetClassInfoA(given.hInstance, "of another module", &record));
    SetApplication(nullptr);
    EXPECT_FALSE(GetClassInfoA(given.hInstance, "of another module", &record));
}

// ---- The loop.

namespace {

class MessageLoop : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(CreateTestWindow(m_window, m_record));
        PumpAll();
        m_record.Take();
        m_record.watched = {WM_APP, WM_KEYDOWN};
    }

    // The calls that a message causes, with the end of the loop after it.
    std::string Run(UINT uMessage, WPARAM wParam = 0)
    {
        m_window.Post(uMessage, wParam);
        PostQuitMessage(9);
        EXPECT_EQ(RunMessageLoop(m_window), 9);
        return m_record.Take();
    }

    Record m_record;
    VRecordingWindow m_window{m_record};
};

} // namespace

TEST_F(MessageLoop, EndsWithTheWordOfTheQuitMessage)
{
    for (const int nCode : {0, 7, -1}) {
        PostQuitMessage(nCode);
        EXPECT_EQ(RunMessageLoop(m_window), nCode);
    }
    EXPECT_EQ(m_record.Take(), "");
}

TEST_F(MessageLoop, PreTranslateComesBeforeDispatch)
{
    EXPECT_EQ(Run(WM_APP), "PreTranslate(32768) DefaultProc(32768)");
    m_record.bTranslates = true;
    EXPECT_EQ(Run(WM_APP), "PreTranslate(32768)");
}

TEST_F(MessageLoop, AcceleratorsComeBeforePreTranslate)
{
    EXPECT_EQ(Run(WM_KEYDOWN, VK_F5), "PreTranslate(256) DefaultProc(256)");
    m_window.SetAccelerators(LoadAcceleratorsA(Module(), MAKEINTRESOURCEA(IDA_TEST)));
    ASSERT_NE(m_window.GetAccelerators(), nullptr);
    m_record.bTranslates = true;
    EXPECT_EQ(Run(WM_KEYDOWN, VK_F5), "OnCommand(1,111)");
    EXPECT_EQ(Run(WM_KEYDOWN, VK_F6), "PreTranslate(256)");
    DestroyAcceleratorTable(m_window.GetAccelerators());
}

TEST_F(MessageLoop, AcceleratorsOfTheOwnerServeOtherWindowsMessages)
{
    Record otherRecord;
    VRecordingWindow other(otherRecord);
    ASSERT_TRUE(other.Create(m_window.GetHandle(), g_testRect, WS_CHILD, nullptr, "", 1));
    PumpAll();
    m_record.Take();
    otherRecord.Take();
    m_window.SetAccelerators(LoadAcceleratorsA(Module(), MAKEINTRESOURCEA(IDA_TEST)));
    other.Post(WM_KEYDOWN, VK_F5);
    PostQuitMessage(0);
    EXPECT_EQ(RunMessageLoop(m_window), 0);
    EXPECT_EQ(m_record.Take(), "OnCommand(1,111)");
    EXPECT_EQ(otherRecord.Take(), "");
    DestroyAcceleratorTable(m_window.GetAccelerators());
}

TEST_F(MessageLoop, CharactersAreTranslated)
{
    m_record.watched = {WM_CHAR};
    EXPECT_EQ(Run(WM_KEYDOWN, 'A'), "PreTranslate(256) PreTranslate(258) DefaultProc(258)");
}
