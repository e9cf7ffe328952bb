// A drawing surface of reports on PDF pages, by libharu.
#pragma once

#include <hpdf.h>

#include <cstdint>
#include <string>
#include <vector>

#include "account/qmprogress.h"
#include "reports/qmreportcut.h"
#include "reports/qmreportsurface.h"

// A report is drawn twice, first for its shades and then for the rest. A viewer may round the edge
// of a shade up to a whole dot, and a shade that came later would then cover the rule beside it.
enum class PdfLayer
{
    Shades,
    Ink, // everything else
};

class PdfSurface : public QMReportSurface
{
public:
    // A face without serifs, of so many points; italic or upright.
    PdfSurface(int32_t lPoints, bool bItalic);
    ~PdfSurface() override;

    // Makes the pages, all of one size in pixels of 1/96 inch. Page n shows the pixel rows of the
    // report from n times the step on. The first of them is lTop below the upper edge of the page.
    void MakePages(const QMReportCut& cut, int32_t lWidth, int32_t lHeight, int32_t lTop);

    // Sets which part of the drawing goes into the file from now on. The rest is left out.
    void SelectLayer(PdfLayer layer) { m_layer = layer; }

    // Sets a progress that is told of each page as it is drawn; null for none.
    void SetProgress(QMProgress* pProgress) { m_pProgress = pProgress; }

    // False when the library has refused something. Then there is no file.
    bool IsSound() const;
    HPDF_Doc GetDocument() const { return m_document; }
    // All bytes of the file; empty when the library refused something.
    std::string Save();

    QMReportFont SelectFont(QMReportFont font) override;
    QMReportPen SelectPen(QMReportPen pen) override;
    QMReportExtent TextExtent(std::string_view text) override;
    void PutText(std::string_view text, const VRect& rect, QMReportAlign align) override;
    void PutLine(int32_t x1, int32_t y1, int32_t x2, int32_t y2) override;
    void PutEdges(const VRect& rect, uint32_t uMask) override;
    void PutFill(const VRect& rect, uint32_t crColor) override;
    uint32_t GetBkColor() override { return m_crBackground; }
    uint32_t SetBkColor(uint32_t crColor) override;

private:
    // A page of the file, and the settings of its drawing.
    struct Page
    {
        HPDF_Page hPage = nullptr;
        QMReportFont font = QMReportFont::Standard;
        float fFillGray = 0;
    };

    Page* PageAt(int32_t y);
    HPDF_REAL PointsDown(int32_t y) const;
    float WidthOf(std::string_view text) const;
    void FillWith(Page& page, float fGray);
    void FillBox(Page& page, float fLeft, int32_t y, float fWidth, int32_t lHeight, float fGray);
    void PutColumn(int32_t x, int32_t y1, int32_t y2);
    void ShowText(Page& page, const std::string& sText, float fX, int32_t yBaseline);

    HPDF_Doc m_document;
    HPDF_Font m_hNormal = nullptr;
    HPDF_Font m_hBold = nullptr;
    float m_fPoints;
    PdfLayer m_layer = PdfLayer::Ink;
    QMProgress* m_pProgress = nullptr;
    size_t m_uLastPage = SIZE_MAX; // that was drawn on
    std::vector<Page> m_pages;
    QMReportCut m_cut;
    int32_t m_lPageHeight = 0;
    int32_t m_lTop = 0;
    QMReportFont m_font = QMReportFont::Standard;
    QMReportPen m_pen = QMReportPen::Standard;
    uint32_t m_crBackground = 0xFFFFFF;
    int32_t m_lLastTop = -1; // the line on which the last text stands, and where that text ends
    float m_fLastEnd = 0;
};
