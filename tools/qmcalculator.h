// QMCalculator: the calculator's window. What it reckons reaches no account.
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
    // The window ends here, while the operations below still are this object's.
    ~QMCalculator() override;

    using VDialog::Show;
    // Opens the window with all numbers reset, where it stood last: the place is kept in a value of
    // the registry, which is made when it is missing. A window that is open is closed first, so
    // that there is one at the most. False when the window cannot be made.
    bool Show(HWND hParent, HKEY hRootKey, const char* szKeyPath, const char* szValueName);

    // Whether the window is the active one of this thread.
    bool IsActive() const { return IsValid() && GetActiveWindow() == GetHandle(); }

    bool OnInitDialog() override;
    // Keys come as commands, from wherever they were pressed.
    LRESULT OnCommand(UINT uNotifyCode, UINT uId, HWND hControl) override;
    LRESULT DefaultProc(HWND hWnd, UINT uMessage, WPARAM wParam, LPARAM lParam) override;
    bool OnPaint(VDrawingSurface& surface) override;
    void OnDestroy() override;

private:
    // A control that hands what is typed on to the calculator.
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
    HACCEL m_hSavedAccel = nullptr; // the main window's, while the calculator is active
    HKEY m_hRootKey = nullptr;
    VString m_sKeyPath;
    VString m_sValueName;
    POINT m_place = {}; // on the screen, as noted last
};
