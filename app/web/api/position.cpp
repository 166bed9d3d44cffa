// Where the camera looks: asked for, and told while it changes.
#include "position.h"

#include "api.h"
#include "camera/zoom.h"
#include "util/time.h"

#include <cmath>
#include <mutex>

namespace
{
struct Position {
    BU_FLOAT pan, tilt, zoom; ///< degrees and magnification, to hundredths
    bool operator==(const Position &) const = default;
};
struct PositionNews {
    Position position;
};
} // namespace

WEB_FIELDS(Position, WEB_FIELD(pan, 0), WEB_FIELD(tilt, 0), WEB_FIELD(zoom, 0));
WEB_FIELDS(PositionNews, WEB_FIELD(position, 0));

namespace
{
constexpr BU_FLOAT HUNDREDTHS = 100;
constexpr BU_S32 PERIOD_MS = 200; // it is told at most so often

BU_TIMER_DATA_S g_stTimer;
std::mutex g_lock; // guards g_stTold
Position g_stTold;

const BU_CHAR *read(const web::Nothing &, Position &st)
{
    PT_POS_S stPos{};
    st.zoom = 1;
    BSP_PTGetCurPos(0, &stPos, PT_DEV_TYPE_PAN_TILE_E);
    PTZ_API_GetZoomTime(0, &st.zoom);
    const web::Direction stDirection = web::directionOf(stPos);
    st = {stDirection.pan, stDirection.tilt, std::round(st.zoom * HUNDREDTHS) / HUNDREDTHS};
    return nullptr;
}

BU_S32 tellChange(void *)
{
    PositionNews st{};
    read({}, st.position);
    const std::lock_guard guard(g_lock);
    if (st.position != g_stTold && web::tell("position", st) > 0) g_stTold = st.position;
    return 0;
}

void forget()
{
    const std::lock_guard guard(g_lock);
    g_stTold = {};
}
} // namespace

web::Direction web::directionOf(const PT_POS_S &stPos)
{
    PT_DEGREE_S stDegree{};
    BSP_PTPosToDegree(0, &stDegree, &stPos, 0);
    return {static_cast<BU_FLOAT>(stDegree.s32PanDegree) / HUNDREDTHS,
            static_cast<BU_FLOAT>(stDegree.s32TiltDegree) / HUNDREDTHS};
}

const web::Subject web::POSITION{[] {
                                     registerQuestion<Nothing, Position, read>("position");
                                     forget();
                                     UTIL_TIMER_Start(BU_TIMER_E_PERIODIC, PERIOD_MS, tellChange, nullptr, &g_stTimer);
                                 },
                                 [] { UTIL_TIMER_Stop(&g_stTimer); }};
