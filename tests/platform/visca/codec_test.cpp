#include "support/place.h"
#include "viscaLibTest.h"

#include "doc.h"

#include <cstring>
#include <fstream>
#include <set>

using namespace visca;

namespace
{
std::vector<const Row *> allRows()
{
    std::vector<const Row *> list;
    for (const Topic &topic : topics())
        for (const Row &row : topic.rows) list.push_back(&row);
    return list;
}

/// Packets, and the record they mean. A line names a kind and its fields; then the bytes between address and terminator
/// with the fields' numbers, trailing zeros left out: "01 04 07| 00=0; 27=3,7 / 01 04 47| ..." is 01 04 07 00,
/// 01 04 07 27 and so on. Every row of the packet table has to be met.
struct Golden {
    tagVISCA_CMD_INQ_TYPE_E enType;
    std::vector<Place> fields;
    const char *pcPackets;
};
#define F(member)                                                                                                      \
    {                                                                                                                  \
        offsetof(tagVISCA_CTRL_INFO_S, member), sizeof(std::declval<tagVISCA_CTRL_INFO_S>().member)                    \
    }
#define T(member) F(stAutoTracking.member)
#define C(kind) VISCA_CMD_E_##kind
#define Q(kind) VISCA_INQ_E_##kind
#define KIND T(enTRackParamType)
// clang-format off
const Golden GOLDEN[] = {
    {C(ZOOM), {F(stZoomCtrl.enZoomType), F(stZoomCtrl.u8ZoomVariable), F(stZoomCtrl.u16ZoomPos)},
        "01 04 07| 00=0; 02=1; 03=2; 27=3,7; 37=4,7 / 01 04 47| 0F 06 07 00=5,0,F670"},
    {C(ZOOM_FOCUS), {F(stZoomFocusCtrl.u16ZoomPos), F(stZoomFocusCtrl.u16FocusPos)}, "01 04 47| 0F 06 07 00 00 01 02 03=F670,123"},
    {C(DZOOM), {F(stDZoomCtrl.enDZoomType), F(stDZoomCtrl.u8DzoomLimit)}, "01 04 06| 02=2; 03=3 / 01 7E 30| 01 01 00=4,10"},
    {C(FOCUS), {F(stFocusCtrl.enFocusType), F(stFocusCtrl.u8FocusVariable), F(stFocusCtrl.u16FocusPos)},
        "01 04 08| 00=6; 02=7; 03=8; 27=9,7; 37=A,7 / 01 04 48| 0F 06 07 00=B,0,F670 / 01 04 38| 02=2; 03=3; 10=4 / 01 04 18| 01=5 / 01 04 AA| 00=C; 01=D; "
        "02=E; 03=F; 04=10"},
    {C(WB_MODE), {F(enWbModeCtrl)}, "01 04 35| 00=0; 01=1; 02=2; 03=3; 05=5; 20=B; 0B=B / 01 04 10| 05=C"},
    {C(WB_COLOR_TMP), {F(stColorTempCtrl.enColorTempType), F(u8WbColorTmpDirect)}, "01 04 20| 00=0; 02=1; 03=2; 0F 0F=3,FF"},
    {C(RGAIN), {F(stRGainCtrl.enRGainType), F(stRGainCtrl.u8RGainDirect)}, "01 04 03| 00=0; 02=1; 03=2 / 01 04 43| 00 00 0F 0F=3,FF"},
    {C(BGAIN), {F(stBGainCtrl.enBGainType), F(stBGainCtrl.u8BGainDirect)}, "01 04 04| 00=0; 02=1; 03=2 / 01 04 44| 00 00 0F 0F=3,FF"},
    {C(GGAIN), {F(stGGainCtrl.enGGainType), F(stGGainCtrl.u8GGainDirect)}, "01 04 05| 00=0; 02=1; 03=2 / 01 04 45| 00 00 0F 0F=3,FF"},
    {C(AWB_GAIN), {F(stAwbGainCtrl.enAwbGainType), F(stAwbGainCtrl.u8AwbGainDirect)}, "01 7E 31| 02 00 0F 0F=0,FF; 02 01 0F 0F=1,FF; 02 02 0F 0F=2,FF"},
    {Q(AWB_GAIN), {F(stAwbGainCtrl.enAwbGainType)}, "09 7E 31| 02 00=0; 02 01=1; 02 02=2"},
    {C(AE), {F(stAECtrl.enAEType), F(stAECtrl.u8AeGainLimit)}, "01 04 39| 00=0; 03=3; 0A=A; 0B=B; 0D=D / 01 04 2C| 0F=E,F"},
    {C(SHUTTER), {F(stShutterCtrl.enShutterType), F(stShutterCtrl.u8ShutterDirect)}, "01 04 0A| 00=0; 02=1; 03=2 / 01 04 4A| 00 00 0F 0F=3,FF"},
    {C(IRIS), {F(stIrisCtrl.enIrisType), F(stIrisCtrl.u8IrisDirect)}, "01 04 0B| 00=0; 02=1; 03=2 / 01 04 4B| 00 00 0F 0F=3,FF"},
    {C(GAIN), {F(stGainCtrl.enGainType), F(stGainCtrl.u8GainDirect)}, "01 04 0C| 00=0; 02=1; 03=2 / 01 04 4C| 00 00 0F 0F=3,FF"},
    {C(BRIGHT), {F(stBrightCtrl.enBrightType), F(stBrightCtrl.u8BrightDirect)}, "01 04 0D| 00=0; 02=1; 03=2 / 01 04 4D| 00 00 0F 0F=3,FF"},
    {C(EXP_COMP), {F(stExpCompCtrl.enExpCompType), F(stExpCompCtrl.u8ExpCompDirect)},
        "01 04 3E| 02=2; 03=3 / 01 04 0E| 00=4; 02=5; 03=6 / 01 04 4E| 00 00 0F 0F=7,FF"},
    {C(WDR), {F(stWDRCtrl.enWDRType), F(stWDRCtrl.u8WDRDirect)}, "01 04 3D| 02=2; 03=3 / 01 04 21| 00=4; 02=5; 03=6 / 01 04 51| 00 00 0F 0F=7,FF"},
    {C(BACKLIGHT), {F(enBalklightCtrl)}, "01 04 33| 02=2; 03=3"},
    {C(APERTURE), {F(stApertureCtrl.enApertureType), F(stApertureCtrl.u8ApertureDirect)}, "01 04 02| 00=0; 02=1; 03=2 / 01 04 42| 00 00 0F 0F=3,FF"},
    {C(VIDEO_PARAMETER), {F(stVideoParamCtrl.enVideoParamType), F(stVideoParamCtrl.u8VideoParamDirect)},
        "01 04 A1| 00 00 0F 0F=1,FF / 01 04 A2| 00 00 0F 0F=2,FF / 01 04 49| 00 00 0F 0F=3,FF / 01 04 4F| 00 00 0F 0F=4,FF / 01 04 53| 0F=5,F / "
        "01 04 54| 0F=6,F / 01 04 5B| 0F=7,F / 01 04 61| 02=9,2; 03=9,3 / 01 04 66| 02=A,2; 03=A,3 / 01 04 62| 02=C,2; 03=C,3 / 01 04 23| 02=B,2 / "
        "01 04 32| 02=B,2 / 01 7E 32| 00 0F 0F=0,FF; 01 0F 0F=1,FF; 02 0F 0F=2,FF; 03 0F 0F=3,FF; 04 0F 0F=4,FF; 05 0F 0F=5,FF; 06 0F 0F=6,FF; "
        "07 0F 0F=7,FF; 08 0F 0F=8,FF; 09 0F 0F=9,FF; 0A 0F 0F=A,FF; 0B 0F 0F=B,FF; 0C 0F 0F=C,FF; 0D 0F 0F=D,FF; 0E 0F 0F=E,FF; 0F 0F 0F=F,FF; "
        "10 0F 0F=10,FF; 11 0F 0F=11,FF; 12 0F 0F=12,FF; 13 0F 0F=13,FF; 14 0F 0F=14,FF; 15 0F 0F=15,FF; 16 0F 0F=16,FF; 17 0F 0F=17,FF; 18 0F 0F=18,FF; "
        "19 0F 0F=19,FF; 1A 0F 0F=1A,FF"},
    {C(EXTRA_ISP), {F(stExtraIspCtrl.enExtraIspType), F(stExtraIspCtrl.u8Val)},
        "01 04 A9| 0F=6,F / 01 7E 33| 00 02=0,2; 00 03=0,3; 01 02=1,2; 01 03=1,3; 02=2; 03=3; 04=4; 05=5; 06 0F=6,F; 07 02=7,2; 07 03=7,3; 08 02=8,2; "
        "08 03=8,3; 09=9; 0A 0F=A,F; 0B 02=B,2; 0B 03=B,3; 0C 02=C,2; 0C 03=C,3; 0D 02=D,2; 0D 03=D,3"},
    {Q(VIDEO_PARAMETER), {F(stVideoParamCtrl.enVideoParamType)},
        "09 04 A1=1 / 09 04 A2=2 / 09 04 49=3 / 09 04 4F=4 / 09 04 53=5 / 09 04 54=6 / 09 04 5B=7 / 09 04 61=9 / 09 04 66=A / 09 04 62=C / 09 04 55=B / "
        "09 04 23=B / 09 04 32=B / 09 04 3D=8 / 09 7E 32| 00=0; 01=1; 02=2; 03=3; 04=4; 05=5; 06=6; 07=7; 08=8; 09=9; 0A=A; 0B=B; 0C=C; 0D=D; 0E=E; 0F=F; "
        "10=10; 11=11; 12=12; 13=13; 14=14; 15=15; 16=16; 17=17; 18=18; 19=19; 1A=1A"},
    {Q(EXTRA_STATUE), {F(stExtraIspCtrl.enExtraIspType)},
        "09 7E 33| 00=0; 01=1; 02=2; 03=3; 04=4; 05=5; 06=6; 07=7; 08=8; 09=9; 0A=A; 0B=B; 0C=C; 0D=D / 09 04 A9=6"},
    {C(PAN_TILT), {F(stPTCtlr.enPanTiltType), F(stPTCtlr.u8PanSpeed), F(stPTCtlr.u8TiltSpeed), F(stPTCtlr.u16PanPos), F(stPTCtlr.u16TiltPos)},
        "01 06 01| 18 17 03 01=0,18,17; 18 17 03 02=1,18,17; 18 17 01 03=2,18,17; 18 17 02 03=3,18,17; 18 17 01 01=4,18,17; 18 17 02 01=5,18,17; "
        "18 17 01 02=6,18,17; 18 17 02 02=7,18,17; FE FD 03 03=8,FE,FD / 01 06 02| 18 17 0F 06 07 00 00 01 02 03=9,18,17,F670,123 / "
        "01 06 03| 18 17 0F 06 07 00 00 01 02 03=A,18,17,F670,123 / 01 06 04=B / 01 06 05=C / 01 7E 34| 01 0F 0F 0F 0E 03 01=D,FF,FE; "
        "01 0F 0F 0F 0E 03 02=E,FF,FE; 01 0F 0F 0F 0E 01 03=F,FF,FE; 01 0F 0F 0F 0E 02 03=10,FF,FE; 01 0F 0F 0F 0E 01 01=11,FF,FE; "
        "01 0F 0F 0F 0E 02 01=12,FF,FE; 01 0F 0F 0F 0E 01 02=13,FF,FE; 01 0F 0F 0F 0E 02 02=14,FF,FE; 01 0F 0F 0F 0E 03 03=8,FF,FE"},
    {C(TKV_PT_SPEED), {F(stPTSpeedCtrl.enPanTiltType), F(stPTSpeedCtrl.u32PTSpeedParam)},
        "01 7E 34| 02 02=2; 02 03=3; 03 0F 0F=4,FF; 04 0F 0F=5,FF; 05 0F 06 07 00=6,F670; 06 02=7,2"},
    {C(MEMORY), {F(stMemoryCtrl.enMemoryType), F(stMemoryCtrl.u8MemVal)},
        "01 04 3F| 00 FE=0,FE; 01 FE=1,FE; 02 FE=2,FE / 01 06 01| FE=3,FE / 01 7E 35| 01 FE=4,FE; 02 02=5,2; 02 03=5,3"},
    {Q(MEMORY_STATUE), {F(stMemoryCtrl.enMemoryType)}, "09 06 01=3 / 09 7E 35| 01=4; 02=5"}, {C(POWER), {F(enPowerCtrl)}, "01 04 00| 02=2; 03=3"},
    {C(CANCEL), {F(stCancelCtrl.u8Cancel)}, "2F=F"}, {C(SET_ADDRESS), {F(u8Address)}, "88 30 07=7 / 01 7E 38| 01 07=7"},
    {C(VIDEO_RESOLUTION), {F(enVideoCtrl)},
        "01 06 35| 00 00=0; 00 10=10; 00 08=8; 00 01=1; 00 11=11; 00 09=9; 00 02=2; 00 0A=A; 00 03=3; 00 12=12; 00 0B=B; 00 04=4; 00 0C=C; 00 06=6; 00 0E=E; "
        "00 07=7; 00 0F=F"},
    {C(IP), {F(stIpCtrl.enIpType), F(stIpCtrl.u32IpVal)},
        "01 7E 37| 01 02=2; 01 03=3; 02 0C 00 0A 08 00 01 00 0A=4,C0A8010A; 03 0C 00 0A 08 00 01 00 0A=5,C0A8010A; 04 0C 00 0A 08 00 01 00 0A=6,C0A8010A; "
        "05=7"},
    {C(IR_RECV), {F(enIrRecvCtrl)}, "01 06 08| 02=2; 03=3; 10=4"},
    {C(IRCTRL), {F(stIrCtrl.enIrType), F(stIrCtrl.u8IrVal)}, "01 7E 38| 10 02=0,2; 10 03=0,3; 11 04=1,4"},
    {C(TALLYLED), {F(enTallyLed)},
        "01 7E 01| 0A 00 02=0; 0A 00 03=4 / 01 7E 04| 1A 00 02=1; 1A 00 03=4 / 01 7E 38| 20 00=0; 20 01=1; 20 02=2; 20 03=3; 20 04=4; 20 05=5; 20 06=6; "
        "20 07=7"},
    {C(YM_TALLY_LED), {F(enTallyType)}, "01 7E 38| 21 00=0; 21 01=1; 21 02=2"},
    {C(TKV_TALLY_LED), {F(stTKVtTally.enledmode), F(stTKVtTally.RGBLed)},
        "01 7E 38| 22 00=0; 22 01=1; 22 02=2; 22 03=3; 22 04=4; 22 0A=A; 22 0B=B; 22 0C=C; 22 0D=D; 22 0E 0F 0F 0F 0F 0F 0F=E,FFFFFF"},
    {C(AUDIO_VOLUME), {F(stAudioVolCtrl.enAudioVolType), F(stAudioVolCtrl.u8AudioVolDirect)}, "01 7E 39| 01 00=0; 01 02=1; 01 03=2; 02 0F 0F=3,FF"},
    {C(TKV_AUDIO), {F(enAudioMuteCtrl)}, "01 7E 39| 03 02=2; 03 03=3"},
    {C(SYS_MENU), {F(eSysMenuOpt)}, "01 06 06| 02=1; 03=2; 10=0; 04=8; 05=7 / 01 7E 3A| 03=3; 04=4; 05=5; 06=6"},
    {Q(IP), {F(stIpCtrl.enIpType)}, "09 7E 37| 02=4; 03=5; 04=6"}, {Q(IR_INFO), {F(stIrCtrl.enIrType)}, "09 7E 38| 10=0; 11=1"},
    {C(YM_AUTO_TRACKING), {T(enAutoTrackingCtrl)}, "0A 11 54| 02=2; 03=3 / 01 7E 3B| 01 02=2; 01 03=3; 01 10=4"},
    {C(YM_AUTO_ZOOM), {T(enAutoZoomCtrl)}, "01 7E 3B| 02 02=2; 02 03=3"}, {C(YM_AUTO_TILT), {T(enAUtoTiltCtrl)}, "01 7E 3B| 03 02=2; 03 03=3"},
    {C(YM_INDICATOR), {T(enDetectedIndicatorCtrl)}, "01 7E 3B| 04 02=2; 04 03=3; 04 04=4"},
    {C(YM_TRACKING_START_PRESET), {T(s32TrackingStartPositionpreset)}, "01 7E 3B| 05 0F 0F=FF"},
    {C(YM_OSD_REMINDER), {T(enOsdReminderCtrl)}, "01 7E 3B| 06 00=0; 06 01=1"},
    {C(YM_FIGURE_SIZE), {T(enFigureSizeCtrl), T(s32FigureSize)}, "01 7E 3B| 07 00=0; 07 01=1; 07 02=2; 07 03=3; 07 04 0F 06 07 00=4,F670; 07 05=5"},
    {C(YM_SELECY_SUBJECT), {T(enSelectSubjectCtrl)}, "01 7E 3B| 08 02=2; 08 03=3; 08 04=4"},
    {C(YM_PLACEMENT), {T(enPlacementCtrl)}, "01 7E 3B| 09 00=0; 09 01=1; 09 02=2"},
    {C(YM_AT_SPEED), {T(enAtSpeedCtrl)}, "01 7E 3B| 0A 00=0; 0A 01=1; 0A 02=2"},
    {C(TKV_TRACKING), {KIND, T(enAutoTrackingCtrl)}, "01 7E 3C| 00 02=0,2; 00 03=0,3; 00 10=0,4"},
    {C(TKV_TRACKING), {KIND, T(enAutoTrackModeCtrl)}, "01 7E 3C| 01 00=1; 01 01=1,1; 01 02=1,2; 01 03=1,3; 01 04=1,4"},
    {C(TKV_TRACKING), {KIND, T(enAutoZoomCtrl)}, "01 7E 3C| 02 02=2,2; 02 03=2,3"},
    {C(TKV_TRACKING), {KIND, T(enAUtoTiltCtrl)}, "01 7E 3C| 03 02=3,2; 03 03=3,3"},
    {C(TKV_TRACKING), {KIND, T(enAUtoPanCtrl)}, "01 7E 3C| 04 02=4,2; 04 03=4,3"},
    {C(TKV_TRACKING), {KIND, T(s32TrackingStartPositionpreset)}, "01 7E 3C| 05 0F 0F=5,FF"},
    {C(TKV_TRACKING), {KIND, T(enFigureSizeCtrl)}, "01 7E 3C| 06 00=6; 06 01=6,1; 06 02=6,2; 06 03=6,3; 06 05=6,5"},
    {C(TKV_TRACKING), {KIND, T(enFigureSizeCtrl), T(s32FigureSize)}, "01 7E 3C| 06 04 0F 06 07 00=6,4,F670"},
    {C(TKV_TRACKING), {KIND, T(enSelectSubjectCtrl)}, "01 7E 3C| 07 02=7,2; 07 03=7,3; 07 04=7,4"},
    {C(TKV_TRACKING), {KIND, T(enPlacementCtrl)}, "01 7E 3C| 08 00=8; 08 01=8,1; 08 02=8,2"},
    {C(TKV_TRACKING), {KIND, T(s32AtLostTime)}, "01 7E 3C| 09 0F 0F=9,FF"},
    {C(TKV_TRACKING), {KIND, T(enPresetAreaType), T(s32PresetAreaId)}, "01 7E 3C| 0A 0F 02=A,2,F; 0A 0F 03=A,3,F"},
    {C(TKV_TRACKING), {KIND, T(s32PresetAreaId)}, "01 7E 3C| 0B 0F=B,F; 0C 0F=C,F; 0D 0F=D,F"},
    {C(TKV_TRACKING), {KIND, T(enOsdReminderCtrl)}, "01 7E 3C| 0E 00=E; 0E 01=E,1"},
    {C(TKV_TRACKING), {KIND, T(enDetectedIndicatorCtrl)}, "01 7E 3C| 0F 02=F,2; 0F 03=F,3; 0F 04=F,4"},
    {C(TKV_TRACKING), {KIND, T(s32HeadPos)}, "01 7E 3C| 10 0F 0F=10,FF"}, {C(TKV_TRACKING), {KIND, T(s32TrackSpeed)}, "01 7E 3C| 11 0F=11,F"},
    {C(TKV_TRACKING), {KIND, T(enGestureDetect)}, "01 7E 3C| 12 02=12,2; 12 03=12,3"},
    {C(YM_DEVICE_MODEL), {F(enQLS500Model)}, "01 7E 3D| 01 00=0; 01 01=1"},
    {C(YM_PAN_TILT), {F(stYMPTCtrl.u32Type), F(stYMPt.u32Type), F(stYMPt.u32PanSpeed), F(stYMPt.u32TiltSpeed)}, "01 7E 3D| 02 0F 0F 0E 0F 0D=0,F,FE,FD"},
    {C(YM_PAN_TILT), {F(stYMPTCtrl.u32Type), F(stYMPTCtrl.u32PanPos), F(stYMPTCtrl.u32TiltPos)}, "01 7E 3D| 03 0F 06 07 00 00 01 02 03=1,F670,123"},
    {C(YM_RECORD), {F(enYMRecord)}, "01 7E 3D| 04 02=2; 04 03=3"}, {C(YM_PAN_REVERSE), {F(stYMReverse.enPanReverse)}, "01 7E 3D| 05 00=0; 05 01=1"},
    {C(YM_TILT_REVERSE), {F(stYMReverse.enTiltReverse)}, "01 7E 3D| 06 00=0; 06 01=1"}, {C(TKV_VIDEO), {F(enVideoCtrl)}, "01 7E 3D| 07 12=12"},
    {Q(ZOOM_POS), {}, "09 04 47"}, {Q(ZOOM_SPEED), {}, "09 7E 30 02"}, {Q(DZOOM_MODE), {}, "09 04 06"}, {Q(DZOOM_LIMIT), {}, "09 7E 30 01"},
    {Q(FOCUS_MODE), {}, "09 04 38"}, {Q(FOCUS_POS), {}, "09 04 48"}, {C(WB_SENSI), {}, "01 7E 31 01 05"}, {Q(WB_MODE), {}, "09 04 35"},
    {Q(WB_COLOR_TMP), {}, "09 04 20"}, {Q(RGAIN), {}, "09 04 43"}, {Q(BGAIN), {}, "09 04 44"}, {Q(GGAIN), {}, "09 04 45"},
    {Q(AE_MODE), {}, "09 04 39"}, {Q(SHUTTER_POS), {}, "09 04 4A"}, {Q(IRIS_POS), {}, "09 04 4B"}, {Q(GAIN_POS), {}, "09 04 4C"},
    {Q(BRIGHT_POS), {}, "09 04 4D"}, {Q(EXP_COMP_MODE), {}, "09 04 3E"}, {Q(EXP_COMP_POS), {}, "09 04 4E"}, {Q(BACKLIGHT_MODE), {}, "09 04 33"},
    {Q(APERTURE), {}, "09 04 42"}, {Q(PAN_TILT_POS), {}, "09 06 12"}, {Q(PAN_TILT_MAX_SPEED), {}, "09 06 11"}, {Q(TKV_PT_SPEED), {}, "09 7E 34 05"},
    {Q(TKV_PT_SPEED_MATCH), {}, "09 7E 34 02"}, {Q(TKV_PT_SPEED_ACCUARCY), {}, "09 7E 34 06"}, {C(SYSTEM_FACTORY), {}, "01 04 A0 10"},
    {Q(POWER), {}, "09 04 00"}, {Q(GET_ADDRESS), {}, "09 7E 38 01"}, {Q(VERSION), {}, "09 00 02"}, {Q(VIDEO_RESOLUTION), {}, "09 06 23"},
    {Q(IP_DHCP_MODE), {}, "09 7E 37 01"}, {Q(IP_INFO_ASCLL), {}, "09 7E 37 06"}, {Q(IR_RECV), {}, "09 06 08"}, {Q(TALLY_MODE), {}, "09 7E 38 22"},
    {Q(NDI_TALLY_MODE), {}, "09 7E 38 21"}, {Q(CUSTOM_TALLY), {}, "09 7E 38 23"}, {Q(AUDIO_VOLUME), {}, "09 7E 39 02"},
    {Q(TKV_AUDIO), {}, "09 7E 39 03"}, {Q(MENU), {}, "09 06 06"}, {Q(YM_AUTO_TRACKING_STATUS), {}, "09 7E 3B 01"},
    {Q(YM_ZOOM_STATUS), {}, "09 7E 3B 02"}, {Q(YM_TILT_STATUS), {}, "09 7E 3B 03"}, {Q(YM_DETECTED_INDICATOR), {}, "09 7E 3B 04"},
    {Q(YM_TRACKING_START), {}, "09 7E 3B 05"}, {Q(YM_TRACKING_START_POSITION), {}, "09 7E 3B 0B"}, {Q(YM_OSD_REMINDER), {}, "09 7E 3B 06"},
    {Q(YM_FIGURE_SIZE), {}, "09 7E 3B 07"}, {Q(YM_CURRENT_CUSTOMIZED_FIGURE_SIZE), {}, "09 7E 3B 0C"}, {Q(YM_PLACEMENT_STATUS), {}, "09 7E 3B 09"},
    {Q(YM_AUTO_TRACKING_SPEED), {}, "09 7E 3B 0A"}, {Q(TKV_HEAD_POS), {}, "09 7E 3C 10"}, {Q(TKV_TRACKSPEED), {}, "09 7E 3C 11"},
    {Q(TKV_GESTURE_DETECT), {}, "09 7E 3C 12"}, {Q(YM_RECORD_STATUS), {}, "09 7E 3D 04"}, {Q(YM_PAN_REVERSE), {}, "09 7E 3D 05"},
    {Q(YM_TILT_REVERSE), {}, "09 7E 3D 06"}, {Q(TKV_VDIEO_PARAMETER), {}, "09 7E 3D 07"}, {Q(YM_LAST_PT_OPERATED), {}, "09 7E 3D 08"},
    {Q(YM_SYSTEM_STATUS), {}, "09 7E 3E 01"}, {Q(TKV_BLOCK_DATA), {}, "09 7E 3E 02"},
};
// clang-format on
#undef F
#undef T
#undef C
#undef Q
#undef KIND

/// The motors of the commands that have some, by the beginning of their packets; the longest that fits counts.
// clang-format off
const struct { const char *pcBytes; Motors moves, drives; bool bStop = false; } MOTORS[] = {
    {"01 06 01 18 17 0",          NO_MOTOR, PAN_TILT}, {"01 06 01 FE FD 03 03",       NO_MOTOR, PAN_TILT, true},
    {"01 7E 34 01",               NO_MOTOR, PAN_TILT}, {"01 7E 34 01 0F 0F 0F 0E 03 03", NO_MOTOR, PAN_TILT, true},
    {"01 06 02",                  PAN_TILT, NO_MOTOR}, {"01 06 03", PAN_TILT, NO_MOTOR}, {"01 06 05", PAN_TILT, NO_MOTOR},
    {"01 06 04",                  PAN_TILT | ZOOM, NO_MOTOR}, {"01 04 3F 02", PAN_TILT | ZOOM | FOCUS, NO_MOTOR},
    {"01 04 07",                  NO_MOTOR, ZOOM},  {"01 04 07 00", NO_MOTOR, ZOOM, true},  {"01 04 47 0F 06 07 00", ZOOM, NO_MOTOR},
    {"01 04 08",                  NO_MOTOR, FOCUS}, {"01 04 08 00", NO_MOTOR, FOCUS, true}, {"01 04 48", FOCUS, NO_MOTOR},
    {"01 04 47 0F 06 07 00 00",   ZOOM | FOCUS, NO_MOTOR}};

// Packets that no row may take: values out of range, wrong lengths, bytes of no function.
const char *const WRONG[] = {
    "81 01 04 07 28 FF", "81 01 04 07 01 FF", "81 01 04 47 10 00 00 00 FF", "81 01 04 47 00 00 00 FF",
    "81 01 06 01 19 14 03 01 FF", "81 01 06 01 05 05 04 01 FF", "81 01 04 35 06 FF", "81 01 04 00 02 00 FF",
    "81 09 04 FF", "81 09 04 00 00 FF", "81 0B 04 00 FF", "88 30 00 FF", "88 30 08 FF", "88 01 04 00 02 FF",
    "81 30 01 FF", "81 01 04 23 03 FF", "81 01 7E 30 01 01 01 FF",};
// clang-format on
/// The packets of a line, whole, each with its numbers.
std::vector<std::pair<std::string, std::vector<BU_U32>>> packetsOf(const Golden &golden)
{
    std::vector<std::pair<std::string, std::vector<BU_U32>>> list;
    std::istringstream groups(golden.pcPackets);
    for (std::string strGroup; std::getline(groups >> std::ws, strGroup, '/');) {
        const auto bar = strGroup.find('|');
        const std::string strPrefix = bar == strGroup.npos ? "" : strGroup.substr(0, bar) + " ";
        std::istringstream packets(strGroup.substr(bar + 1));
        for (std::string strPacket; std::getline(packets >> std::ws, strPacket, ';');) {
            std::istringstream numbers(strPacket.substr(std::min(strPacket.find('=') + 1, strPacket.size())));
            auto &[strBytes, values] =
                list.emplace_back(strPrefix + strPacket.substr(0, strPacket.find('=')), std::vector<BU_U32>());
            for (std::string str; strPacket.find('=') != strPacket.npos && std::getline(numbers, str, ',');)
                values.push_back(static_cast<BU_U32>(std::stoul(str, nullptr, 16)));
            values.resize(golden.fields.size());
            while (strBytes.ends_with(' ')) strBytes.pop_back();
        }
    }
    return list;
}
} // namespace

