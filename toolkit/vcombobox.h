// VComboBox: an edit field or a choice with a list below it.
#pragma once

#include "toolkit/vcontrol.h"

class VComboBox : public VControl
{
public:
    VComboBox() : VControl(V_KIND_COMBO_BOX) {}

    // The index of the new item; negative on failure.
    int Add(const char* szText)
    {
        return static_cast<int>(Send(CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(szText)));
    }
    // The first item that equals the text, ignoring case; -1 for none.
    int FindExact(const char* szText) const
    {
        return static_cast<int>(
            Send(CB_FINDSTRINGEXACT, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(szText)));
    }
    // -1 selects nothing.
    void Select(int nIndex) { Send(CB_SETCURSEL, static_cast<WPARAM>(nIndex)); }
    int GetSelection() const { return static_cast<int>(Send(CB_GETCURSEL)); }
    int GetCount() const { return static_cast<int>(Send(CB_GETCOUNT)); }
    // Empty for an index outside the list.
    VString GetItemText(int nIndex) const;
};
