#include "toolkit/vstatusbar.h"

#include <new>

VString VStatusBar::GetPaneText(int nPane) const
{
    const auto uPane = static_cast<WPARAM>(nPane);
    const size_t uLength = LOWORD(Send(SB_GETTEXTLENGTHA, uPane));
    const std::unique_ptr<char[]> szText(new (std::nothrow) char[uLength + 1]);
    if (szText == nullptr) {
        return {};
    }
    szText[0] = '\0';
    Send(SB_GETTEXTA, uPane, reinterpret_cast<LPARAM>(szText.get()));
    return VString(szText.get());
}

void VStatusBar::SetPaneText(const char* szText, int nPane)
{
    const char* szShown = OrDefault(szText);
    if (GetPaneText(nPane) == szShown) {
        return;
    }
    Send(SB_SETTEXTA, static_cast<WPARAM>(nPane), reinterpret_cast<LPARAM>(szShown));
    Update();
}
