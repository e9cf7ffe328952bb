// The frame of documents and its children.

#include "toolkit/vmdiframewindow.h"

#include <gtest/gtest.h>

#include "tests/win/support.h"
#include "toolkit/vmdichildwindow.h"
#include "toolkit/vrect_win.h"

namespace {

constexpr UINT uFirstChildId = 25001;
constexpr UINT auArrangeIds[V_ARRANGE_COUNT] = {57650, 500, 501, 504, 503, 57602, 104};

class VNotedMdiFrame : public VMDIFrameWindow
{
public:
    explicit VNotedMdiFrame(Record& record) : m_record(record) {}

    void UpdateCommands() override { Note("update", nullptr); }
    void OnChildCreated(VMDIChildWindow& child) override { Note("created", &child); }
    void OnChildActivated(VMDIChildWindow& child) override { Note("activated", &child); }
    void OnChildDeactivated(VMDIChildWindow& child) override { Note("deactivated", &child); }
    void OnChildDestroyed(VMDIChildWindow& child) override { Note("destroyed", &child); }
    void OnChildGone(VMDIChildWindow& child) override;
    void OnPreCreateClient(CREATESTRUCTA&) override { Note("client", nullptr); }

    bool OnInitialize() override
    {
        return CreateClient(m_hWindowMenu, 25000, uFirstChildId) && VMDIFrameWindow::OnInitialize();
    }

    HMENU m_hWindowMenu = nullptr;

private:
    void Note(const char* szWhat, const VMDIChildWindow* pChild);

    Record& m_record;
};

class VNotedChild : public VMDIChildWindow
{
public:
    VNotedChild(Record& record, std::string sName) : m_sName(std::move(sName)), m_record(record) {}
    ~VNotedChild() override { Note("deleted"); }

    bool QueryClose(bool bForced) override
    {
        Note(bForced ? "must close" : "asked");
        if (m_bRefusesClose && !bForced) {
            return false;
        }
        return VMDIChildWindow::QueryClose(bForced);
    }

    bool OnCreate() override
    {
        Note("OnCreate");
        return !m_bRefusesCreate;
    }
    void OnActivated() override { Note("OnActivated"); }
    void OnDeactivated() override { Note("OnDeactivated"); }
    void OnDestroy() override
    {
        const VWindow* pFrame = GetFrame();
        if (dynamic_cast<const VMDIFrameWindow*>(pFrame) == nullptr) {
            Note("orphaned");
        }
        VMDIChildWindow::OnDestroy();
    }

    std::string m_sName;
    bool m_bRefusesClose = false;
    bool m_bRefusesCreate = false;

private:
    void Note(const std::string& sWhat) { m_record.calls.push_back(m_sName + ":" + sWhat); }

    Record& m_record;
};

void VNotedMdiFrame::Note(const char* szWhat, const VMDIChildWindow* pChild)
{
    m_record.calls.push_back(
        pChild == nullptr
            ? szWhat
            : szWhat + ("(" + static_cast<const VNotedChild*>(pChild)->m_sName) + ")");
}

void VNotedMdiFrame::OnChildGone(VMDIChildWindow& child)
{
    EXPECT_EQ(child.GetHandle(), nullptr);
    Note("gone", &child);
}

// A visible frame whose menu and accelerators change with its documents.
class VMdiTest : public testing::Test
{
protected:
    void SetUp() override
    {
        m_hMenu = MakeMenu(m_hWindowMenu);
        m_hChildMenu = MakeMenu(m_hChildWindowMenu);
        m_hFrameKeys = MakeKeys(VK_F5);
        m_hChildKeys = MakeKeys(VK_F6);
        m_frame.m_hWindowMenu = m_hWindowMenu;
        m_frame.RegisterArrangeCommands(auArrangeIds);
        m_frame.SetFrameAccelerators(m_hFrameKeys);
        ASSERT_TRUE(m_frame.CreateFrame(m_hMenu, "Frame", {20, 20, 820, 620}, WS_OVERLAPPEDWINDOW,
                                        3502, 3501));
        m_frame.Show(SW_SHOWNOACTIVATE);
        PumpAll();
        EXPECT_EQ(m_record.Take(), "client");
    }

    void TearDown() override
    {
        m_frame.CloseChildren();
        m_frame.OnClose(true);
        // A window that is destroyed destroys only the menu that it has then.
        for (HMENU hMenu : {m_hMenu, m_hChildMenu}) {
            if (IsMenu(hMenu)) {
                DestroyMenu(hMenu);
            }
        }
        DestroyAcceleratorTable(m_hFrameKeys);
        DestroyAcceleratorTable(m_hChildKeys);
    }

