// Packets of extension commands and the two status inquiries.
#include "table.h"

namespace visca
{
// clang-format off
static constexpr Row s_astRow[] = {
    {VISCA_CMD_E_YM_DEVICE_MODEL, "01 7E 3D 01 00", "device model (refused)", SET(enQLS500Model, VISCA_MSG_E_MODEL_QLS500)},
    {VISCA_CMD_E_YM_DEVICE_MODEL, "01 7E 3D 01 01", "device model, 12G-SDI (refused)", SET(enQLS500Model, VISCA_MSG_E_MODEL_QLS500_12GSDI)},
    {VISCA_CMD_E_YM_PAN_TILT, "01 7E 3D 02 0p 0q 0q 0r 0r", "pan/tilt kind p, speeds q and r (refused)", SET(stYMPTCtrl.u32Type, 0), VAL('p', stYMPt.u32Type, 0, 0x0F), VAL('q', stYMPt.u32PanSpeed, 0, 0xFF), VAL('r', stYMPt.u32TiltSpeed, 0, 0xFF)},
    {VISCA_CMD_E_YM_PAN_TILT, "01 7E 3D 03 0p 0p 0p 0p 0q 0q 0q 0q", "pan/tilt position p, q (refused)", SET(stYMPTCtrl.u32Type, 1), VAL('p', stYMPTCtrl.u32PanPos, 0, 0xFFFF), VAL('q', stYMPTCtrl.u32TiltPos, 0, 0xFFFF)},
    {VISCA_CMD_E_YM_RECORD, "01 7E 3D 04 02", "recording on (refused)", SET(enYMRecord, VISCA_MSG_YM_RECORD_ON)},
    {VISCA_CMD_E_YM_RECORD, "01 7E 3D 04 03", "recording off (refused)", SET(enYMRecord, VISCA_MSG_YM_RECORD_OFF)},
    {VISCA_CMD_E_YM_PAN_REVERSE, "01 7E 3D 05 00", "pan reversed off (refused)", SET(stYMReverse.enPanReverse, VISCA_MSG_YM_SWITCH_OFF)},
    {VISCA_CMD_E_YM_PAN_REVERSE, "01 7E 3D 05 01", "pan reversed on (refused)", SET(stYMReverse.enPanReverse, VISCA_MSG_YM_SWITCH_ON)},
    {VISCA_CMD_E_YM_TILT_REVERSE, "01 7E 3D 06 00", "tilt reversed off (refused)", SET(stYMReverse.enTiltReverse, VISCA_MSG_YM_SWITCH_OFF)},
    {VISCA_CMD_E_YM_TILT_REVERSE, "01 7E 3D 06 01", "tilt reversed on (refused)", SET(stYMReverse.enTiltReverse, VISCA_MSG_YM_SWITCH_ON)},
    {VISCA_CMD_E_TKV_VIDEO, "01 7E 3D 07 pp", "video output p (refused; use 01 06 35)", VAL('p', enVideoCtrl, 0, 0x12)},

    {VISCA_INQ_E_YM_RECORD_STATUS, "09 7E 3D 04", "recording (refused)", Reply{""}},
    {VISCA_INQ_E_YM_PAN_REVERSE, "09 7E 3D 05", "pan reversed (refused)", Reply{""}},
    {VISCA_INQ_E_YM_TILT_REVERSE, "09 7E 3D 06", "tilt reversed (refused)", Reply{""}},
    {VISCA_INQ_E_TKV_VDIEO_PARAMETER, "09 7E 3D 07", "video parameters (refused)", Reply{""}},
    {VISCA_INQ_E_YM_LAST_PT_OPERATED, "09 7E 3D 08", "last pan/tilt operation (refused)", Reply{""}},
    {VISCA_INQ_E_YM_SYSTEM_STATUS, "09 7E 3E 01", "system status, 12 bytes", Reply{"see System status"}},
    {VISCA_INQ_E_TKV_BLOCK_DATA, "09 7E 3E 02", "all settings, 92 bytes", Reply{"see Block"}},
};
// clang-format on
const std::span<const Row> g_extensionRows = s_astRow;
} // namespace visca
