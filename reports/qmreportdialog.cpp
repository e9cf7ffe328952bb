#include "reports/qmreportdialog.h"

#include <algorithm>
#include <cstdio>

#include "account/qmdate_win.h"
#include "account/qmeditlist.h"
#include "base/vtext.h"
#include "resources/resource.h"
#include "toolkit/vmessages.h"

namespace {

// The view's distance from the edges of the window.
constexpr int nMargin = 5;
constexpr int nTopMargin = 75;

constexpr VButtonPicture aPictures[] = {
    {IDC_REPORT_PRINT, IDB_BUTTON_PRINT, -1},
    {IDC_REPORT_PREVIEW, IDB_BUTTON_PREVIEW, -1},
};

constexpr const char* aszMonths[] = {"January",   "February", "March",    "April",
                                     "May",       "June",     "July",     "August",
                                     "September", "October",  "November", "December"};

constexpr char szReversed[] =
    "The 'From' date does not proceed the 'To' date.\n"
    "Please select a valid date range.";

VRect PlaceOfView(int nWidth, int nHeight)
{
    return {nMargin, nTopMargin, nWidth - nMargin, nHeight - nMargin};
}

void ShowDate(VDatePicker& picker, const QMDate& date)
{
    picker.SetDate(QMToSystemTime(QMMakeDate(date.wYear, date.wMonth, date.wDay)));
}

} // namespace

QMReportDialog::QMReportDialog()
    : m_report(m_account), m_pPrintDocument(std::make_unique<VPrintDocument>(*this))
{
    m_pPrintDocument->SetRenderCallback(RenderPagesOf, 0, this);
}

INT_PTR QMReportDialog::DoModal(HWND hParent, const char* szAccountName)
{
    m_szAccountName = szAccountName;
    const INT_PTR nResult = VDialog::DoModal(hParent, IDD_REPORTS);
    m_viewReport.Detach();
    return nResult;
}

INT_PTR QMReportDialog::CancelResult() const
{
    return IDC_REPORT_CLOSE;
}

// ---- Start.

bool QMReportDialog::OnInitDialog()
{
    VString sTitle("Reports - ");
    sTitle.Append(m_szAccountName);
    SetText(sTitle.GetText());
    ShowIcon(IDI_QUILLMARK);
    if (!AttachControls()) {
        return false;
    }
    SetPictures();
    m_btnPrint.Enable(false);
    m_btnPreview.Enable(false);
    for (uint32_t u = 0; u < QM_REPORT_KIND_COUNT; ++u) {
        m_cboType.Add(QMGetReportInfo(u)->szName);
    }
    m_cboType.Select(0);
    EnableItem(IDC_REPORT_CATEGORYLABEL, false);
    m_cboCategory.Enable(false);
    FillDates();
    if (!MakeTools()) {
        return false;
    }
    ChooseDates(true);
    return MakeView() && VDialog::OnInitDialog();
}

bool QMReportDialog::AttachControls()
{
    // Without BM_SETDONTCLICK a radio button that gets the focus by a key would be pressed by that.
    SendItem(IDC_REPORT_BYMONTH, BM_SETDONTCLICK, TRUE);
    SendItem(IDC_REPORT_BYRANGE, BM_SETDONTCLICK, TRUE);
    return m_cboType.Attach(GetItem(IDC_REPORT_TYPE)) &&
           m_cboCategory.Attach(GetItem(IDC_REPORT_CATEGORY)) &&
           m_cboMonth.Attach(GetItem(IDC_REPORT_MONTH)) &&
           m_cboYear.Attach(GetItem(IDC_REPORT_YEAR)) &&
           m_dtpFrom.Attach(GetItem(IDC_REPORT_FROM)) && m_dtpTo.Attach(GetItem(IDC_REPORT_TO)) &&
           m_btnPrint.Attach(GetItem(IDC_REPORT_PRINT)) &&
           m_btnPreview.Attach(GetItem(IDC_REPORT_PREVIEW)) &&
           m_btnRun.Attach(GetItem(IDC_REPORT_RUN));
}

