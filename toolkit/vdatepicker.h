// VDatePicker: a date in a field, with a calendar to drop down.
#pragma once

#include "toolkit/vcontrol.h"

class VDatePicker : public VControl
{
public:
    VDatePicker() : VControl(V_KIND_DATE_PICKER) {}

    // Only the date counts, not the time of day. False for a date that the calendar does not have;
    // the present one then stays.
    bool SetDate(const SYSTEMTIME& date);
    SYSTEMTIME GetDate() const;
};
