// VHeader: the headings above the columns of a list.
#pragma once

#include "toolkit/vcontrol.h"

class VHeader : public VControl
{
public:
    VHeader() : VControl(V_KIND_HEADER) {}

    int GetCount() const { return static_cast<int>(Send(HDM_GETITEMCOUNT)); }
    VString GetItemText(int nItem) const;
    VRect GetItemRect(int nItem) const;
    // Gets the indices of the columns from left to right. Returns false when there are not nCount
    // columns.
    bool GetOrder(int nCount, int* pnOrder) const
    {
        return Send(HDM_GETORDERARRAY, static_cast<WPARAM>(nCount),
                    reinterpret_cast<LPARAM>(pnOrder)) != 0;
    }
};
