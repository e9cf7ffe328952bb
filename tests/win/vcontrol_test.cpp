#include "toolkit/vcontrol.h"

#include <gtest/gtest.h>

#include <cstring>

#include "tests/win/support.h"
#include "toolkit/vbutton.h"
#include "toolkit/vcombobox.h"

namespace {

// Notes which notification came, and answers each with another number.
class VNotedControl : public VControl
{
public:
    explicit VNotedControl(int32_t lKind = V_KIND_STATIC) : VControl(lKind) {}

    LRESULT OnClick(NMHDR*, LRESULT& l) override { return Note("click", l); }
    LRESULT OnDoubleClick(NMHDR*, LRESULT& l) override { return Note("double click", l); }
    LRESULT OnKillFocus(NMHDR*, LRESULT& l) override { return Note("kill focus", l); }
    LRESULT OnOutOfMemory(NMHDR*, LRESULT& l) override { return Note("out of memory", l); }
    LRESULT OnSetFocus(NMHDR*, LRESULT& l) override { return Note("set focus", l); }
    LRESULT OnReturn(NMHDR*, LRESULT& l) override { return Note("return", l); }
    LRESULT OnRightClick(NMHDR*, LRESULT& l) override { return Note("right click", l); }
    LRESULT OnRightDoubleClick(NMHDR*, LRESULT& l) override
    {
        return Note("right double click", l);
    }

    std::string m_sNoted;

private:
    LRESULT Note(const char* szWhat, LRESULT& lResult)
    {
        m_sNoted = szWhat;
        lResult = 17;
        return -1;
    }
};

LRESULT Reflect(VControl& control, int nCode, LRESULT& lResult)
{
    NMHDR header = {nullptr, 0, static_cast<UINT>(nCode)};
    return control.OnReflectNotify(&header, lResult);
}

template <class TMember>
uintptr_t SlotWord(TMember pMember)
{
    uintptr_t uWord = 0;
    memcpy(&uWord, &pMember, sizeof uWord);
    return uWord / sizeof(void*);
}

// A control class that counts its last messages.
int g_nDestroyed = 0;
int g_nGone = 0;

LRESULT CALLBACK ProbeProc(HWND hWnd, UINT uMessage, WPARAM wParam, LPARAM lParam)
{
    g_nDestroyed += uMessage == WM_DESTROY;
    g_nGone += uMessage == WM_NCDESTROY;
    return DefWindowProcA(hWnd, uMessage, wParam, lParam);
}

// A control on a window of its own.
template <class TControl>
class ControlTest : public testing::Test
{
protected:
    bool Make(const char* szClass, DWORD uStyle)
    {
        return CreateTestWindow(m_parent) &&
               m_control.Create(m_parent.GetHandle(), g_testRect, uStyle | WS_CHILD, szClass,
                                "text", 5);
    }

    VWindow m_parent;
    TControl m_control;
};

using VButtonTest = ControlTest<VCheckBox>;
using VComboBoxTest = ControlTest<VComboBox>;

} // namespace

TEST(VControl, TurnsTheCommonCodesIntoCalls)
{
    const struct
    {
        int nCode;
        const char* szCall;
    } aCases[] = {
        {-2, "click"},     {-3, "double click"}, {-8, "kill focus"},  {-1, "out of memory"},
        {-7, "set focus"}, {-4, "return"},       {-5, "right click"}, {-6, "right double click"},
    };
    for (const auto& test : aCases) {
        VNotedControl control;
        LRESULT lResult = 1;
        EXPECT_EQ(Reflect(control, test.nCode, lResult), -1) << test.szCall;
        EXPECT_EQ(control.m_sNoted, test.szCall);
        EXPECT_EQ(lResult, 17);
    }
}

TEST(VControl, LeavesAllOtherCodes)
{
    VNotedControl control;
    LRESULT lResult = 1;
    for (int nCode = -120; nCode <= 20; ++nCode) {
        if (nCode < -8 || nCode > -1) {
            EXPECT_EQ(Reflect(control, nCode, lResult), V_NOT_HANDLED) << "code " << nCode;
        }
    }
    EXPECT_EQ(control.m_sNoted, "");
    EXPECT_EQ(lResult, 1);
}

TEST(VControl, AnswersOneByDefaultSoThatTheParentSeesThem)
{
    VControl control(V_KIND_STATIC);
    for (int nCode = -8; nCode <= -1; ++nCode) {
        LRESULT lResult = 1;
        EXPECT_EQ(Reflect(control, nCode, lResult), 1) << "code " << nCode;
        EXPECT_EQ(lResult, 1);
    }
}

TEST(VControl, KeepsTheOrderOfItsVirtualOperations)
{
    uintptr_t uSlot = SlotWord(&VWindow::OnInitialize);
    for (const uintptr_t uFound :
         {SlotWord(&VControl::OnClick), SlotWord(&VControl::OnDoubleClick),
          SlotWord(&VControl::OnKillFocus), SlotWord(&VControl::OnOutOfMemory),
          SlotWord(&VControl::OnSetFocus), SlotWord(&VControl::OnReturn),
          SlotWord(&VControl::OnRightClick), SlotWord(&VControl::OnRightDoubleClick)}) {
        EXPECT_EQ(uFound, ++uSlot);
    }
}

TEST(VControl, SomeKindsArePaintedOffScreen)
{
    const std::set<int32_t> kinds = {21, 22, 26, 39};
    for (int32_t lKind = 1; lKind <= 60; ++lKind) {
        VControl control(lKind);
        EXPECT_EQ(control.GetFlags().Get(), kinds.count(lKind) != 0 ? V_FLAG_OFF_SCREEN : 0U)
            << "kind " << lKind;
        EXPECT_EQ(control.GetKind(), lKind);
    }
}

