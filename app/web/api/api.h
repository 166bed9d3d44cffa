/// What web servers ask beside the events, and the news that they get: a source a subject.
#pragma once

#include "web/webRpc.h"

namespace web
{
/// A request without fields.
struct Nothing {
};

/// Registers the answer to a question: `const BU_CHAR *answer(const Request &, Answer &)` returns null, or why not.
template <class Request, class Answer, const BU_CHAR *(*ANSWER)(const Request &, Answer &)>
void registerQuestion(const BU_CHAR *pcName)
{
    WEB_RPC_RegisterQuestion(
        pcName, WEB_RPC_RECORD<Request>, WEB_RPC_RECORD<Answer>, [](const void *pvRequest, void *pvAnswer) {
            return ANSWER(*static_cast<const Request *>(pvRequest), *static_cast<Answer *>(pvAnswer));
        });
}

template <class News> BU_S32 tell(const BU_CHAR *pcSubject, const News &stNews)
{
    return WEB_RPC_Tell(pcSubject, web_layout::RECORD<News>, &stNews);
}

/// Begins before the web calls do, ends after them.
struct Subject {
    void (*pfnStart)();
    void (*pfnStop)() = nullptr;
};
extern const Subject SETTINGS, PRESETS, POSITION, CENTRE, MENU;
inline const Subject *const SUBJECTS[] = {&SETTINGS, &PRESETS, &POSITION, &CENTRE, &MENU};
} // namespace web
