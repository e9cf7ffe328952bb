// QMKeptDate: a date on show in a control that cannot show every date of a file.
#pragma once

#include "account/qmdate.h"

// A file may hold 29 February of any year, and years before the calendar of Windows begins. The
// control then shows another date. As long as the user does not change that one, the date of the
// file stays.
class QMKeptDate
{
public:
    // The control was given dtStored and shows dtShown.
    void Show(const QMDate& dtStored, const QMDate& dtShown)
    {
        m_dtStored = dtStored;
        m_dtShown = dtShown;
        m_bKept = true;
    }

    // The date that is meant while the control shows dtShown. To be called at every change: once
    // the control has shown another date, what it shows is what is meant, until the next Show.
    QMDate Read(const QMDate& dtShown)
    {
        m_bKept = m_bKept && QMDateIsEqual(dtShown, m_dtShown);
        return m_bKept ? m_dtStored : dtShown;
    }

private:
    QMDate m_dtStored;
    QMDate m_dtShown;
    bool m_bKept = false;
};
