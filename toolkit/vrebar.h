// VReBar: bands that hold bars.
#pragma once

#include "toolkit/vcontrol.h"

class VReBar : public VControl
{
public:
    VReBar() : VControl(V_KIND_REBAR) {}

    bool OnPreCreate(CREATESTRUCTA& create) override;
    LRESULT OnReflectNotify(NMHDR* pHeader, LRESULT& lResult) override;
    LRESULT DefaultProc(HWND hWnd, UINT uMessage, WPARAM wParam, LPARAM lParam) override;

    // ---- Notifications of the rebar, as those of VControl.

    virtual LRESULT OnGetObject(NMHDR*, LRESULT&) { return 1; }
    virtual LRESULT OnLayoutChanged(NMHDR*, LRESULT&) { return 1; }
    virtual LRESULT OnAutoSize(NMHDR*, LRESULT&) { return 1; }
    virtual LRESULT OnBeginDrag(NMHDR*, LRESULT&) { return 1; }
    virtual LRESULT OnEndDrag(NMHDR*, LRESULT&) { return 1; }
    virtual LRESULT OnDeletingBand(NMHDR*, LRESULT&) { return 1; }
    virtual LRESULT OnDeletedBand(NMHDR*, LRESULT&) { return 1; }
    virtual LRESULT OnChildSize(NMHDR*, LRESULT&) { return 1; }

    // Adds a band for a bar that is this window's child, as large as the bar's size in pixels. The
    // band goes by the bar's id. A null label leaves it without one.
    bool AddBand(VWindow& bar, const char* szLabel, int nWidth, int nHeight);

    // By the id of a band; false where there is none of it.
    bool IsBandShown(UINT uId) const;
    bool ShowBand(UINT uId, bool bShow);
    // Whether the band's bar is visible on the screen, its frame included.
    bool IsBandVisible(UINT uId) const;

    int GetBandCount() const { return static_cast<int>(Send(RB_GETBANDCOUNT)); }

private:
    int BandIndex(UINT uId) const { return static_cast<int>(Send(RB_IDTOINDEX, uId)); }
    HWND BandChild(UINT uId) const;
};
