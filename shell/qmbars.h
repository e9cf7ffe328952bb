// QMToolbar and QMStatusBar: the bars of the frame.
#pragma once

#include "shell/qmstatuslayout.h"
#include "toolkit/vimagelist.h"
#include "toolkit/vstatusbar.h"
#include "toolkit/vtoolbar.h"

class QMToolbar : public VToolbar
{
public:
    static constexpr int nButtonSize = 24; // in pixels, like the others here
    static constexpr int nPictureSize = 16;

    QMToolbar() : VToolbar(nButtonSize, nButtonSize, nPictureSize, nPictureSize) {}

    // Makes the control with its pictures and buttons. Returns false when anything is missing.
    bool CreateToolbar(VWindow& parent, UINT uId);

    LRESULT DefaultProc(HWND hWnd, UINT uMessage, WPARAM wParam, LPARAM lParam) override;

private:
    VImageList m_images;
};

class QMStatusBar : public VStatusBar
{
public:
    // Sets the text of a pane. Pane 0 takes the room that panes 1 to 4 leave; each of these is as
    // wide as its text needs.
    void SetPaneText(const char* szText, int nPane) override;

    LRESULT OnSize(UINT uType, int nWidth, int nHeight) override;

private:
    void LayOutPanes();

    VString m_asText[QM_TEXT_PANES];
};
