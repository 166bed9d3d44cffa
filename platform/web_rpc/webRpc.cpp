// Start and stop of the service.
#include "web/webRpc.h"

#include "events.h"
#include "news.h"
#include "questions.h"
#include "service.h"
#include "util/journal.h"
#include "util/log.h"

namespace
{
using namespace web_rpc;

struct tagSERVICE_S {
    std::mutex control; // one start, stop or registration at a time; guards pstServer
    std::unique_ptr<Server> pstServer;
    std::mutex lock; // guards pstNews
    std::unique_ptr<News> pstNews;
};
tagSERVICE_S &service()
{
    static auto *pstService = new tagSERVICE_S;
    return *pstService;
}

tagRESULT_S run(const tagCALL_S &stCall)
{
    return stCall.strQuestion.empty() ? callEvent(stCall.u32Event, stCall.strBytes)
                                      : answerQuestion(stCall.strQuestion, stCall.strBytes);
}

void countClients()
{
    const std::lock_guard guard(service().lock);
    if (service().pstNews) service().pstNews->countClients();
}

std::unique_ptr<News> exchangeNews(std::unique_ptr<News> pstNews)
{
    const std::lock_guard guard(service().lock);
    std::swap(service().pstNews, pstNews);
    return pstNews;
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
    service().pstServer = Server::open(run, countClients);
    if (!service().pstServer) return -1;
    exchangeNews(std::make_unique<News>(service().pstServer->clients()));
    countClients(); // those that were quicker
    return 0;
}

BU_S32 WEB_RPC_UnInitForAppMain(BU_BOOL bReserved)
{
    if (const auto injected = journal::call(__func__, bReserved)) return *injected;
    const std::lock_guard guard(service().control);
    exchangeNews(nullptr);
    service().pstServer.reset();
    return 0;
}