    static HMENU MakeMenu(HMENU& hWindowMenu)
    {
        HMENU hMenu = CreateMenu();
        hWindowMenu = CreatePopupMenu();
        AppendMenuA(hWindowMenu, MF_STRING, 57650, "Cascade");
        AppendMenuA(hMenu, MF_POPUP, reinterpret_cast<UINT_PTR>(hWindowMenu), "Window");
        return hMenu;
    }

    static HACCEL MakeKeys(WORD uKey)
    {
        ACCEL key = {FVIRTKEY, uKey, 111};
        return CreateAcceleratorTableA(&key, 1);
    }

    // The object is deleted with its window.
    VNotedChild* Open(const char* szName, HACCEL hKeys = nullptr, VRect rect = {})
    {
        auto pChild = std::make_unique<VNotedChild>(m_record, szName);
        if (!pChild->CreateChild(m_frame, {.szTitle = szName,
                                           .rect = rect,
                                           .hMenu = m_hChildMenu,
                                           .hWindowMenu = m_hChildWindowMenu,
                                           .hAccelerators = hKeys})) {
            return nullptr;
        }
        return pChild.release();
    }

    // The children a, b and c, opened in this order.
    void OpenThree()
    {
        m_pA = Open("a");
        m_pB = Open("b");
        m_pC = Open("c");
        ASSERT_TRUE(m_pA != nullptr && m_pB != nullptr && m_pC != nullptr);
        m_record.Take();
    }

    std::string ActiveName() const
    {
        const VMDIChildWindow* pActive = m_frame.GetActiveChild();
        return pActive == nullptr ? "" : static_cast<const VNotedChild*>(pActive)->m_sName;
    }

    Record m_record;
    VNotedMdiFrame m_frame{m_record};
    HMENU m_hMenu = nullptr;
    HMENU m_hWindowMenu = nullptr;
    HMENU m_hChildMenu = nullptr;
    HMENU m_hChildWindowMenu = nullptr;
    HACCEL m_hFrameKeys = nullptr;
    HACCEL m_hChildKeys = nullptr;
    VNotedChild* m_pA = nullptr;
    VNotedChild* m_pB = nullptr;
    VNotedChild* m_pC = nullptr;
};

} // namespace

TEST_F(VMdiTest, TheClientFillsWhatTheBarsLeave)
{
    VRect area;
    m_frame.UsableArea(area);
    RECT rect = {};
    GetWindowRect(m_frame.GetClient(), &rect);
    MapWindowPoints(nullptr, m_frame.GetHandle(), reinterpret_cast<POINT*>(&rect), 2);
    EXPECT_EQ(VFromRect(rect), area);
    EXPECT_EQ(GetDlgCtrlID(m_frame.GetClient()), 25000);
    EXPECT_EQ(ActiveName(), "");
}

// ---- Creating and activating.

TEST_F(VMdiTest, AChildIsMadeMadeKnownAndThenActivated)
{
    ASSERT_NE(Open("a"), nullptr);
    EXPECT_EQ(m_record.Take(), "a:OnCreate created(a) update a:OnActivated activated(a)");
    EXPECT_EQ(ActiveName(), "a");
    ASSERT_NE(Open("b"), nullptr);
    EXPECT_EQ(m_record.Take(),
              "b:OnCreate created(b) a:OnDeactivated deactivated(a) "
              "update b:OnActivated activated(b)");
    EXPECT_EQ(ActiveName(), "b");
}

TEST_F(VMdiTest, AChildThatCannotBeMadeStaysItsMakersObject)
{
    auto pChild = std::make_unique<VNotedChild>(m_record, "a");
    pChild->m_bRefusesCreate = true;
    EXPECT_FALSE(pChild->CreateChild(
        m_frame, {.szTitle = "a", .hMenu = m_hChildMenu, .hWindowMenu = m_hChildWindowMenu}));
    EXPECT_TRUE(VWindow::IsLive(pChild.get()));
    EXPECT_EQ(pChild->GetHandle(), nullptr);
    EXPECT_EQ(m_frame.GetActiveChild(), nullptr);
    EXPECT_EQ(m_record.calls.front(), "a:OnCreate");
    for (const std::string& sCall : m_record.calls) {
        EXPECT_NE(sCall, "created(a)");
        EXPECT_NE(sCall, "a:deleted");
    }
}

