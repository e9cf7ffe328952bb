// VControl: the base of the wrappers around the platform's controls.
//
// Every wrapper offers its control's messages as methods and keeps nothing that the control knows.
#pragma once

#include "toolkit/vwindow.h"

class VControl : public VWindow
{
public:
    // Makes sure that the common control library knows the class of that kind.
    explicit VControl(int32_t lKind);
    // The window ends here, while OnDestroy below still is this object's.
    ~VControl() override { Detach(); }

    // The control's own clean-up must run, though this window handles the message.
    void OnDestroy() override;
    LRESULT OnReflectNotify(NMHDR* pHeader, LRESULT& lResult) override;

    // ---- Common notifications: -1 keeps one from the parent, with its value in lResult.

    virtual LRESULT OnClick(NMHDR*, LRESULT&) { return 1; }
    virtual LRESULT OnDoubleClick(NMHDR*, LRESULT&) { return 1; }
    virtual LRESULT OnKillFocus(NMHDR*, LRESULT&) { return 1; }
    virtual LRESULT OnOutOfMemory(NMHDR*, LRESULT&) { return 1; }
    virtual LRESULT OnSetFocus(NMHDR*, LRESULT&) { return 1; }
    virtual LRESULT OnReturn(NMHDR*, LRESULT&) { return 1; }
    virtual LRESULT OnRightClick(NMHDR*, LRESULT&) { return 1; }
    virtual LRESULT OnRightDoubleClick(NMHDR*, LRESULT&) { return 1; }
};
