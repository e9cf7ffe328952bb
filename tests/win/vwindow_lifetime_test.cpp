// Objects that are deleted, or run out of memory, while a message is handled.

#include <gtest/gtest.h>

#include <memory>
#include <new>

#include "tests/win/modaldriver.h"
#include "tests/win/resource.h"
#include "tests/win/support.h"
#include "toolkit/vdialog.h"
#include "toolkit/vwindow.h"

namespace {

constexpr UINT uTestMessage = WM_APP + 1;

// A control that deletes its parent's object when it is notified.
class DeletingControl : public VWindow
{
public:
    LRESULT OnReflectNotify(NMHDR* /*pHeader*/, LRESULT& lResult) override
    {
        delete m_pParent;
        lResult = 44;
        return m_lAnswer;
    }

    VWindow* m_pParent = nullptr;
    LRESULT m_lAnswer = V_NOT_HANDLED;
};

// Runs out of memory at a given message, and notes what the toolkit then calls.
class FailingWindow : public VWindow
{
public:
    explicit FailingWindow(int32_t lKind = V_KIND_OTHER) : VWindow(lKind)
    {
        SetMemoryFailure([](VWindow& window, UINT uMessage, WPARAM wParam) {
            auto& failing = static_cast<FailingWindow&>(window);
            failing.m_uFailed = uMessage;
            failing.m_wFailed = wParam;
        });
    }
    ~FailingWindow() override { Detach(); }

    bool OnInitialize() override
    {
        FailAt(WM_NCCREATE);
        return VWindow::OnInitialize();
    }
    LRESULT OnCommand(UINT, UINT, HWND) override
    {
        FailAt(WM_COMMAND);
        return V_NOT_HANDLED;
    }
    LRESULT OnSize(UINT, int, int) override
    {
        FailAt(WM_SIZE);
        return V_NOT_HANDLED;
    }
    LRESULT DefaultProc(HWND hWnd, UINT uMessage, WPARAM wParam, LPARAM lParam) override
    {
        if (uMessage == uTestMessage) {
            FailAt(uTestMessage);
        }
        return VWindow::DefaultProc(hWnd, uMessage, wParam, lParam);
    }

    UINT m_uFailsAt = 0;
    UINT m_uFailed = 0;
    WPARAM m_wFailed = 0;

private:
    void FailAt(UINT uMessage) const
    {
        if (m_uFailsAt == uMessage) {
            throw std::bad_alloc();
        }
    }
};

class FailingDialog : public VDialog
{
public:
    ~FailingDialog() override { Detach(); }

    bool OnInitDialog() override
    {
        if (m_bFailsAtStart) {
            throw std::bad_alloc();
        }
        return VDialog::OnInitDialog();
    }
    bool OnOK() override { throw std::bad_alloc(); }

    bool m_bFailsAtStart = false;
};

} // namespace

TEST(VWindowLifetime, ANotificationMayEndTheParentsObject)
{
    for (const LRESULT lAnswer : {V_NOT_HANDLED, LRESULT{-1}}) {
        Record record;
        auto* pParent = new VRecordingWindow(record);
        ASSERT_TRUE(CreateTestWindow(*pParent, record));
        HWND hParent = pParent->GetHandle();
        DeletingControl control;
        ASSERT_TRUE(control.Create(hParent, g_testRect, WS_CHILD, "Static", "", 7));
        control.m_pParent = pParent;
        control.m_lAnswer = lAnswer;
        record.Take();
        NMHDR header = {control.GetHandle(), 7, 3};
        const LRESULT lResult =
            SendMessageA(hParent, WM_NOTIFY, 7, reinterpret_cast<LPARAM>(&header));
        EXPECT_EQ(lResult, lAnswer == -1 ? 44 : V_NOT_HANDLED);
        EXPECT_EQ(record.Take(), "gone");
    }
}

