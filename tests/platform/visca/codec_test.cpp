#include "support/place.h"
#include "viscaLibTest.h"

#include "doc.h"

#include <cstring>
#include <fstream>

using namespace visca;
using testing::ElementsAreArray;

namespace
{
std::vector<const Row *> allRows()
{
    std::vector<const Row *> list;
    for (const Topic &topic : topics())
        for (const Row &row : topic.rows) list.push_back(&row);
    return list;
}

// Packets as manuals of PTZ cameras print them, and the record they mean.
struct tagGOLDEN_S {
    const char *pcBytes;
    tagVISCA_CMD_INQ_TYPE_E enType;
    std::vector<Part> fields;
};
// clang-format off
const tagGOLDEN_S g_astGolden[] = {
    {"81 01 04 00 02 FF", VISCA_CMD_E_POWER, {SET(enPowerCtrl, 2)}},
    {"81 01 04 07 27 FF", VISCA_CMD_E_ZOOM, {SET(stZoomCtrl.enZoomType, 3), SET(stZoomCtrl.u8ZoomVariable, 7)}},
    {"81 01 04 07 30 FF", VISCA_CMD_E_ZOOM, {SET(stZoomCtrl.enZoomType, 4), SET(stZoomCtrl.u8ZoomVariable, 0)}},
    {"81 01 04 47 04 00 00 0C FF", VISCA_CMD_E_ZOOM, {SET(stZoomCtrl.enZoomType, 5), SET(stZoomCtrl.u16ZoomPos, 0x400C)}},
    {"81 01 04 47 01 02 03 04 0A 0B 0C 0D FF", VISCA_CMD_E_ZOOM_FOCUS, {SET(stZoomFocusCtrl.u16ZoomPos, 0x1234), SET(stZoomFocusCtrl.u16FocusPos, 0xABCD)}},
    {"87 01 04 08 23 FF", VISCA_CMD_E_FOCUS, {SET(stFocusCtrl.enFocusType, 9), SET(stFocusCtrl.u8FocusVariable, 3)}},
    {"81 01 04 38 10 FF", VISCA_CMD_E_FOCUS, {SET(stFocusCtrl.enFocusType, 4)}},
    {"81 01 04 35 20 FF", VISCA_CMD_E_WB_MODE, {SET(enWbModeCtrl, 11)}},
    {"81 01 04 10 05 FF", VISCA_CMD_E_WB_MODE, {SET(enWbModeCtrl, 12)}},
    {"81 01 04 43 00 00 0A 05 FF", VISCA_CMD_E_RGAIN, {SET(stRGainCtrl.enRGainType, 3), SET(stRGainCtrl.u8RGainDirect, 0xA5)}},
    {"81 01 04 39 0A FF", VISCA_CMD_E_AE, {SET(stAECtrl.enAEType, 10)}},
    {"81 01 04 4A 00 00 01 05 FF", VISCA_CMD_E_SHUTTER, {SET(stShutterCtrl.u8ShutterDirect, 0x15)}},
    {"81 01 04 4E 00 00 00 07 FF", VISCA_CMD_E_EXP_COMP, {SET(stExpCompCtrl.enExpCompType, 7), SET(stExpCompCtrl.u8ExpCompDirect, 7)}},
    {"81 01 04 3F 02 7F FF", VISCA_CMD_E_MEMORY, {SET(stMemoryCtrl.enMemoryType, 2), SET(stMemoryCtrl.u8MemVal, 0x7F)}},
    {"81 01 06 01 18 FF", VISCA_CMD_E_MEMORY, {SET(stMemoryCtrl.enMemoryType, 3), SET(stMemoryCtrl.u8MemVal, 0x18)}},
    {"81 01 06 01 18 14 01 02 FF", VISCA_CMD_E_PAN_TILT, {SET(stPTCtlr.enPanTiltType, 6), SET(stPTCtlr.u8PanSpeed, 0x18), SET(stPTCtlr.u8TiltSpeed, 0x14)}},
    {"81 01 06 01 00 00 03 03 FF", VISCA_CMD_E_PAN_TILT, {SET(stPTCtlr.enPanTiltType, 8)}},
    {"81 01 06 02 05 06 0F 06 07 00 00 01 02 03 FF", VISCA_CMD_E_PAN_TILT, {SET(stPTCtlr.enPanTiltType, 9), SET(stPTCtlr.u16PanPos, 0xF670), SET(stPTCtlr.u16TiltPos, 0x0123)}},
    {"81 01 06 04 FF", VISCA_CMD_E_PAN_TILT, {SET(stPTCtlr.enPanTiltType, 11)}},
    {"81 01 06 06 10 FF", VISCA_CMD_E_SYS_MENU, {SET(eSysMenuOpt, 0)}},
    {"81 01 06 08 03 FF", VISCA_CMD_E_IR_RECV, {SET(enIrRecvCtrl, 3)}},
    {"81 01 7E 01 0A 00 02 FF", VISCA_CMD_E_TALLYLED, {SET(enTallyLed, 0)}},
    {"81 01 04 61 02 FF", VISCA_CMD_E_VIDEO_PARAMETER, {SET(stVideoParamCtrl.enVideoParamType, 9), SET(stVideoParamCtrl.u8VideoParamDirect, 2)}},
    {"88 30 01 FF", VISCA_CMD_E_SET_ADDRESS, {SET(u8Address, 1)}},
    {"82 21 FF", VISCA_CMD_E_CANCEL, {SET(stCancelCtrl.u8Cancel, 1)}},
    {"81 09 04 00 FF", VISCA_INQ_E_POWER, {}},
    {"81 09 00 02 FF", VISCA_INQ_E_VERSION, {}},
    {"81 09 06 12 FF", VISCA_INQ_E_PAN_TILT_POS, {}},
    {"81 09 04 A1 FF", VISCA_INQ_E_VIDEO_PARAMETER, {SET(stVideoParamCtrl.enVideoParamType, 1)}},
};
// clang-format on

// Packets that no row may take: values out of range, wrong lengths, bytes of no function.
const char *const g_apcWrong[] = {"81 01 04 07 28 FF",
                                  "81 01 04 07 01 FF",
                                  "81 01 04 47 10 00 00 00 FF",
                                  "81 01 04 47 00 00 00 FF",
                                  "81 01 06 01 19 14 03 01 FF",
                                  "81 01 06 01 05 05 04 01 FF",
                                  "81 01 04 35 06 FF",
                                  "81 01 04 00 02 00 FF",
                                  "81 09 04 FF",
                                  "81 09 04 00 00 FF",
                                  "81 0B 04 00 FF",
                                  "88 30 00 FF",
                                  "88 30 08 FF",
                                  "88 01 04 00 02 FF",
                                  "81 30 01 FF",
                                  "81 01 04 23 03 FF",
                                  "81 01 7E 30 01 01 01 FF"};

std::span<const Part> parts(const Row &row) { return {row.astPart.data(), row.u8Parts}; }
} // namespace