TEST(VControl, KnowsTheClassOfItsKind)
{
    const struct
    {
        int32_t lKind;
        const char* szClass;
    } aCases[] = {
        {8, "SysListView32"},    {22, "SysTreeView32"},   {18, "msctls_statusbar32"},
        {21, "ToolbarWindow32"}, {19, "SysTabControl32"}, {30, "msctls_progress32"},
        {48, "msctls_updown32"}, {39, "ReBarWindow32"},   {46, "SysDateTimePick32"},
        {47, "SysMonthCal32"},   {52, "SysHeader32"},
    };
    for (const auto& test : aCases) {
        VWindow parent;
        ASSERT_TRUE(CreateTestWindow(parent));
        VControl control(test.lKind);
        EXPECT_TRUE(control.Create(parent.GetHandle(), g_testRect, WS_CHILD, test.szClass, "", 1))
            << test.szClass;
        EXPECT_EQ(VWindow::KindOfWindow(control.GetHandle()), test.lKind);
    }
}

TEST(VControl, TheControlCleansUpForItself)
{
    WNDCLASSA record = {};
    record.lpfnWndProc = &ProbeProc;
    record.hInstance = GetModuleHandleA(nullptr);
    record.lpszClassName = "vorek probe";
    ASSERT_NE(RegisterClassA(&record), 0);
    g_nDestroyed = g_nGone = 0;
    {
        VWindow parent;
        ASSERT_TRUE(CreateTestWindow(parent));
        VNotedControl control;
        ASSERT_TRUE(control.Create(parent.GetHandle(), g_testRect, WS_CHILD, "vorek probe", "", 1));
        DestroyWindow(control.GetHandle());
        EXPECT_EQ(control.GetHandle(), nullptr);
    }
    EXPECT_EQ(g_nDestroyed, 1);
    EXPECT_EQ(g_nGone, 1);
    {
        // The same when the object ends before its window.
        VWindow parent;
        ASSERT_TRUE(CreateTestWindow(parent));
        VNotedControl control;
        ASSERT_TRUE(control.Create(parent.GetHandle(), g_testRect, WS_CHILD, "vorek probe", "", 1));
    }
    EXPECT_EQ(g_nDestroyed, 2);
    EXPECT_EQ(g_nGone, 2);
    UnregisterClassA("vorek probe", record.hInstance);
}

TEST(VControl, KeepsANotificationFromItsParent)
{
    Record record;
    VRecordingWindow parent(record);
    ASSERT_TRUE(CreateTestWindow(parent));
    VNotedControl control;
    ASSERT_TRUE(control.Create(parent.GetHandle(), g_testRect, WS_CHILD, "Static", "", 1));
    record.Take();
    NMHDR header = {control.GetHandle(), 1, static_cast<UINT>(NM_RCLICK)};
    EXPECT_EQ(parent.Send(WM_NOTIFY, 1, reinterpret_cast<LPARAM>(&header)), 17);
    EXPECT_EQ(record.Take(), "");
    header.code = static_cast<UINT>(NM_HOVER);
    parent.Send(WM_NOTIFY, 1, reinterpret_cast<LPARAM>(&header));
    EXPECT_EQ(record.calls.size(), 1U);
}

TEST(VButton, HasItsKinds)
{
    EXPECT_EQ(VButton().GetKind(), 1);
    EXPECT_EQ(VCheckBox().GetKind(), 2);
    EXPECT_EQ(VComboBox().GetKind(), 3);
}

TEST_F(VButtonTest, IsChecked)
{
    ASSERT_TRUE(Make("Button", BS_AUTOCHECKBOX));
    EXPECT_EQ(m_control.GetCheck(), static_cast<UINT>(BST_UNCHECKED));
    m_control.SetCheck(BST_CHECKED);
    EXPECT_EQ(m_control.GetCheck(), static_cast<UINT>(BST_CHECKED));
    m_control.Send(BM_CLICK);
    EXPECT_EQ(m_control.GetCheck(), static_cast<UINT>(BST_UNCHECKED));
}

TEST_F(VComboBoxTest, HoldsItems)
{
    ASSERT_TRUE(Make("ComboBox", CBS_DROPDOWNLIST));
    EXPECT_EQ(m_control.GetCount(), 0);
    EXPECT_EQ(m_control.GetSelection(), -1);
    const std::string sLong(500, 'y'); // Wine has room for 511 characters
    EXPECT_EQ(m_control.Add("Water"), 0);
    EXPECT_EQ(m_control.Add("Watermelon"), 1);
    EXPECT_EQ(m_control.Add(sLong.c_str()), 2);
    EXPECT_EQ(m_control.GetCount(), 3);
    EXPECT_EQ(m_control.FindExact("water"), 0);
    EXPECT_EQ(m_control.FindExact("Waterm"), -1);
    EXPECT_EQ(Text(m_control.GetItemText(1)), "Watermelon");
    EXPECT_EQ(Text(m_control.GetItemText(2)), sLong);
    EXPECT_EQ(Text(m_control.GetItemText(3)), "");
    EXPECT_EQ(Text(m_control.GetItemText(-1)), "");
    m_control.Select(1);
    EXPECT_EQ(m_control.GetSelection(), 1);
    m_control.Select(-1);
    EXPECT_EQ(m_control.GetSelection(), -1);
}
