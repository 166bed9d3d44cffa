// The events by group, from their table, with their handlers.
#include "register.h"

#include "handlers.h"
#include "placeholder.h"
#include "service.h"
#include "web/events.h"

namespace
{
enum class Group {
    ISP,
    COLOR_MATRIX,
    LENS,
    PT,
    SYS,
    BUSINESS,
    TRACK,
    MPP,
    MEDIA,
    RECORD,
    GENERAL,
    DASHBOARD,
    NETWORK,
    AVIDEO
};

BU_S32 registerGroup(Group enGroup)
{
#define WEB_EVENT(group, event, Req, Res, handler)                                                                     \
    if (enGroup == Group::group) WEB_RPC_RegisterHandler<Req, Res>(event, handler);
#include "web/events.def"
    return 0;
}
} // namespace

BU_S32 WEB_CMD_InitIspHandler() { return registerGroup(Group::ISP); }
BU_S32 WEB_CMD_InitColorMatrixHandler() { return registerGroup(Group::COLOR_MATRIX); }
BU_S32 WEB_CMD_InitLensHandler() { return registerGroup(Group::LENS); }
BU_S32 WEB_CMD_InitPtHandler() { return registerGroup(Group::PT); }
BU_S32 WEB_CMD_InitSysHandler() { return registerGroup(Group::SYS); }
BU_S32 WEB_CMD_InitBusinessHandler() { return registerGroup(Group::BUSINESS); }
BU_S32 WEB_CMD_InitTrackHandler() { return registerGroup(Group::TRACK); }
BU_S32 WEB_CMD_InitMppHandler() { return registerGroup(Group::MPP); }
BU_S32 WEB_CMD_InitMediaHandler() { return registerGroup(Group::MEDIA); }
BU_S32 WEB_CMD_InitRecordHandler() { return registerGroup(Group::RECORD); }
BU_S32 WEB_CMD_InitGeneralHandler() { return registerGroup(Group::GENERAL); }
BU_S32 WEB_CMD_InitDashBoardHandle() { return registerGroup(Group::DASHBOARD); }
BU_S32 WEB_CMD_InitNetworkHandler() { return registerGroup(Group::NETWORK); }
BU_S32 WEB_CMD_InitAVideoHandler() { return registerGroup(Group::AVIDEO); }

BU_S32 WEB_CMD_InitCustomHandler()
{
    WEB_CMD_InitGeneralHandler();
    WEB_CMD_InitDashBoardHandle();
    WEB_CMD_InitNetworkHandler();
    WEB_CMD_InitAVideoHandler();
    return 0;
}
