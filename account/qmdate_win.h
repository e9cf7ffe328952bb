// Converts between the program's dates and SYSTEMTIME. The two have the same layout.
#pragma once

#include <windows.h>

#include <bit>

#include "account/qmdate.h"

inline SYSTEMTIME QMToSystemTime(const QMDate& date)
{
    return std::bit_cast<SYSTEMTIME>(date);
}

inline QMDate QMFromSystemTime(const SYSTEMTIME& time)
{
    return std::bit_cast<QMDate>(time);
}
