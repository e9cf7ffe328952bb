#include "tests/support/reportrules.h"

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "account/qmeditlist.h"
#include "reports/qmreport.h"

namespace {

constexpr const char* apNames[] = {
    "Statement of Account", "Transaction Type", "Description",   "Memo",        "Category",
    "Tax Deductions",       "Expenses",         "Voided Checks", "Not Cleared",
};

using Font = QMReportFont;
using Align = QMReportAlign;

template <class... Args>
std::string Print(const char* szFormat, Args... args)
{
    char szText[4096];
    snprintf(szText, sizeof szText, szFormat, args...);
    return szText;
}

// An amount that is not a number (NaN) has no sign in reports.
std::string Money(const char* szFormat, double d)
{
    return std::isnan(d) ? "nan" : Print(szFormat, d);
}

bool IsOneOf(int32_t lType, std::initializer_list<int32_t> types)
{
    for (const int32_t l : types) {
        if (l == lType) {
            return true;
        }
    }
    return false;
}

class Rules
{
public:
    Rules(QMAccountData& account, const ReportOrder& order) : m_account(account), m_order(order) {}

    ReportDrawing Run()
    {
        if (!Select()) {
            return {};
        }
        Pass(false);
        m_drawing.lHeight = y;
        m_drawing.lLineHeight = lLine;
        Pass(true);
        m_drawing.bDrawn = true;
        return m_drawing;
    }

private:
    static int32_t Width(const std::string& sText, Font font = Font::Normal)
    {
        return RecordedExtent(font, sText).lWidth;
    }
    static std::string Amount(const QMTransaction& transaction)
    {
        return Money("%0.2f", transaction.GetRoundedAmount());
    }
    static std::string Plural(const std::string& sText, int32_t lCount)
    {
        return sText + Print("%d Transaction%s", lCount, lCount == 1 ? "" : "s");
    }

    bool Select()
    {
        for (const QMDate* p : {&m_order.dtFrom, &m_order.dtTo}) {
            if (p->wYear == 0 || p->wMonth == 0 || p->wDay == 0) {
                return false;
            }
        }
        const bool bStatement = m_order.uKind == 0;
        m_account.store.Resort(bStatement ? 2 : 0);
        m_account.store.ForEach([&](const QMTransaction& t) {
            const bool bTaken = bStatement
                                    ? (t.lFlags & 16) == 0 &&
                                          QMDateIsInRange(t.dtCleared, m_order.dtFrom, m_order.dtTo)
                                    : QMDateIsInRange(t.dtDate, m_order.dtFrom, m_order.dtTo);
            if (bTaken) {
                selected.push_back(t);
            }
        });
        Measure();
        return true;
    }

    void Measure()
    {
        lDate = Width("Date Cleared");
        lAmount = std::max(Width("$9999999.99"), Width("Amount"));
        lDebit = std::max(Width("Debit"), lAmount);
        lCredit = std::max(Width("Credit"), lAmount);
        lNumber = Width("Number");
        lLine = RecordedExtent(Font::Normal, "Number").lHeight + 1;
        for (const QMTransaction& t : selected) {
            lAmount = std::max(lAmount, Width(Amount(t)));
            if (t.lType == 0) {
                lNumber = std::max(lNumber, Width(Print("%d", static_cast<int>(t.lNumber))));
            }
        }
    }

    void Pass(bool bDrawing)
    {
        bDraw = bDrawing;
        left = m_order.margins.left;
        right = m_order.lWidth - m_order.margins.right;
        y = m_order.margins.top;
        Head();
        if (m_order.uKind == 0) {
            Statement();
        } else if (m_order.uKind <= 4) {
            Grouped();
        } else {
            Flagged();
        }
    }

    void Act(const std::string& sAct)
    {
        if (bDraw) {
            m_drawing.acts.push_back(sAct);
        }
    }
    void Text(const std::string& sText, int32_t x1, int32_t x2, Align align,
              Font font = Font::Normal)
    {
        Act(TextAct(font, align, {x1, y, x2, y + lLine}, crBack, sText));
    }
    void LeftText(const std::string& sText, int32_t x, Font font = Font::Normal)
    {
        Text(sText, x, x + Width(sText, font), Align::Left, font);
    }
    void OwnWidth(const std::string& sText, int32_t xEnd)
    {
        Text(sText, xEnd - Width(sText), xEnd, Align::Right);
    }
    void Rule(int32_t x, int32_t yRule)
    {
        Act(LineAct(QMReportPen::Rule, x, yRule, right + 1, yRule));
    }
    void TotalRule(bool bTwo = false)
    {
        Rule(right - (bTwo ? lCredit + lDebit : lAmount) - 25, y - 1);
    }