void QMReportDialog::SetPictures()
{
    const int nVersion = VButtonPictures::GetLibraryVersion();
    if (nVersion >= VButtonPictures::nAlphaVersion) {
        // The dialog works without its pictures too, so a missing one is no failure.
        m_pictures.Set(*this, aPictures, IDB_ARROW_STRIP, nVersion);
        return;
    }
    for (VButton* pButton : {&m_btnPrint, &m_btnPreview}) {
        pButton->SetLong(
            GWL_STYLE, (pButton->GetLong(GWL_STYLE) & ~LONG_PTR{BS_CENTER}) | LONG_PTR{BS_CENTER});
    }
}

void QMReportDialog::FillDates()
{
    const QMReportStart start = QMReportStartOf(m_account.store);
    for (const char* szMonth : aszMonths) {
        m_cboMonth.Add(szMonth);
    }
    m_cboMonth.Select(start.lMonthIndex);
    for (int32_t lYear = start.lFirstYear; lYear <= start.lLastYear; ++lYear) {
        char szYear[16];
        snprintf(szYear, sizeof szYear, "%d", lYear);
        m_cboYear.Add(szYear);
    }
    m_cboYear.Select(m_cboYear.GetCount() - 1);
    ShowDate(m_dtpFrom, start.dtFrom);
    ShowDate(m_dtpTo, start.dtTo);
    m_dateFrom = start.dtFrom;
    m_dateTo = start.dtTo;
}

bool QMReportDialog::MakeTools()
{
    const QMAccountHeader& header = m_account.header;
    const uint32_t uPlain = header.lFontStyle & ~QM_FONT_BOLD;
    return CreatePointFont(m_tools.fontNormal, header.szFontFace, header.lFontSize, uPlain) &&
           CreatePointFont(m_tools.fontBold, header.szFontFace, header.lFontSize,
                           uPlain | QM_FONT_BOLD) &&
           m_tools.penRule.Create(PS_SOLID, 1, QM_REPORT_RULE_COLOR);
}

bool QMReportDialog::MakeView()
{
    const VRect client = GetClientRect();
    constexpr DWORD uStyle = WS_CHILD | WS_VISIBLE | WS_BORDER | WS_HSCROLL | WS_VSCROLL;
    return m_viewReport.Create(GetHandle(), PlaceOfView(client.right, client.bottom), uStyle,
                               nullptr, "", 0);
}

// ---- Commands.

LRESULT QMReportDialog::OnCommand(UINT uNotifyCode, UINT uId, HWND hControl)
{
    return OnControl(uId) ? 0 : VDialog::OnCommand(uNotifyCode, uId, hControl);
}

bool QMReportDialog::OnControl(UINT uId)
{
    switch (uId) {
        case IDC_REPORT_RUN:
            OnRun();
            return true;
        case IDC_REPORT_CLOSE:
        case IDOK:
        case IDCANCEL:
            EndWith(IDC_REPORT_CLOSE);
            return true;
        case IDC_REPORT_PRINT:
        case IDC_REPORT_PREVIEW:
            OnPrint(uId == IDC_REPORT_PREVIEW);
            return true;
        case IDC_REPORT_TYPE:
            // Kept: on every notification, so that opening the list brings the first group back.
            FillGroups();
            return true;
        case IDC_REPORT_BYMONTH:
        case IDC_REPORT_BYRANGE:
            ReadDateRange();
            return true;
        case IDC_REPORT_MONTH:
        case IDC_REPORT_YEAR:
            ChooseDates(true);
            return true;
        case IDC_REPORT_FROM:
        case IDC_REPORT_TO:
            ChooseDates(false);
            return true;
        default:
            return false;
    }
}

LRESULT QMReportDialog::OnNotify(UINT uId, NMHDR* pHeader)
{
    // Kept: a date box that gets the focus is chosen by that, without a click.
    if (pHeader->code == NM_SETFOCUS && (uId == IDC_REPORT_FROM || uId == IDC_REPORT_TO)) {
        return OnCommand(static_cast<UINT>(NM_SETFOCUS), uId, pHeader->hwndFrom);
    }
    return VDialog::OnNotify(uId, pHeader);
}

LRESULT QMReportDialog::OnSize(UINT uType, int nWidth, int nHeight)
{
    if (m_viewReport.IsValid() && nWidth > nMargin && nHeight > nTopMargin) {
        m_viewReport.Move(PlaceOfView(nWidth, nHeight));
    }
    return VDialog::OnSize(uType, nWidth, nHeight);
}

