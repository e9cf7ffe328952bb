// The surface of reports on a device context: what a metafile records of it is what a surface that
// only notes its calls, with the same sizes of texts, works out.
#include "reports/qmreportdrawing.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "reports/qmreport.h"
#include "tests/support/randomaccount.h"
#include "tests/support/support.h"
#include "tests/win/support.h"

namespace {

using Acts = std::vector<std::string>;

std::string Numbers(std::initializer_list<int64_t> numbers)
{
    std::string sText;
    for (const int64_t n : numbers) {
        sText += " " + std::to_string(n);
    }
    return sText;
}

// ---- The acts in words. A text is told by the place of its first character.

std::string TextActAt(const std::string& sFont, int64_t x, int64_t y, uint32_t crBackground,
                      const std::string& sText)
{
    return "text " + sFont + Numbers({x, y}) + " on" + Numbers({crBackground}) + " '" + sText + "'";
}

std::string LineActOf(const std::string& sPen, int64_t x1, int64_t y1, int64_t x2, int64_t y2)
{
    return "line " + sPen + Numbers({x1, y1, x2, y2});
}

std::string FillActOf(int64_t x, int64_t y, int64_t cx, int64_t cy, uint32_t crColor)
{
    return "fill" + Numbers({x, y, cx, cy}) + " with" + Numbers({crColor});
}

constexpr char szStandard[] = "standard";
constexpr char szNormal[] = "normal";
constexpr char szBold[] = "bold";
constexpr char szRule[] = "rule";

// ---- What the rules of placing say.

// Notes the acts; the sizes of texts are those of another surface.
class PlacedActs : public QMReportSurface
{
public:
    explicit PlacedActs(QMReportSurface& metrics) : m_metrics(metrics) {}

    QMReportFont SelectFont(QMReportFont font) override
    {
        m_metrics.SelectFont(font);
        return std::exchange(m_font, font);
    }
    QMReportPen SelectPen(QMReportPen pen) override { return std::exchange(m_pen, pen); }
    QMReportExtent TextExtent(std::string_view text) override { return m_metrics.TextExtent(text); }
    void PutText(std::string_view text, const VRect& rect, QMReportAlign align) override;
    void PutLine(int32_t x1, int32_t y1, int32_t x2, int32_t y2) override
    {
        m_acts.push_back(LineActOf(PenName(), x1, y1, x2, y2));
    }
    void PutEdges(const VRect& rect, uint32_t uMask) override;
    void PutFill(const VRect& rect, uint32_t crColor) override
    {
        m_acts.push_back(
            FillActOf(rect.left, rect.top, rect.GetWidth(), rect.GetHeight(), crColor));
    }
    uint32_t GetBkColor() override { return m_crBackground; }
    uint32_t SetBkColor(uint32_t crColor) override
    {
        return std::exchange(m_crBackground, crColor);
    }

    const Acts& GetActs() const { return m_acts; }

private:
    const char* PenName() const { return m_pen == QMReportPen::Rule ? szRule : szStandard; }
    const char* FontName() const
    {
        return m_font == QMReportFont::Bold     ? szBold
               : m_font == QMReportFont::Normal ? szNormal
                                                : szStandard;
    }

    QMReportSurface& m_metrics;
    QMReportFont m_font = QMReportFont::Standard;
    QMReportPen m_pen = QMReportPen::Standard;
    uint32_t m_crBackground = 0xFFFFFF;
    Acts m_acts;
};

void PlacedActs::PutText(std::string_view text, const VRect& rect, QMReportAlign align)
{
    if (text.empty()) {
        return;
    }
    const QMReportExtent size = TextExtent(text);
    const int32_t lFree = rect.GetWidth() - size.lWidth;
    const int32_t x = rect.left + (align == QMReportAlign::Right    ? lFree
                                   : align == QMReportAlign::Centre ? lFree / 2
                                                                    : 0);
    const int32_t y = rect.top + rect.GetHeight() / 2 - size.lHeight / 2;
    m_acts.push_back(TextActAt(FontName(), x, y, m_crBackground, std::string(text)));
}

void PlacedActs::PutEdges(const VRect& rect, uint32_t uMask)
{
    EXPECT_EQ(uMask, QM_REPORT_FRAME) << "this surface knows whole frames only";
    PutLine(rect.left, rect.bottom, rect.left, rect.top - 1);
    PutLine(rect.left, rect.top, rect.right, rect.top);
    PutLine(rect.right - 1, rect.top, rect.right - 1, rect.bottom);
    PutLine(rect.left, rect.bottom, rect.right, rect.bottom);
}

// ---- What a metafile has recorded.

// Reads the records in their order.
class MetafileActs
{
public:
    explicit MetafileActs(HENHMETAFILE hMetafile)
    {
        EXPECT_TRUE(EnumEnhMetaFile(nullptr, hMetafile, OnRecord, this, nullptr));
    }

