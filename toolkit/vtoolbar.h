// VToolbar: a row of buttons that send commands.
#pragma once

#include "toolkit/vcontrol.h"

class VToolbar : public VControl
{
public:
    VToolbar() : VToolbar(24, 22, 16, 15) {}

    // Sets the sizes of the buttons and the pictures in the control.
    bool OnInitialize() override;

    void AutoSize() { Send(TB_AUTOSIZE); }
    bool AddButtons(const TBBUTTON* pButtons, int nCount);
    int GetButtonCount() const { return static_cast<int>(Send(TB_BUTTONCOUNT)); }
    // The index of the button with that command; -1 when there is none.
    int CommandToIndex(UINT uCommand) const
    {
        return static_cast<int>(Send(TB_COMMANDTOINDEX, uCommand));
    }
    void SetImageList(HIMAGELIST hList)
    {
        Send(TB_SETIMAGELIST, 0, reinterpret_cast<LPARAM>(hList));
    }
    SIZE GetMaxSize() const;

protected:
    // All sizes are in pixels.
    VToolbar(int nButtonWidth, int nButtonHeight, int nBitmapWidth, int nBitmapHeight);

private:
    LPARAM m_lButtonSize;
    LPARAM m_lBitmapSize;
};
