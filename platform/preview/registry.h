/// The channels by name. They live as long as the process and are never removed: a channel's number stays its own.
#pragma once

#include "base/types.h"

#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace preview
{
/// Thread: any.
class Registry
{
public:
    void add(BU_S32 s32Id, std::string_view name);
    std::optional<BU_U32> find(std::string_view name) const; ///< the channel's number
    BU_S32 idOf(BU_U32 u32Channel) const;
    std::vector<std::string> names() const; ///< in order of their numbers

private:
    struct Channel {
        std::string strName;
        BU_S32 s32Id;
    };
    mutable std::mutex m_lock; // guards m_channels
    std::vector<Channel> m_channels;
};
Registry &registry();
} // namespace preview