    void Head()
    {
        const std::string sTitle =
            Print("%s %s", m_account.header.szBankName, apNames[m_order.uKind]);
        const QMReportExtent title = RecordedExtent(Font::Bold, sTitle);
        Act(TextAct(Font::Bold, Align::Left, {left, y, left + title.lWidth, y + title.lHeight},
                    crBack, sTitle));
        const QMDate& a = m_order.dtFrom;
        const QMDate& b = m_order.dtTo;
        OwnWidth(
            Print("%d/%d/%4d - %d/%d/%d", a.wMonth, a.wDay, a.wYear, b.wMonth, b.wDay, b.wYear),
            right);
        const int32_t yRule = y + RecordedExtent(Font::Normal, "1").lHeight + 4;
        Act(LineAct(QMReportPen::Standard, left, yRule, right, yRule));
        y += lLine;
    }

    void Heads(const char* szDate, bool bNumber, bool bTwo)
    {
        Text(szDate, left, left + lDate, Align::Centre);
        if (bNumber) {
            Text("Number", left + lDate + 10, left + lDate + 10 + lNumber, Align::Centre);
        }
        LeftText("Description", left + lDate + 20 + (bNumber ? lNumber : 0));
        if (bTwo) {
            Text("Debit", right - lCredit - lDebit, right - lCredit, Align::Right);
            Text("Credit", right - lCredit, right, Align::Right);
        } else {
            Text("Amount", right - lAmount, right, Align::Right);
        }
        Rule(left - 1, y + lLine - 1);
    }

    void Shade()
    {
        Act(FillAct({left, y, right, y + lLine}, 0xEBEBEB));
        crBack = 0xEBEBEB;
    }
    void EmptyRow()
    {
        y += lLine;
        Shade();
        Text("--- No Transactions ---", left, right, Align::Centre);
        crBack = ReportRecorder::crPaper;
    }

    // A row without its amount.
    void StartRow(const QMTransaction& t, const QMDate& date, int32_t lRow, bool bNumberColumn)
    {
        y += lLine;
        if (lRow % 2 == 0) {
            Shade();
        }
        Text(Print("%2d/%2d/%2d", date.wMonth, date.wDay, date.wYear), left, left + lDate,
             Align::Right);
        char szText[QM_FIELD_TEXT_SIZE] = "";
        t.GetFieldText(QM_FIELD_DESCRIPTION, szText, true, 0);
        std::string sText = szText;
        if (t.lType == 0) {
            Text(Print("%d", static_cast<int>(t.lNumber)), left + lDate + 10,
                 left + lDate + 10 + lNumber, Align::Centre);
        } else if (t.szMemo[0] != '\0') {
            sText += std::string(" - ") + t.szMemo;
        }
        LeftText(sText, left + lDate + 20 + (bNumberColumn ? lNumber : 0));
    }
    void EndRow() { crBack = ReportRecorder::crPaper; }

    // ---- The statement.

    void Beginning()
    {
        double dCleared = 0;
        double dAll = 0;
        bool bEnded = false;
        m_account.store.ForEach([&](const QMTransaction& t) {
            if (!bEnded) {
                t.ApplyToBalances(dCleared, dAll);
                bEnded = QMDateIsInRange(t.dtCleared, m_order.dtFrom, m_order.dtTo);
                adValue[0] = bEnded ? adValue[0] : dCleared;
            }
        });
    }

    void Figures()
    {
        std::fill(std::begin(adValue), std::end(adValue), 0.0);
        lDeposits = lChecks = lOthers = lInterest = lFees = 0;
        Beginning();
        for (const QMTransaction& t : selected) {
            if ((t.lFlags & 17) != 0) {
                continue;
            }
            const double d = t.GetRoundedAmount();
            if (IsOneOf(t.lType, {1, 4, 6, 9})) {
                adValue[1] += d;
                ++lDeposits;
            } else if (t.lType == 0) {
                adValue[2] += d;
                ++lChecks;
            } else if (IsOneOf(t.lType, {2, 5, 7, 8, 10})) {
                adValue[2] += d;
                ++lOthers;
            } else if (t.lType == 11) {
                adValue[3] += d;
                ++lInterest;
            } else if (t.lType == 3) {
                adValue[4] += d;
                ++lFees;
            }
        }
        adValue[5] = adValue[0] + adValue[1] - adValue[2] + adValue[3] - adValue[4];
        for (const double d : adValue) {
            lAmount = std::max(lAmount, Width(Money("%0.2f", d)));
        }
    }

