// Packets of zoom and focus.
#include "table.h"

namespace visca
{
// clang-format off
static constexpr Row s_astRow[] = {
    {VISCA_CMD_E_ZOOM, "01 04 07 00", "zoom stop", stops(ZOOM), SET(stZoomCtrl.enZoomType, VISCA_MSG_E_SET_ZOOM_STOP)},
    {VISCA_CMD_E_ZOOM, "01 04 07 02", "zoom in, configured speed", Drives{ZOOM}, SET(stZoomCtrl.enZoomType, VISCA_MSG_E_SET_ZOOM_TELE_STANDARD)},
    {VISCA_CMD_E_ZOOM, "01 04 07 03", "zoom out, configured speed", Drives{ZOOM}, SET(stZoomCtrl.enZoomType, VISCA_MSG_E_SET_ZOOM_WIDE_STANDARD)},
    {VISCA_CMD_E_ZOOM, "01 04 07 2p", "zoom in, speed p", Drives{ZOOM}, SET(stZoomCtrl.enZoomType, VISCA_MSG_E_SET_ZOOM_TELE_VARIABLE), VAL('p', stZoomCtrl.u8ZoomVariable, 0, 7)},
    {VISCA_CMD_E_ZOOM, "01 04 07 3p", "zoom out, speed p", Drives{ZOOM}, SET(stZoomCtrl.enZoomType, VISCA_MSG_E_SET_ZOOM_WIDE_VARIABLE), VAL('p', stZoomCtrl.u8ZoomVariable, 0, 7)},
    {VISCA_CMD_E_ZOOM, "01 04 47 0p 0p 0p 0p", "zoom to position p (optical 0000-4000)", Moves{ZOOM}, SET(stZoomCtrl.enZoomType, VISCA_MSG_E_SET_ZOOM_DIRECT_POS), VAL('p', stZoomCtrl.u16ZoomPos, 0, 0xFFFF)},
    {VISCA_CMD_E_ZOOM_FOCUS, "01 04 47 0p 0p 0p 0p 0q 0q 0q 0q", "zoom to position p and focus to position q", Moves{ZOOM | FOCUS}, VAL('p', stZoomFocusCtrl.u16ZoomPos, 0, 0xFFFF), VAL('q', stZoomFocusCtrl.u16FocusPos, 0, 0xFFFF)},
    {VISCA_CMD_E_DZOOM, "01 04 06 02", "digital zoom on", SET(stDZoomCtrl.enDZoomType, VISCA_MSG_E_DZOOM_ON)},
    {VISCA_CMD_E_DZOOM, "01 04 06 03", "digital zoom off", SET(stDZoomCtrl.enDZoomType, VISCA_MSG_E_DZOOM_OFF)},
    {VISCA_CMD_E_DZOOM, "01 7E 30 01 0p 0p", "largest digital magnification p", SET(stDZoomCtrl.enDZoomType, VISCA_MSG_E_DZOOM_SET_LIMIT), VAL('p', stDZoomCtrl.u8DzoomLimit, 1, 16)},
    {VISCA_CMD_E_FOCUS, "01 04 08 00", "focus stop", stops(FOCUS), SET(stFocusCtrl.enFocusType, VISCA_MSG_E_SET_FOCUS_STOP)},
    {VISCA_CMD_E_FOCUS, "01 04 08 02", "focus far", Drives{FOCUS}, SET(stFocusCtrl.enFocusType, VISCA_MSG_E_SET_FOCUS_FAR_STANDARD)},
    {VISCA_CMD_E_FOCUS, "01 04 08 03", "focus near", Drives{FOCUS}, SET(stFocusCtrl.enFocusType, VISCA_MSG_E_SET_FOCUS_NEAR_STANDARD)},
    {VISCA_CMD_E_FOCUS, "01 04 08 2p", "focus far, speed p", Drives{FOCUS}, SET(stFocusCtrl.enFocusType, VISCA_MSG_E_SET_FOCUS_FAR_VARIABLE), VAL('p', stFocusCtrl.u8FocusVariable, 0, 7)},
    {VISCA_CMD_E_FOCUS, "01 04 08 3p", "focus near, speed p", Drives{FOCUS}, SET(stFocusCtrl.enFocusType, VISCA_MSG_E_SET_FOCUS_NEAR_VARIABLE), VAL('p', stFocusCtrl.u8FocusVariable, 0, 7)},
    {VISCA_CMD_E_FOCUS, "01 04 48 0p 0p 0p 0p", "focus to position p (00AF-1BB7)", Moves{FOCUS}, SET(stFocusCtrl.enFocusType, VISCA_MSG_E_SET_FOCUS_DIRECT_POS), VAL('p', stFocusCtrl.u16FocusPos, 0, 0xFFFF)},
    {VISCA_CMD_E_FOCUS, "01 04 38 02", "focus automatic", SET(stFocusCtrl.enFocusType, VISCA_MSG_E_FOCUS_AUTO)},
    {VISCA_CMD_E_FOCUS, "01 04 38 03", "focus by hand", SET(stFocusCtrl.enFocusType, VISCA_MSG_E_FOCUS_MANUAL)},
    {VISCA_CMD_E_FOCUS, "01 04 38 10", "focus automatic or by hand, the other one", SET(stFocusCtrl.enFocusType, VISCA_MSG_E_FOCUS_AUTO_MANUAL)},
    {VISCA_CMD_E_FOCUS, "01 04 18 01", "focus automatically once", SET(stFocusCtrl.enFocusType, VISCA_MSG_E_FOCUS_ONE_PUSH_TRIGGER)},
    {VISCA_CMD_E_FOCUS, "01 04 AA 00", "focus on the upper part of the picture", SET(stFocusCtrl.enFocusType, VISCA_MSG_E_SET_FOCUS_ZONE_UPPER)},
    {VISCA_CMD_E_FOCUS, "01 04 AA 01", "focus on the centre", SET(stFocusCtrl.enFocusType, VISCA_MSG_E_SET_FOCUS_ZONE_CENTER)},
    {VISCA_CMD_E_FOCUS, "01 04 AA 02", "focus on the lower part", SET(stFocusCtrl.enFocusType, VISCA_MSG_E_SET_FOCUS_ZONE_DOWN)},
    {VISCA_CMD_E_FOCUS, "01 04 AA 03", "focus on the whole picture", SET(stFocusCtrl.enFocusType, VISCA_MSG_E_SET_FOCUS_ZONE_GlOBAL)},
    {VISCA_CMD_E_FOCUS, "01 04 AA 04", "focus on the custom zone", SET(stFocusCtrl.enFocusType, VISCA_MSG_E_SET_FOCUS_ZONE_FUTURE)},

    {VISCA_INQ_E_ZOOM_POS, "09 04 47", "zoom position", Reply{"0p 0p 0p 0p"}},
    {VISCA_INQ_E_ZOOM_SPEED, "09 7E 30 02", "configured zoom speed", Reply{"0p"}},
    {VISCA_INQ_E_DZOOM_MODE, "09 04 06", "digital zoom: 02 on, 03 off", Reply{"pp"}},
    {VISCA_INQ_E_DZOOM_LIMIT, "09 7E 30 01", "largest digital magnification, low 4 bits (16 is 00)", Reply{"0p"}},
    {VISCA_INQ_E_FOCUS_MODE, "09 04 38", "focus mode: 02 automatic, 03 by hand", Reply{"pp"}},
    {VISCA_INQ_E_FOCUS_POS, "09 04 48", "focus position", Reply{"0p 0p 0p 0p"}},
};
// clang-format on
const std::span<const Row> g_lensRows = s_astRow;
} // namespace visca
