// QMRegisterPages: draws a register's list onto pictures of pages, as the screen has it: the
// columns that are shown with their widths, the rows of the period that is shown, the list's own
// texts.
#pragma once

#include "printing/vprintcontext.h"
#include "register/qmprintplan.h"
#include "register/qmregisterlist.h"
#include "toolkit/vdrawingsurface.h"
#include "toolkit/vgdiobjects.h"

// What is printed on every page beside the table.
inline constexpr uint32_t QM_PRINT_PAGE_NUMBERS = 1;
inline constexpr uint32_t QM_PRINT_BANK_NAME = 2;
inline constexpr uint32_t QM_PRINT_HOLDER_NAME = 4;
inline constexpr uint32_t QM_PRINT_ALL = 7;

// The list, its columns and the header must outlive the object.
class QMRegisterPages
{
public:
    QMRegisterPages(const QMRegisterList& list, const QMColumnTable& columns,
                    const QMAccountHeader& header);

    // Fills nPages and ilPages of the context for its measures. Returns false when memory cannot be
    // had; the context may then hold some of the pages.
    bool Render(VPrintContext& context, uint32_t uFlags);

private:
    bool MakePlan(const VPrintContext& context);
    bool MakeImageList(VPrintContext& context) const;
    bool AddPage(VPrintContext& context, int nPage);
    void DrawPage(const VPrintContext& context, int nPage);
    void DrawTexts(const VRect& rcPrintable, int nPage);
    void DrawColumn(const QMPrintPage& page, QMColumn column, int x);
    void DrawHeading(QMColumn column, int x, int w);
    void DrawCell(const QMPrintPage& page, QMColumn column, int nRow, const VRect& rect);
    void DrawLines(const QMPrintPage& page, QMColumn column, int nRow, const VRect& rect);
    void DrawText(const char* szText, int nLength, VRect rect, UINT uFlags);
    void DrawPicture(const VBitmap& picture, const VRect& cell);
    int TextHeight(const char* szText) const;
    int TextWidth(const char* szText) const;

    const QMRegisterList& m_list;
    const QMColumnTable& m_columns;
    const QMAccountHeader& m_header;
    VClientSurface m_screen;
    VMemorySurface m_paper;
    VMemorySurface m_picture; // for what is copied onto the paper
    QMPrintPlan m_plan;
    uint32_t m_uFlags = 0;
    int m_nHeadingHeight = 0;
    int m_nRowHeight = 0;
};