TEST(ViscaCodec, PacketsAndTheRecordsTheyMean)
{
    std::set<const Row *> met;
    for (const Golden &golden : GOLDEN)
        for (const auto &[strBody, values] : packetsOf(golden)) {
            SCOPED_TRACE(strBody);
            const std::string strBytes = (strBody.starts_with("88") ? "" : "83 ") + strBody + " FF";
            tagVISCA_CTRL_INFO_S stExpected{}, stInfo, stAgain;
            for (std::size_t i = 0; i < values.size(); ++i)
                std::memcpy(reinterpret_cast<char *>(&stExpected) + golden.fields[i].u16Offset, &values[i],
                            golden.fields[i].u8Size);
            const Row *row = decode(bytes(strBytes), stInfo);
            ASSERT_TRUE(row);
            met.insert(row);
            EXPECT_EQ(row->enType, golden.enType);
            EXPECT_EQ(std::memcmp(&stInfo, &stExpected, sizeof stInfo), 0) << "fields, or others not zero";
            EXPECT_EQ(rowOf(numberOf(*row)), row);
            if (golden.enType != VISCA_CMD_E_WB_SENSI) { // whose value no field holds
                EXPECT_EQ(hex(encode(*row, stInfo, 3).bytes()), strBytes);
            }
            const Packet again = encode(golden.enType, stInfo, 3); // an alias may be written in its other form
            EXPECT_EQ(decode(again.bytes(), stAgain)->enType, golden.enType);
            EXPECT_EQ(std::memcmp(&stInfo, &stAgain, sizeof stInfo), 0);

            std::size_t longest = 0;
            auto expected = MOTORS[0];
            expected.moves = expected.drives = NO_MOTOR;
            for (const auto &motors : MOTORS)
                if (strBody.starts_with(motors.pcBytes) && strlen(motors.pcBytes) > longest)
                    longest = strlen((expected = motors).pcBytes);
            EXPECT_EQ(row->moves.motors, expected.moves);
            EXPECT_EQ(row->drives.motors, expected.drives);
            EXPECT_EQ(row->drives.bStop, expected.bStop);
        }
    for (const Row *row : allRows()) EXPECT_TRUE(met.contains(row)) << row->pattern.pcText;
    for (BU_S32 i = VISCA_CMD_E_NONE + 1; i < VISCA_CMD_INQ_E_BUTT; ++i)
        EXPECT_TRUE(i == VISCA_INQ_E_NONE || std::ranges::count(GOLDEN, i, &Golden::enType)) << "kind " << i;
    EXPECT_EQ(rowOf(0), nullptr);
    EXPECT_EQ(rowOf(static_cast<BU_U32>(met.size() + 1)), nullptr);
}