// A new object may get the address of the deleted one. It must not get the messages of that one.
TEST(VWindowLifetime, AnObjectInTheOldOnesPlaceDoesNotGetItsMessage)
{
    Record record;
    record.watched = {WM_COMMAND};
    alignas(VRecordingWindow) static unsigned char place[sizeof(VRecordingWindow)];
    auto* pWindow = new (place) VRecordingWindow(record);
    ASSERT_TRUE(CreateTestWindow(*pWindow, record));
    HWND hWnd = pWindow->GetHandle();
    record.watched = {WM_COMMAND};
    record.command = [&](VWindow&) {
        pWindow->~VRecordingWindow();
        pWindow = new (place) VRecordingWindow(record);
        ASSERT_TRUE(pWindow->Create(nullptr, g_testRect, WS_OVERLAPPED, nullptr, "", 0));
        record.Take();
    };
    SendMessageA(hWnd, WM_COMMAND, 3, 0);
    EXPECT_EQ(record.Take(), "");
    EXPECT_TRUE(pWindow->IsValid());
    pWindow->~VRecordingWindow();
}

TEST(VWindowLifetime, AMessageWithinAMessageMayEndTheObject)
{
    Record record;
    auto* pWindow = new VRecordingWindow(record);
    ASSERT_TRUE(CreateTestWindow(*pWindow, record));
    HWND hWnd = pWindow->GetHandle();
    record.watched = {WM_COMMAND};
    int nDepth = 0;
    record.command = [&](VWindow& window) {
        if (++nDepth < 3) {
            SendMessageA(hWnd, WM_COMMAND, 3, 0);
        } else {
            delete &window;
        }
    };
    SendMessageA(hWnd, WM_COMMAND, 3, 0);
    EXPECT_EQ(record.Take(), "OnCommand(0,3) OnCommand(0,3) OnCommand(0,3) gone");
}

// ---- Out of memory.

TEST(VWindowMemory, AFailingOperationEndsItsMessageAndIsTold)
{
    FailingWindow window;
    ASSERT_TRUE(CreateTestWindow(window));
    for (const UINT uMessage : {UINT{WM_COMMAND}, UINT{WM_SIZE}, uTestMessage}) {
        window.m_uFailsAt = uMessage;
        window.m_uFailed = 0;
        EXPECT_EQ(window.Send(uMessage, 5), 0);
        EXPECT_EQ(window.m_uFailed, uMessage);
        EXPECT_EQ(window.m_wFailed, 5U);
        EXPECT_TRUE(window.IsValid());
    }
    window.m_uFailsAt = 0;
    window.m_uFailed = 0;
    window.Send(WM_COMMAND, 5);
    EXPECT_EQ(window.m_uFailed, 0U);
}

TEST(VWindowMemory, AWindowThatFailsAtItsCreationIsNotMade)
{
    FailingWindow window;
    window.m_uFailsAt = WM_NCCREATE;
    EXPECT_FALSE(CreateTestWindow(window));
    EXPECT_EQ(window.GetHandle(), nullptr);
    window.m_uFailsAt = 0;
    EXPECT_TRUE(CreateTestWindow(window)) << "with memory the window must come up";
}

TEST(VWindowMemory, AModalDialogThatFailsEndsWithMinusOne)
{
    FailingDialog dialog;
    ModalDriver driver;
    driver.Next([](HWND hDialog) { Press(hDialog, IDOK); });
    EXPECT_EQ(dialog.DoModal(nullptr, IDD_OK_CANCEL), -1);
    EXPECT_EQ(dialog.GetHandle(), nullptr);
}

TEST(VWindowMemory, AModalDialogThatFailsAtItsStartEndsWithMinusOne)
{
    FailingDialog dialog;
    dialog.m_bFailsAtStart = true;
    EXPECT_EQ(dialog.DoModal(nullptr, IDD_OK_CANCEL), -1);
    EXPECT_EQ(dialog.GetHandle(), nullptr);
}

TEST(VWindowMemory, AModelessDialogThatFailsStays)
{
    FailingDialog dialog;
    ASSERT_TRUE(dialog.CreateModeless(nullptr, IDD_OK_CANCEL));
    dialog.Send(WM_COMMAND, IDOK);
    EXPECT_TRUE(dialog.IsValid());
}
