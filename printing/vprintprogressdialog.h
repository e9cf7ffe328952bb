// VPrintProgressDialog: tells which page goes to the printer, and takes a Cancel.
#pragma once

#include "toolkit/vdialog.h"

class VPrintProgressDialog : public VDialog
{
public:
    ~VPrintProgressDialog() override;

    // Shows the dialog over the owner's window and returns at once.
    bool Create(VWindow& owner, const VString& sTitle);
    // Tells the page, counted from 1, unless the job was cancelled.
    void SetPage(int nPage);
    // Whether the job is to stop: Cancel was pressed, or the window is gone in some other way.
    bool IsCanceled() const { return !m_bRunning; }
    void Cancel();

    // The dialog of the one job that runs; null for none.
    static VPrintProgressDialog* GetRunning();

    bool OnInitDialog() override;
    bool OnCancel() override;
    void OnDestroy() override { m_bRunning = false; }

private:
    VString m_sTitle;
    bool m_bRunning = true;
};
