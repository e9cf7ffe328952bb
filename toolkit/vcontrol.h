// VControl: the base of the classes for the controls of Windows.
//
// Each class offers the messages of its control as functions. It stores nothing that the control
// itself knows.
#pragma once

#include "toolkit/vwindow.h"

class VControl : public VWindow
{
public:
    // Loads the window class of that kind from the common-controls library.
    explicit VControl(int32_t lKind);
    ~VControl() override { Detach(); }

    // The control must get WM_DESTROY too, to clean up. So the message counts as not handled.
    void OnDestroy() override;
    LRESULT OnReflectNotify(NMHDR* pHeader, LRESULT& lResult) override;

    // ---- Notifications of all controls. -1 keeps one from the parent, and lResult is its result.

    virtual LRESULT OnClick(NMHDR*, LRESULT&) { return 1; }
    virtual LRESULT OnDoubleClick(NMHDR*, LRESULT&) { return 1; }
    virtual LRESULT OnKillFocus(NMHDR*, LRESULT&) { return 1; }
    virtual LRESULT OnOutOfMemory(NMHDR*, LRESULT&) { return 1; }
    virtual LRESULT OnSetFocus(NMHDR*, LRESULT&) { return 1; }
    virtual LRESULT OnReturn(NMHDR*, LRESULT&) { return 1; }
    virtual LRESULT OnRightClick(NMHDR*, LRESULT&) { return 1; }
    virtual LRESULT OnRightDoubleClick(NMHDR*, LRESULT&) { return 1; }
};
