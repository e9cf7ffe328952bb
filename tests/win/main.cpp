// Runs the window tests twice. Windows keeps some objects from their first use on (fonts, theme
// data, cached device contexts), so the first run lets it make them. In the second run every test
// must leave the number of objects as it was.

#include <gtest/gtest.h>

#include "tests/win/support.h"

namespace {

// Wine 8 makes each brush of the system at its first use, and anew after its colour has changed.
void MakeSystemBrushes()
{
    for (int nColor = 0; nColor <= COLOR_MENUBAR; ++nColor) {
        GetSysColorBrush(nColor);
    }
}

class ObjectCountCheck : public testing::EmptyTestEventListener
{
    void OnTestIterationStart(const testing::UnitTest&, int nIteration) override
    {
        m_bChecks = nIteration > 0;
    }

    void OnTestStart(const testing::TestInfo&) override
    {
        MakeSystemBrushes();
        m_before = CountObjects();
    }

    void OnTestEnd(const testing::TestInfo&) override
    {
        if (m_bChecks) {
            PumpAll();
            MakeSystemBrushes();
            const ObjectCounts after = CountObjects();
            EXPECT_EQ(after.uGdi, m_before.uGdi) << "the test left GDI objects behind";
            EXPECT_EQ(after.uUser, m_before.uUser)
                << "the test left windows, menus or accelerator tables behind";
        }
    }

    ObjectCounts m_before;
    bool m_bChecks = false;
};

} // namespace

int main(int argc, char** argv)
{
    GTEST_FLAG_SET(repeat, 2);
    testing::InitGoogleTest(&argc, argv);
    if (!InitializeApplication()) {
        fputs("The window class could not be registered.\n", stderr);
        return 2;
    }
    testing::UnitTest::GetInstance()->listeners().Append(new ObjectCountCheck);
    return RUN_ALL_TESTS();
}
