#include "config/liveMedia.h"

#include "fields.h"
#include "rules.h"
#include "util/journal.h"

#include <array>
#include <climits>
#include <mutex>

namespace store = live_media_store;

namespace
{
constexpr BU_S32 NAME = 64, URL = 256, PORT = 65535, AUDIO = CFG_LM_AUDIO_MODE_E_BUTT - 1; // largest values
constexpr bool SECRET = true;

// The keys of a camera's stored settings: once released they stay as they are.
// clang-format off
struct tagPROTOCOL_S { BU_BOOL bExclusive = BU_FALSE; BU_S32 s32Proto = CFG_LM_PROTO_E_NONE; };
constexpr store::tagFIELD_S<tagPROTOCOL_S> PROTOCOL[] = {
    {"Exclusive", &tagPROTOCOL_S::bExclusive},
    {"Protocol",  &tagPROTOCOL_S::s32Proto, CFG_LM_PROTO_E_NONE, CFG_LM_PROTO_E_BUTT - 1},
};
constexpr store::tagFIELD_S<CFG_LM_RTSP_S> RTSP[] = {
    {"Enable",      &CFG_LM_RTSP_S::bEnabled},
    {"SessionName", &CFG_LM_RTSP_S::sSessionName, 0, NAME},
    {"Audio",       &CFG_LM_RTSP_S::eAudio, 0, AUDIO},
};
constexpr store::tagFIELD_S<CFG_LM_RTMP_S> RTMP[] = {
    {"Enable",     &CFG_LM_RTMP_S::bEnabled},
    {"Server",     &CFG_LM_RTMP_S::sServer, 0, URL},
    {"StreamCode", &CFG_LM_RTMP_S::sStreamCode, 0, URL, SECRET},
    {"AuthEnable", &CFG_LM_RTMP_S::bAuthEnable},
    {"Username",   &CFG_LM_RTMP_S::sUsername, 0, NAME},
    {"Password",   &CFG_LM_RTMP_S::sPassword, 0, NAME, SECRET},
    {"Video",      &CFG_LM_RTMP_S::s32Video, INT_MIN, INT_MAX},
    {"Audio",      &CFG_LM_RTMP_S::eAudio, 0, AUDIO},
};
constexpr store::tagFIELD_S<CFG_LM_NDI_S> NDI[] = {
    {"Enable",     &CFG_LM_NDI_S::bEnabled},
    {"StreamName", &CFG_LM_NDI_S::sStreamName, 0, NAME},
};
constexpr store::tagFIELD_S<CFG_LM_SRT_S> SRT[] = {
    {"Enable",   &CFG_LM_SRT_S::bEnabled},
    {"Listener", &CFG_LM_SRT_S::bIsListener},
    {"StreamId", &CFG_LM_SRT_S::sStreamId, 0, URL},
    {"Hostname", &CFG_LM_SRT_S::sHostname, 0, 60},
    {"Port",     &CFG_LM_SRT_S::s32Port, 0, PORT},
    {"AesMode",  &CFG_LM_SRT_S::s32AesMode, 0, 32},
    {"Password", &CFG_LM_SRT_S::sPassword, 0, 80, SECRET},
    {"Latency",  &CFG_LM_SRT_S::s32Latency, 0, INT_MAX},
    {"Audio",    &CFG_LM_SRT_S::eAudio, 0, AUDIO},
};
constexpr store::tagFIELD_S<CFG_LM_RTSP_GENERAL_S> RTSP_GENERAL[] = {
    {"Port",       &CFG_LM_RTSP_GENERAL_S::s32Port, 1, PORT},
    {"HttpEnable", &CFG_LM_RTSP_GENERAL_S::bHttpEnable},
    {"HttpPort",   &CFG_LM_RTSP_GENERAL_S::s32HttpPort, 0, PORT},
    {"AuthEnable", &CFG_LM_RTSP_GENERAL_S::bAuthEnable},
    {"Username",   &CFG_LM_RTSP_GENERAL_S::sUsername, 0, NAME},
    {"Password",   &CFG_LM_RTSP_GENERAL_S::sPassword, 0, NAME, SECRET},
};
constexpr store::tagFIELD_S<CFG_LM_NDI_GENERAL_S> NDI_GENERAL[] = {
    {"MachineName",       &CFG_LM_NDI_GENERAL_S::sMachineName, 0, NAME},
    {"GroupName",         &CFG_LM_NDI_GENERAL_S::sGroupName, 0, NAME},
    {"MulticastEnable",   &CFG_LM_NDI_GENERAL_S::bMulticastEnabled},
    {"MulticastIp",       &CFG_LM_NDI_GENERAL_S::sMulticastIp, 0, NAME},
    {"MulticastNetmask",  &CFG_LM_NDI_GENERAL_S::sMulticastNetmask, 0, NAME},
    {"MulticastTTL",      &CFG_LM_NDI_GENERAL_S::s32MulticastTTL, 0, 255},
    {"TransmitMethod",    &CFG_LM_NDI_GENERAL_S::s32TransmitMethod, 0, CFG_LM_NDI_CONNECTION_E_BUTT - 1},
    {"DiscoveryEnable",   &CFG_LM_NDI_GENERAL_S::bDiscoveryServerEnable},
    {"DiscoveryServer",   &CFG_LM_NDI_GENERAL_S::sDiscoveryServer, 0, URL},
    {"StreamNameHB",      &CFG_LM_NDI_GENERAL_S::sStreamNameHB, 0, NAME},
    {"HBEnable",          &CFG_LM_NDI_GENERAL_S::bNdiHBEnable},
    {"HBIpMode",          &CFG_LM_NDI_GENERAL_S::s32HBIpMode, INT_MIN, INT_MAX},
    {"HBIpaddr",          &CFG_LM_NDI_GENERAL_S::sHBIpaddr, 0, NAME},
    {"HBNetmask",         &CFG_LM_NDI_GENERAL_S::sHBNetmask, 0, NAME},
    {"HBGateway",         &CFG_LM_NDI_GENERAL_S::sHBGateway, 0, NAME},
    {"HBDns",             &CFG_LM_NDI_GENERAL_S::sHBDns, 0, NAME},
    {"HBIpaddrFallback",  &CFG_LM_NDI_GENERAL_S::sHBIpaddrFallback, 0, NAME},
    {"HBNetmaskFallback", &CFG_LM_NDI_GENERAL_S::sHBNetmaskFallback, 0, NAME},
    {"HBGatewayFallback", &CFG_LM_NDI_GENERAL_S::sHBGatewayFallback, 0, NAME},
    {"AudioEnable",       &CFG_LM_NDI_GENERAL_S::bAudioEnable},
};
constexpr store::tagFIELD_S<CFG_LM_DANTE_GENERAL_S> DANTE_GENERAL[] = {
    {"Enable",           &CFG_LM_DANTE_GENERAL_S::bDanteEnable},
    {"TryMode",          &CFG_LM_DANTE_GENERAL_S::bTryMode},
    {"ManufacturerId",   &CFG_LM_DANTE_GENERAL_S::sManufacturerId, 0, NAME},
    {"ManufacturerName", &CFG_LM_DANTE_GENERAL_S::sManufacturerName, 0, NAME},
    {"ModelId",          &CFG_LM_DANTE_GENERAL_S::sModelId, 0, NAME},
    {"ModelName",        &CFG_LM_DANTE_GENERAL_S::sModelName, 0, NAME},
    {"DevicePrefix",     &CFG_LM_DANTE_GENERAL_S::sDevicePrefix, 0, NAME},
};
// clang-format on

template <class Record, std::size_t N> store::Fields<Record> all(const store::tagFIELD_S<Record> (&astFields)[N])
{
    return astFields;
}

/// What a fresh camera streams: the four channels that have encoders, each at a URL of its own.
constexpr std::array<const BU_CHAR *, CFG_LM_CHN_E_BUTT> SESSION_NAMES = {
    nullptr, "closeup", "closeup_sub", "panorama", "panorama_sub", nullptr, nullptr};

bool isChannel(CFG_LM_CHN_E enChn) { return enChn > CFG_LM_CHN_E_NONE && enChn < CFG_LM_CHN_E_BUTT; }

std::string folderOf(CFG_LM_CHN_E enChn, const BU_CHAR *pcProtocol)
{
    return "LiveMedia/" + std::to_string(enChn) + "/" + pcProtocol;
}

CFG_LM_RTSP_S loadRtsp(CFG_LM_CHN_E enChn)
{
    CFG_LM_RTSP_S stCfg;
    if (const BU_CHAR *pcName = SESSION_NAMES[enChn]) stCfg = {BU_TRUE, pcName, CFG_LM_AUDIO_MODE_E_AAC};
    return store::load(folderOf(enChn, "rtsp/"), all(RTSP), stCfg, store::faultOfSession);
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
static std::string journalText(const CFG_LM_RTSP_S &st) { return store::journalFields(all(RTSP), st); }
static std::string journalText(const CFG_LM_RTMP_S &st) { return store::journalFields(all(RTMP), st); }
static std::string journalText(const CFG_LM_NDI_S &st) { return store::journalFields(all(NDI), st); }
static std::string journalText(const CFG_LM_SRT_S &st) { return store::journalFields(all(SRT), st); }
static std::string journalText(const CFG_LM_RTSP_GENERAL_S &st) { return store::journalFields(all(RTSP_GENERAL), st); }
static std::string journalText(const CFG_LM_NDI_GENERAL_S &st) { return store::journalFields(all(NDI_GENERAL), st); }

BU_S32 CFG_LM_LoadGeneralCfgAll(CFG_LM_GENERAL_S *pstCfg)
{
    if (const auto injected = journal::ask(__func__)) return *injected;
    if (!pstCfg) return -1;
    CFG_LM_GENERAL_S stCfg;
    stCfg.rtsp = store::load("LiveMedia/general/rtsp/", all(RTSP_GENERAL), stCfg.rtsp, store::faultOfServer);
    stCfg.ndi = store::load("LiveMedia/general/ndi/", all(NDI_GENERAL), stCfg.ndi);
    stCfg.dante = store::load("LiveMedia/general/dante/", all(DANTE_GENERAL), stCfg.dante);
    *pstCfg = std::move(stCfg);
    return 0;
}

BU_S32 CFG_LM_LoadAllOfChn(CFG_LM_CHN_E enChn, CFG_LM_CHANNEL_S *pstCfg)
{
    if (const auto injected = journal::ask(__func__, enChn)) return *injected;
    if (!pstCfg || !isChannel(enChn)) return -1;
    const tagPROTOCOL_S stProtocol = store::load(folderOf(enChn, ""), all(PROTOCOL), tagPROTOCOL_S{});
    CFG_LM_CHANNEL_S stCfg;
    stCfg.bProtoExclusive = stProtocol.bExclusive;
    stCfg.enProto = static_cast<CFG_LM_PROTO_E>(stProtocol.s32Proto);
    stCfg.rtsp = loadRtsp(enChn);
    stCfg.rtmp = store::load(folderOf(enChn, "rtmp/"), all(RTMP), stCfg.rtmp);
    stCfg.ndi = store::load(folderOf(enChn, "ndi/"), all(NDI), stCfg.ndi);
    stCfg.srt = store::load(folderOf(enChn, "srt/"), all(SRT), stCfg.srt, store::faultOfSrt);
    *pstCfg = std::move(stCfg);
    return 0;
}

BU_S32 CFG_LM_SetStreamProtocol(CFG_LM_CHN_E enChn, CFG_LM_PROTO_E enProto, BU_BOOL bSaveCfg)
{
    if (const auto injected = journal::call(__func__, enChn, enProto, bSaveCfg)) return *injected;
    if (checkChannel(enChn, &enProto) != 0) return -1;
    if (enProto < CFG_LM_PROTO_E_NONE || enProto >= CFG_LM_PROTO_E_BUTT)
        return store::refuse(folderOf(enChn, "Protocol"), "there is no protocol " + std::to_string(enProto));
    return bSaveCfg ? CFG_STORE_SetText(folderOf(enChn, "Protocol").c_str(), std::to_string(enProto).c_str()) : 0;
}

BU_S32 CFG_LM_SetRtspCfgOfChn(CFG_LM_CHN_E enChn, const CFG_LM_RTSP_S *pstCfg)
{
    if (const auto injected = journal::call(__func__, enChn, pstCfg)) return *injected;
    if (checkChannel(enChn, pstCfg) != 0) return -1;
    const std::string strFolder = folderOf(enChn, "rtsp/");
    const std::lock_guard guard(lockSessionNames);
    if (const auto fault = faultOfSharedName(enChn, pstCfg->sSessionName)) return store::refuse(strFolder, fault);
    return store::save(strFolder, all(RTSP), *pstCfg, store::faultOfSession);
}

BU_S32 CFG_LM_SetRtmpCfgOfChn(CFG_LM_CHN_E enChn, const CFG_LM_RTMP_S *pstCfg)
{
    if (const auto injected = journal::call(__func__, enChn, pstCfg)) return *injected;
    if (checkChannel(enChn, pstCfg) != 0) return -1;
    return store::save(folderOf(enChn, "rtmp/"), all(RTMP), *pstCfg);
}

BU_S32 CFG_LM_SetNdiCfgOfChn(CFG_LM_CHN_E enChn, const CFG_LM_NDI_S *pstCfg)
{
    if (const auto injected = journal::call(__func__, enChn, pstCfg)) return *injected;
    if (checkChannel(enChn, pstCfg) != 0) return -1;
    return store::save(folderOf(enChn, "ndi/"), all(NDI), *pstCfg);
}

BU_S32 CFG_LM_SetSrtCfgOfChn(CFG_LM_CHN_E enChn, const CFG_LM_SRT_S *pstCfg)
{
    if (const auto injected = journal::call(__func__, enChn, pstCfg)) return *injected;
    if (checkChannel(enChn, pstCfg) != 0) return -1;
    return store::save(folderOf(enChn, "srt/"), all(SRT), *pstCfg, store::faultOfSrt);
}

BU_S32 CFG_LM_SaveRtspGeneralCfg(const CFG_LM_RTSP_GENERAL_S *pstCfg)
{
    if (const auto injected = journal::call(__func__, pstCfg)) return *injected;
    return pstCfg ? store::save("LiveMedia/general/rtsp/", all(RTSP_GENERAL), *pstCfg, store::faultOfServer) : -1;
}

BU_S32 CFG_LM_SaveNdiGeneralCfg(const CFG_LM_NDI_GENERAL_S *pstCfg)
{
    if (const auto injected = journal::call(__func__, pstCfg)) return *injected;
    return pstCfg ? store::save("LiveMedia/general/ndi/", all(NDI_GENERAL), *pstCfg) : -1;
}
