// The settings of the network outputs: their fields, and where they are stored.
#include "config/liveMedia.h"

#include "rules.h"
#include "store/record.h"
#include "util/journal.h"

#include <array>
#include <climits>
#include <mutex>

using namespace live;
using store::Record, store::number, store::text;

namespace
{
// Largest values.
constexpr BU_S32 NAME = 64, URL = 349, SERVER = 256, STREAM_ID = 256, PORT = 65535;
constexpr BU_S32 AUDIO = CFG_LM_AUDIO_MODE_E_BUTT - 1;

// The keys of a camera's stored settings: once released they stay as they are.
// clang-format off
struct Protocol { BU_BOOL bExclusive = BU_FALSE; BU_S32 s32Proto = CFG_LM_PROTO_E_NONE; };
constexpr store::Field<Protocol> PROTOCOL_FIELDS[] = {
    number<&Protocol::bExclusive>("Exclusive"),
    number<&Protocol::s32Proto>("Protocol", CFG_LM_PROTO_E_NONE, CFG_LM_PROTO_E_BUTT - 1),
};
constexpr store::Field<CFG_LM_RTSP_S> RTSP_FIELDS[] = {
    number<&CFG_LM_RTSP_S::bEnabled>("Enable"),
    text<&CFG_LM_RTSP_S::sSessionName>("SessionName", NAME),
    number<&CFG_LM_RTSP_S::eAudio>("Audio", 0, AUDIO),
};
constexpr store::Field<CFG_LM_RTMP_S> RTMP_FIELDS[] = {
    number<&CFG_LM_RTMP_S::bEnabled>("Enable"),
    text<&CFG_LM_RTMP_S::sServer>("Server", URL),
    text<&CFG_LM_RTMP_S::sStreamCode>("StreamCode", URL).secret(),
    number<&CFG_LM_RTMP_S::bAuthEnable>("AuthEnable"),
    text<&CFG_LM_RTMP_S::sUsername>("Username", NAME),
    text<&CFG_LM_RTMP_S::sPassword>("Password", NAME).secret(),
    number<&CFG_LM_RTMP_S::s32Video>("Video", INT_MIN, INT_MAX),
    number<&CFG_LM_RTMP_S::eAudio>("Audio", 0, AUDIO),
};
constexpr store::Field<CFG_LM_NDI_S> NDI_FIELDS[] = {
    number<&CFG_LM_NDI_S::bEnabled>("Enable"),
    text<&CFG_LM_NDI_S::sStreamName>("StreamName", NAME),
};
constexpr store::Field<CFG_LM_SRT_S> SRT_FIELDS[] = {
    number<&CFG_LM_SRT_S::bEnabled>("Enable"),
    number<&CFG_LM_SRT_S::bIsListener>("Listener"),
    text<&CFG_LM_SRT_S::sStreamId>("StreamId", STREAM_ID),
    text<&CFG_LM_SRT_S::sHostname>("Hostname", NAME),
    number<&CFG_LM_SRT_S::s32Port>("Port", 0, PORT),
    number<&CFG_LM_SRT_S::s32AesMode>("AesMode", 0, 32),
    text<&CFG_LM_SRT_S::sPassword>("Password", 80).secret(),
    number<&CFG_LM_SRT_S::s32Latency>("Latency", 0, INT_MAX),
    number<&CFG_LM_SRT_S::eAudio>("Audio", 0, AUDIO),
};
constexpr store::Field<CFG_LM_RTSP_GENERAL_S> RTSP_GENERAL_FIELDS[] = {
    number<&CFG_LM_RTSP_GENERAL_S::s32Port>("Port", 1, PORT),
    number<&CFG_LM_RTSP_GENERAL_S::bHttpEnable>("HttpEnable"),
    number<&CFG_LM_RTSP_GENERAL_S::s32HttpPort>("HttpPort", 0, PORT),
    number<&CFG_LM_RTSP_GENERAL_S::bAuthEnable>("AuthEnable"),
    text<&CFG_LM_RTSP_GENERAL_S::sUsername>("Username", NAME),
    text<&CFG_LM_RTSP_GENERAL_S::sPassword>("Password", NAME).secret(),
};
constexpr store::Field<CFG_LM_NDI_GENERAL_S> NDI_GENERAL_FIELDS[] = {
    text<&CFG_LM_NDI_GENERAL_S::sMachineName>("MachineName", NAME),
    text<&CFG_LM_NDI_GENERAL_S::sGroupName>("GroupName", NAME),
    number<&CFG_LM_NDI_GENERAL_S::bMulticastEnabled>("MulticastEnable"),
    text<&CFG_LM_NDI_GENERAL_S::sMulticastIp>("MulticastIp", NAME),
    text<&CFG_LM_NDI_GENERAL_S::sMulticastNetmask>("MulticastNetmask", NAME),
    number<&CFG_LM_NDI_GENERAL_S::s32MulticastTTL>("MulticastTTL", 0, 255),
    number<&CFG_LM_NDI_GENERAL_S::s32TransmitMethod>("TransmitMethod", 0, CFG_LM_NDI_CONNECTION_E_BUTT - 1),
    number<&CFG_LM_NDI_GENERAL_S::bDiscoveryServerEnable>("DiscoveryEnable"),
    text<&CFG_LM_NDI_GENERAL_S::sDiscoveryServer>("DiscoveryServer", SERVER),
    text<&CFG_LM_NDI_GENERAL_S::sStreamNameHB>("StreamNameHB", NAME),
    number<&CFG_LM_NDI_GENERAL_S::bNdiHBEnable>("HBEnable"),
    number<&CFG_LM_NDI_GENERAL_S::s32HBIpMode>("HBIpMode", INT_MIN, INT_MAX),
    text<&CFG_LM_NDI_GENERAL_S::sHBIpaddr>("HBIpaddr", NAME),
    text<&CFG_LM_NDI_GENERAL_S::sHBNetmask>("HBNetmask", NAME),
    text<&CFG_LM_NDI_GENERAL_S::sHBGateway>("HBGateway", NAME),
    text<&CFG_LM_NDI_GENERAL_S::sHBDns>("HBDns", NAME),
    text<&CFG_LM_NDI_GENERAL_S::sHBIpaddrFallback>("HBIpaddrFallback", NAME),
    text<&CFG_LM_NDI_GENERAL_S::sHBNetmaskFallback>("HBNetmaskFallback", NAME),
    text<&CFG_LM_NDI_GENERAL_S::sHBGatewayFallback>("HBGatewayFallback", NAME),
    number<&CFG_LM_NDI_GENERAL_S::bAudioEnable>("AudioEnable"),
};
constexpr store::Field<CFG_LM_DANTE_GENERAL_S> DANTE_GENERAL_FIELDS[] = {
    number<&CFG_LM_DANTE_GENERAL_S::bDanteEnable>("Enable"),
    number<&CFG_LM_DANTE_GENERAL_S::bTryMode>("TryMode"),
    text<&CFG_LM_DANTE_GENERAL_S::sManufacturerId>("ManufacturerId", NAME),
    text<&CFG_LM_DANTE_GENERAL_S::sManufacturerName>("ManufacturerName", NAME),
    text<&CFG_LM_DANTE_GENERAL_S::sModelId>("ModelId", NAME),
    text<&CFG_LM_DANTE_GENERAL_S::sModelName>("ModelName", NAME),
    text<&CFG_LM_DANTE_GENERAL_S::sDevicePrefix>("DevicePrefix", NAME),
};
// clang-format on

constexpr const BU_CHAR *GENERAL = "general"; // beside the numbers of the channels
constexpr BU_S32 MEDIA = SYSTEM_RESTORE_E_MEDIA;
const Record<Protocol> PROTOCOL{"LiveMedia/*/", PROTOCOL_FIELDS, MEDIA};
const Record<CFG_LM_RTSP_S> RTSP{"LiveMedia/*/rtsp/", RTSP_FIELDS, MEDIA, nullptr, faultOfSession};
const Record<CFG_LM_RTMP_S> RTMP{"LiveMedia/*/rtmp/", RTMP_FIELDS, MEDIA};
const Record<CFG_LM_NDI_S> NDI{"LiveMedia/*/ndi/", NDI_FIELDS, MEDIA};
const Record<CFG_LM_SRT_S> SRT{"LiveMedia/*/srt/", SRT_FIELDS, MEDIA, nullptr, faultOfSrt};
const Record<CFG_LM_RTSP_GENERAL_S> RTSP_GENERAL{"LiveMedia/*/rtsp/", RTSP_GENERAL_FIELDS, MEDIA, nullptr,
                                                 faultOfServer};
const Record<CFG_LM_NDI_GENERAL_S> NDI_GENERAL{"LiveMedia/*/ndi/", NDI_GENERAL_FIELDS, MEDIA};
const Record<CFG_LM_DANTE_GENERAL_S> DANTE_GENERAL{"LiveMedia/*/dante/", DANTE_GENERAL_FIELDS, MEDIA};

/// What a fresh camera streams: the four channels that have encoders, each at a URL of its own.
constexpr std::array<const BU_CHAR *, CFG_LM_CHN_E_BUTT> SESSION_NAMES = {
    nullptr, "closeup", "closeup_sub", "panorama", "panorama_sub", nullptr, nullptr};

bool isChannel(CFG_LM_CHN_E enChn) { return enChn > CFG_LM_CHN_E_NONE && enChn < CFG_LM_CHN_E_BUTT; }

CFG_LM_RTSP_S loadRtsp(CFG_LM_CHN_E enChn)
{
    CFG_LM_RTSP_S stCfg;
    if (const BU_CHAR *pcName = SESSION_NAMES[enChn]) stCfg = {BU_TRUE, pcName, CFG_LM_AUDIO_MODE_E_AAC};
    return RTSP.load(std::to_string(enChn), stCfg);
}

store::Fault faultOfSharedName(CFG_LM_CHN_E enChn, const std::string &strName)
{
    for (BU_S32 i = CFG_LM_CHN_E_CLOSEUP_MAIN; i < CFG_LM_CHN_E_BUTT; ++i)
        if (i != enChn && !strName.empty() && loadRtsp(static_cast<CFG_LM_CHN_E>(i)).sSessionName == strName)
            return "channel " + std::to_string(i) + " has the session name \"" + strName + "\"";
    return std::nullopt;
}

BU_S32 checkChannel(CFG_LM_CHN_E enChn, const void *pvCfg)
{
    if (pvCfg && isChannel(enChn)) return 0;
    return store::refuse("LiveMedia", pvCfg ? "there is no channel " + std::to_string(enChn) : "no record");
}

std::mutex lockSessionNames; // guards the step from "the name is free" to "the name is stored"
} // namespace

