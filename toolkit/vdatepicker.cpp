#include "toolkit/vdatepicker.h"

bool VDatePicker::SetDate(const SYSTEMTIME& date)
{
    // The control of Wine 8 would take a day that its month does not have.
    FILETIME time;
    return SystemTimeToFileTime(&date, &time) != 0 &&
           Send(DTM_SETSYSTEMTIME, GDT_VALID, reinterpret_cast<LPARAM>(&date)) != 0;
}

SYSTEMTIME VDatePicker::GetDate() const
{
    SYSTEMTIME date = {};
    Send(DTM_GETSYSTEMTIME, 0, reinterpret_cast<LPARAM>(&date));
    return date;
}
