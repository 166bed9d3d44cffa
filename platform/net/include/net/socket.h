/// IPv4 sockets that listen, ready for an event loop: they never wait, and a child process does not get them.
#pragma once

#include "base/types.h"
#include "util/fileDescriptor.h"

#include <memory>
#include <netinet/in.h>
#include <string>

namespace net
{
/// Closed when nobody uses it any more: also not while another thread just sends.
typedef std::shared_ptr<const util::FileDescriptor> Socket;

/// @param s32Port  0: any free one
/// @return null: not possible; errno says why (EINVAL: no address)
Socket listenTcp(const std::string &strAddress, BU_S32 s32Port);
/// @param receiveBytes  what the system keeps while nobody reads; 0: as much as it likes
Socket bindUdp(const std::string &strAddress, BU_S32 s32Port, int receiveBytes = 0);

BU_U16 boundPort(int s32Socket); ///< 0: none
sockaddr_in socketAddress(BU_U32 u32Address, BU_U16 u16Port);
} // namespace net