TEST(ViscaCodec, DecodesPublicPackets)
{
    for (const tagGOLDEN_S &golden : g_astGolden) {
        SCOPED_TRACE(golden.pcBytes);
        tagVISCA_CTRL_INFO_S stInfo;
        const Row *row = decode(bytes(golden.pcBytes), stInfo);
        ASSERT_TRUE(row);
        EXPECT_EQ(row->enType, golden.enType);
        for (const Part &part : golden.fields) EXPECT_EQ(readField(stInfo, part.place), part.u32Min);
    }
}

TEST(ViscaCodec, TakesNothingElse)
{
    for (const char *pcBytes : g_apcWrong) {
        tagVISCA_CTRL_INFO_S stInfo;
        EXPECT_FALSE(decode(bytes(pcBytes), stInfo)) << pcBytes;
    }
}

TEST(ViscaCodec, EveryRowReadsWhatItWrites)
{
    for (const Row *row : allRows()) {
        SCOPED_TRACE(row->pattern.pcText);
        for (const bool bHighest : {false, true}) {
            tagVISCA_CTRL_INFO_S stInfo{}, stRead;
            for (const Part &part : parts(*row)) {
                // A byte of a packet cannot be the terminator, and a value has no more bits than its record field.
                ASSERT_TRUE(part.place.u8Size == 4 || part.u32Max < 1u << 8 * part.place.u8Size);
                writeField(stInfo, part.place, bHighest ? part.u32Max : part.u32Min);
            }
            const Packet packet = encode(*row, stInfo, 3);
            EXPECT_EQ(std::ranges::count(packet.bytes(), TERMINATOR), 1);
            ASSERT_EQ(decode(packet.bytes(), stRead), row) << hex(packet.bytes());
            EXPECT_EQ(std::memcmp(&stInfo, &stRead, sizeof stInfo), 0) << "fields, or others not zero";
            const Packet again = encode(row->enType, stRead, 3); // an alias may be written in its other form
            EXPECT_EQ(decode(again.bytes(), stRead)->enType, row->enType);
            EXPECT_EQ(std::memcmp(&stInfo, &stRead, sizeof stInfo), 0);
        }
    }
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

TEST(ViscaCodec, EveryKindAndSubKindHasAPacket)
{
    const auto rows = allRows();
    for (BU_S32 i = VISCA_CMD_E_CANCEL; i < VISCA_CMD_INQ_E_BUTT; ++i)
        EXPECT_EQ(std::ranges::any_of(rows, [&](const Row *row) { return row->enType == i; }), i != VISCA_INQ_E_NONE)
            << i;
    struct tagSUB_S {
        tagVISCA_CMD_INQ_TYPE_E enType;
        Part part; // place of the sub-kind, lowest and highest
        std::vector<BU_U32> gaps;
    };
    // clang-format off
    const tagSUB_S astSub[] = {
        {VISCA_CMD_E_POWER, VAL(0, enPowerCtrl, 2, 3), {}}, {VISCA_CMD_E_ZOOM, VAL(0, stZoomCtrl.enZoomType, 0, 5), {}},
        {VISCA_CMD_E_DZOOM, VAL(0, stDZoomCtrl.enDZoomType, 2, 4), {}}, {VISCA_CMD_E_FOCUS, VAL(0, stFocusCtrl.enFocusType, 2, 16), {}},
        {VISCA_CMD_E_WB_MODE, VAL(0, enWbModeCtrl, 0, 12), {4, 6, 7, 8, 9, 10}}, {VISCA_CMD_E_WB_COLOR_TMP, VAL(0, stColorTempCtrl.enColorTempType, 0, 3), {}},
        {VISCA_CMD_E_RGAIN, VAL(0, stRGainCtrl.enRGainType, 0, 3), {}}, {VISCA_CMD_E_BGAIN, VAL(0, stBGainCtrl.enBGainType, 0, 3), {}},
        {VISCA_CMD_E_GGAIN, VAL(0, stGGainCtrl.enGGainType, 0, 3), {}}, {VISCA_CMD_E_AWB_GAIN, VAL(0, stAwbGainCtrl.enAwbGainType, 0, 2), {}},
        {VISCA_CMD_E_AE, VAL(0, stAECtrl.enAEType, 0, 14), {1, 2, 4, 5, 6, 7, 8, 9, 12}}, {VISCA_CMD_E_SHUTTER, VAL(0, stShutterCtrl.enShutterType, 0, 3), {}},
        {VISCA_CMD_E_IRIS, VAL(0, stIrisCtrl.enIrisType, 0, 3), {}}, {VISCA_CMD_E_GAIN, VAL(0, stGainCtrl.enGainType, 0, 3), {}},
        {VISCA_CMD_E_BRIGHT, VAL(0, stBrightCtrl.enBrightType, 0, 3), {}}, {VISCA_CMD_E_EXP_COMP, VAL(0, stExpCompCtrl.enExpCompType, 2, 7), {}},
        {VISCA_CMD_E_WDR, VAL(0, stWDRCtrl.enWDRType, 2, 7), {}}, {VISCA_CMD_E_BACKLIGHT, VAL(0, enBalklightCtrl, 2, 3), {}},
        {VISCA_CMD_E_APERTURE, VAL(0, stApertureCtrl.enApertureType, 0, 3), {}}, {VISCA_CMD_E_MEMORY, VAL(0, stMemoryCtrl.enMemoryType, 0, 5), {}},
        {VISCA_CMD_E_TALLYLED, VAL(0, enTallyLed, 0, 7), {}}, {VISCA_CMD_E_IR_RECV, VAL(0, enIrRecvCtrl, 2, 4), {}},
        {VISCA_CMD_E_IRCTRL, VAL(0, stIrCtrl.enIrType, 0, 1), {}}, {VISCA_CMD_E_VIDEO_RESOLUTION, VAL(0, enVideoCtrl, 0, 18), {5, 13}},
        {VISCA_CMD_E_PAN_TILT, VAL(0, stPTCtlr.enPanTiltType, 0, 20), {}}, {VISCA_CMD_E_TKV_PT_SPEED, VAL(0, stPTSpeedCtrl.enPanTiltType, 2, 7), {}},
        {VISCA_CMD_E_AUDIO_VOLUME, VAL(0, stAudioVolCtrl.enAudioVolType, 0, 3), {}}, {VISCA_CMD_E_VIDEO_PARAMETER, VAL(0, stVideoParamCtrl.enVideoParamType, 0, 26), {}},
        {VISCA_CMD_E_IP, VAL(0, stIpCtrl.enIpType, 2, 7), {}}, {VISCA_CMD_E_SYS_MENU, VAL(0, eSysMenuOpt, 0, 8), {}},
        {VISCA_CMD_E_EXTRA_ISP, VAL(0, stExtraIspCtrl.enExtraIspType, 0, 13), {}}, {VISCA_CMD_E_YM_AUTO_TRACKING, VAL(0, stAutoTracking.enAutoTrackingCtrl, 2, 4), {}},
        {VISCA_CMD_E_YM_AUTO_ZOOM, VAL(0, stAutoTracking.enAutoZoomCtrl, 2, 3), {}}, {VISCA_CMD_E_YM_AUTO_TILT, VAL(0, stAutoTracking.enAUtoTiltCtrl, 2, 3), {}},
        {VISCA_CMD_E_YM_INDICATOR, VAL(0, stAutoTracking.enDetectedIndicatorCtrl, 2, 4), {}}, {VISCA_CMD_E_YM_OSD_REMINDER, VAL(0, stAutoTracking.enOsdReminderCtrl, 0, 1), {}},
        {VISCA_CMD_E_YM_FIGURE_SIZE, VAL(0, stAutoTracking.enFigureSizeCtrl, 0, 5), {}}, {VISCA_CMD_E_YM_SELECY_SUBJECT, VAL(0, stAutoTracking.enSelectSubjectCtrl, 2, 4), {}},
        {VISCA_CMD_E_YM_PLACEMENT, VAL(0, stAutoTracking.enPlacementCtrl, 0, 2), {}}, {VISCA_CMD_E_YM_AT_SPEED, VAL(0, stAutoTracking.enAtSpeedCtrl, 0, 2), {}},
        {VISCA_CMD_E_YM_TALLY_LED, VAL(0, enTallyType, 0, 2), {}}, {VISCA_CMD_E_TKV_TALLY_LED, VAL(0, stTKVtTally.enledmode, 0, 14), {5, 6, 7, 8, 9}},
        {VISCA_CMD_E_TKV_AUDIO, VAL(0, enAudioMuteCtrl, 2, 3), {}}, {VISCA_CMD_E_TKV_TRACKING, VAL(0, stAutoTracking.enTRackParamType, 0, 18), {}},
        {VISCA_CMD_E_TKV_TRACKING, VAL(0, stAutoTracking.enAutoTrackModeCtrl, 0, 4), {}}, {VISCA_CMD_E_TKV_TRACKING, VAL(0, stAutoTracking.enFigureSizeCtrl, 0, 5), {}},
        {VISCA_CMD_E_YM_RECORD, VAL(0, enYMRecord, 2, 3), {}}, {VISCA_CMD_E_YM_DEVICE_MODEL, VAL(0, enQLS500Model, 0, 1), {}},
        {VISCA_INQ_E_VIDEO_PARAMETER, VAL(0, stVideoParamCtrl.enVideoParamType, 0, 26), {}}, {VISCA_INQ_E_EXTRA_STATUE, VAL(0, stExtraIspCtrl.enExtraIspType, 0, 13), {}},
        {VISCA_INQ_E_IR_INFO, VAL(0, stIrCtrl.enIrType, 0, 1), {}}, {VISCA_INQ_E_IP, VAL(0, stIpCtrl.enIpType, 4, 6), {}},
        {VISCA_INQ_E_AWB_GAIN, VAL(0, stAwbGainCtrl.enAwbGainType, 0, 2), {}}, {VISCA_INQ_E_MEMORY_STATUE, VAL(0, stMemoryCtrl.enMemoryType, 3, 5), {}},
    };
    // clang-format on
    for (const tagSUB_S &sub : astSub)
        for (BU_U32 u32 = sub.part.u32Min; u32 <= sub.part.u32Max; ++u32) {
            const bool bFound = std::ranges::any_of(rows, [&](const Row *row) {
                return row->enType == sub.enType && std::ranges::any_of(parts(*row), [&](const Part &part) {
                           return !part.cLetter && part.place.u16Offset == sub.part.place.u16Offset &&
                                  part.u32Min == u32;
                       });
            });
            EXPECT_NE(bFound, std::ranges::find(sub.gaps, u32) != sub.gaps.end()) << sub.enType << " sub-kind " << u32;
        }
}

// A stream of good packets, noise, and packets without end, cut at every place: always the same packets come out.
TEST(ViscaCodec, SplitsTheSameWhereverTheStreamIsCut)
{
    const Bytes stream = bytes("00 FF 7F 81 09 04 00 FF 81 01 06 01 05 05 03 01 FF 13 81 FF "
                               "81 01 02 03 04 05 06 07 08 09 0A 0B 0C 0D 0E 0F 81 09 04 00 FF "
                               "82 01 04 81 82 83 84 85 86 87 88 89 8A 8B 8C FF 88 30 01 FF");
    const std::vector<std::string> expected = {"81 09 04 00 FF",
                                               "81 01 06 01 05 05 03 01 FF",
                                               "81 FF",
                                               "long 81 01 02 03 04 05 06 07 08 09 0A 0B 0C 0D 0E 0F",
                                               "82 01 04 81 82 83 84 85 86 87 88 89 8A 8B 8C FF",
                                               "88 30 01 FF"};
    for (std::size_t cut = 0; cut <= stream.size(); ++cut) {
        Splitter splitter;
        std::vector<std::string> found;
        for (std::span<const BU_U8> part : {std::span(stream).first(cut), std::span(stream).subspan(cut)})
            while (const auto result = splitter.next(part))
                found.push_back((result->bTooLong ? "long " : "") + hex(result->packet));
        EXPECT_THAT(found, ElementsAreArray(expected)) << "cut at " << cut;
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
