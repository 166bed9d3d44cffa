/// The web server's side of the web calls: calls, questions and news over the camera's Unix-domain socket
/// ("/var/run/web_rpc" of the device root). One connection, made and made again by a thread of the library.
///
/// Answers and news come on that thread; a callback must not block. Functions: any thread; none but WEB_CLIENT_Stop
/// waits. Calls of one page (see web/events.h) reach the camera and run there in their order, different pages side by
/// side.
#pragma once

#include "web/eventGroup.h"

#include <functional>
#include <string>
#include <string_view>

enum WEB_CLIENT_RESULT_E : BU_S32 {
    WEB_CLIENT_RESULT_E_OK = 0,
    WEB_CLIENT_RESULT_E_GONE = -1,    ///< no camera is there, or it went before it answered
    WEB_CLIENT_RESULT_E_TIMEOUT = -2, ///< no answer in time
    WEB_CLIENT_RESULT_E_UNKNOWN = -3, ///< nobody handles this event, or knows this question
    WEB_CLIENT_RESULT_E_REFUSED = -4, ///< a request of the wrong size, or one that the question does not allow
    WEB_CLIENT_RESULT_E_BUSY = -5     ///< too many calls are waiting
};
/// @param strAnswer  the image of the response, or the JSON text of the answer; when refused a text that says why
typedef std::function<void(WEB_CLIENT_RESULT_E enResult, std::string_view strAnswer)> FN_WEB_CLIENT_ANSWER;

/// Starts the connection. @param fnUp  told of each change: the camera is there, or gone
/// @param fnNews  gets each piece of news, a JSON object in one line: a setting, a preset, a position has changed. Who
///   takes them too slowly hears only the newest of each. A preset is told once more when it has got its picture.
/// @return 0, or -1: started already
BU_S32 WEB_CLIENT_Start(std::function<void(BU_BOOL bUp)> fnUp, std::function<void(std::string_view strJson)> fnNews);
/// Ends it: what still waits is answered GONE before the call returns. Not from a callback. @return 0
BU_S32 WEB_CLIENT_Stop();

/// Calls an event. The answer comes exactly once; while nothing is started, inside the call. @param u32Timeout  [ms]
void WEB_CLIENT_Call(tag_WEB_RPC_EVENT_GROUP_E enEvent, std::string_view strImage, BU_U32 u32Timeout,
                     FN_WEB_CLIENT_ANSWER fnAnswer);
/// Asks one of the questions that are not events ("settings", "presets", "position", "centre", "menu"; see
/// docs/web-api.md).
/// @param strJson  an object, or empty
void WEB_CLIENT_Ask(std::string_view strQuestion, std::string_view strJson, BU_U32 u32Timeout,
                    FN_WEB_CLIENT_ANSWER fnAnswer);
