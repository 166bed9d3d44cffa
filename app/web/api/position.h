/// Where the head looks, for answers and news.
#pragma once

#include "camera/motion.h"
#include "web/layout.h"

namespace web
{
struct Direction {
    BU_FLOAT pan, tilt; ///< degrees, to hundredths
};
Direction directionOf(const PT_POS_S &stPos);
} // namespace web

WEB_FIELDS(web::Direction, WEB_FIELD(pan, 0), WEB_FIELD(tilt, 0));
