#include "qmktool/pdfsurface.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "qmktool/output.h"

namespace {

constexpr float fPointsPerPixel = 0.75F; // 96 pixels to the inch, 72 points

// Of the face's size: how high a line is, and how far its baseline lies below its top.
constexpr float fCellHeight = 1.15F;
constexpr float fAscent = 0.905F;

// All colours of reports are grays.
float GrayOf(uint32_t crColor)
{
    return static_cast<float>(crColor & 0xFF) / 255;
}

std::string Printable(std::string_view text)
{
    std::string sText(text);
    std::replace_if(sText.begin(), sText.end(), IsControl, '?');
    return sText;
}

} // namespace

PdfSurface::PdfSurface(int32_t lPoints, bool bItalic)
    // Without an error handler, libharu keeps the first error in the document. IsSound reads it.
    : m_document(HPDF_New(nullptr, nullptr)), m_fPoints(static_cast<float>(lPoints))
{
    if (m_document == nullptr) {
        return;
    }
    // Not every build of libharu can compress. Without compression the bytes are always the same.
    HPDF_SetCompressionMode(m_document, HPDF_COMP_NONE);
    constexpr const char* szEncoding = "WinAnsiEncoding";
    m_hNormal = HPDF_GetFont(m_document, bItalic ? "Helvetica-Oblique" : "Helvetica", szEncoding);
    m_hBold =
        HPDF_GetFont(m_document, bItalic ? "Helvetica-BoldOblique" : "Helvetica-Bold", szEncoding);
}

PdfSurface::~PdfSurface()
{
    if (m_document != nullptr) {
        HPDF_Free(m_document);
    }
}

bool PdfSurface::IsSound() const
{
    return m_document != nullptr && HPDF_GetError(m_document) == HPDF_OK;
}

void PdfSurface::MakePages(const QMReportCut& cut, int32_t lWidth, int32_t lHeight, int32_t lTop)
{
    m_cut = cut;
    m_lPageHeight = lHeight;
    m_lTop = lTop;
    m_pages.reserve(static_cast<size_t>(cut.lPages));
    for (int32_t i = 0; i < cut.lPages && IsSound(); ++i) {
        Page page;
        page.hPage = HPDF_AddPage(m_document);
        HPDF_Page_SetWidth(page.hPage, static_cast<float>(lWidth) * fPointsPerPixel);
        HPDF_Page_SetHeight(page.hPage, static_cast<float>(lHeight) * fPointsPerPixel);
        HPDF_Page_SetLineWidth(page.hPage, fPointsPerPixel);
        m_pages.push_back(page);
    }
}

std::string PdfSurface::Save()
{
    if (!IsSound() || HPDF_SaveToStream(m_document) != HPDF_OK) {
        return {};
    }
    std::string sBytes(HPDF_GetStreamSize(m_document), '\0');
    HPDF_ResetStream(m_document);
    auto uSize = static_cast<HPDF_UINT32>(sBytes.size());
    HPDF_ReadFromStream(m_document, reinterpret_cast<HPDF_BYTE*>(sBytes.data()), &uSize);
    return uSize == sBytes.size() ? sBytes : std::string();
}

QMReportFont PdfSurface::SelectFont(QMReportFont font)
{
    return std::exchange(m_font, font);
}

QMReportPen PdfSurface::SelectPen(QMReportPen pen)
{
    return std::exchange(m_pen, pen);
}

uint32_t PdfSurface::SetBkColor(uint32_t crColor)
{
    return std::exchange(m_crBackground, crColor);
}

// What is above the first page, as a rule may be, counts to it. Null below the last page.
PdfSurface::Page* PdfSurface::PageAt(int32_t y)
{
    const auto u = static_cast<size_t>(m_cut.lStep > 0 ? std::max(y, 0) / m_cut.lStep : 0);
    if (u >= m_pages.size()) {
        return nullptr;
    }
    if (m_pProgress != nullptr && u != m_uLastPage) {
        m_pProgress->OnStep(u, m_pages.size());
    }
    m_uLastPage = u;
    return &m_pages[u];
}

HPDF_REAL PdfSurface::PointsDown(int32_t y) const
{
    const int32_t lOnPage = m_lTop + std::max(y, 0) % m_cut.lStep;
    return static_cast<float>(m_lPageHeight - lOnPage) * fPointsPerPixel;
}

// In pixels.
float PdfSurface::WidthOf(std::string_view text) const
{
    const std::string sText = Printable(text);
    const HPDF_Font hFont = m_font == QMReportFont::Bold ? m_hBold : m_hNormal;
    const HPDF_TextWidth width =
        HPDF_Font_TextWidth(hFont, reinterpret_cast<const HPDF_BYTE*>(sText.data()),
                            static_cast<HPDF_UINT>(sText.size()));
    return static_cast<float>(width.width) * m_fPoints / 1000 / fPointsPerPixel;
}

