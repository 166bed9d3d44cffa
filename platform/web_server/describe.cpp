// The description of the API for people, from routes and events.
#include "describe.h"

#include "eventApi.h"
#include "routes.h"
#include "web/events.h"

#include <map>

using namespace web_layout;

namespace web_server
{
namespace
{
constexpr const char *INTRODUCTION = R"(# The web API

Written by `scripts/web-api` from the tables of the web server; do not edit.

Everything is JSON in UTF-8. What goes wrong is answered with a status of 400 or more and `{"error": "<a sentence>"}`:

| status | when |
|---|---|
| 400 | the request makes no sense: a field that does not exist, a value that the field cannot hold |
| 401, 403 | nobody is logged in; the user may not do that, or the request comes from another page |
| 404, 405 | there is no such thing; it has no such method (`Allow` says which) |
| 409 | it cannot be done now |
| 413, 415 | the body is too long; it is not `application/json` |
| 421 | the browser calls the camera by a name that is none of its own (see `CAMERA_WEB_HOSTS`) |
| 429 | too many attempts to log in: `Retry-After` says how many seconds to wait |
| 503, 504 | the camera is not there or busy; it did not answer in time |

A login gives the cookie `camera_session`, over HTTPS `__Host-camera_session`. It holds until the logout, for 12 hours without a request, and 7 days at most.
`camera_device` beside it tells later logins that this browser is known: it need not wait because others have failed.
A request that changes something, and a WebSocket, must come from the camera's own page or from no page (`Origin`).

```sh
curl -c jar -H 'Content-Type: application/json' -d '{"user":"admin","password":"..."}' http://127.0.0.1:8080/session
curl -b jar -H 'Content-Type: application/json' -d '{"s32EventType":0}' \
    http://127.0.0.1:8080/api/WEB_RPC_EVENT_GROUP_E_GET_PT
```

## Routes

Each role may do what the ones before it may: anyone, viewer, operator, admin. Where no answer is described it is `{}`.

| method | path | role | |
|---|---|---|---|
)";

constexpr const char *EVENTS_HEAD = R"(
## Events

`POST /api/<event>` with the fields of the request, `{}` for none. A field that is left out is 0, false or empty. The
answer has all fields of the response. An event that this build does not serve yet is answered with 404. Events of one
page run in the order in which they came.

| event | number | served | page | role | waits at most | request | response |
|---|---|---|---|---|---|---|---|
)";

constexpr const char *PAYLOADS_HEAD = R"(
## Payloads

Texts are measured in bytes of UTF-8. A switch may also be asked for as 0 or 1. An array may be shorter; the rest is 0.
)";

std::string nameOrAnyone(Role enRole) { return enRole == Role::ANYONE ? "anyone" : nameOf(enRole); }

std::string typeOf(const Field &stField)
{
    const std::string strBits = std::to_string(stField.u32Size * 8) + " bits";
    switch (stField.enKind) {
    case Kind::SIGNED:
        return "integer, " + strBits;
    case Kind::UNSIGNED:
        return "integer, " + strBits + ", not negative";
    case Kind::REAL:
        return "number";
    case Kind::SWITCH:
        return "true or false";
    case Kind::TEXT:
        return "text, at most " + std::to_string(stField.u32Size - 1) + " bytes";
    case Kind::RECORD:
        return "object";
    case Kind::VARIANT:
        return "object with one member";
    case Kind::NAME:
    case Kind::LIST:
        break; // of no event
    }
    return {};
}

std::string rows(const Record &stRecord, const std::string &strPrefix);

std::string rowsOf(const Field &stField, const std::string &strPrefix, const std::string &strWhen = {})
{
    const bool bArray = stField.u32Count > 1;
    const std::string strName = strPrefix + stField.pcName + (bArray ? "[]" : "");
    std::string strRows = "| `" + strName + "` | " + typeOf(stField) +
                          (bArray ? "; array of " + std::to_string(stField.u32Count) : "") + strWhen + " |\n";
    if (stField.enKind == Kind::RECORD) strRows += rows(*stField.pstRecord, strName + ".");
    if (stField.enKind == Kind::VARIANT)
        for (const auto &[s32Selector, stMember] : stField.pstVariant->alternatives)
            strRows += rowsOf(stMember, strName + ".",
                              std::string("; while `") + stField.pstVariant->pcSelector + "` is " +
                                  std::to_string(s32Selector));
    return strRows;
}

