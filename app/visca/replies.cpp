// Answers that are more than a list of fields.
#include "replies.h"

#include "util/log.h"

#include <cstdio>
#include <iterator>

namespace visca
{
void replyFocusMode(const I &st, ReplyWriter &writer)
{
    writer.put(st.stFocusCtrl.enFocusType == VISCA_MSG_E_FOCUS_AUTO ? VISCA_MSG_E_FOCUS_AUTO
                                                                    : VISCA_MSG_E_FOCUS_MANUAL);
}

void replyVideoParam(const I &st, ReplyWriter &writer)
{
    const auto enType = st.stVideoParamCtrl.enVideoParamType;
    if (enType >= VISCA_MSG_E_DIRECT_SHARPNESS && enType <= VISCA_MSG_E_DIRECT_HUE)
        reply<Nibbles<2, VideoParam>>(st, writer);
    else if (enType >= VISCA_MSG_E_DIRECT_2DNR && enType <= VISCA_MSG_E_DIRECT_FREEZE)
        reply<Byte<VideoParam>>(st, writer);
}

void replyIp(const I &st, ReplyWriter &writer)
{
    reply<Nibbles<8, IpValue>>(st, writer);
    BU_CHAR acLine[3 * sizeof(tagVISCA_MSG_REQ_S::acCmd) + 1];
    BU_CHAR *pcEnd = acLine;
    for (const BU_U8 u8Byte : writer) pcEnd += std::snprintf(pcEnd, std::end(acLine) - pcEnd, "%x,", u8Byte);
    UTIL_TRACE_Print("%s\n", acLine);
}

void replyIpText(const I &st, ReplyWriter &writer)
{
    for (const BU_CHAR c : st.stIpCtrl.acIpInfoAscll) {
        if (c == '\0') break;
        writer.put(static_cast<BU_U8>(c));
    }
}
} // namespace visca