TEST_F(VMdiTest, MenuAndKeysFollowTheChildOnTop)
{
    EXPECT_EQ(m_frame.GetAccelerators(), m_hFrameKeys);
    m_pA = Open("a", m_hChildKeys);
    ASSERT_NE(m_pA, nullptr);
    EXPECT_EQ(m_frame.GetAccelerators(), m_hChildKeys);
    EXPECT_EQ(GetMenu(m_frame.GetHandle()), m_hChildMenu);
    // With a child that has no accelerators, those of the frame stay.
    m_pB = Open("b");
    ASSERT_NE(m_pB, nullptr);
    EXPECT_EQ(m_frame.GetAccelerators(), m_hFrameKeys);
    EXPECT_EQ(GetMenu(m_frame.GetHandle()), m_hChildMenu);
    m_frame.ActivateChild(*m_pA);
    EXPECT_EQ(m_frame.GetAccelerators(), m_hChildKeys);
    m_pA->OnClose(true);
    m_pB->OnClose(true);
    EXPECT_EQ(m_frame.GetAccelerators(), m_hFrameKeys);
    EXPECT_EQ(GetMenu(m_frame.GetHandle()), m_hMenu);
}

TEST_F(VMdiTest, TheWindowMenuListsTheChildren)
{
    OpenThree();
    char szText[64] = "";
    GetMenuStringA(m_hChildWindowMenu, uFirstChildId + 1, szText, sizeof szText, MF_BYCOMMAND);
    EXPECT_EQ(std::string(szText), "&2 b");
    EXPECT_NE(GetMenuState(m_hChildWindowMenu, uFirstChildId + 2, MF_BYCOMMAND) & MF_CHECKED, 0U);
}

TEST_F(VMdiTest, TheLastChildsDeactivationPutsTheFrameBackFirst)
{
    ASSERT_NE(Open("a", m_hChildKeys), nullptr);
    m_record.Take();
    m_frame.GetActiveChild()->OnClose(true);
    EXPECT_EQ(m_record.Take(),
              "a:must close a:OnDeactivated deactivated(a) destroyed(a) gone(a) a:deleted");
    EXPECT_EQ(m_frame.GetAccelerators(), m_hFrameKeys);
}

TEST_F(VMdiTest, ClosingTheChildOnTopActivatesTheNext)
{
    OpenThree();
    m_pC->Send(WM_CLOSE);
    EXPECT_EQ(ActiveName(), "b");
    EXPECT_EQ(m_record.Take(),
              "c:asked c:OnDeactivated deactivated(c) update b:OnActivated "
              "activated(b) destroyed(c) gone(c) c:deleted");
}

TEST_F(VMdiTest, MaximizesAndRestoresThroughTheClient)
{
    m_pA = Open("a");
    ASSERT_NE(m_pA, nullptr);
    EXPECT_FALSE(m_pA->IsMaximized());
    m_pA->Maximize();
    EXPECT_TRUE(m_pA->IsMaximized());
    m_pA->Restore();
    EXPECT_FALSE(m_pA->IsMaximized());
}

// ---- Closing.

TEST_F(VMdiTest, ChildrenAreAskedFromTheTopDownUntilOneRefuses)
{
    OpenThree();
    m_pB->m_bRefusesClose = true;
    EXPECT_FALSE(m_frame.CloseChildren());
    std::string sAsked;
    for (const std::string& sCall : m_record.calls) {
        sAsked += sCall.find("asked") != std::string::npos ? sCall + " " : "";
    }
    EXPECT_EQ(sAsked, "c:asked b:asked ");
    EXPECT_FALSE(VWindow::IsLive(m_pC));
    EXPECT_TRUE(VWindow::IsLive(m_pB));
    EXPECT_TRUE(VWindow::IsLive(m_pA));
    EXPECT_EQ(ActiveName(), "b");
    m_pB->m_bRefusesClose = false;
    EXPECT_TRUE(m_frame.CloseChildren());
    EXPECT_FALSE(VWindow::IsLive(m_pB));
    EXPECT_FALSE(VWindow::IsLive(m_pA));
    EXPECT_EQ(m_frame.GetActiveChild(), nullptr);
    EXPECT_TRUE(m_frame.CloseChildren());
}

TEST_F(VMdiTest, ARefusedCloseLeavesTheChild)
{
    m_pA = Open("a");
    ASSERT_NE(m_pA, nullptr);
    m_pA->m_bRefusesClose = true;
    EXPECT_EQ(m_pA->Send(WM_CLOSE), 0);
    EXPECT_EQ(m_pA->Send(WM_QUERYENDSESSION), 0);
    EXPECT_TRUE(VWindow::IsLive(m_pA));
    m_pA->m_bRefusesClose = false;
    EXPECT_EQ(m_pA->Send(WM_QUERYENDSESSION), 1);
    EXPECT_FALSE(VWindow::IsLive(m_pA));
}

