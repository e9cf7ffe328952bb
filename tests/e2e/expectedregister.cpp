#include "tests/e2e/expectedregister.h"

#include <gtest/gtest.h>

#include <memory>

#include "register/qmregistermodel.h"
#include "register/qmrowtable.h"

namespace {

class PaneTexts : public QMStatusPanes
{
public:
    explicit PaneTexts(std::vector<std::string>& texts) : m_texts(texts) { m_texts.resize(nCount); }
    void SetPaneText(int nPane, const char* szText) override
    {
        m_texts.at(static_cast<size_t>(nPane - 1)) = szText;
    }

private:
    std::vector<std::string>& m_texts;
};

} // namespace

ExpectedRegister::ExpectedRegister(const std::string& sPath, bool bPeriodAlone)
{
    QMDocument document;
    document.SetAccount(std::make_unique<QMAccount>(sPath.c_str()));
    EXPECT_TRUE(document.GetAccount()->Read()) << sPath;
    QMRowTable table;
    QMRegisterModel model(document, table);
    model.SetPeriodFilter(bPeriodAlone, false);
    EXPECT_TRUE(model.ShowAll());
    for (int32_t lRow = 0; lRow < table.GetRowCount(); ++lRow) {
        decorations.push_back(table.GetDecoration(lRow));
        rows.emplace_back();
        for (int32_t lColumn = 0; lColumn < table.GetColumnCount(); ++lColumn) {
            rows.back().emplace_back(table.GetCellText(lRow, lColumn));
        }
    }
    for (int32_t i = 0; i < QM_ENTRY_COUNT; ++i) {
        const auto column = static_cast<QMColumn>(i);
        if (model.GetColumns().IsVisible(column)) {
            headings.emplace_back(QMGetColumnInfo(column).szHeading);
            widths.push_back(model.GetColumns().GetWidth(column));
        }
    }
    widths.pop_back();
    PaneTexts texts(panes);
    model.UpdateStatusBar(false, QMToday(), texts);
    document.GetAccount()->Close();
}
