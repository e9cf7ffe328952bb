#include "account/qmsystemfont.h"

QMSystemFont QMQuerySystemFont()
{
    return {};
}