    void Frame(const char* szTitle)
    {
        const QMReportExtent size = RecordedExtent(Font::Bold, szTitle);
        Act(TextAct(Font::Bold, Align::Left,
                    {left + 10, y, left + 10 + size.lWidth, y + size.lHeight}, crBack, szTitle));
        Act(EdgesAct(QMReportPen::Rule, {left - 1, y - 1, right + 1, y + size.lHeight}, 15));
    }

    void Statement()
    {
        Figures();
        y += 2 * lLine;
        Frame("Statement Summary");
        y += lLine;
        const char* const apLabels[] = {"Beginning Balance", "Deposits", "Withdrawals",
                                        "Interest Paid",     "Fees",     "Ending Balance"};
        const char* const apSigns[] = {" ", "+", "-", "+", "-", " "};
        for (int i = 0; i < 6; ++i) {
            y += lLine;
            if (i == 5) {
                TotalRule();
            }
            LeftText(apLabels[i], left);
            Text(apSigns[i], right - lAmount - 20, right - lAmount - 10, Align::Centre);
            Text(Money("%0.2f", adValue[i]), right - lAmount, right, Align::Right);
        }
        y += 2 * lLine;
        Frame("Statement Details");
        if (selected.empty()) {
            y += 2 * lLine;
            LeftText("No statement details available.", left + 20);
        } else {
            Section("Deposits", lDeposits, {1, 4, 6, 9}, 1);
            Withdrawals();
            Section("Interest Paid", lInterest, {11}, 3);
            Section("Fees", lFees, {3}, 4);
        }
        y += 2 * lLine;
    }

    void Total(const std::string& sName, double d)
    {
        TotalRule();
        LeftText("Total " + sName, left);
        OwnWidth(Money("%0.2f", d), right);
    }

    double Rows(std::initializer_list<int32_t> types, bool bChecks, int32_t& lRow)
    {
        double dSum = 0;
        for (const QMTransaction& t : selected) {
            if ((t.lFlags & 16) != 0 || (bChecks && (t.lFlags & 1) != 0) ||
                !IsOneOf(t.lType, types)) {
                continue;
            }
            StartRow(t, t.dtCleared, lRow++, bChecks);
            Text(Amount(t), right - lAmount, right, Align::Right);
            EndRow();
            dSum += t.GetRoundedAmount();
        }
        return dSum;
    }

    void Section(const std::string& sName, int32_t lCount, std::initializer_list<int32_t> types,
                 int iValue)
    {
        if (lCount == 0) {
            return;
        }
        y += 2 * lLine;
        LeftText(Plural(sName + ":  ", lCount), left, Font::Bold);
        y += 2 * lLine;
        Heads("Date Cleared", false, false);
        int32_t lRow = 0;
        Rows(types, false, lRow);
        y += lLine;
        Total(sName, adValue[iValue]);
    }

    void Part(const std::string& sName, int32_t lCount, std::initializer_list<int32_t> types,
              bool bChecks)
    {
        y += 2 * lLine;
        LeftText(Plural(sName + ":  ", lCount), left);
        y += lLine;
        Heads("Date Cleared", bChecks, false);
        int32_t lRow = 0;
        const double dSum = Rows(types, bChecks, lRow);
        if (lRow == 0) {
            EmptyRow();
        }
        y += lLine;
        Total(sName, dSum);
    }

    void Withdrawals()
    {
        if (lChecks + lOthers == 0) {
            return;
        }
        y += 2 * lLine;
        LeftText(Plural("Withdrawals:  ", lChecks + lOthers), left, Font::Bold);
        Part("Checks", lChecks, {0}, true);
        Part("Other Withdrawals", lOthers, {2, 5, 7, 8, 10}, false);
        y += 2 * lLine;
        Total("Withdrawals", adValue[2]);
    }

    // ---- The lists.

    template <class F>
    void List(F isRow, bool bTwo, const std::string& sTotal)
    {
        double dTotal = 0;
        double dDebits = 0;
        double dCredits = 0;
        int32_t lRows = 0;
        Heads("Date", true, bTwo);
        for (const QMTransaction& t : selected) {
            if (!isRow(t)) {
                continue;
            }
            StartRow(t, t.dtDate, lRows++, true);
            const double d = t.GetRoundedAmount();
            const bool bDebit = IsOneOf(t.lType, {0, 2, 3, 5, 7, 8, 10});
            (!bTwo ? dTotal : bDebit ? dDebits : dCredits) += d;
            const int32_t xEnd = bTwo && bDebit ? right - lCredit : right;
            const int32_t lWidth = !bTwo ? lAmount : bDebit ? lDebit : lCredit;
            Text(Amount(t), xEnd - lWidth, xEnd, Align::Right);
            EndRow();
        }
        if (lRows == 0) {
            EmptyRow();
        }
        y += lLine;
        TotalRule(bTwo);
        if (bTwo) {
            LeftText("Subtotals", left);
            OwnWidth("(" + Money("%0.2f", dDebits) + ")", right - lCredit);
            OwnWidth(Money("%0.2f", dCredits), right);
            dTotal = dCredits - dDebits;
            y += lLine;
        }
        LeftText(Plural(sTotal, lRows), left);
        const double dRounded = strtod(Print("%.2f", dTotal).c_str(), nullptr);
        OwnWidth(dRounded < 0    ? Print("(%0.2f)", fabs(dRounded))
                 : dRounded == 0 ? std::string("0.00")
                                 : Money("%0.2f", dRounded),
                 right);
    }

