// Draws every report of each input that reads as an account. The pass that measures and the pass
// that draws must agree, the surface must end in the state in which it began, and the drawing must
// stay within the measured height.
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <utility>

#include "account/qmaccountreader.h"
#include "reports/qmreport.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* pBytes, size_t uSize);

namespace {

void Check(bool bHolds, const char* szWhat)
{
    if (!bHolds) {
        fprintf(stderr, "account report: %s\n", szWhat);
        abort();
    }
}

// Checks each drawing call and keeps nothing.
class Watch : public QMReportSurface
{
public:
    QMReportFont SelectFont(QMReportFont font) override { return std::exchange(m_font, font); }
    QMReportPen SelectPen(QMReportPen pen) override { return std::exchange(m_pen, pen); }
    QMReportExtent TextExtent(std::string_view text) override
    {
        return {static_cast<int32_t>(text.size()) * 6, 12};
    }
    void PutText(std::string_view text, const VRect& rect, QMReportAlign align) override
    {
        Check(text.size() < 1024 && text.find('\0') == std::string_view::npos, "a text runs over");
        Check(align != QMReportAlign::Left || rect.GetWidth() == TextExtent(text).lWidth,
              "a text at the left has another width than its own");
        Touch(rect.top, rect.bottom);
    }
    void PutLine(int32_t, int32_t y1, int32_t, int32_t y2) override { Touch(y1, y2); }
    void PutEdges(const VRect& rect, uint32_t) override { Touch(rect.top, rect.bottom); }
    void PutFill(const VRect& rect, uint32_t) override { Touch(rect.top, rect.bottom); }
    uint32_t GetBkColor() override { return m_crBackground; }
    uint32_t SetBkColor(uint32_t crColor) override
    {
        return std::exchange(m_crBackground, crColor);
    }

    void SetHeight(int32_t lHeight) { m_lHeight = lHeight; }
    bool IsAsFound() const
    {
        return m_font == QMReportFont::Standard && m_pen == QMReportPen::Standard &&
               m_crBackground == 0;
    }
    bool HasDrawn() const { return m_bDrawn; }

private:
    void Touch(int32_t y1, int32_t y2)
    {
        m_bDrawn = true;
        Check(m_lHeight > 0, "the measuring pass draws");
        Check(y1 >= 0 && y2 >= y1 && y2 <= m_lHeight, "something lies outside the report");
    }

    QMReportFont m_font = QMReportFont::Standard;
    QMReportPen m_pen = QMReportPen::Standard;
    uint32_t m_crBackground = 0;
    int32_t m_lHeight = 0;
    bool m_bDrawn = false;
};

void DrawReport(QMAccount& account, uint32_t uKind, const char* szGroup)
{
    QMReport report(account);
    report.SetRange(QMMakeDate(1, 1, 1), QMMakeDate(0xFFFF, 0xFFFF, 0xFFFF));
    report.SetGroup(szGroup);
    Watch surface;
    VRect page = {0, 0, 651, 0};
    const VRect margins = {15, 15, 15, 15};
    Check(report.Measure(uKind, surface, page, margins), "a report cannot be measured");
    surface.SetHeight(page.bottom);
    Check(report.Draw(surface, page, margins), "a report cannot be drawn");
    Check(surface.HasDrawn() && surface.IsAsFound(), "the surface is not left as it was found");
}

} // namespace

int LLVMFuzzerTestOneInput(const uint8_t* pBytes, size_t uSize)
{
    QMAccount account("");
    QMMemorySource source(pBytes, uSize);
    if (!QMAccountReader(account).ReadFrom(source)) {
        return 0;
    }
    for (uint32_t uKind = 0; uKind < QM_REPORT_KIND_COUNT; ++uKind) {
        DrawReport(account, uKind, uKind == QM_REPORT_TYPE ? "Check" : QM_REPORT_ALL_GROUPS);
    }
    DrawReport(account, QM_REPORT_MEMO, account.header.szBankName);
    return 0;
}
