/// The channels by name.
#include "registry.h"

#include <algorithm>

namespace preview
{
Registry &registry()
{
    static Registry &channels = *new Registry; // the service thread may outlive static objects
    return channels;
}

void Registry::add(BU_S32 s32Id, std::string_view name)
{
    const std::lock_guard guard(m_lock);
    const auto it = std::ranges::find(m_channels, name, &Channel::strName);
    if (it == m_channels.end())
        m_channels.push_back({std::string(name), s32Id});
    else
        it->s32Id = s32Id;
}

std::optional<BU_U32> Registry::find(std::string_view name) const
{
    const std::lock_guard guard(m_lock);
    const auto it = std::ranges::find(m_channels, name, &Channel::strName);
    if (it == m_channels.end()) return std::nullopt;
    return static_cast<BU_U32>(it - m_channels.begin());
}

BU_S32 Registry::idOf(BU_U32 u32Channel) const
{
    const std::lock_guard guard(m_lock);
    return m_channels.at(u32Channel).s32Id;
}

std::vector<std::string> Registry::names() const
{
    const std::lock_guard guard(m_lock);
    std::vector<std::string> list;
    for (const Channel &st : m_channels) list.push_back(st.strName);
    return list;
}
} // namespace preview
