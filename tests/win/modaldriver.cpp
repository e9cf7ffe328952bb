#include "tests/win/modaldriver.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <utility>

#include "tests/win/support.h"
#include "toolkit/vwindow.h"

namespace {

ModalDriver* g_pDriver = nullptr;

BOOL CALLBACK FindDialog(HWND hWnd, LPARAM lFound)
{
    char szClass[16] = "";
    GetClassNameA(hWnd, szClass, sizeof szClass);
    if (std::string(szClass) != "#32770" || !IsWindowVisible(hWnd) || !IsWindowEnabled(hWnd)) {
        return TRUE;
    }
    *reinterpret_cast<HWND*>(lFound) = hWnd;
    return FALSE;
}

} // namespace

HWND FindForemostDialog()
{
    HWND hFound = nullptr;
    EnumThreadWindows(GetCurrentThreadId(), FindDialog, reinterpret_cast<LPARAM>(&hFound));
    return hFound;
}

ModalDriver::ModalDriver(DWORD uLimitMs)
    : m_uTimer(SetTimer(nullptr, 0, 10, &OnTimer)), m_uLimitMs(uLimitMs), m_uSince(GetTickCount64())
{
    g_pDriver = this;
}

ModalDriver::~ModalDriver()
{
    KillTimer(nullptr, m_uTimer);
    g_pDriver = nullptr;
    if (!m_bGaveUp) {
        EXPECT_EQ(m_uNext, m_steps.size()) << "no dialog came for the next step of the test";
    }
}

ModalDriver& ModalDriver::Next(Action action)
{
    return When([this](HWND hDialog) { return !HasSeen(hDialog); }, std::move(action));
}

ModalDriver& ModalDriver::Again(Action action)
{
    return When([this](HWND hDialog) { return HasSeen(hDialog); }, std::move(action));
}

ModalDriver& ModalDriver::When(Condition condition, Action action)
{
    m_steps.push_back({std::move(condition), std::move(action)});
    return *this;
}

void ModalDriver::OnTimer(HWND, UINT, UINT_PTR, DWORD)
{
    if (g_pDriver != nullptr) {
        g_pDriver->Poll();
    }
}

bool ModalDriver::HasSeen(HWND hDialog) const
{
    return std::find(m_seen.begin(), m_seen.end(), hDialog) != m_seen.end();
}

void ModalDriver::Poll()
{
    // Windows may give the same handle to another window.
    std::erase_if(m_seen, [](HWND hWnd) { return !IsWindow(hWnd); });
    HWND hDialog = FindForemostDialog();
    if (hDialog == nullptr) {
        m_uSince = GetTickCount64();
        return;
    }
    if (!m_bGaveUp && !IsDone() && m_steps[m_uNext].condition(hDialog)) {
        const Action action = m_steps[m_uNext].action;
        ++m_uNext;
        m_seen.push_back(hDialog);
        m_uSince = GetTickCount64();
        action(hDialog);
    } else if (GetTickCount64() - m_uSince > m_uLimitMs) {
        GiveUp(hDialog);
    }
}

void ModalDriver::GiveUp(HWND hDialog)
{
    if (m_bGaveUp) {
        // The dialog did not close by Cancel.
        EndDialog(hDialog, IDCANCEL);
    } else {
        m_bGaveUp = true;
        ADD_FAILURE() << "after step " << m_uNext << " of " << m_steps.size()
                      << " the dialog stays up: " << Text(VWindow::WindowText(hDialog));
    }
    PostMessageA(hDialog, WM_COMMAND, IDCANCEL, 0);
}

void Press(HWND hDialog, int nId)
{
    PostMessageA(hDialog, WM_COMMAND, MAKEWPARAM(nId, BN_CLICKED),
                 reinterpret_cast<LPARAM>(GetDlgItem(hDialog, nId)));
}

void Type(HWND hDialog, int nId, const char* szText)
{
    HWND hItem = GetDlgItem(hDialog, nId);
    // A combo box sends no notification when its text is set from outside. Its edit field does. A
    // ComboBoxEx has a combo box within it.
    if (HWND hBox = FindWindowExA(hItem, nullptr, "ComboBox", nullptr)) {
        hItem = hBox;
    }
    HWND hEdit = FindWindowExA(hItem, nullptr, "Edit", nullptr);
    SetWindowTextA(hEdit == nullptr ? hItem : hEdit, szText);
}

std::string ItemText(HWND hDialog, int nId)
{
    return Text(VWindow::WindowText(GetDlgItem(hDialog, nId)));
}

std::string BoxText(HWND hBox)
{
    return ItemText(hBox, 0xFFFF);
}
