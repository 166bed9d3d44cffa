// Packets on the socket of the web calls: what is taken for a message points into the packet and says what it said.
#include "web_client/message.h"

#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *pu8Data, size_t size)
{
    const std::string_view packet(reinterpret_cast<const char *>(pu8Data), size);
    const auto message = web_client::decode(packet);
    if (!message) return 0;
    if (message->stHead.enKind == web_client::Kind::QUESTION) {
        const std::string strAgain = web_client::encodeQuestion(message->stHead.u32Id, message->name, message->bytes);
        const auto again = web_client::decode(strAgain);
        if (!again || again->name != message->name || again->bytes != message->bytes) std::abort();
    } else if (message->bytes.data() != packet.data() + sizeof(web_client::Head) || !message->name.empty())
        std::abort();
    return 0;
}
