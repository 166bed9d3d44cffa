// Routes that ask the camera: events, settings, presets, position.
#include "eventApi.h"
#include "handlers.h"
#include "http/headers.h"
#include "web/events.h"

#include <cctype>

namespace web_server
{
namespace
{
constexpr BU_U32 QUESTION_TIMEOUT_MS = 3000;

/// A question whose answer is what the browser gets.
Outcome ask(std::string_view strQuestion, std::string strJson = {})
{
    return Question{std::string(strQuestion), std::move(strJson), QUESTION_TIMEOUT_MS,
                    [](WEB_CLIENT_RESULT_E enResult, std::string_view strAnswer) {
                        return enResult == WEB_CLIENT_RESULT_E_OK ? answer(std::string(strAnswer))
                                                                  : failure(enResult, strAnswer);
                    }};
}

bool isDigit(char c) { return c >= '0' && c <= '9'; }
} // namespace

Outcome getPage(Desk &, const Visit &stVisit)
{
    if (auto strFile = http::pagePath(stVisit.stRequest.strPath)) return File{true, std::move(*strFile)};
    return problem(404, "there is no such page");
}

Outcome callEvent(Desk &, const Visit &stVisit)
{
    const WEB_EVENT_S *pstEvent = findWebEvent(stVisit.strRest);
    if (!pstEvent) return problem(404, "there is no such event");
    if (stVisit.enRole < roleOf(*pstEvent)) return problem(403, "this user may not do that");
    EventCall stCall{pstEvent->enEvent, {}, pstEvent->u32TimeoutMs, {}};
    if (const std::string strFault = readRequest(*pstEvent, stVisit.stRequest.strBody, stCall.strImage);
        !strFault.empty())
        return problem(400, strFault);
    if (stVisit.enRole < roleOf(*pstEvent, stCall.strImage)) return problem(403, "this user may not do that");
    stCall.strSession = stVisit.strSession;
    stCall.fnFinish = [pstEvent, strRequest = stCall.strImage](WEB_CLIENT_RESULT_E enResult,
                                                               std::string_view strImage) {
        if (enResult != WEB_CLIENT_RESULT_E_OK) return failure(enResult, strImage);
        std::string strJson = writeResponse(*pstEvent, strRequest, strImage);
        return strJson.empty() ? problem(502, "the camera's answer has a wrong size") : answer(std::move(strJson));
    };
    return stCall;
}

Outcome askSettings(Desk &, const Visit &) { return ask("settings"); }
Outcome askPresets(Desk &, const Visit &) { return ask("presets"); }
Outcome askPosition(Desk &, const Visit &) { return ask("position"); }

Outcome centre(Desk &, const Visit &, const CentreBody &stBody)
{
    const auto isInside = [](float f) { return f >= 0 && f <= 1; };
    if (!isInside(stBody.x) || !isInside(stBody.y)) return problem(400, "x and y must be numbers from 0 to 1");
    return ask("centre",
               web_client::writeRecord(web_layout::RECORD<CentreBody>, reinterpret_cast<const BU_CHAR *>(&stBody)));
}

Outcome menu(Desk &, const Visit &, const MenuBody &stBody)
{
    return ask("menu",
               web_client::writeRecord(web_layout::RECORD<MenuBody>, reinterpret_cast<const BU_CHAR *>(&stBody)));
}

Outcome getPicture(Desk &, const Visit &stVisit)
{
    constexpr std::string_view END = ".jpg";
    std::string_view id = stVisit.strRest;
    if (!id.ends_with(END)) return problem(404, "there is no such picture");
    id.remove_suffix(END.size());
    const bool bNumber = !id.empty() && id.size() <= 3 && std::all_of(id.begin(), id.end(), isDigit);
    if (!bNumber || (id.size() > 1 && id.front() == '0')) return problem(404, "there is no such picture");
    return File{false, "/var/web/presets/" + stVisit.strRest};
}

Outcome openNews(Desk &, const Visit &stVisit) { return NewsStream{stVisit.strSession}; }

Outcome openPreview(Desk &, const Visit &stVisit)
{
    if (stVisit.strRest != "ch1" && stVisit.strRest != "ch2") return problem(404, "there is no such channel");
    return PreviewProxy{stVisit.strRest, stVisit.strSession};
}
} // namespace web_server
