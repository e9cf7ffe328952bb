// VDatePicker: a field for a date, with a calendar that drops down.
#pragma once

#include "toolkit/vcontrol.h"

class VDatePicker : public VControl
{
public:
    VDatePicker() : VControl(V_KIND_DATE_PICKER) {}

    // Shows a date; the time of day is ignored. Returns false, and keeps the date that it shows,
    // for a day that the calendar does not have.
    bool SetDate(const SYSTEMTIME& date);
    SYSTEMTIME GetDate() const;
};