void QMReportDialog::ChooseDates(bool bMonth)
{
    CheckButton(IDC_REPORT_BYMONTH, bMonth ? BST_CHECKED : BST_UNCHECKED);
    CheckButton(IDC_REPORT_BYRANGE, bMonth ? BST_UNCHECKED : BST_CHECKED);
}

void QMReportDialog::FillGroups()
{
    const auto uKind = static_cast<uint32_t>(m_cboType.GetSelection());
    const QMReportInfo* pInfo = QMGetReportInfo(uKind);
    const bool bGroups = pInfo != nullptr && pInfo->drawer == QMReportDrawer::Grouped;
    if (bGroups) {
        m_cboCategory.Send(CB_RESETCONTENT);
        if (uKind == QM_REPORT_TYPE) {
            FillTypes();
        } else {
            FillTexts(uKind);
        }
    }
    m_cboCategory.Select(bGroups ? 0 : -1);
    EnableItem(IDC_REPORT_CATEGORYLABEL, bGroups);
    m_cboCategory.Enable(bGroups);
}

void QMReportDialog::FillTypes()
{
    for (int32_t lType = 0; lType < QM_TRANS_TYPE_COUNT; ++lType) {
        m_cboCategory.Add(QMTypeLabel(lType));
    }
}

void QMReportDialog::FillTexts(uint32_t uKind)
{
    QMEditList list;
    list.SetFlags(QM_EDIT_ALPHABETICAL);
    m_account.store.FillEditList(list, QMGetReportInfo(uKind)->uField, QM_REPORT_CHOICE_LIMIT);
    m_cboCategory.Add(QM_REPORT_ALL_GROUPS);
    for (const QMEditItem* p = list.First(); p != nullptr; p = QMEditList::Next(p)) {
        m_cboCategory.Add(p->GetText());
    }
}

// ---- Running.

bool QMReportDialog::ReadDateRange()
{
    QMReportDateChoice choice;
    choice.bMonth = IsButtonChecked(IDC_REPORT_BYMONTH);
    choice.lYear = VParseInteger(m_cboYear.GetText().GetText());
    choice.lMonthIndex = m_cboMonth.GetSelection();
    choice.dtFrom = QMFromSystemTime(m_dtpFrom.GetDate());
    choice.dtTo = QMFromSystemTime(m_dtpTo.GetDate());
    return QMReadDateRange(choice, m_dateFrom, m_dateTo);
}

void QMReportDialog::OnRun()
{
    m_kindCurrent = static_cast<uint32_t>(m_cboType.GetSelection());
    if (!ReadDateRange()) {
        MessageBox(GetHandle(), szReversed, MB_ICONINFORMATION);
        FocusItem(IDC_REPORT_FROM);
        return;
    }
    const QMReportInfo* pInfo = QMGetReportInfo(m_kindCurrent);
    if (pInfo == nullptr) {
        MessageBox(GetHandle(), "Please select a report.", MB_ICONINFORMATION);
        FocusItem(IDC_REPORT_TYPE);
        return;
    }
    if (pInfo->drawer == QMReportDrawer::Grouped) {
        m_szGroup = m_cboCategory.GetText();
    }
    if (!RunReport(m_kindCurrent, true)) {
        TellFailure("Error %08X: Failed to draw report.");
    }
    m_btnPrint.Enable(true);
    m_btnPreview.Enable(true);
}

void QMReportDialog::OnPrint(bool bPreview)
{
    m_viewReport.Clear();
    if (!(bPreview ? m_pPrintDocument->Preview() : m_pPrintDocument->Print())) {
        TellFailure(bPreview ? "Error %08X: Unable to run print preview."
                             : "Error %08X: Unable to print report.");
    }
    OnRun();
}

void QMReportDialog::TellFailure(const char* szFormat)
{
    char szText[128];
    snprintf(szText, sizeof szText, szFormat, static_cast<unsigned>(GetLastError()));
    MessageBox(GetHandle(), szText, MB_ICONWARNING);
}

bool QMReportDialog::RunReport(uint32_t uKind, bool bRedraw)
{
    const VWaitCursor wait;
    VRect page = {0, 0, QM_REPORT_SCREEN_WIDTH, 0};
    constexpr int32_t lMargin = QM_REPORT_SCREEN_MARGIN;
    m_viewReport.Clear();
    VBitmap bitmap;
    const bool bDone = RenderReport(uKind, page, {lMargin, lMargin, lMargin, lMargin}, bitmap);
    if (bDone) {
        m_viewReport.SetBitmap(bitmap.Release());
    }
    if (bRedraw) {
        m_viewReport.Redraw();
    } else {
        m_viewReport.Invalidate();
    }
    return bDone;
}

