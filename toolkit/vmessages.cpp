#include "toolkit/vmessages.h"

#include "toolkit/vapplication.h"

VString ResourceString(UINT uId, HINSTANCE hModule)
{
    constexpr int nMaxLength = 4096;
    char szText[nMaxLength + 1] = "";
    if (uId == 0) {
        return {};
    }
    HINSTANCE hSource = hModule == nullptr ? GetApplication().GetResourceModule() : hModule;
    const int nLength = LoadStringA(hSource, uId, szText, sizeof szText);
    return {szText, nLength > 0 ? static_cast<uint32_t>(nLength) : 0};
}

int MessageBox(HWND hWindow, const char* szText, const char* szCaption, UINT uFlags)
{
    HWND hFocus = GetFocus();
    const int nButton = MessageBoxA(hWindow, szText, szCaption, uFlags);
    if (IsWindow(hFocus)) {
        SetFocus(hFocus);
    }
    return nButton;
}

int MessageBox(HWND hWindow, const char* szText, UINT uFlags)
{
    return MessageBox(hWindow, szText, GetApplication().GetName(), uFlags);
}
