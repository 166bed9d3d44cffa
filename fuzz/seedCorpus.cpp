// Writes the seeds of a fuzz target: seed_corpus TARGET FOLDER. For VISCA every packet of the table, in the target's
// form; for remotes keys of every kind; for the menu its own description; for web images each payload full of ones;
// for web JSON each request as text.
#include "eventApi.h"
#include "overIp.h"
#include "support/place.h"
#include "web/events.h"

#include <array>
#include <fstream>
#include <iterator>
#include <linux/input.h>
#include <string>
#include <vector>

using namespace visca;

namespace
{
typedef std::vector<std::string> Seeds;

std::string text(std::span<const BU_U8> bytes) { return {bytes.begin(), bytes.end()}; }

std::string datagram(const std::string &strPacket, std::size_t number)
{
    std::array<BU_U8, overip::HEADER> head;
    overip::writeHeader(head.data(), OVER_IP_MSG_E_VISCA_REPLY, static_cast<BU_U32>(strPacket.size()),
                        static_cast<BU_U32>(number));
    const auto u16Type = strPacket[1] == 0x09 ? overip::INQUIRY : overip::COMMAND;
    head[0] = u16Type >> 8;
    head[1] = u16Type & 0xFF;
    return static_cast<char>(overip::HEADER + strPacket.size()) + text(head) + strPacket;
}

Seeds viscaSeeds(const std::string &strTarget)
{
    Seeds list;
    for (const Topic &topic : topics())
        for (const Row &row : topic.rows) {
            tagVISCA_CTRL_INFO_S stInfo{};
            for (std::size_t i = 0; i < row.u8Parts; ++i)
                writeField(stInfo, row.astPart[i].place, row.astPart[i].u32Max - (row.astPart[i].cLetter ? 1 : 0));
            const std::string strPacket = text(encode(row, stInfo).bytes());
            list.push_back(strTarget == "fuzz_visca_packet"    ? strPacket
                           : strTarget == "fuzz_visca_over_ip" ? datagram(strPacket, list.size())
                                                               : static_cast<char>(strPacket.size()) + strPacket);
        }
    return list;
}

/// Each a press, a scan code and a release, in pieces: whole records, or torn in the middle with a pause.
Seeds keySeeds()
{
    Seeds list;
    for (const BU_U16 u16Code : {1, 32, 34 + 128, 249, KEY_MAX})
        for (const std::size_t length : {24U, 17U}) {
            std::string strRecords, strSeed;
            for (const auto &[s32Type, s32Value] : {std::pair{EV_KEY, 1}, {EV_MSC, 1}, {EV_KEY, 0}, {EV_SYN, 0}}) {
                const input_event stEvent{{1'780'000'000, 0},
                                          static_cast<BU_U16>(s32Type),
                                          s32Type == EV_KEY ? u16Code : BU_U16{0},
                                          s32Value};
                strRecords.append(reinterpret_cast<const char *>(&stEvent), sizeof(stEvent));
            }
            for (std::size_t at = 0; at < strRecords.size(); at += length) {
                const std::string strPiece = strRecords.substr(at, length);
                strSeed += static_cast<char>(strPiece.size() | (at / length % 8) << 5) + strPiece;
            }
            list.push_back(strSeed);
        }
    return list;
}

/// The whole description, and each page of it alone with the words.
Seeds menuSeeds()
{
    std::ifstream file(place::source("platform/menu/menu.json"), std::ios::binary);
    const std::string strAll(std::istreambuf_iterator<char>(file), {});
    Seeds list{strAll};
    const std::string strHead = strAll.substr(0, strAll.find("\"pages\"")) + "\"pages\": [",
                      strBegin = "        {\"name\": ", strEnd = "\n        ]}";
    for (auto at = strAll.find(strBegin); at != strAll.npos; at = strAll.find(strBegin, at + 1))
        list.push_back(strHead + strAll.substr(at, strAll.find(strEnd, at) + strEnd.size() - at) + "]}");
    return list;
}

/// Requests as browsers make them, behind the byte that says where they are cut in two.
// clang-format off
const Seeds WEB_HTTP{
    "\x20GET /app.js?v=1 HTTP/1.1\r\nHost: 127.0.0.1:8080\r\nIf-None-Match: W/\"a\", \"b\"\r\nCookie: a=b\r\n\r\n",
    "\x05POST /session HTTP/1.1\r\nHost: a\r\nContent-Length: 2\r\nExpect: 100-continue\r\nOrigin: http://a\r\n\r\n{}",
    "\x7FGET /preview/ch1 HTTP/1.1\r\nConnection: keep-alive, Upgrade\r\nUpgrade: websocket\r\n"
    "Sec-WebSocket-Version: 13\r\nSec-WebSocket-Key: dGhlIHNhbXBsZSBub25jZQ==\r\n\r\n",
    "\x01PUT / HTTP/1.0\r\nTransfer-Encoding: chunked\r\nConnection: close\r\n\r\n0\r\n\r\n"};
// clang-format on

/// Of each payload an image of ones, behind the byte that chooses the payload.
Seeds webImageSeeds()
{
    Seeds list;
    for (const WEB_EVENT_S &stEvent : WEB_EVENTS)
        for (const auto *pstPayload : {&stEvent.stRequest, &stEvent.stResponse})
            list.push_back(static_cast<char>(list.size()) + std::string(pstPayload->pstRecord->u32Image, '\1'));
    return list;
}

/// Each request as text behind the byte that chooses its event, and the lines of a request from the page itself.
Seeds webJsonSeeds()
{
    Seeds list{"\xFF"
               "127.0.0.1:8080\nhttp://127.0.0.1:8080\na=b; camera_session=abc\napplication/json; charset=utf-8\nPOST\n"
               "/api/WEB_RPC_EVENT_GROUP_E_GET_ISP"};
    for (std::size_t i = 0; i < WEB_EVENTS.size(); ++i) {
        WEB_EVENT_S stEvent = WEB_EVENTS[i];
        stEvent.stResponse = stEvent.stRequest;
        const std::unique_ptr<WEB_RPC_PAYLOAD_S> pstRequest(stEvent.stRequest.fnCreate());
        for (const char c : {'\1', '\2'}) {
            const std::string strImage(pstRequest->getSize(), c);
            list.push_back(static_cast<char>(i) + web_server::writeResponse(stEvent, strImage, strImage));
        }
    }
    return list;
}
} // namespace

int main(int argc, char **argv)
{
    if (argc != 3) return 1;
    const std::string strTarget = argv[1], strFolder = argv[2];
    const auto seeds = strTarget.starts_with("fuzz_visca_")   ? viscaSeeds(strTarget)
                       : strTarget == "fuzz_input_events"     ? keySeeds()
                       : strTarget == "fuzz_menu_description" ? menuSeeds()
                       : strTarget == "fuzz_web_http"         ? WEB_HTTP
                       : strTarget == "fuzz_web_image"        ? webImageSeeds()
                       : strTarget == "fuzz_web_json"         ? webJsonSeeds()
                                                              : Seeds();
    for (std::size_t i = 0; i < seeds.size(); ++i)
        std::ofstream(strFolder + "/seed-" + std::to_string(i), std::ios::binary) << seeds[i];
    return 0;
}