QMReportExtent PdfSurface::TextExtent(std::string_view text)
{
    return {static_cast<int32_t>(std::ceil(WidthOf(text))),
            static_cast<int32_t>(std::ceil(m_fPoints * fCellHeight / fPointsPerPixel))};
}

void PdfSurface::FillWith(Page& page, float fGray)
{
    if (page.fFillGray != fGray) {
        HPDF_Page_SetGrayFill(page.hPage, fGray);
        page.fFillGray = fGray;
    }
}

void PdfSurface::FillBox(Page& page, float fLeft, int32_t y, float fWidth, int32_t lHeight,
                         float fGray)
{
    FillWith(page, fGray);
    const float fHeight = static_cast<float>(lHeight) * fPointsPerPixel;
    HPDF_Page_Rectangle(page.hPage, fLeft * fPointsPerPixel, PointsDown(y) - fHeight,
                        fWidth * fPointsPerPixel, fHeight);
    HPDF_Page_Fill(page.hPage);
}

void PdfSurface::PutFill(const VRect& rect, uint32_t crColor)
{
    Page* pPage = PageAt(rect.top);
    if (pPage != nullptr && m_layer == PdfLayer::Shades) {
        FillBox(*pPage, static_cast<float>(rect.left), rect.top,
                static_cast<float>(rect.GetWidth()), rect.GetHeight(), GrayOf(crColor));
    }
}

void PdfSurface::PutText(std::string_view text, const VRect& rect, QMReportAlign align)
{
    Page* pPage = PageAt(rect.top);
    if (pPage == nullptr || text.empty() || m_layer != PdfLayer::Ink) {
        return;
    }
    const float fWidth = WidthOf(text);
    auto fX = static_cast<float>(rect.left);
    if (align != QMReportAlign::Left) {
        const float fFree = static_cast<float>(rect.GetWidth()) - fWidth;
        fX += align == QMReportAlign::Right ? fFree : fFree / 2;
    }
    if (rect.top == m_lLastTop && fX < m_fLastEnd) {
        // A text covers the end of a longer text to its left, as on the screen.
        FillBox(*pPage, fX, rect.top, fWidth, rect.GetHeight(), GrayOf(m_crBackground));
    }
    m_lLastTop = rect.top;
    m_fLastEnd = fX + fWidth;
    const int32_t lText = TextExtent(text).lHeight;
    const auto lAscent = static_cast<int32_t>(std::lround(m_fPoints * fAscent / fPointsPerPixel));
    ShowText(*pPage, Printable(text), fX, rect.top + (rect.GetHeight() - lText) / 2 + lAscent);
}

void PdfSurface::ShowText(Page& page, const std::string& sText, float fX, int32_t yBaseline)
{
    FillWith(page, 0);
    if (page.font != m_font) {
        HPDF_Page_SetFontAndSize(page.hPage, m_font == QMReportFont::Bold ? m_hBold : m_hNormal,
                                 m_fPoints);
        page.font = m_font;
    }
    HPDF_Page_BeginText(page.hPage);
    HPDF_Page_MoveTextPos(page.hPage, fX * fPointsPerPixel, PointsDown(yBaseline));
    HPDF_Page_ShowText(page.hPage, sText.c_str());
    HPDF_Page_EndText(page.hPage);
}

void PdfSurface::PutLine(int32_t x1, int32_t y1, int32_t x2, int32_t y2)
{
    Page* pPage = PageAt(y1);
    if (pPage == nullptr || m_layer != PdfLayer::Ink || y1 != y2) {
        return; // reports draw horizontal lines only
    }
    const float fGray = m_pen == QMReportPen::Rule ? GrayOf(QM_REPORT_RULE_COLOR) : 0;
    FillBox(*pPage, static_cast<float>(x1), y1, static_cast<float>(x2 - x1), 1, fGray);
}

// Draws a column one pixel wide, on each page that it touches.
void PdfSurface::PutColumn(int32_t x, int32_t y1, int32_t y2)
{
    const float fGray = m_pen == QMReportPen::Rule ? GrayOf(QM_REPORT_RULE_COLOR) : 0;
    int32_t y = std::max(y1, 0);
    while (y < y2 && m_cut.lStep > 0 && m_layer == PdfLayer::Ink) {
        const int32_t yEnd = std::min(y2, (y / m_cut.lStep + 1) * m_cut.lStep);
        if (Page* pPage = PageAt(y)) {
            FillBox(*pPage, static_cast<float>(x), y, 1, yEnd - y, fGray);
        }
        y = yEnd;
    }
}

void PdfSurface::PutEdges(const VRect& rect, uint32_t uMask)
{
    if ((uMask & 1) != 0) {
        PutColumn(rect.left, rect.top, rect.bottom + 1);
    }
    if ((uMask & 2) != 0) {
        PutLine(rect.left, rect.top, rect.right, rect.top);
    }
    if ((uMask & 4) != 0) {
        PutColumn(rect.right - 1, rect.top, rect.bottom);
    }
    if ((uMask & 8) != 0) {
        PutLine(rect.left, rect.bottom, rect.right, rect.bottom);
    }
}