bool QMReportDialog::RenderReport(uint32_t uKind, VRect& page, const VRect& margins,
                                  VBitmap& bitmap)
{
    VClientSurface client(GetHandle());
    VMemorySurface memory(client);
    if (client.GetHandle() == nullptr || memory.GetHandle() == nullptr) {
        return false;
    }
    m_kindCurrent = uKind;
    m_report.SetRange(m_dateFrom, m_dateTo);
    m_report.SetGroup(m_szGroup.GetText());
    {
        QMReportDrawing drawing(memory, m_tools);
        if (!m_report.Measure(uKind, drawing, page, margins)) {
            return false;
        }
        SetLineSteps(drawing);
    }
    return DrawBitmap(client, memory, page, margins, bitmap);
}

bool QMReportDialog::DrawBitmap(VClientSurface& client, VMemorySurface& memory, const VRect& page,
                                const VRect& margins, VBitmap& bitmap)
{
    const int nWidth = page.GetWidth();
    const int nHeight = page.GetHeight();
    if (!bitmap.Attach(CreateCompatibleBitmap(client.GetHandle(), nWidth, nHeight))) {
        return false;
    }
    const VSelectScope scope(memory, bitmap.GetHandle());
    QMReportDrawing drawing(memory, m_tools);
    return memory.PatBlt(0, 0, nWidth, nHeight, WHITENESS) && m_report.Draw(drawing, page, margins);
}

void QMReportDialog::SetLineSteps(QMReportDrawing& drawing)
{
    const QMReportFontScope font(drawing, QMReportFont::Normal);
    const int32_t lStep = drawing.TextExtent("ABC123").lHeight;
    m_viewReport.SetLineSteps(lStep, lStep);
}

// ---- Pages.

bool QMReportDialog::RenderPagesOf(VPrintContext& context, uintptr_t /*uUser*/, void* pDialog)
{
    return static_cast<QMReportDialog*>(pDialog)->RenderPages(context);
}

bool QMReportDialog::RenderPages(VPrintContext& context)
{
    const VWaitCursor wait;
    context.szTitle = "Quillmark Report";
    context.nPages = 0;
    context.ilPages.Destroy();
    const int nWidth = context.sizePage.cx;
    if (nWidth <= 0 || context.sizePage.cy <= 0) {
        return false; // the list of pictures divides by them
    }
    const VRect& printable = context.rcPrintable;
    VRect report = {0, 0, nWidth, 0};
    VBitmap tall;
    QMReportCut cut;
    if (!RenderReport(m_kindCurrent, report, {printable.left, 0, printable.left, 0}, tall) ||
        !QMCutReport(report.GetHeight(), printable.GetHeight(), m_report.GetLayout().lLineHeight,
                     cut)) {
        return false;
    }
    context.nPages = cut.lPages;
    if (!context.ilPages.Create(nWidth, context.sizePage.cy, 0, context.nPages + 1, ILC_COLORDDB)) {
        return false;
    }
    return CutPages(context, tall, report.GetHeight(), cut);
}

bool QMReportDialog::CutPages(VPrintContext& context, const VBitmap& tall, int32_t lHeight,
                              const QMReportCut& cut)
{
    const VSize& size = context.sizePage;
    VClientSurface client(GetHandle());
    VMemorySurface from(client);
    VMemorySurface to(client);
    const VSelectScope source(from, tall.GetHandle());
    for (int32_t i = 0; i < cut.lPages; ++i) {
        VBitmap page;
        if (!page.Attach(CreateCompatibleBitmap(client.GetHandle(), size.cx, size.cy))) {
            return false;
        }
        {
            const VSelectScope scope(to, page.GetHandle());
            const int32_t lRows = std::min(cut.lStep, lHeight - i * cut.lStep);
            if (!to.PatBlt(0, 0, size.cx, size.cy, WHITENESS) ||
                (lRows > 0 && !to.BitBlt(0, context.rcPrintable.top, size.cx, lRows, from, 0,
                                         i * cut.lStep, SRCCOPY))) {
                return false;
            }
        }
        if (context.ilPages.Add(page.GetHandle()) < 0) {
            return false;
        }
    }
    return true;
}
