/// Live media run by the media pipeline itself: all of it on models whose service runs no outputs, and the session
/// records that the menu and the ONVIF service edit. Thread: any.
#pragma once

#include "base/types.h"

#include <list>
#include <memory>
#include <string>

/// A stream of a session. s32StreamCacheId -1: none.
struct tag_CFG_RTSP_SUBSESSION_T {
    std::string sName;
    BU_S32 s32StreamCacheId;
};
struct tag_CFG_RTSP_SESSION_T {
    std::string sName;
    std::list<tag_CFG_RTSP_SUBSESSION_T> subsession;
};
struct tag_CFG_NDI_SESSION_T {
    BU_S32 s32Id = -1;
    BU_BOOL bEnabled = BU_FALSE;
    std::string sDeviceName, sStreamName, sGroupName;
    BU_S32 sTransmitMethod = 1; ///< as in CFG_LM_NDI_CONNECTION_E
    BU_BOOL bMulticastEnabled = BU_FALSE;
    std::string sMulticastIp = "239.255.0.0", sMulticastNetmask = "255.255.0.0";
    BU_S32 s32MulticastTTL = 1;
    BU_BOOL bDiscoveryEnabled = BU_FALSE;
    std::string sDiscoveryServer;
    BU_S32 s32MainVideoStreamCacheId = -1, s32SubVideoStreamCacheId = -1, s32AudioStreamCacheId = -1; ///< -1: none
};
typedef tag_CFG_NDI_SESSION_T CFG_NDI_SESSION_S;

/// Starts every output the pipeline is configured for. @return 0 or -1
BU_S32 MPP_LM_LoadAllLiveMediaService();
/// Stops them. @return 0, also when none runs
BU_S32 MPP_LM_StopAllLiveMediaService();

/// @return 0, or -1: no instance of that number; the record is untouched
BU_S32 MPP_NDI_GetInstance(BU_S32 s32Id, tag_CFG_NDI_SESSION_T &stCfg);
/// Applies the record to the instance of its number; bSaveCfg stores it. @return 0 or -1
BU_S32 MPP_NDI_UpdateInstance(tag_CFG_NDI_SESSION_T stCfg, BU_BOOL bSaveCfg);

/// Copies of the sessions, in the order of their making.
std::list<std::shared_ptr<tag_CFG_RTSP_SESSION_T>> MPP_RTSP_ListMediaSession();
/// Makes the session and its stream where they are missing. @param s32CacheId  stream cache, -1: none. @return 0 or -1
BU_S32 MPP_RTSP_AddOrUpdateMediaSubsession(const BU_CHAR *pcSession, const BU_CHAR *pcSub, BU_S32 s32CacheId);
/// @param bSaveCfg  also forgets it in the store. @return 0, or -1: no such session
BU_S32 MPP_RTSP_DeleteMediaSession(const BU_CHAR *pcSession, BU_BOOL bSaveCfg);