// How the records appear in the call journal; found through the records' namespace.
static std::string journalText(const CFG_LM_RTSP_S &st) { return RTSP.journalText(st); }
static std::string journalText(const CFG_LM_RTMP_S &st) { return RTMP.journalText(st); }
static std::string journalText(const CFG_LM_NDI_S &st) { return NDI.journalText(st); }
static std::string journalText(const CFG_LM_SRT_S &st) { return SRT.journalText(st); }
static std::string journalText(const CFG_LM_RTSP_GENERAL_S &st) { return RTSP_GENERAL.journalText(st); }
static std::string journalText(const CFG_LM_NDI_GENERAL_S &st) { return NDI_GENERAL.journalText(st); }

BU_S32 CFG_LM_LoadGeneralCfgAll(CFG_LM_GENERAL_S *pstCfg)
{
    if (const auto injected = journal::ask(__func__)) return *injected;
    if (!pstCfg) return -1;
    CFG_LM_GENERAL_S stCfg;
    stCfg.rtsp = RTSP_GENERAL.load(GENERAL);
    stCfg.ndi = NDI_GENERAL.load(GENERAL);
    stCfg.dante = DANTE_GENERAL.load(GENERAL);
    *pstCfg = std::move(stCfg);
    return 0;
}

BU_S32 CFG_LM_LoadAllOfChn(CFG_LM_CHN_E enChn, CFG_LM_CHANNEL_S *pstCfg)
{
    if (const auto injected = journal::ask(__func__, enChn)) return *injected;
    if (!pstCfg || !isChannel(enChn)) return -1;
    const std::string strChn = std::to_string(enChn);
    const Protocol stProtocol = PROTOCOL.load(strChn);
    CFG_LM_CHANNEL_S stCfg;
    stCfg.bProtoExclusive = stProtocol.bExclusive;
    stCfg.enProto = static_cast<CFG_LM_PROTO_E>(stProtocol.s32Proto);
    stCfg.rtsp = loadRtsp(enChn);
    stCfg.rtmp = RTMP.load(strChn);
    stCfg.ndi = NDI.load(strChn);
    stCfg.srt = SRT.load(strChn);
    *pstCfg = std::move(stCfg);
    return 0;
}

