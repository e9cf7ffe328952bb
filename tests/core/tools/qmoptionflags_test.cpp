#include "tools/qmoptionflags.h"

#include <gtest/gtest.h>

#include <string>

namespace {

std::string BoxesOf(std::span<const QMOptionBox> boxes)
{
    std::string sBoxes;
    for (const QMOptionBox& box : boxes) {
        sBoxes += std::to_string(box.nControl) + ':' + std::to_string(box.uBit) + ' ';
    }
    return sBoxes;
}

} // namespace

TEST(QMOptionBoxes, HaveTheirBits)
{
    EXPECT_EQ(BoxesOf(QMGeneralOptionBoxes()), "1212:1 1211:2 1213:4 1001:8 1002:16 ");
    EXPECT_EQ(BoxesOf(QMPrintingOptionBoxes()), "1214:1 1215:2 1216:4 ");
}

// Kept: the button turns the splash screen on; the settings of a first start do not.
TEST(QMOptionBoxes, DefaultToTheButtonsValues)
{
    EXPECT_EQ(QM_DEFAULT_GENERAL_OPTIONS, 15U);
    EXPECT_EQ(QM_DEFAULT_PRINTING_OPTIONS, 3U);
    EXPECT_EQ(QM_DEFAULT_BALANCE_POSITIVE, 8760651U);
    EXPECT_EQ(QM_DEFAULT_BALANCE_NEGATIVE, 2638537U);
}
