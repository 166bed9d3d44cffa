// Any bytes as the image of any payload (byte 0 chooses): what is loaded can be dumped, and reads the same.
#include "web/events.h"

#include <cstdlib>
#include <memory>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *pu8Data, size_t size)
{
    if (size == 0) return 0;
    const WEB_EVENT_S &stEvent = WEB_EVENTS[pu8Data[0] / 2 % WEB_EVENTS.size()];
    const auto fnCreate = (pu8Data[0] % 2 ? stEvent.stResponse : stEvent.stRequest).fnCreate;
    const std::unique_ptr<WEB_RPC_PAYLOAD_S> payload(fnCreate()), again(fnCreate());
    const unsigned int u32Size = payload->getSize();
    std::vector<BU_CHAR> image(pu8Data + 1, pu8Data + size), dumped(u32Size), second(u32Size);
    image.resize(u32Size);
    image.shrink_to_fit(); // a byte behind it is found out
    payload->loadBytes(image.data(), u32Size);
    payload->dumpBytes(dumped.data(), u32Size);
    again->loadBytes(dumped.data(), u32Size);
    again->dumpBytes(second.data(), u32Size);
    if (dumped != second) std::abort();
    return 0;
}