std::string rows(const Record &stRecord, const std::string &strPrefix)
{
    std::string strRows;
    for (const Field &stField : stRecord.fields) strRows += rowsOf(stField, strPrefix);
    return strRows;
}

std::string bodyOf(const Record &stRecord)
{
    std::string strFields;
    for (const Field &stField : stRecord.fields)
        strFields += (strFields.empty() ? "`" : ", `") + std::string(stField.pcName) + "` (" + typeOf(stField) + ")";
    return "Body: " + strFields;
}

std::string routeRows()
{
    std::string strRows;
    for (const Route &stRoute : routes())
        strRows += std::string("| ") + stRoute.pcMethod + " | `" + stRoute.pcPath + "` | " +
                   nameOrAnyone(stRoute.enRole) + " | " + stRoute.pcWhat +
                   (stRoute.pstBody ? ". " + bodyOf(*stRoute.pstBody) : "") + " |\n";
    return strRows;
}

/// "PANEL_REQ": what tells the type from the others.
std::string shortName(std::string_view strType)
{
    constexpr std::string_view BEGIN = "tag_WEB_RPC_", MIDDLE = "_PAYLOAD", END = "_S";
    if (strType.starts_with(BEGIN)) strType.remove_prefix(BEGIN.size());
    if (strType.ends_with(END)) strType.remove_suffix(END.size());
    if (strType.ends_with(MIDDLE)) strType.remove_suffix(MIDDLE.size());
    return std::string(strType);
}

std::string linkTo(std::string_view strType)
{
    std::string strAnchor = shortName(strType);
    for (char &c : strAnchor)
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c + ('a' - 'A'));
    return "[" + shortName(strType) + "](#" + strAnchor + ")";
}

std::string roles(const WEB_EVENT_S &stEvent)
{
    std::string str = nameOf(roleOf(stEvent));
    for (const WEB_ITEMS_S &st : WEB_ITEM_ROLES)
        for (BU_S32 s32Item = 0; st.enEvent == stEvent.enEvent && s32Item < 64; ++s32Item)
            if ((st.u64Items & webItems(s32Item)) != 0)
                str += ", item " + std::to_string(s32Item) + " " + nameOf(static_cast<Role>(st.enRole));
    return str;
}

std::string eventRows()
{
    std::map<BU_S32, const WEB_EVENT_S *> byNumber;
    for (const WEB_EVENT_S &stEvent : WEB_EVENTS) byNumber[stEvent.enEvent] = &stEvent;
    std::string strRows;
    for (const auto &[s32Number, pst] : byNumber)
        strRows += std::string("| `") + pst->pcName + "` | " + std::to_string(s32Number) + " | " +
                   (WEB_PAGES[pst->enPage].bServed ? "yes" : "not yet") + " | " + WEB_PAGES[pst->enPage].pcName +
                   " | " + roles(*pst) + " | " + std::to_string(pst->u32TimeoutMs / 1000) + " s | " +
                   linkTo(pst->stRequest.pcName) + " | " + linkTo(pst->stResponse.pcName) + " |\n";
    return strRows;
}

std::string payloads()
{
    std::map<std::string, const Record *> byName;
    for (const WEB_EVENT_S &stEvent : WEB_EVENTS)
        for (const WEB_EVENT_PAYLOAD_S *pst : {&stEvent.stRequest, &stEvent.stResponse})
            byName[shortName(pst->pcName)] = pst->pstRecord;
    std::string strText;
    for (const auto &[strName, pstRecord] : byName)
        strText += "\n### " + strName + "\n\n| field | |\n|---|---|\n" + rows(*pstRecord, "");
    return strText;
}
} // namespace

std::string describeApi()
{
    return INTRODUCTION + routeRows() + EVENTS_HEAD + eventRows() + PAYLOADS_HEAD + payloads();
}
} // namespace web_server
