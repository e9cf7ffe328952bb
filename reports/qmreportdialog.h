// QMReportDialog: picks a report and its days, shows it, prints it and previews it. It works on a
// copy of the account.
#pragma once

#include "printing/vprintdocument.h"
#include "printing/vscrollview.h"
#include "reports/qmreport.h"
#include "reports/qmreportcut.h"
#include "reports/qmreportdates.h"
#include "reports/qmreportdrawing.h"
#include "toolkit/vbutton.h"
#include "toolkit/vbuttonpictures.h"
#include "toolkit/vcombobox.h"
#include "toolkit/vdatepicker.h"
#include "toolkit/vdialog.h"

class QMReportDialog : public VDialog
{
public:
    QMReportDialog();
    ~QMReportDialog() override { Detach(); }

    // The copy of the account, to be filled before DoModal.
    QMAccountData& GetAccount() { return m_account; }

    // Runs the dialog, with the name of the account in its title. IDC_REPORT_CLOSE; -1 when it
    // could not be made.
    INT_PTR DoModal(HWND hParent, const char* szAccountName);

    LRESULT OnCommand(UINT uNotifyCode, UINT uId, HWND hControl) override;
    LRESULT OnNotify(UINT uId, NMHDR* pHeader) override;
    LRESULT OnSize(UINT uType, int nWidth, int nHeight) override;
    bool OnInitDialog() override;
    INT_PTR CancelResult() const override;

    // The view of the report, for tests.
    VScrollView& GetView() { return m_viewReport; }
    VPrintDocument& GetPrintDocument() { return *m_pPrintDocument; }

    // Fills the context with the pages of the report of the last Run, for the print document: reads
    // sizePage and rcPrintable, and sets szTitle, ilPages and nPages anew. Pages that the context
    // holds are destroyed. Returns false when there was no Run, when no line fits on a page, and
    // when a picture cannot be made.
    bool RenderPages(VPrintContext& context);

private:
    bool AttachControls();
    void SetPictures();
    void FillDates();
    bool MakeTools();
    bool MakeView();

    bool OnControl(UINT uId);
    void ChooseDates(bool bMonth);
    void FillGroups();
    void FillTypes();
    void FillTexts(uint32_t uKind);

    bool ReadDateRange();
    void OnRun();
    void OnPrint(bool bPreview);
    bool RunReport(uint32_t uKind, bool bRedraw);
    bool RenderReport(uint32_t uKind, VRect& page, const VRect& margins, VBitmap& bitmap);
    bool DrawBitmap(VClientSurface& client, VMemorySurface& memory, const VRect& page,
                    const VRect& margins, VBitmap& bitmap);
    void SetLineSteps(QMReportDrawing& drawing);
    bool CutPages(VPrintContext& context, const VBitmap& tall, int32_t lHeight,
                  const QMReportCut& cut);
    static bool RenderPagesOf(VPrintContext& context, uintptr_t uUser, void* pDialog);
    void TellFailure(const char* szFormat);

    VComboBox m_cboType;
    VComboBox m_cboCategory;
    VComboBox m_cboMonth;
    VComboBox m_cboYear;
    VDatePicker m_dtpFrom;
    VDatePicker m_dtpTo;
    VString m_szAccountName;
    QMAccountData m_account;
    QMReportTools m_tools;
    uint32_t m_kindCurrent = QM_REPORT_NONE;
    // What dates and group the report is about; those of the last check and of the last Run.
    QMDate m_dateFrom;
    QMDate m_dateTo;
    VString m_szGroup;
    QMReport m_report;
    VButton m_btnPrint;
    VButton m_btnPreview;
    VButton m_btnRun;
    VButtonPictures m_pictures;
    VScrollView m_viewReport;
    std::unique_ptr<VPrintDocument> m_pPrintDocument;
};
