#include "toolkit/vcombobox.h"

#include <new>

VString VComboBox::GetItemText(int nIndex) const
{
    const LRESULT lLength = Send(CB_GETLBTEXTLEN, static_cast<WPARAM>(nIndex));
    if (lLength < 0) {
        return {};
    }
    const std::unique_ptr<char[]> szText(new (std::nothrow) char[static_cast<size_t>(lLength) + 1]);
    if (szText == nullptr) {
        return {};
    }
    Send(CB_GETLBTEXT, static_cast<WPARAM>(nIndex), reinterpret_cast<LPARAM>(szText.get()));
    return VString(szText.get());
}
