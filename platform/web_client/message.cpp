// Messages from and to bytes.
#include "web_client/message.h"

#include <cstring>

namespace web_client
{
std::optional<Message> decode(std::string_view packet)
{
    Message st;
    const Head stOwn;
    if (packet.size() < sizeof(Head)) return std::nullopt;
    std::memcpy(&st.stHead, packet.data(), sizeof(Head));
    if (std::memcmp(st.stHead.au8Magic, stOwn.au8Magic, sizeof(stOwn.au8Magic)) != 0) return std::nullopt;
    if (st.stHead.enKind < Kind::CALL || st.stHead.enKind > Kind::NEWS) return std::nullopt;
    st.bytes = packet.substr(sizeof(Head));
    if (st.stHead.enKind == Kind::QUESTION) {
        if (st.stHead.u32Subject > std::min(st.bytes.size(), NAME_MAX_SIZE)) return std::nullopt;
        st.name = st.bytes.substr(0, st.stHead.u32Subject);
        st.bytes.remove_prefix(st.stHead.u32Subject);
    }
    return st;
}

std::string encodeQuestion(BU_U32 u32Id, std::string_view name, std::string_view json)
{
    const Head stHead{.enKind = Kind::QUESTION, .u32Id = u32Id, .u32Subject = static_cast<BU_U32>(name.size())};
    std::string strPacket(reinterpret_cast<const BU_CHAR *>(&stHead), sizeof(stHead));
    return strPacket.append(name).append(json);
}
} // namespace web_client
