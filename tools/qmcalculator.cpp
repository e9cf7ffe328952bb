#include "tools/qmcalculator.h"

#include <algorithm>
#include <cstdio>

#include "resources/resource.h"
#include "toolkit/vapplication.h"
#include "toolkit/vdrawingsurface.h"
#include "toolkit/vregkey.h"

namespace {

constexpr char szFirstPlace[] = "0000 0000";

constexpr struct
{
    char cCharacter;
    UINT uCommand;
} aCharacters[] = {
    {'+', IDM_CALC_ADD},    {'-', IDM_CALC_SUBTRACT}, {'*', IDM_CALC_MULTIPLY},
    {'/', IDM_CALC_DIVIDE}, {'\r', IDM_CALC_EQUALS},  {'.', IDM_CALC_POINT},
    {'\b', IDM_CALC_BACK},  {'\x1B', IDM_CALC_CLEAR}, {' ', IDM_CALC_NOTHING},
};

// The command for a typed character; 0 when it has none.
UINT CommandOf(WPARAM uCharacter)
{
    if (uCharacter >= '0' && uCharacter <= '9') {
        return IDM_CALC_0 + static_cast<UINT>(uCharacter - '0');
    }
    for (const auto& character : aCharacters) {
        if (uCharacter == static_cast<WPARAM>(character.cCharacter)) {
            return character.uCommand;
        }
    }
    return 0;
}

} // namespace

QMCalculator::~QMCalculator()
{
    Detach();
    if (m_hAccel != nullptr) {
        DestroyAcceleratorTable(m_hAccel);
    }
}

bool QMCalculator::Show(HWND hParent, HKEY hRootKey, const char* szKeyPath, const char* szValueName)
{
    // Only one window can be bound to the object.
    if (IsValid()) {
        DestroyWindow(GetHandle());
    }
    if (m_hAccel == nullptr) {
        m_hAccel = LoadAcceleratorsA(GetApplication().GetResourceModule(),
                                     MAKEINTRESOURCEA(IDR_ACCEL_CALCULATOR));
    }
    m_engine = QMCalculatorEngine();
    m_hRootKey = hRootKey;
    m_sKeyPath = szKeyPath;
    m_sValueName = szValueName;
    GetFlags().Set(V_FLAG_PAINTS);
    if (!CreateModeless(hParent, IDD_CALCULATOR)) {
        return false;
    }
    Show();
    return true;
}

bool QMCalculator::OnInitDialog()
{
    AttachControls();
    RestorePlace();
    ShowNumbers();
    return VDialog::OnInitDialog();
}

void QMCalculator::AttachControls()
{
    m_apControls.clear();
    for (HWND hChild = GetWindow(GetHandle(), GW_CHILD); hChild != nullptr;
         hChild = GetWindow(hChild, GW_HWNDNEXT)) {
        const int32_t lKind = KindOfWindow(hChild);
        if (lKind == V_KIND_BUTTON || lKind == V_KIND_EDIT) {
            m_apControls.push_back(std::make_unique<Control>(*this, lKind));
            m_apControls.back()->Attach(hChild);
        }
    }
}

void QMCalculator::ShowNumbers()
{
    SetItemText(IDC_CALC_DISPLAY, m_engine.GetDisplay().GetText());
    SetItemText(IDC_CALC_MEMORYMARK, m_engine.HasMemory() ? "M" : "");
}

// ---- Keys.

LRESULT QMCalculator::OnCommand(UINT /*uNotifyCode*/, UINT uId, HWND /*hControl*/)
{
    if (m_engine.Press(static_cast<int32_t>(uId))) {
        ShowNumbers();
    }
    return 0;
}

LRESULT QMCalculator::Control::DefaultProc(HWND hWnd, UINT uMessage, WPARAM wParam, LPARAM lParam)
{
    if (uMessage == WM_CHAR && m_calculator.TakeCharacter(wParam)) {
        return 0;
    }
    if (uMessage == WM_KEYDOWN && wParam == VK_SPACE) {
        // The loop of a modal dialog does not use our accelerators, so the key would press a
        // button.
        return 0;
    }
    return VControl::DefaultProc(hWnd, uMessage, wParam, lParam);
}

// Posts the command of a typed character. All keys arrive as commands.
bool QMCalculator::TakeCharacter(WPARAM uCharacter)
{
    const UINT uCommand = CommandOf(uCharacter);
    return uCommand != 0 && Post(WM_COMMAND, uCommand);
}

void QMCalculator::TakeAccelerators()
{
    VWindow* pMain = GetMainWindow();
    if (pMain != nullptr && pMain->GetAccelerators() != m_hAccel) {
        m_hSavedAccel = pMain->GetAccelerators();
        pMain->SetAccelerators(m_hAccel);
    }
}

