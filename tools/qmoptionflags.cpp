#include "tools/qmoptionflags.h"

#include "resources/resource.h"

namespace {

constexpr QMOptionBox aGeneralBoxes[] = {
    {IDC_OPTION_RELOAD, 1},    {IDC_OPTION_CONFIRM, 2}, {IDC_OPTION_SPLASH, 4},
    {IDC_OPTION_UNCLEARED, 8}, {IDC_OPTION_SORT, 16},
};

constexpr QMOptionBox aPrintingBoxes[] = {
    {IDC_OPTION_PAGENUMBERS, 1},
    {IDC_OPTION_BANKNAME, 2},
    {IDC_OPTION_HOLDERNAME, 4},
};

} // namespace

std::span<const QMOptionBox> QMGeneralOptionBoxes()
{
    return aGeneralBoxes;
}

std::span<const QMOptionBox> QMPrintingOptionBoxes()
{
    return aPrintingBoxes;
}
