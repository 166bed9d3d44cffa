// Any bytes as what a remote writes, cut into pieces with pauses between: head byte (pause, length), piece. Whatever
// came before, a whole record after a pause is found; a key counts as held from its press to its release, or to its
// silence.
#include "eventReader.h"
#include "heldKeys.h"
#include "require.h"

#include <cstring>
#include <set>

namespace
{
using namespace input;

/// The keys that are held, told again by the simplest means.
class Keyboard
{
public:
    void take(const input_event &stEvent, BU_S64 s64NowMs)
    {
        m_held.note(stEvent, s64NowMs);
        if (stEvent.type != EV_KEY) return;
        require(stEvent.code <= KEY_MAX && stEvent.value >= 0 && stEvent.value <= 2);
        if (stEvent.value == 0)
            m_codes.erase(stEvent.code);
        else
            m_codes.insert(stEvent.code);
    }
    void endSilent(BU_S64 s64NowMs)
    {
        while (const auto code = m_held.takeSilent(s64NowMs)) require(m_codes.erase(*code) == 1);
        require(m_held.dueMs().value_or(INT64_MAX) > s64NowMs);
    }
    void endAll()
    {
        for (const BU_U16 u16Code : m_held.takeAll()) require(m_codes.erase(u16Code) == 1);
        require(m_codes.empty() && !m_held.dueMs());
    }

private:
    HeldKeys m_held;
    std::set<BU_U16> m_codes;
};
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *pu8Data, size_t size)
{
    constexpr BU_S64 PAUSES_MS[] = {0, 1, 499, 500, 4999, 5000, 100'000, 0};
    EventReader reader;
    Keyboard keyboard;
    BU_S64 s64NowMs = 1'000'000;
    for (std::span<const BU_U8> bytes(pu8Data, size); !bytes.empty();) {
        const BU_U8 u8Head = bytes[0];
        const std::size_t length = std::min<std::size_t>(u8Head & 0x1F, bytes.size() - 1);
        s64NowMs += PAUSES_MS[u8Head >> 5];
        keyboard.endSilent(s64NowMs);
        reader.feed(bytes.subspan(1, length), s64NowMs,
                    [&](const input_event &stEvent) { keyboard.take(stEvent, s64NowMs); });
        bytes = bytes.subspan(1 + length);
    }
    input_event stKey = releaseOf(KEY_MAX), stFound{};
    std::array<BU_U8, sizeof(stKey)> record;
    std::memcpy(record.data(), &stKey, sizeof(stKey));
    reader.feed(record, s64NowMs + 500, [&](const input_event &stEvent) { stFound = stEvent; });
    require(std::memcmp(&stFound, &stKey, sizeof(stKey)) == 0);
    keyboard.endAll();
    return 0;
}
