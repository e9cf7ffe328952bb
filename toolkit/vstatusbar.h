// VStatusBar: the bar at the bottom of a frame.
#pragma once

#include "toolkit/vcontrol.h"

class VStatusBar : public VControl
{
public:
    VStatusBar() : VControl(V_KIND_STATUS_BAR) {}

    // Sets what a pane shows instead of an empty text; "Ready" at first.
    void SetDefaultText(const char* szText) { m_sDefaultText = szText; }

    // Sets the text of a pane and paints it at once. Does nothing when the pane has that text
    // already.
    virtual void SetPaneText(const char* szText, int nPane);
    VString GetPaneText(int nPane) const;

protected:
    // The text itself; the default text for an empty or null one.
    const char* OrDefault(const char* szText) const
    {
        return szText == nullptr || *szText == '\0' ? m_sDefaultText.GetText() : szText;
    }

private:
    VString m_sDefaultText = "Ready";
};
