/// The RTSP server library: one server, sessions by name, each with subsessions fed from stream caches.
///
/// Order of use: RTSP_ServiceInit, ports and credentials, sessions, RTSP_ServiceStart; to end it RTSP_ServicePause,
/// then RTSP_ServiceStop, after which it may be initialised again. One thread at a time builds and stops the server;
/// the two functions for a changed encoder may come from a pipeline thread while it serves. Clients are served on the
/// library's own threads. A null session or subsession is answered with -1 and nothing happens.
#pragma once

#include "base/types.h"
#include "media/stream.h"

struct RTSP_MEDIA_SESSION_T;
struct RTSP_MEDIA_SUBSESSION_T;

/// Prepares a server without sessions and without credentials; nothing listens yet.
/// @param s32Port  1..65535; the PC platform adds its port offset. @return 0, or -1: bad port, or still running
BU_S32 RTSP_ServiceInit(BU_S32 s32Port);

/// Also accepts RTSP tunnelled through HTTP, on a port of its own. @return 0, or -1: bad port, or running already
BU_S32 RTSP_SetRtspOverHttpPort(BU_S32 s32Port);

/// Adds an accepted user name and password, digest and basic; with none, everybody is let in.
/// @return 0, or -1: null or empty name
BU_S32 RTSP_SetAuthentication(const BU_CHAR *pcUser, const BU_CHAR *pcPassword);

/// Listens and serves. @return 0, or -1: not prepared, or a port is taken; the reason is logged
BU_S32 RTSP_ServiceStart();

/// Accepts no more clients. @return 0, also when not running
BU_S32 RTSP_ServicePause();

/// Disconnects the clients, closes the ports and frees every session that was added; the caller only forgets its
/// pointers. @return 0, also when not running
BU_S32 RTSP_ServiceStop();

/// @param ppstSession  the new session, the caller's until it is added; null on failure
/// @param pcName       path of its URL, rtsp://host/<name>. @return 0, or -1: no name, or the name is in use
BU_S32 RTSP_createMediaSession(RTSP_MEDIA_SESSION_T **ppstSession, const BU_CHAR *pcName);

/// @param ppstSub     the new subsession, the caller's until it is added to a session; null on failure
/// @param pstCache    where its packets come from; must outlive the server
/// @param pcName      "video" or "audio"
/// @param s32BitRate  for the session description, in the unit of STREAM_getStreamCacheBitRate; 0: not stated
BU_S32 RTSP_createSubsession(RTSP_MEDIA_SUBSESSION_T **ppstSub, STREAM_CACHE_S *pstCache, const BU_CHAR *pcName,
                             BU_S32 s32BitRate);

/// The session owns the subsession from here on. @return 0, or -1
BU_S32 RTSP_addMediaSubsession(RTSP_MEDIA_SESSION_T *pstSession, RTSP_MEDIA_SUBSESSION_T *pstSub);

/// The server owns the session from here on; clients reach it by name once the service runs. @return 0, or -1
BU_S32 RTSP_addMediaSession(RTSP_MEDIA_SESSION_T *pstSession);

/// Frees a session that was not added, with its subsessions, and clears the pointer. @return 0, or -1: nothing there
BU_S32 RTSP_destroyMediaSession(RTSP_MEDIA_SESSION_T **ppstSession);

/// Compares what a session announces with its caches and renews what differs (codec, size, audio format); clients that
/// watch a renewed stream get the new one. @param ppstSession  renewed in place when the library rebuilds the session
/// @return 0, or -1: no session
BU_S32 RTSP_checkAllMediaSubsessionCorrect(RTSP_MEDIA_SESSION_T **ppstSession);

/// Takes bit rate and frame rate over from the caches; nobody is interrupted. @return 0, or -1: no session
BU_S32 RTSP_updateSubsessionBitRateAndFrameRate(RTSP_MEDIA_SESSION_T *pstSession);
