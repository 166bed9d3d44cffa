/// Web calls, the camera's side: handlers by event, and the library that calls them for the web server processes.
///
/// Web servers connect to the Unix-domain socket "/var/run/web_rpc" of the device root. For each call the library makes
/// the request with the event's factory and loads the received image into it, makes the response with its factory,
/// calls the handler once, and sends an image of the response's getSize() bytes, filled by its dumpBytes over zeros;
/// both objects are deleted through the base. An event without a handler, and an image of another size than the
/// request's getSize(), are answered with an error and reach no handler. Register everything before the start. Handlers
/// run on threads of the library: those of one page (see web/events.h) in the order of the calls, one at a time, pages
/// side by side.
#pragma once

#include "web/eventGroup.h"
#include "web/payload.h"

#include <memory>

/// @return 0, or -1: no such event, no handler, or the library has started
BU_S32 WEB_RPC_RegisterMainHandler(tag_WEB_RPC_EVENT_GROUP_E enEvent,
                                   void (*pfnHandler)(WEB_RPC_PAYLOAD_S *pstRequest, WEB_RPC_PAYLOAD_S *pstResponse));
/// The factory of the event's requests: a fresh object whose fields are all 0. @return as above
BU_S32 WEB_RPC_RegisterReqPayloadCreator(tag_WEB_RPC_EVENT_GROUP_E enEvent, WEB_RPC_PAYLOAD_S *(*pfnCreate)());
/// The factory of the event's responses. @return as above
BU_S32 WEB_RPC_RegisterResPayloadCreator(tag_WEB_RPC_EVENT_GROUP_E enEvent, WEB_RPC_PAYLOAD_S *(*pfnCreate)());

/// A type of record with a field list (see web/layout.h), and how a fresh one is made.
struct WEB_RPC_RECORD_S {
    const web_layout::Record *pstRecord;
    std::shared_ptr<void> (*fnCreate)();
};
template <class T>
inline constexpr WEB_RPC_RECORD_S WEB_RPC_RECORD{&web_layout::RECORD<T>,
                                                 []() -> std::shared_ptr<void> { return std::make_shared<T>(); }};

/// Answers a question. @param pvRequest, pvAnswer  objects of the registered types
/// @return null: answered; else why not, a sentence: the question is refused
typedef const BU_CHAR *(*PFN_WEB_RPC_ANSWER)(const void *pvRequest, void *pvAnswer);

/// Registers what web servers may ask beside the events, by a name of at most 64 characters. Request and answer travel
/// as JSON objects of their fields. Questions of one name are answered in their order, one at a time; what is no
/// object of the request's fields reaches no handler. @return as above
BU_S32 WEB_RPC_RegisterQuestion(const BU_CHAR *pcName, const WEB_RPC_RECORD_S &stRequest,
                                const WEB_RPC_RECORD_S &stAnswer, PFN_WEB_RPC_ANSWER pfnAnswer);

/// Tells every web server a piece of news, a JSON object of the record's fields. Never waits: for a web server that
/// has no room for it now, newer news of the same subject takes its place. @return how many web servers there are
/// Thread: any, at any time.
BU_S32 WEB_RPC_Tell(const BU_CHAR *pcSubject, const web_layout::Record &stRecord, const void *pvNews);

/// Starts to listen. @return 0 (also when it listens already), -1: the socket cannot be opened
BU_S32 WEB_RPC_InitForAppMain();
/// Stops: closes every connection and waits for handlers that run; the registrations stay. @param bReserved  not looked
/// at
/// @return 0
BU_S32 WEB_RPC_UnInitForAppMain(BU_BOOL bReserved);
