#include "toolkit/vdatepicker.h"

#include <gtest/gtest.h>

#include "tests/win/support.h"

namespace {

SYSTEMTIME Date(WORD uYear, WORD uMonth, WORD uDay)
{
    SYSTEMTIME date = {};
    date.wYear = uYear;
    date.wMonth = uMonth;
    date.wDay = uDay;
    return date;
}

std::string Text(const SYSTEMTIME& date)
{
    return std::to_string(date.wMonth) + "/" + std::to_string(date.wDay) + "/" +
           std::to_string(date.wYear);
}

class VDatePickerTest : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(CreateTestWindow(m_window));
        ASSERT_TRUE(m_picker.Create(m_window.GetHandle(), {0, 0, 100, 20}, WS_CHILD,
                                    DATETIMEPICK_CLASSA, "", 1));
    }

    VWindow m_window;
    VDatePicker m_picker;
};

} // namespace

TEST_F(VDatePickerTest, KeepsTheDateThatItIsGiven)
{
    for (const SYSTEMTIME& date : {Date(2004, 2, 29), Date(1999, 12, 31), Date(2000, 1, 1),
                                   Date(2000, 2, 29), Date(1752, 9, 14), Date(9999, 12, 31)}) {
        EXPECT_TRUE(m_picker.SetDate(date)) << Text(date);
        EXPECT_EQ(Text(m_picker.GetDate()), Text(date));
    }
}

TEST_F(VDatePickerTest, RefusesADateThatIsNone)
{
    ASSERT_TRUE(m_picker.SetDate(Date(2004, 7, 1)));
    for (const SYSTEMTIME& date :
         {Date(2004, 2, 30), Date(2003, 2, 29), Date(1900, 2, 29), Date(2004, 4, 31),
          Date(2004, 0, 1), Date(2004, 13, 1), Date(2004, 1, 0), Date(2004, 1, 32), Date(0, 1, 1),
          Date(0, 0, 0)}) {
        EXPECT_FALSE(m_picker.SetDate(date)) << Text(date);
        EXPECT_EQ(Text(m_picker.GetDate()), "7/1/2004");
    }
}

TEST_F(VDatePickerTest, TakesNoNoticeOfTheTimeOfDay)
{
    SYSTEMTIME date = Date(2004, 7, 1);
    date.wHour = 23;
    date.wMinute = 59;
    EXPECT_TRUE(m_picker.SetDate(date));
    EXPECT_EQ(Text(m_picker.GetDate()), "7/1/2004");
}
