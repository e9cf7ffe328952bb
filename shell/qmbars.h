// The frame's own bars: the toolbar with its buttons, the status bar with its panes.
#pragma once

#include "shell/qmstatuslayout.h"
#include "toolkit/vimagelist.h"
#include "toolkit/vstatusbar.h"
#include "toolkit/vtoolbar.h"

class QMToolbar : public VToolbar
{
public:
    static constexpr int nButtonSize = 24; // pixels, as all of these
    static constexpr int nPictureSize = 16;

    QMToolbar() : VToolbar(nButtonSize, nButtonSize, nPictureSize, nPictureSize) {}

    // Makes the control with its pictures and buttons; false when anything is missing.
    bool CreateToolbar(VWindow& parent, UINT uId);

    LRESULT DefaultProc(HWND hWnd, UINT uMessage, WPARAM wParam, LPARAM lParam) override;

private:
    VImageList m_images;
};

class QMStatusBar : public VStatusBar
{
public:
    // Pane 0 is the free one; panes 1 to 4 take the room that their texts need.
    void SetPaneText(const char* szText, int nPane) override;

    LRESULT OnSize(UINT uType, int nWidth, int nHeight) override;

private:
    void LayOutPanes();

    VString m_asText[QM_TEXT_PANES];
};