    const Acts& GetActs() const { return m_acts; }
    // Whether font, pen and brush are the ones of the beginning.
    bool IsAsFound() const { return m_sFont == szStandard && m_sPen == szStandard; }

private:
    static int CALLBACK OnRecord(HDC, HANDLETABLE*, const ENHMETARECORD* pRecord, int, LPARAM lActs)
    {
        reinterpret_cast<MetafileActs*>(lActs)->Read(*pRecord);
        return 1;
    }

    template <class T>
    static const T& As(const ENHMETARECORD& record)
    {
        EXPECT_GE(record.nSize, sizeof(T));
        return reinterpret_cast<const T&>(record);
    }

    void Read(const ENHMETARECORD& record);
    void ReadFont(const EMREXTCREATEFONTINDIRECTW& record);
    void ReadText(const EMREXTTEXTOUTW& record);
    void ReadBlit(const EMRBITBLT& record);
    void Select(DWORD uObject);

    std::map<DWORD, std::string> m_fonts; // by the number of the object
    std::map<DWORD, std::string> m_pens;
    std::map<DWORD, uint32_t> m_brushes;
    std::string m_sFont = szStandard;
    std::string m_sPen = szStandard;
    uint32_t m_crBrush = 0xFFFFFF;
    uint32_t m_crBackground = 0xFFFFFF;
    POINTL m_point = {};
    Acts m_acts;
};

void MetafileActs::Read(const ENHMETARECORD& record)
{
    switch (record.iType) {
        case EMR_EXTCREATEFONTINDIRECTW:
            ReadFont(As<EMREXTCREATEFONTINDIRECTW>(record));
            break;
        case EMR_CREATEPEN: {
            const auto& pen = As<EMRCREATEPEN>(record);
            const bool bRule = pen.lopn.lopnStyle == PS_SOLID && pen.lopn.lopnWidth.x == 1 &&
                               pen.lopn.lopnColor == QM_REPORT_RULE_COLOR;
            m_pens[pen.ihPen] = bRule ? szRule : "another pen";
            break;
        }
        case EMR_CREATEBRUSHINDIRECT: {
            const auto& brush = As<EMRCREATEBRUSHINDIRECT>(record);
            EXPECT_EQ(brush.lb.lbStyle, static_cast<UINT>(BS_SOLID));
            m_brushes[brush.ihBrush] = brush.lb.lbColor;
            break;
        }
        case EMR_SELECTOBJECT:
            Select(As<EMRSELECTOBJECT>(record).ihObject);
            break;
        case EMR_SETBKCOLOR:
            m_crBackground = As<EMRSETBKCOLOR>(record).crColor;
            break;
        case EMR_MOVETOEX:
            m_point = As<EMRMOVETOEX>(record).ptl;
            break;
        case EMR_LINETO: {
            const POINTL end = As<EMRLINETO>(record).ptl;
            m_acts.push_back(LineActOf(m_sPen, m_point.x, m_point.y, end.x, end.y));
            m_point = end;
            break;
        }
        case EMR_EXTTEXTOUTW:
            ReadText(As<EMREXTTEXTOUTW>(record));
            break;
        case EMR_BITBLT:
            ReadBlit(As<EMRBITBLT>(record));
            break;
        default:
            break; // a state that changes no act is not noted
    }
}

void MetafileActs::ReadFont(const EMREXTCREATEFONTINDIRECTW& record)
{
    m_fonts[record.ihFont] = record.elfw.elfLogFont.lfWeight >= FW_BOLD ? szBold : szNormal;
}

void MetafileActs::ReadText(const EMREXTTEXTOUTW& record)
{
    const EMRTEXT& text = record.emrtext;
    EXPECT_EQ(text.fOptions & (ETO_CLIPPED | ETO_OPAQUE | ETO_GLYPH_INDEX), 0U);
    const auto* pBytes = reinterpret_cast<const char*>(&record) + text.offString;
    std::wstring sWide(text.nChars, L'\0');
    std::copy_n(pBytes, text.nChars * sizeof(wchar_t), reinterpret_cast<char*>(sWide.data()));
    std::string sText(text.nChars * 2, '\0');
    sText.resize(static_cast<size_t>(
        WideCharToMultiByte(CP_ACP, 0, sWide.data(), static_cast<int>(sWide.size()), sText.data(),
                            static_cast<int>(sText.size()), nullptr, nullptr)));
    m_acts.push_back(
        TextActAt(m_sFont, text.ptlReference.x, text.ptlReference.y, m_crBackground, sText));
}

void MetafileActs::ReadBlit(const EMRBITBLT& record)
{
    EXPECT_EQ(record.dwRop, static_cast<DWORD>(PATCOPY));
    m_acts.push_back(
        FillActOf(record.xDest, record.yDest, record.cxDest, record.cyDest, m_crBrush));
}

void MetafileActs::Select(DWORD uObject)
{
    constexpr DWORD uOfSystem = 0x80000000;
    if ((uObject & uOfSystem) != 0) {
        const DWORD uStock = uObject & ~uOfSystem;
        const bool bPen = uStock == BLACK_PEN || uStock == WHITE_PEN || uStock == NULL_PEN;
        const bool bFont = uStock >= OEM_FIXED_FONT && uStock != DEFAULT_PALETTE;
        m_sPen = bPen ? szStandard : m_sPen;
        m_sFont = bFont ? szStandard : m_sFont;
    } else if (m_fonts.count(uObject) != 0) {
        m_sFont = m_fonts[uObject];
    } else if (m_pens.count(uObject) != 0) {
        m_sPen = m_pens[uObject];
    } else if (m_brushes.count(uObject) != 0) {
        m_crBrush = m_brushes[uObject];
    }
}

// ---- Both of a report.

class QMReportDrawingTest : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(CreatePointFont(m_tools.fontNormal, "Arial", 8, 0));
        ASSERT_TRUE(CreatePointFont(m_tools.fontBold, "Arial", 8, QM_FONT_BOLD));
        ASSERT_TRUE(m_tools.penRule.Create(PS_SOLID, 1, QM_REPORT_RULE_COLOR));
    }

    // Measures and draws on a surface, from a copy of the account.
    void Draw(QMReportSurface& surface, const QMAccountData& account, uint32_t uKind) const
    {
        QMAccountData copy;
        ASSERT_TRUE(copy.AssignFrom(account));
        QMReport report(copy);
        report.SetRange(MakeDate("1/1/2003"), MakeDate("12/31/2005"));
        report.SetGroup(uKind == QM_REPORT_TYPE ? "Check" : QM_REPORT_ALL_GROUPS);
        VRect page = {0, 0, m_lWidth, 0};
        ASSERT_TRUE(report.Measure(uKind, surface, page, m_margins));
        ASSERT_TRUE(report.Draw(surface, page, m_margins));
    }

    Acts ActsByRules(const QMAccountData& account, uint32_t uKind) const
    {
        VDrawingSurface memory;
        memory.Attach(CreateCompatibleDC(nullptr), true);
        QMReportDrawing metrics(memory, m_tools);
        PlacedActs acts(metrics);
        Draw(acts, account, uKind);
        return acts.GetActs();
    }

    Acts ActsOfMetafile(const QMAccountData& account, uint32_t uKind) const
    {
        // The screen's own surface would leave a context more or less in Wine's store of them.
        VDrawingSurface memory;
        memory.Attach(CreateCompatibleDC(nullptr), true);
        HDC hDC = CreateEnhMetaFileA(memory.GetHandle(), nullptr, nullptr, nullptr);
        EXPECT_NE(hDC, nullptr);
        {
            VDrawingSurface surface;
            surface.Attach(hDC, false);
            QMReportDrawing drawing(surface, m_tools);
            Draw(drawing, account, uKind);
        }
        HENHMETAFILE hMetafile = CloseEnhMetaFile(hDC);
        const MetafileActs acts(hMetafile);
        EXPECT_TRUE(acts.IsAsFound()) << "kind " << uKind;
        DeleteEnhMetaFile(hMetafile);
        return acts.GetActs();
    }

    void ExpectBothEqual(const QMAccountData& account) const
    {
        for (uint32_t uKind = 0; uKind < QM_REPORT_KIND_COUNT && !HasFailure(); ++uKind) {
            const Acts expected = ActsByRules(account, uKind);
            EXPECT_GE(expected.size(), 4U);
            EXPECT_EQ(ActsOfMetafile(account, uKind), expected) << "kind " << uKind;
        }
    }

    QMReportTools m_tools;
    int32_t m_lWidth = QM_REPORT_SCREEN_WIDTH;
    VRect m_margins = {QM_REPORT_SCREEN_MARGIN, QM_REPORT_SCREEN_MARGIN, QM_REPORT_SCREEN_MARGIN,
                       QM_REPORT_SCREEN_MARGIN};
};

} // namespace

TEST_F(QMReportDrawingTest, AMetafileRecordsTheActsThatTheRulesGive)
{
    for (uint32_t uSeed = 1; uSeed <= 8 && !HasFailure(); ++uSeed) {
        Random random(uSeed);
        QMAccountData account;
        FillAtRandom(account, random, 40, false);
        ExpectBothEqual(account);
    }
}

TEST_F(QMReportDrawingTest, AMetafileOfAPageHasTheWidthOfThePage)
{
    m_lWidth = 816;
    m_margins = {72, 0, 72, 0};
    Random random(77);
    QMAccountData account;
    FillAtRandom(account, random, 60, false);
    ExpectBothEqual(account);
}

TEST_F(QMReportDrawingTest, AMetafileOfNothingHasTheHead)
{
    ExpectBothEqual(QMAccountData());
}
