/// The messages on the socket between the camera and a web server process: a fixed head, then the bytes it speaks of.
/// One message is one packet. Both ends run on one machine: numbers are in host order.
#pragma once

#include "base/types.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace web_client
{
enum class Kind : BU_U8 {
    CALL = 1, ///< from the web server: subject: the event; bytes: the image of the request
    QUESTION, ///< from the web server: subject: length of the name; bytes: the name, then the JSON text
    ANSWER,   ///< to the web server: bytes: the image of the response, a JSON text, or why it is refused
    NEWS      ///< to the web server, unasked: bytes: a JSON text
};

struct Head {
    BU_U8 au8Magic[4]{'W', 'R', 'P', 1}; // the last byte is the version
    Kind enKind{};
    BU_U8 u8Reserved{};
    BU_S16 s16Result{}; // of an answer: WEB_CLIENT_RESULT_E
    BU_U32 u32Id{};     // of a call or question, and of its answer: chosen by who asks
    BU_U32 u32Subject{};
};
static_assert(sizeof(Head) == 16 && offsetof(Head, s16Result) == 6 && offsetof(Head, u32Id) == 8);

constexpr std::size_t TO_CAMERA_MAX = 16 << 10; ///< bytes of a message, the head among them
constexpr std::size_t FROM_CAMERA_MAX = 192 << 10;
constexpr std::size_t NAME_MAX_SIZE = 64; ///< of a question

struct Message {
    Head stHead;
    std::string_view name; ///< of a question
    std::string_view bytes;
};

/// The views point into the packet. @return none: not a message of this version
std::optional<Message> decode(std::string_view packet);

/// The packet of a question, with its name and text in one.
std::string encodeQuestion(BU_U32 u32Id, std::string_view name, std::string_view json);
} // namespace web_client
