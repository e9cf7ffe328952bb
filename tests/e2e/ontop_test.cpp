// Only the active register writes to the bars of the frame.

#include "tests/e2e/work_test.h"

namespace {

class OnTopTest : public WorkTest
{
protected:
    std::vector<std::string> Panes() const
    {
        std::vector<std::string> texts;
        for (int nPane = 1; nPane <= 3; ++nPane) {
            texts.push_back(m_program.GetPaneText(nPane));
        }
        return texts;
    }
};

TEST_F(OnTopTest, PanesStayThoseOfTheOneThatCameUpUnderADialog)
{
    OpenAccount(MakeAccount("first.qmk", 3));
    const DialogWindow dialog = BeginAdding();
    HandOverFile(MakeAccount("second.qmk", 5));
    const std::vector<std::string> panes = Panes();
    ASSERT_EQ(panes.front(), " Transaction: 5 of 5");
    const Entry entry = {.sDate = "2004-01-01", .sAmount = "1000", .sDescription = "elsewhere"};
    entry.Fill(dialog);
    dialog.End(IDOK);
    m_program.Settle();
    EXPECT_EQ(Panes(), panes);
}

} // namespace