    std::vector<std::string> Groups()
    {
        const uint32_t uKind = m_order.uKind;
        if (uKind == 1 || m_order.sGroup != "All") {
            return {m_order.sGroup};
        }
        QMEditList list;
        list.SetFlags(5);
        m_account.store.FillEditList(list,
                                     uKind == 2   ? QM_FIELD_PAYEE
                                     : uKind == 3 ? QM_FIELD_MEMO
                                                  : QM_FIELD_CATEGORY,
                                     1000);
        std::vector<std::string> groups;
        for (const QMEditItem* p = list.First(); p != nullptr; p = QMEditList::Next(p)) {
            groups.emplace_back(p->GetText());
        }
        return groups;
    }

    void Grouped()
    {
        const uint32_t uKind = m_order.uKind;
        y += 2 * lLine;
        LeftText(apNames[uKind], left, Font::Bold);
        for (const std::string& sGroup : Groups()) {
            y += 2 * lLine;
            LeftText(sGroup, left);
            y += lLine;
            const int32_t lType = LookupTypeName(sGroup.c_str());
            const auto isRow = [&](const QMTransaction& t) {
                const char* szText = uKind == 2   ? t.szDescription
                                     : uKind == 3 ? t.szMemo
                                                  : t.szCategory;
                const bool bIn = uKind == 1
                                     ? lType >= 0 && t.lType == lType
                                     : strncmp(szText, sGroup.c_str(), uKind == 4 ? 128 : 256) == 0;
                return bIn && (t.lFlags & 1) == 0;
            };
            List(isRow, uKind >= 3, "Total - " + sGroup + ":  ");
        }
        y += 2 * lLine;
    }

    void Flagged()
    {
        constexpr uint32_t auFlags[] = {4, 2, 1, 16};
        const uint32_t uKind = m_order.uKind;
        y += 2 * lLine;
        LeftText(apNames[uKind], left, Font::Bold);
        y += 2 * lLine;
        const auto isRow = [&](const QMTransaction& t) {
            return (t.lFlags & auFlags[uKind - 5]) != 0 && (uKind == 7 || (t.lFlags & 1) == 0);
        };
        List(isRow, uKind == 8, std::string("Total ") + apNames[uKind] + ":  ");
        y += 2 * lLine;
    }

    QMAccountData& m_account;
    const ReportOrder& m_order;
    ReportDrawing m_drawing;
    std::vector<QMTransaction> selected;
    bool bDraw = false;
    int32_t left = 0, right = 0, y = 0;
    int32_t lLine = 0, lDate = 0, lNumber = 0, lAmount = 0, lDebit = 0, lCredit = 0;
    int32_t lDeposits = 0, lChecks = 0, lOthers = 0, lInterest = 0, lFees = 0;
    double adValue[6] = {};
    uint32_t crBack = ReportRecorder::crPaper;
};

} // namespace

ReportDrawing DrawByRules(QMAccountData& account, const ReportOrder& order)
{
    return Rules(account, order).Run();
}

ReportDrawing DrawByProgram(QMAccountData& account, const ReportOrder& order)
{
    ReportRecorder recorder;
    QMReport report(account);
    report.SetRange(order.dtFrom, order.dtTo);
    report.SetGroup(order.sGroup.c_str());
    VRect page = {0, 0, order.lWidth, 0};
    ReportDrawing drawing;
    if (!report.Measure(order.uKind, recorder, page, order.margins)) {
        return drawing;
    }
    drawing.lHeight = page.bottom;
    drawing.lLineHeight = report.GetLayout().lLineHeight;
    if (recorder.GetActs().empty()) {
        drawing.bDrawn = report.Draw(recorder, page, order.margins) && recorder.IsAsFound();
    }
    drawing.acts = recorder.GetActs();
    return drawing;
}
