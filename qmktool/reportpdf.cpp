#include "qmktool/reportpdf.h"

#include <algorithm>
#include <cstring>

#include "qmktool/output.h"
#include "qmktool/pdfsurface.h"
#include "qmktool/toolerror.h"
#include "qmktool/toolfile.h"
#include "qmktool/toolprogress.h"

namespace {

constexpr ReportPaper aPapers[] = {{"letter", 816, 1056}, {"a4", 794, 1123}};

// Three quarters of an inch on all sides, as a new print document has.
constexpr int32_t lMargin = 72;

// The font size of the account in points. The usual one replaces a size with which a report would
// have no room on paper.
int32_t PointsOf(const QMAccountHeader& header)
{
    constexpr int32_t lUsual = 8;
    return header.lFontSize >= 1 && header.lFontSize <= 48 ? header.lFontSize : lUsual;
}

std::string TitleOf(const QMAccountData& account, uint32_t uKind)
{
    std::string sTitle = account.header.szBankName;
    sTitle += sTitle.empty() ? "" : " ";
    sTitle += QMGetReportInfo(uKind)->szName;
    std::replace_if(sTitle.begin(), sTitle.end(), IsControl, '?');
    return sTitle;
}

// The file gets the last day of the report for its date, and not the time of day. So the same
// report gives the same bytes.
void SetProperties(HPDF_Doc document, const std::string& sTitle, const QMDate& dtTo)
{
    HPDF_SetInfoAttr(document, HPDF_INFO_TITLE, sTitle.c_str());
    HPDF_SetInfoAttr(document, HPDF_INFO_CREATOR, "qmktool " QUILLMARK_VERSION);
    // libharu would write its version here, which differs between systems.
    HPDF_SetInfoAttr(document, HPDF_INFO_PRODUCER, "libharu");
    HPDF_Date date = {};
    date.year = dtTo.wYear;
    date.month = dtTo.wMonth;
    date.day = dtTo.wDay;
    date.ind = ' ';
    HPDF_SetInfoDateAttr(document, HPDF_INFO_CREATION_DATE, date);
    HPDF_SetInfoDateAttr(document, HPDF_INFO_MOD_DATE, date);
}

bool DrawPages(PdfSurface& surface, QMReport& report, uint32_t uKind, const ReportPaper& paper)
{
    const VRect margins = {lMargin, 0, lMargin, 0};
    VRect page = {0, 0, paper.lWidth, 0};
    QMReportCut cut;
    if (!surface.IsSound() || !report.Measure(uKind, surface, page, margins) ||
        !QMCutReport(page.bottom, paper.lHeight - 2 * lMargin, report.GetLayout().lLineHeight,
                     cut)) {
        return false;
    }
    surface.MakePages(cut, paper.lWidth, paper.lHeight, lMargin);
    ToolProgress progress("reporting", 1, "pages");
    bool bDrawn = true;
    for (const PdfLayer layer : {PdfLayer::Shades, PdfLayer::Ink}) {
        QMProgressPart part(&progress, layer == PdfLayer::Shades ? 0 : 1, 2);
        surface.SelectLayer(layer);
        surface.SetProgress(&part);
        bDrawn = bDrawn && surface.IsSound() && report.Draw(surface, page, margins);
    }
    surface.SetProgress(nullptr);
    return bDrawn;
}

} // namespace

const ReportPaper* FindReportPaper(const char* szName)
{
    const auto* pFound = std::find_if(std::begin(aPapers), std::end(aPapers),
                                      [&](const auto& p) { return strcmp(p.szName, szName) == 0; });
    return pFound == std::end(aPapers) ? nullptr : pFound;
}

int WriteReportPdf(const QMAccountData& account, QMReport& report, uint32_t uKind,
                   const ToolOptions& options)
{
    const ReportPaper& paper =
        options.szPaper == nullptr ? aPapers[0] : *FindReportPaper(options.szPaper);
    PdfSurface surface(PointsOf(account.header), (account.header.lFontStyle & QM_FONT_ITALIC) != 0);
    std::string sBytes;
    if (DrawPages(surface, report, uKind, paper)) {
        SetProperties(surface.GetDocument(), TitleOf(account, uKind), report.GetTo());
        sBytes = surface.Save();
    }
    if (sBytes.empty()) {
        return RefuseFile("report on", options.aFiles[0], "the PDF pages cannot be made");
    }
    const bool bWritten = WriteToolFile(options.szPdf, options.bForce, [&](QMByteSink& sink) {
        return sink.Write(sBytes.data(), sBytes.size());
    });
    return bWritten ? QM_EXIT_DONE : QM_EXIT_REFUSED;
}
