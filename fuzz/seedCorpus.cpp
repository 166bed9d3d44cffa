// Writes the seeds of a fuzz target: seed_corpus TARGET FOLDER. For VISCA every packet of the table, in the target's
// form; for remotes keys of every kind; for the menu its own description; for web images each payload full of ones;
// for web JSON each request as text.
#include "eventApi.h"
#include "overIp.h"
#include "support/place.h"
#include "web/events.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <linux/input.h>
#include <string>
#include <vector>

using namespace visca;

namespace
{
typedef std::vector<BU_U8> Bytes;

std::vector<Bytes> packets()
{
    std::vector<Bytes> list;
    for (const Topic &topic : topics())
        for (const Row &row : topic.rows) {
            tagVISCA_CTRL_INFO_S stInfo{};
            for (std::size_t i = 0; i < row.u8Parts; ++i)
                writeField(stInfo, row.astPart[i].place, row.astPart[i].u32Max - (row.astPart[i].cLetter ? 1 : 0));
            const Packet packet = encode(row, stInfo);
            list.emplace_back(packet.bytes().begin(), packet.bytes().end());
        }
    return list;
}

Bytes datagram(const Bytes &packet, BU_U32 u32Sequence)
{
    const auto u16Type = packet[1] == 0x09 ? overip::INQUIRY : overip::COMMAND;
    Bytes bytes(1 + overip::HEADER);
    bytes[0] = static_cast<BU_U8>(overip::HEADER + packet.size());
    overip::writeHeader(&bytes[1], OVER_IP_MSG_E_VISCA_REPLY, static_cast<BU_U32>(packet.size()), u32Sequence);
    bytes[1] = u16Type >> 8;
    bytes[2] = u16Type & 0xFF;
    bytes.insert(bytes.end(), packet.begin(), packet.end());
    return bytes;
}

Bytes piece(const Bytes &packet)
{
    Bytes bytes{static_cast<BU_U8>(packet.size())};
    bytes.insert(bytes.end(), packet.begin(), packet.end());
    return bytes;
}

std::vector<Bytes> viscaSeeds(const std::string &strTarget)
{
    std::vector<Bytes> list;
    for (const Bytes &packet : packets())
        list.push_back(strTarget == "fuzz_visca_packet"    ? packet
                       : strTarget == "fuzz_visca_over_ip" ? datagram(packet, static_cast<BU_U32>(list.size()))
                                                           : piece(packet));
    return list;
}

/// Each a press, a scan code and a release, in pieces: whole records, or torn in the middle with a pause.
std::vector<Bytes> keySeeds()
{
    std::vector<Bytes> list;
    for (const BU_U16 u16Code : {1, 32, 34 + 128, 249, KEY_MAX})
        for (const std::size_t length : {24U, 17U}) {
            Bytes records, seed;
            for (const auto &[s32Type, s32Value] : {std::pair{EV_KEY, 1}, {EV_MSC, 1}, {EV_KEY, 0}, {EV_SYN, 0}}) {
                input_event stEvent{};
                stEvent.input_event_sec = 1'780'000'000;
                stEvent.type = static_cast<BU_U16>(s32Type);
                stEvent.code = s32Type == EV_KEY ? u16Code : 0;
                stEvent.value = s32Value;
                const auto *pu8 = reinterpret_cast<const BU_U8 *>(&stEvent);
                records.insert(records.end(), pu8, pu8 + sizeof(stEvent));
            }
            for (std::size_t at = 0; at < records.size(); at += length) {
                const std::size_t size = std::min(length, records.size() - at);
                seed.push_back(static_cast<BU_U8>(size | (at / length % 8) << 5));
                seed.insert(seed.end(), records.begin() + static_cast<std::ptrdiff_t>(at),
                            records.begin() + static_cast<std::ptrdiff_t>(at + size));
            }
            list.push_back(seed);
        }
    return list;
}

/// The whole description, and each page of it alone with the words.
std::vector<Bytes> menuSeeds()
{
    std::ifstream file(place::source("platform/menu/menu.json"), std::ios::binary);
    const std::string strAll(std::istreambuf_iterator<char>(file), {});
    std::vector<Bytes> list{Bytes(strAll.begin(), strAll.end())};
    const std::string strHead = strAll.substr(0, strAll.find("\"pages\"")) + "\"pages\": [",
                      strBegin = "        {\"name\": ", strEnd = "\n        ]}";
    for (auto at = strAll.find(strBegin); at != strAll.npos; at = strAll.find(strBegin, at + 1)) {
        const std::string strOne = strHead + strAll.substr(at, strAll.find(strEnd, at) + strEnd.size() - at) + "]}";
        list.emplace_back(strOne.begin(), strOne.end());
    }
    return list;
}

/// Requests as browsers make them, behind the byte that says where they are cut in two.
std::vector<Bytes> webHttpSeeds()
{
    std::vector<Bytes> list;
    for (const std::string strText :
         {"\x20GET /app.js?v=1 HTTP/1.1\r\nHost: 127.0.0.1:8080\r\nIf-None-Match: W/\"a\", \"b\"\r\nCookie: "
          "a=b\r\n\r\n",
          "\x05POST /session HTTP/1.1\r\nHost: a\r\nContent-Length: 2\r\nExpect: 100-continue\r\nOrigin: "
          "http://a\r\n\r\n{}",
          "\x7FGET /preview/ch1 HTTP/1.1\r\nConnection: keep-alive, Upgrade\r\nUpgrade: websocket\r\n"
          "Sec-WebSocket-Version: 13\r\nSec-WebSocket-Key: dGhlIHNhbXBsZSBub25jZQ==\r\n\r\n",
          "\x01PUT / HTTP/1.0\r\nTransfer-Encoding: chunked\r\nConnection: close\r\n\r\n0\r\n\r\n"})
        list.emplace_back(strText.begin(), strText.end());
    return list;
}

/// Of each payload an image of ones, behind the byte that chooses the payload.
std::vector<Bytes> webImageSeeds()
{
    std::vector<Bytes> list;
    for (std::size_t i = 0; i < WEB_EVENTS.size(); ++i)
        for (const std::size_t response : {0U, 1U}) {
            const auto &stPayload = response ? WEB_EVENTS[i].stResponse : WEB_EVENTS[i].stRequest;
            list.emplace_back(1 + stPayload.pstRecord->u32Image, BU_U8{1});
            list.back()[0] = static_cast<BU_U8>(2 * i + response);
        }
    return list;
}

/// Each request as text behind the byte that chooses its event, and the lines of a request from the page itself.
std::vector<Bytes> webJsonSeeds()
{
    std::vector<std::string> texts{"\xFF"
                                   "127.0.0.1:8080\nhttp://127.0.0.1:8080\na=b; camera_session=abc\napplication/json; "
                                   "charset=utf-8\nPOST\n/api/WEB_RPC_EVENT_GROUP_E_GET_ISP"};
    for (std::size_t i = 0; i < WEB_EVENTS.size(); ++i) {
        WEB_EVENT_S stEvent = WEB_EVENTS[i];
        stEvent.stResponse = stEvent.stRequest;
        const std::unique_ptr<WEB_RPC_PAYLOAD_S> pstRequest(stEvent.stRequest.fnCreate());
        for (const char c : {'\1', '\2'}) {
            const std::string strImage(pstRequest->getSize(), c);
            texts.push_back(static_cast<char>(i) + web_server::writeResponse(stEvent, strImage, strImage));
        }
    }
    std::vector<Bytes> list;
    for (const std::string &strText : texts) list.emplace_back(strText.begin(), strText.end());
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
                       : strTarget == "fuzz_web_http"         ? webHttpSeeds()
                       : strTarget == "fuzz_web_image"        ? webImageSeeds()
                       : strTarget == "fuzz_web_json"         ? webJsonSeeds()
                                                              : std::vector<Bytes>();
    for (std::size_t i = 0; i < seeds.size(); ++i) {
        std::ofstream file(strFolder + "/seed-" + std::to_string(i), std::ios::binary);
        file.write(reinterpret_cast<const char *>(seeds[i].data()), static_cast<std::streamsize>(seeds[i].size()));
    }
    return 0;
}
