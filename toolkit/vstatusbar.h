// VStatusBar: the bar at the foot of a frame.
#pragma once

#include "toolkit/vcontrol.h"

class VStatusBar : public VControl
{
public:
    VStatusBar() : VControl(V_KIND_STATUS_BAR) {}

    // What a pane shows in place of an empty text; "Ready" at first.
    void SetDefaultText(const char* szText) { m_sDefaultText = szText; }

    // Redraws at once; does nothing for the text that the pane shows already.
    virtual void SetPaneText(const char* szText, int nPane);
    VString GetPaneText(int nPane) const;

protected:
    // The text itself, or what stands for an empty or null one.
    const char* OrDefault(const char* szText) const
    {
        return szText == nullptr || *szText == '\0' ? m_sDefaultText.GetText() : szText;
    }

private:
    VString m_sDefaultText = "Ready";
};