TEST(ViscaCodec, TakesNothingElse)
{
    tagVISCA_CTRL_INFO_S stInfo;
    for (const char *pcBytes : WRONG) EXPECT_FALSE(decode(bytes(pcBytes), stInfo)) << pcBytes;
}

TEST(ViscaCodec, NoPacketFitsTwoRows)
{
    const auto rows = allRows();
    for (const Row *a : rows)
        for (const Row *b : rows) {
            const Pattern &p = a->pattern, &q = b->pattern;
            if (a >= b || p.size != q.size || p.bBroadcast != q.bBroadcast) continue;
            bool bApart = false;
            for (std::size_t i = 0; i < p.size; ++i)
                bApart |= ((p.au8Value[i] ^ q.au8Value[i]) & p.au8Mask[i] & q.au8Mask[i]) != 0;
            EXPECT_TRUE(bApart) << p.pcText << " | " << q.pcText;
        }
}

// A stream of good packets, noise, and packets without end, cut at every place: always the same packets come out.
TEST(ViscaCodec, SplitsTheSameWhereverTheStreamIsCut)
{
    const Bytes stream = bytes("00 FF 7F 81 09 04 00 FF 81 01 06 01 05 05 03 01 FF 13 81 FF "
                               "81 01 02 03 04 05 06 07 08 09 0A 0B 0C 0D 0E 0F 81 09 04 00 FF "
                               "82 01 04 81 82 83 84 85 86 87 88 89 8A 8B 8C FF 88 30 01 FF");
    const std::string strExpected = "81 09 04 00 FF, 81 01 06 01 05 05 03 01 FF, 81 FF, "
                                    "long 81 01 02 03 04 05 06 07 08 09 0A 0B 0C 0D 0E 0F, "
                                    "82 01 04 81 82 83 84 85 86 87 88 89 8A 8B 8C FF, 88 30 01 FF, ";
    for (std::size_t cut = 0; cut <= stream.size(); ++cut) {
        Splitter splitter;
        std::string strFound;
        for (std::span<const BU_U8> part : {std::span(stream).first(cut), std::span(stream).subspan(cut)})
            while (const auto result = splitter.next(part))
                strFound += (result->bTooLong ? "long " : "") + hex(result->packet) + ", ";
        EXPECT_EQ(strFound, strExpected) << "cut at " << cut;
    }
}

// The tables of docs/visca.md are those of the code. CAMERA_UPDATE_DOCS=1 writes them.
TEST(ViscaCodec, DocumentedAsItIs)
{
    const std::string strPath = place::source("docs/visca.md"), strBegin = "<!-- packets -->\n",
                      strEnd = "\n<!-- end of packets -->";
    std::stringstream file;
    file << std::ifstream(strPath).rdbuf();
    std::string strDoc = file.str();
    const auto begin = strDoc.find(strBegin) + strBegin.size(), end = strDoc.find(strEnd);
    ASSERT_TRUE(end != std::string::npos && begin <= end);
    if (std::getenv("CAMERA_UPDATE_DOCS"))
        std::ofstream(strPath) << strDoc.replace(begin, end - begin, packetTables());
    else
        EXPECT_EQ(strDoc.substr(begin, end - begin), packetTables());
}
