#include "toolkit/vmessages.h"

#include "toolkit/vapplication.h"
#include "toolkit/vmodalowner.h"

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

VCommandText GetCommandText(UINT uCommand)
{
    const VString sText = ResourceString(uCommand);
    const int32_t lLineFeed = sText.Find('\n');
    if (lLineFeed < 0) {
        return {sText, sText};
    }
    const auto uLineFeed = static_cast<uint32_t>(lLineFeed);
    return {sText.Left(uLineFeed), sText.Mid(uLineFeed + 1)};
}

int MessageBox(HWND hWindow, const char* szText, const char* szCaption, UINT uFlags)
{
    HWND hFocus = GetFocus();
    const int nButton = MessageBoxA(VModalOwner(hWindow), szText, szCaption, uFlags);
    if (IsWindow(hFocus)) {
        SetFocus(hFocus);
    }
    return nButton;
}

int MessageBox(HWND hWindow, const char* szText, UINT uFlags)
{
    return MessageBox(hWindow, szText, GetApplication().GetName(), uFlags);
}