BU_S32 CFG_LM_SetStreamProtocol(CFG_LM_CHN_E enChn, CFG_LM_PROTO_E enProto, BU_BOOL bSaveCfg)
{
    if (const auto injected = journal::call(__func__, enChn, enProto, bSaveCfg)) return *injected;
    if (checkChannel(enChn, &enProto) != 0) return -1;
    if (PROTOCOL.check({BU_FALSE, enProto}, std::to_string(enChn)) != 0) return -1;
    return bSaveCfg ? PROTOCOL.put({{"Protocol", std::to_string(enProto)}}, std::to_string(enChn)) : 0;
}

BU_S32 CFG_LM_SetRtspCfgOfChn(CFG_LM_CHN_E enChn, const CFG_LM_RTSP_S *pstCfg)
{
    if (const auto injected = journal::call(__func__, enChn, pstCfg)) return *injected;
    if (checkChannel(enChn, pstCfg) != 0) return -1;
    const std::lock_guard guard(lockSessionNames);
    if (const auto fault = faultOfSharedName(enChn, pstCfg->sSessionName)) return store::refuse("LiveMedia", fault);
    return RTSP.save(*pstCfg, std::to_string(enChn));
}

BU_S32 CFG_LM_SetRtmpCfgOfChn(CFG_LM_CHN_E enChn, const CFG_LM_RTMP_S *pstCfg)
{
    if (const auto injected = journal::call(__func__, enChn, pstCfg)) return *injected;
    if (checkChannel(enChn, pstCfg) != 0) return -1;
    return RTMP.save(*pstCfg, std::to_string(enChn));
}