TEST_F(VMdiTest, AChildIsDeletedInsideItsOwnClose)
{
    OpenThree();
    HWND hWnd = m_pC->GetHandle();
    // The window procedure still runs after the object is deleted.
    EXPECT_EQ(SendMessageA(hWnd, WM_CLOSE, 0, 0), 0);
    EXPECT_FALSE(VWindow::IsLive(m_pC));
    EXPECT_FALSE(IsWindow(hWnd));
    EXPECT_EQ(m_record.calls.back(), "c:deleted");
    EXPECT_TRUE(m_pB->OnClose(false));
    EXPECT_EQ(m_record.calls.back(), "b:deleted");
}

TEST_F(VMdiTest, TheFramesEndTakesItsChildrenAlong)
{
    OpenThree();
    m_frame.OnClose(true);
    for (const VNotedChild* pChild : {m_pA, m_pB, m_pC}) {
        EXPECT_FALSE(VWindow::IsLive(pChild));
    }
    EXPECT_EQ(m_frame.GetHandle(), nullptr);
}

TEST(VMdiFrame, AFrameDeletedWithItsWindowEndsItsChildrenFirst)
{
    Record record;
    {
        VNotedMdiFrame frame(record);
        ASSERT_TRUE(frame.CreateFrame(CreateMenu(), "Frame", {20, 20, 420, 320},
                                      WS_OVERLAPPEDWINDOW, 3502, 3501));
        auto pChild = std::make_unique<VNotedChild>(record, "a");
        ASSERT_TRUE(
            pChild->CreateChild(frame, {.szTitle = "a", .hMenu = GetMenu(frame.GetHandle())}));
        pChild.release();
        record.Take();
    }
    // By then the derived part of the frame is gone, so it notes nothing. Its base is still there.
    EXPECT_EQ(record.Take(), "a:deleted");
}

// ---- Arranging.

TEST_F(VMdiTest, OtherCommandsArrangeNothing)
{
    OpenThree();
    EXPECT_FALSE(m_frame.Arrange(57600));
    EXPECT_FALSE(m_frame.Arrange(0));
    EXPECT_EQ(m_record.Take(), "");
}

TEST_F(VMdiTest, CascadesAndTiles)
{
    OpenThree();
    EXPECT_TRUE(m_frame.Arrange(57650));
    EXPECT_GT(m_pB->GetWindowRect().left, m_pA->GetWindowRect().left);
    EXPECT_GT(m_pC->GetWindowRect().left, m_pB->GetWindowRect().left);
    EXPECT_GT(m_pC->GetWindowRect().top, m_pB->GetWindowRect().top);
    EXPECT_TRUE(m_frame.Arrange(500));
    EXPECT_EQ(m_pA->GetWindowRect().left, m_pC->GetWindowRect().left);
    EXPECT_EQ(m_pA->GetWindowRect().GetWidth(), m_pC->GetWindowRect().GetWidth());
    EXPECT_GE(m_pA->GetWindowRect().top, m_pB->GetWindowRect().bottom);
    EXPECT_TRUE(m_frame.Arrange(501));
    EXPECT_EQ(m_pA->GetWindowRect().top, m_pC->GetWindowRect().top);
    EXPECT_EQ(m_pA->GetWindowRect().GetHeight(), m_pC->GetWindowRect().GetHeight());
    EXPECT_GE(m_pA->GetWindowRect().left, m_pB->GetWindowRect().right);
}

TEST_F(VMdiTest, StepsToTheNextAndBack)
{
    OpenThree();
    ASSERT_EQ(ActiveName(), "c");
    // Kept: "next" goes backwards in the stack of windows, to the one that was opened first.
    EXPECT_TRUE(m_frame.Arrange(503));
    const std::string sNext = ActiveName();
    EXPECT_EQ(sNext, "a");
    EXPECT_TRUE(m_frame.Arrange(504));
    EXPECT_EQ(ActiveName(), "c");
    EXPECT_TRUE(m_frame.Arrange(504));
    EXPECT_EQ(ActiveName(), "b");
}

TEST_F(VMdiTest, ClosesTheOneOnTopOrAll)
{
    OpenThree();
    EXPECT_TRUE(m_frame.Arrange(57602));
    EXPECT_FALSE(VWindow::IsLive(m_pC));
    EXPECT_EQ(ActiveName(), "b");
    EXPECT_TRUE(m_frame.Arrange(104));
    EXPECT_EQ(m_frame.GetActiveChild(), nullptr);
    // When no child is left, there is nothing to close.
    for (const UINT uId : auArrangeIds) {
        EXPECT_TRUE(m_frame.Arrange(uId));
    }
}
