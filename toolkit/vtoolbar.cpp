#include "toolkit/vtoolbar.h"

VToolbar::VToolbar(int nButtonWidth, int nButtonHeight, int nBitmapWidth, int nBitmapHeight)
    : VControl(V_KIND_TOOLBAR),
      m_lButtonSize(MAKELPARAM(nButtonWidth, nButtonHeight)),
      m_lBitmapSize(MAKELPARAM(nBitmapWidth, nBitmapHeight))
{}

bool VToolbar::OnInitialize()
{
    Send(TB_BUTTONSTRUCTSIZE, sizeof(TBBUTTON));
    Send(TB_SETBUTTONSIZE, 0, m_lButtonSize);
    Send(TB_SETBITMAPSIZE, 0, m_lBitmapSize);
    return VControl::OnInitialize();
}

bool VToolbar::AddButtons(const TBBUTTON* pButtons, int nCount)
{
    return Send(TB_ADDBUTTONSA, static_cast<WPARAM>(nCount), reinterpret_cast<LPARAM>(pButtons)) !=
           0;
}

SIZE VToolbar::GetMaxSize() const
{
    SIZE size = {};
    Send(TB_GETMAXSIZE, 0, reinterpret_cast<LPARAM>(&size));
    return size;
}