void QMCalculator::GiveBackAccelerators()
{
    VWindow* pMain = GetMainWindow();
    // A document that was opened in the meantime has set accelerators of its own.
    if (pMain != nullptr && pMain->GetAccelerators() == m_hAccel) {
        pMain->SetAccelerators(m_hSavedAccel);
    }
}

// ---- Messages.

LRESULT QMCalculator::DefaultProc(HWND hWnd, UINT uMessage, WPARAM wParam, LPARAM lParam)
{
    switch (uMessage) {
        case WM_ACTIVATE:
            if (LOWORD(wParam) == WA_INACTIVE) {
                GiveBackAccelerators();
            } else {
                TakeAccelerators();
            }
            break;
        case WM_CHAR:
            if (TakeCharacter(wParam)) {
                return TRUE;
            }
            break;
        case WM_CTLCOLORSTATIC:
            if (GetDlgCtrlID(reinterpret_cast<HWND>(lParam)) == IDC_CALC_DISPLAY) {
                // The field is read-only, but is painted like one that is not.
                SetBkColor(reinterpret_cast<HDC>(wParam), GetSysColor(COLOR_WINDOW));
                SetTextColor(reinterpret_cast<HDC>(wParam), GetSysColor(COLOR_WINDOWTEXT));
                return reinterpret_cast<LRESULT>(GetSysColorBrush(COLOR_WINDOW));
            }
            break;
        case WM_MOVE:
            NotePlace();
            break;
        default:
            break;
    }
    return VDialog::DefaultProc(hWnd, uMessage, wParam, lParam);
}

void QMCalculator::OnDestroy()
{
    // Wine 8 does not deactivate a window before it destroys it.
    GiveBackAccelerators();
}

bool QMCalculator::OnPaint(VDrawingSurface& surface)
{
    auto hIcon = reinterpret_cast<HICON>(Send(WM_GETICON, ICON_BIG));
    if (!IsIconic(GetHandle()) || hIcon == nullptr) {
        return false;
    }
    const VRect area = GetClientRect();
    const int nLeft = (area.GetWidth() - GetSystemMetrics(SM_CXICON) + 1) / 2;
    const int nTop = (area.GetHeight() - GetSystemMetrics(SM_CYICON) + 1) / 2;
    DrawIcon(surface.GetHandle(), nLeft, nTop, hIcon);
    return true;
}

// ---- The place on the screen.

void QMCalculator::RestorePlace()
{
    const VRect window = GetWindowRect();
    m_place = {window.left, window.top};
    VRegKey key;
    VString sPlace;
    if (!key.Open(m_sKeyPath.GetText(), m_hRootKey)) {
        key.Create(m_sKeyPath.GetText(), m_hRootKey);
    }
    if (!key.ReadText(m_sValueName.GetText(), sPlace)) {
        key.WriteText(m_sValueName.GetText(), szFirstPlace);
        return;
    }
    int nLeft = 0;
    int nTop = 0;
    if (sscanf(sPlace.GetText(), "%d %d", &nLeft, &nTop) == 2) {
        MoveTo(nLeft, nTop);
    }
}

void QMCalculator::MoveTo(int nLeft, int nTop)
{
    // Far outside any screen, and small enough that sums do not overflow.
    constexpr int nLimit = 100000;
    nLeft = std::clamp(nLeft, -nLimit, nLimit);
    nTop = std::clamp(nTop, -nLimit, nLimit);
    const VRect window = GetWindowRect();
    const RECT place = {nLeft, nTop, nLeft + window.GetWidth(), nTop + window.GetHeight()};
    // A place outside all screens is not used: the user could not find the window.
    if (MonitorFromRect(&place, MONITOR_DEFAULTTONULL) != nullptr) {
        SetWindowPos(GetHandle(), nullptr, nLeft, nTop, 0, 0,
                     SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
    }
}

void QMCalculator::NotePlace()
{
    const VRect window = GetWindowRect();
    // WM_MOVE also comes when the window is shown, and, with a place far outside the screen, when
    // it is minimized.
    if (IsIconic(GetHandle()) || (window.left == m_place.x && window.top == m_place.y)) {
        return;
    }
    m_place = {window.left, window.top};
    char szPlace[32];
    snprintf(szPlace, sizeof szPlace, "%04d %04d", std::max<int>(window.left, 0),
             std::max<int>(window.top, 0));
    VRegKey key;
    if (key.Open(m_sKeyPath.GetText(), m_hRootKey)) {
        key.WriteText(m_sValueName.GetText(), szPlace);
    }
}
