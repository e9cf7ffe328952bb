// VButton and VCheckBox: push buttons and check boxes.
#pragma once

#include "toolkit/vcontrol.h"

class VButton : public VControl
{
public:
    explicit VButton(int32_t lKind = V_KIND_BUTTON) : VControl(lKind) {}

    // The state: BST_CHECKED, BST_UNCHECKED or BST_INDETERMINATE.
    UINT GetCheck() const { return static_cast<UINT>(Send(BM_GETCHECK)); }
    void SetCheck(UINT uState) { Send(BM_SETCHECK, uState); }
};

class VCheckBox : public VButton
{
public:
    VCheckBox() : VButton(V_KIND_CHECK_BOX) {}
};
