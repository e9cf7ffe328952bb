// VReBar: a rebar, whose bands hold bars.
#pragma once

#include "toolkit/vcontrol.h"

class VReBar : public VControl
{
public:
    VReBar() : VControl(V_KIND_REBAR) {}

    bool OnPreCreate(CREATESTRUCTA& create) override;
    LRESULT OnReflectNotify(NMHDR* pHeader, LRESULT& lResult) override;
    LRESULT DefaultProc(HWND hWnd, UINT uMessage, WPARAM wParam, LPARAM lParam) override;

    // ---- Notifications of the rebar; see those of VControl.

    virtual LRESULT OnGetObject(NMHDR*, LRESULT&) { return 1; }
    virtual LRESULT OnLayoutChanged(NMHDR*, LRESULT&) { return 1; }
    virtual LRESULT OnAutoSize(NMHDR*, LRESULT&) { return 1; }
    virtual LRESULT OnBeginDrag(NMHDR*, LRESULT&) { return 1; }
    virtual LRESULT OnEndDrag(NMHDR*, LRESULT&) { return 1; }
    virtual LRESULT OnDeletingBand(NMHDR*, LRESULT&) { return 1; }
    virtual LRESULT OnDeletedBand(NMHDR*, LRESULT&) { return 1; }
    virtual LRESULT OnChildSize(NMHDR*, LRESULT&) { return 1; }

    // Adds a band for a bar, which must be a child of this window. nWidth and nHeight are the size
    // of the bar in pixels. The band has the id of the bar. A null szLabel means no label.
    bool AddBand(VWindow& bar, const char* szLabel, int nWidth, int nHeight);

    // By the id of a band. Both return false when there is no such band.
    bool IsBandShown(UINT uId) const;
    bool ShowBand(UINT uId, bool bShow);
    // Whether the bar is visible on the screen, which needs a visible frame too.
    bool IsBandVisible(UINT uId) const;

    int GetBandCount() const { return static_cast<int>(Send(RB_GETBANDCOUNT)); }

private:
    int BandIndex(UINT uId) const { return static_cast<int>(Send(RB_IDTOINDEX, uId)); }
    HWND BandChild(UINT uId) const;
};
