// QMCalculator: the window of the calculator. Its results do not reach any account.
#pragma once

#include <memory>
#include <vector>

#include "toolkit/vcontrol.h"
#include "toolkit/vdialog.h"
#include "tools/qmcalculatorengine.h"

class QMCalculator : public VDialog
{
public:
    QMCalculator() = default;
    ~QMCalculator() override;

    using VDialog::Show;
    // Opens the window with all numbers reset, at the place where it was last. A value of the
    // registry holds the place; it is created when it does not exist. A window that is open is
    // closed first, so there is never more than one. Returns false when the window cannot be made.
    bool Show(HWND hParent, HKEY hRootKey, const char* szKeyPath, const char* szValueName);

    // Whether the calculator is the active window of this thread.
    bool IsActive() const { return IsValid() && GetActiveWindow() == GetHandle(); }

    bool OnInitDialog() override;
    // Every key arrives here as a command, whether it was clicked or typed.
    LRESULT OnCommand(UINT uNotifyCode, UINT uId, HWND hControl) override;
    LRESULT DefaultProc(HWND hWnd, UINT uMessage, WPARAM wParam, LPARAM lParam) override;
    bool OnPaint(VDrawingSurface& surface) override;
    void OnDestroy() override;

private:
    // A control that passes typed characters on to the calculator.
    class Control : public VControl
    {
    public:
        Control(QMCalculator& calculator, int32_t lKind) : VControl(lKind), m_calculator(calculator)
        {}
        ~Control() override { Detach(); }
        LRESULT DefaultProc(HWND hWnd, UINT uMessage, WPARAM wParam, LPARAM lParam) override;

    private:
        QMCalculator& m_calculator;
    };

    bool TakeCharacter(WPARAM uCharacter);
    void AttachControls();
    void ShowNumbers();
    void TakeAccelerators();
    void GiveBackAccelerators();
    void RestorePlace();
    void MoveTo(int nLeft, int nTop);
    void NotePlace();

    QMCalculatorEngine m_engine;
    std::vector<std::unique_ptr<Control>> m_apControls;
    HACCEL m_hAccel = nullptr;      // loaded at the first Show
    HACCEL m_hSavedAccel = nullptr; // those of the main window while the calculator is active
    HKEY m_hRootKey = nullptr;
    VString m_sKeyPath;
    VString m_sValueName;
    POINT m_place = {}; // on the screen, as it was stored last
};
