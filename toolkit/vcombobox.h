// VComboBox: an edit field, or a choice, with a list that drops down.
#pragma once

#include "toolkit/vcontrol.h"

class VComboBox : public VControl
{
public:
    VComboBox() : VControl(V_KIND_COMBO_BOX) {}

    // Adds an item. Returns its index; a negative number on failure.
    int Add(const char* szText)
    {
        return static_cast<int>(Send(CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(szText)));
    }
    // The index of the first item that equals the text, ignoring case; -1 when there is none.
    int FindExact(const char* szText) const
    {
        return static_cast<int>(
            Send(CB_FINDSTRINGEXACT, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(szText)));
    }
    // Selects an item; -1 selects none.
    void Select(int nIndex) { Send(CB_SETCURSEL, static_cast<WPARAM>(nIndex)); }
    int GetSelection() const { return static_cast<int>(Send(CB_GETCURSEL)); }
    int GetCount() const { return static_cast<int>(Send(CB_GETCOUNT)); }
    // The text of an item; empty for an index outside the list.
    VString GetItemText(int nIndex) const;
};