BU_S32 CFG_LM_SetNdiCfgOfChn(CFG_LM_CHN_E enChn, const CFG_LM_NDI_S *pstCfg)
{
    if (const auto injected = journal::call(__func__, enChn, pstCfg)) return *injected;
    if (checkChannel(enChn, pstCfg) != 0) return -1;
    return NDI.save(*pstCfg, std::to_string(enChn));
}

BU_S32 CFG_LM_SetSrtCfgOfChn(CFG_LM_CHN_E enChn, const CFG_LM_SRT_S *pstCfg)
{
    if (const auto injected = journal::call(__func__, enChn, pstCfg)) return *injected;
    if (checkChannel(enChn, pstCfg) != 0) return -1;
    return SRT.save(*pstCfg, std::to_string(enChn));
}

BU_S32 CFG_LM_SaveRtspGeneralCfg(const CFG_LM_RTSP_GENERAL_S *pstCfg)
{
    if (const auto injected = journal::call(__func__, pstCfg)) return *injected;
    return pstCfg ? RTSP_GENERAL.save(*pstCfg, GENERAL) : -1;
}

BU_S32 CFG_LM_SaveNdiGeneralCfg(const CFG_LM_NDI_GENERAL_S *pstCfg)
{
    if (const auto injected = journal::call(__func__, pstCfg)) return *injected;
    return pstCfg ? NDI_GENERAL.save(*pstCfg, GENERAL) : -1;
}
