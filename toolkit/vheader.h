// VHeader: the headings above a list's columns.
#pragma once

#include "toolkit/vcontrol.h"

class VHeader : public VControl
{
public:
    VHeader() : VControl(V_KIND_HEADER) {}

    int GetCount() const { return static_cast<int>(Send(HDM_GETITEMCOUNT)); }
    VString GetItemText(int nItem) const;
    VRect GetItemRect(int nItem) const;
    // The columns from left to right, as indices; false when there are not nCount of them.
    bool GetOrder(int nCount, int* pnOrder) const
    {
        return Send(HDM_GETORDERARRAY, static_cast<WPARAM>(nCount),
                    reinterpret_cast<LPARAM>(pnOrder)) != 0;
    }
};
