// Start and stop of the service.
#include "web/webRpc.h"

#include "events.h"
#include "questions.h"
#include "service.h"
#include "util/journal.h"
#include "web_client/recordJson.h"

namespace
{
using namespace web_rpc;

struct Service {
    std::mutex control; // one start, stop or registration at a time; guards pstServer
    std::unique_ptr<Server> pstServer;
    std::mutex lock; // guards pstClients
    std::shared_ptr<Clients> pstClients;
};
Service &service()
{
    static auto *pstService = new Service;
    return *pstService;
}

Result run(const Call &stCall)
{
    return stCall.strQuestion.empty() ? callEvent(stCall.u32Event, stCall.strBytes)
                                      : answerQuestion(stCall.strQuestion, stCall.strBytes);
}

void setClients(std::shared_ptr<Clients> pstClients)
{
    const std::lock_guard guard(service().lock);
    service().pstClients = std::move(pstClients);
}
} // namespace

bool web_rpc::whileStopped(const std::function<void()> &fn)
{
    const std::lock_guard guard(service().control);
    if (service().pstServer) return false;
    fn();
    return true;
}

BU_S32 WEB_RPC_InitForAppMain()
{
    if (const auto injected = journal::call(__func__)) return *injected;
    const std::lock_guard guard(service().control);
    if (service().pstServer) return 0;
    service().pstServer = Server::open(run);
    if (!service().pstServer) return -1;
    setClients(service().pstServer->clients());
    return 0;
}

BU_S32 WEB_RPC_UnInitForAppMain(BU_BOOL bReserved)
{
    if (const auto injected = journal::call(__func__, bReserved)) return *injected;
    const std::lock_guard guard(service().control);
    setClients(nullptr);
    service().pstServer.reset();
    return 0;
}

BU_S32 WEB_RPC_Tell(const BU_CHAR *pcSubject, const web_layout::Record &stRecord, const void *pvNews)
{
    if (const auto injected = journal::ask(__func__, pcSubject)) return *injected;
    std::unique_lock guard(service().lock);
    const auto pstClients = service().pstClients;
    guard.unlock();
    const auto count = pstClients ? static_cast<BU_S32>(pstClients->count()) : 0;
    if (count > 0) pstClients->tell(pcSubject, writeRecord(stRecord, static_cast<const BU_CHAR *>(pvNews)));
    return count;
}
