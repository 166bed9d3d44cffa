/// The service's calls: start, stop, channels, packets of a recording.
#include "live/websocket.h"

#include "inbox.h"
#include "playback.h"
#include "registry.h"
#include "server.h"
#include "util/journal.h"
#include "util/log.h"
#include "util/platform.h"

#include <mutex>
#include <utility>

namespace
{
using namespace preview;

struct Service {
    std::mutex control; // one start or stop at a time; guards pstServer
    std::unique_ptr<Server> pstServer;
    std::mutex state; // guards the rest
    bool bInitd = false;
    std::shared_ptr<Inbox> pstInbox; // of the running server, else null
};
Service &service()
{
    static Service &st = *new Service; // threads may use it until the process ends
    return st;
}

std::shared_ptr<Inbox> inbox()
{
    const std::lock_guard guard(service().state);
    return service().pstInbox;
}

void setInbox(std::shared_ptr<Inbox> pstInbox)
{
    const std::lock_guard guard(service().state);
    service().pstInbox = std::move(pstInbox);
}
} // namespace

BU_S32 WEBSOCKET_isServiceRunning()
{
    if (const auto injected = journal::ask(__func__)) return *injected;
    return inbox() != nullptr;
}

BU_S32 WEBSOCKET_HasInitd()
{
    if (const auto injected = journal::ask(__func__)) return *injected;
    const std::lock_guard guard(service().state);
    return service().bInitd;
}

BU_S32 WEBSOCKET_InitService()
{
    if (const auto injected = journal::call(__func__)) return *injected;
    const std::lock_guard guard(service().state);
    service().bInitd = true;
    return 0;
}

BU_S32 WEBSOCKET_RegisterChannelMap(BU_S32 s32Id, const BU_CHAR *pcChannel)
{
    if (const auto injected = journal::call(__func__, s32Id, pcChannel)) return *injected;
    if (!pcChannel || !*pcChannel) return -1;
    registry().add(s32Id, pcChannel);
    if (const auto pstInbox = inbox()) pstInbox->wake(); // viewers of the name go over to the new id
    return 0;
}

BU_S32 WEBSOCKET_StartService(BU_S32 s32Port)
{
    if (const auto injected = journal::call(__func__, s32Port)) return *injected;
    const std::lock_guard guard(service().control);
    if (service().pstServer) return 0;
    const std::string strAddress = PLATFORM_BindAddress();
    const BU_S32 s32Listen = PLATFORM_Port(s32Port);
    service().pstServer = Server::open(strAddress, s32Listen);
    if (!service().pstServer) {
        LOG_ERROR("preview: cannot listen on %s:%d: the port is taken, or nobody may\n", strAddress.c_str(), s32Listen);
        return -1;
    }
    setInbox(service().pstServer->inbox());
    const std::string strUrl = "ws://" + strAddress + ":" + std::to_string(service().pstServer->port()) + "/";
    for (const std::string &strName : registry().names()) PLATFORM_AddEndpoint(strUrl + strName + " preview");
    return 0;
}

BU_S32 WEBSOCKET_StopService()
{
    if (const auto injected = journal::call(__func__)) return *injected;
    const std::lock_guard guard(service().control);
    setInbox(nullptr);
    service().pstServer.reset();
    return 0;
}

BU_S32 WEBSOCKET_SendRecodPlayPack(const BU_CHAR *pcChannel, const BU_U8 *pu8Data, BU_U32 u32Size)
{
    if (const auto injected = journal::call(__func__, pcChannel, pu8Data, u32Size)) return *injected;
    const auto channel = pcChannel ? registry().find(pcChannel) : std::nullopt;
    if (!channel || !pu8Data) return -1;
    const auto pstInbox = inbox();
    if (pstInbox && u32Size && pstInbox->isWatched(*channel))
        pstInbox->put({*channel, recordedPacket({pu8Data, u32Size}), {}});
    return 0;
}

BU_S32 preview::servicePort()
{
    const std::lock_guard guard(service().control);
    return service().pstServer ? service().pstServer->port() : 0;
}
