/// Web calls, the camera's side: handlers by event, and the library that calls them for the web server processes.
///
/// Web servers connect to the Unix-domain socket "/var/run/web_rpc" of the device root. For each call the library makes
/// the request with the event's factory and loads the received image into it, makes the response with its factory,
/// calls the handler once, and sends an image of the response's getSize() bytes, filled by its dumpBytes over zeros;
/// both objects are deleted through the base. An event without a handler, and an image of another size than the
/// request's getSize(), are answered with an error and reach no handler. Register everything before the start. Handlers
/// run on threads of the library, several at once.
#pragma once

#include "web/eventGroup.h"
#include "web/payload.h"

/// @return 0, or -1: no such event, no handler, or the library has started
BU_S32 WEB_RPC_RegisterMainHandler(tag_WEB_RPC_EVENT_GROUP_E enEvent,
                                   void (*pfnHandler)(WEB_RPC_PAYLOAD_S *pstRequest, WEB_RPC_PAYLOAD_S *pstResponse));
/// The factory of the event's requests: a fresh object whose fields are all 0. @return as above
BU_S32 WEB_RPC_RegisterReqPayloadCreator(tag_WEB_RPC_EVENT_GROUP_E enEvent, WEB_RPC_PAYLOAD_S *(*pfnCreate)());
/// The factory of the event's responses. @return as above
BU_S32 WEB_RPC_RegisterResPayloadCreator(tag_WEB_RPC_EVENT_GROUP_E enEvent, WEB_RPC_PAYLOAD_S *(*pfnCreate)());

/// Starts to listen. @return 0 (also when it listens already), -1: the socket cannot be opened
BU_S32 WEB_RPC_InitForAppMain();
/// Stops: closes every connection and waits for handlers that run; the registrations stay. @param bReserved  not looked
/// at
/// @return 0
BU_S32 WEB_RPC_UnInitForAppMain(BU_BOOL bReserved);
