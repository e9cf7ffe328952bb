// The page setup, as the settings store it.

#include "settings/qmpagesetup.h"

#include <gtest/gtest.h>

#include <climits>

namespace {

VRect Read(const char* szText)
{
    VRect rc = {1, 2, 3, 4};
    QMReadMargins(szText, rc);
    return rc;
}

} // namespace

TEST(QMReadMargins, ReadsLeftTopRightBottom)
{
    EXPECT_EQ(Read("0750 0500 1000 0250"), (VRect{750, 500, 1000, 250}));
    EXPECT_EQ(Read("  7 8\t9   10 11"), (VRect{7, 8, 9, 10}));
    EXPECT_EQ(Read("-250 0 -1 +5"), (VRect{-250, 0, -1, 5}));
}

TEST(QMReadMargins, LeavesWhatIsNoNumberAsItWas)
{
    EXPECT_EQ(Read(""), (VRect{1, 2, 3, 4}));
    EXPECT_EQ(Read("wide"), (VRect{1, 2, 3, 4}));
    EXPECT_EQ(Read("750 wide 750 750"), (VRect{750, 2, 3, 4}));
    EXPECT_EQ(Read("750,750,750,750"), (VRect{750, 2, 3, 4}));
    EXPECT_EQ(Read("750 750"), (VRect{750, 750, 3, 4}));
}

TEST(QMReadMargins, HoldsHugeNumbersInRange)
{
    EXPECT_EQ(Read("99999999999 -99999999999 2147483647 999999999999999999999999999"),
              (VRect{INT_MAX, INT_MIN, INT_MAX, INT_MAX}));
}

TEST(QMWriteMargins, WritesFourDigitsAtLeast)
{
    EXPECT_STREQ(QMWriteMargins({750, 0, 12345, -7}).GetText(), "0750 0000 12345 -007");
    EXPECT_STREQ(QMWriteMargins({INT_MIN, INT_MIN, INT_MIN, INT_MIN}).GetText(),
                 "-2147483648 -2147483648 -2147483648 -2147483648");
}
