// The web server's end: its connection, and the answers that it waits for.
#include "web_client/client.h"

#include "util/log.h"
#include "util/mailbox.h"
#include "util/thread.h"
#include "util/time.h"
#include "web_client/message.h"
#include "web_client/socketFile.h"

#include <atomic>
#include <cerrno>
#include <map>
#include <memory>
#include <mutex>
#include <poll.h>
#include <sys/eventfd.h>
#include <sys/socket.h>
#include <vector>

namespace
{
using namespace web_client;

constexpr BU_S64 RETRY_MS = 100;
constexpr std::size_t PENDING_MAX = 512;

struct Pending {
    BU_S64 s64DueMs;
    FN_WEB_CLIENT_ANSWER fnAnswer;
};
/// An answer that the client gives itself, on its thread.
struct OwnAnswer {
    FN_WEB_CLIENT_ANSWER fnAnswer;
    WEB_CLIENT_RESULT_E enResult;
};

class Client
{
public:
    Client(std::function<void(BU_BOOL)> fnUp, std::function<void(std::string_view)> fnNews)
        : m_fnUp(std::move(fnUp)), m_fnNews(std::move(fnNews)),
          m_thread("webClient", [this](const std::stop_token &) { work(); })
    {
    }
    /// Waits for the thread; what still waits is answered. Not from a callback.
    void stop()
    {
        {
            const std::lock_guard guard(m_lock);
            m_bStop = true;
        }
        wake();
        m_thread = util::Thread();
    }
    Client(const Client &) = delete;
    Client &operator=(const Client &) = delete;

    /// @param packet  makes the packet under a number
    template <class F> void ask(BU_U32 u32Timeout, FN_WEB_CLIENT_ANSWER fnAnswer, F packet)
    {
        std::unique_lock guard(m_lock);
        if (m_bStop) {
            guard.unlock();
            return fnAnswer(WEB_CLIENT_RESULT_E_GONE, "");
        }
        const auto fail = [&](WEB_CLIENT_RESULT_E enResult) { m_ownAnswers.post({std::move(fnAnswer), enResult}); };
        if (m_fd < 0) return fail(WEB_CLIENT_RESULT_E_GONE);
        if (m_pending.size() >= PENDING_MAX) return fail(WEB_CLIENT_RESULT_E_BUSY);
        const BU_U32 u32Id = ++m_u32LastId;
        const auto [head, bytes] = packet(u32Id);
        const std::size_t size = head.size() + bytes.size();
        if (size > TO_CAMERA_MAX) return fail(WEB_CLIENT_RESULT_E_REFUSED);
        const int s32Error = sendPacket(m_fd, head, bytes);
        if (s32Error) return fail(s32Error == EAGAIN ? WEB_CLIENT_RESULT_E_BUSY : WEB_CLIENT_RESULT_E_GONE);
        const BU_S64 s64Due = UTIL_TIME_NowMs() + u32Timeout;
        m_pending.emplace(u32Id, Pending{s64Due, std::move(fnAnswer)});
        watchUntil(s64Due);
    }

private:
    void work();
    void connect();
    void disconnect();
    bool receive(std::vector<BU_CHAR> &buffer);
    void take(const Message &stMessage);
    void giveOwnAnswers();
    void giveTimeouts();
    void wake() { eventfd_write(m_wake, 1); }
    void watchUntil(BU_S64 s64DueMs);

    const std::function<void(BU_BOOL)> m_fnUp;
    const std::function<void(std::string_view)> m_fnNews;
    const util::FileDescriptor m_wake{eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)};
    std::atomic<bool> m_bStop{false}; // set under the lock
    util::Mailbox<OwnAnswer> m_ownAnswers{[this] { wake(); }};
    std::mutex m_lock;         // guards everything below but the thread; not held over a callback
    util::FileDescriptor m_fd; // negative: not connected; changed by the client's thread alone
    BU_U32 m_u32LastId = 0;
    std::map<BU_U32, Pending> m_pending;
    BU_S64 m_s64WatchMs = INT64_MAX; // the next look at the times
    util::TimerQueue m_queue{"webClientTimer"};
    util::Thread m_thread; // last: ends first
};

/// Most calls are answered long before: one timer, for the earliest, and a new one only for an earlier time. Lock held.
void Client::watchUntil(BU_S64 s64DueMs)
{
    if (s64DueMs >= m_s64WatchMs) return;
    m_s64WatchMs = s64DueMs;
    m_queue.at(s64DueMs, [this] { wake(); });
}

void Client::work()
{
    std::vector<BU_CHAR> buffer(FROM_CAMERA_MAX);
    while (!m_bStop) {
        if (m_fd < 0) connect();
        pollfd astWatch[]{{m_fd, POLLIN, 0}, {m_wake, POLLIN, 0}}; // a negative one is passed over
        poll(astWatch, std::size(astWatch), -1);
        if (astWatch[0].revents && !receive(buffer)) disconnect();
        if (!astWatch[1].revents) continue;
        eventfd_t count = 0;
        eventfd_read(m_wake, &count);
        giveOwnAnswers();
        giveTimeouts();
    }
    disconnect();
    giveOwnAnswers();
}

void Client::connect()
{
    util::FileDescriptor fd = connectTo(SOCKET_PATH);
    const bool bUp = fd >= 0;
    {
        const std::lock_guard guard(m_lock);
        m_fd = std::move(fd);
        if (!bUp) watchUntil(UTIL_TIME_NowMs() + RETRY_MS);
    }
    if (bUp && m_fnUp) m_fnUp(BU_TRUE);
}

void Client::disconnect()
{
    {
        const std::lock_guard guard(m_lock);
        for (auto &[u32Id, stPending] : m_pending)
            m_ownAnswers.post({std::move(stPending.fnAnswer), WEB_CLIENT_RESULT_E_GONE});
        m_pending.clear();
        if (m_fd < 0) return;
        m_fd = util::FileDescriptor();
    }
    giveOwnAnswers();
    if (!m_bStop && m_fnUp) m_fnUp(BU_FALSE);
}

bool Client::receive(std::vector<BU_CHAR> &buffer)
{
    for (;;) {
        const ssize_t length = recv(m_fd, buffer.data(), buffer.size(), MSG_DONTWAIT | MSG_TRUNC);
        if (length < 0 && errno == EAGAIN) return true;
        if (length < 0 && errno == ECONNRESET) continue; // told once, before what lies there to be read
        if (length <= 0 || static_cast<std::size_t>(length) > buffer.size()) return false;
        const auto message = decode({buffer.data(), static_cast<std::size_t>(length)});
        if (!message) {
            LOG_WARN("the camera says what this web server does not understand\n");
            return false;
        }
        take(*message);
    }
}

void Client::take(const Message &stMessage)
{
    if (stMessage.stHead.enKind == Kind::NEWS && m_fnNews) m_fnNews(stMessage.bytes);
    if (stMessage.stHead.enKind != Kind::ANSWER) return;
    std::unique_lock guard(m_lock);
    const auto node = m_pending.extract(stMessage.stHead.u32Id);
    guard.unlock();
    if (node.empty()) return; // came too late
    node.mapped().fnAnswer(static_cast<WEB_CLIENT_RESULT_E>(stMessage.stHead.s16Result), stMessage.bytes);
}

void Client::giveOwnAnswers()
{
    for (const OwnAnswer &st : m_ownAnswers.take()) st.fnAnswer(st.enResult, "");
}

void Client::giveTimeouts()
{
    {
        const std::lock_guard guard(m_lock);
        if (UTIL_TIME_NowMs() < m_s64WatchMs) return;
        m_s64WatchMs = INT64_MAX;
        for (auto it = m_pending.begin(); it != m_pending.end();) {
            const bool bOver = UTIL_TIME_NowMs() >= it->second.s64DueMs;
            if (bOver)
                m_ownAnswers.post({std::move(it->second.fnAnswer), WEB_CLIENT_RESULT_E_TIMEOUT});
            else
                watchUntil(it->second.s64DueMs);
            it = bOver ? m_pending.erase(it) : std::next(it);
        }
    }
    giveOwnAnswers();
}

struct Service {
    std::mutex lock; // guards the pointer; a call holds the client while it asks
    std::shared_ptr<Client> pstClient;
};
Service &service()
{
    static auto *pstService = new Service;
    return *pstService;
}

std::shared_ptr<Client> client()
{
    const std::lock_guard guard(service().lock);
    return service().pstClient;
}

std::string_view bytesOf(const Head &stHead) { return {reinterpret_cast<const BU_CHAR *>(&stHead), sizeof(stHead)}; }
} // namespace

BU_S32 WEB_CLIENT_Start(std::function<void(BU_BOOL)> fnUp, std::function<void(std::string_view)> fnNews)
{
    const std::lock_guard guard(service().lock);
    if (service().pstClient) return -1;
    service().pstClient = std::make_shared<Client>(std::move(fnUp), std::move(fnNews));
    return 0;
}

BU_S32 WEB_CLIENT_Stop()
{
    std::unique_lock guard(service().lock);
    const auto pst = std::exchange(service().pstClient, nullptr);
    guard.unlock();
    if (pst) pst->stop();
    return 0;
}

void WEB_CLIENT_Call(tag_WEB_RPC_EVENT_GROUP_E enEvent, std::string_view strImage, BU_U32 u32Timeout,
                     FN_WEB_CLIENT_ANSWER fnAnswer)
{
    const auto pst = client();
    if (!pst) return fnAnswer(WEB_CLIENT_RESULT_E_GONE, "");
    Head stHead{.enKind = Kind::CALL, .u32Subject = static_cast<BU_U32>(enEvent)};
    pst->ask(u32Timeout, std::move(fnAnswer), [&](BU_U32 u32Id) {
        stHead.u32Id = u32Id;
        return std::pair(bytesOf(stHead), strImage);
    });
}

void WEB_CLIENT_Ask(std::string_view strQuestion, std::string_view strJson, BU_U32 u32Timeout,
                    FN_WEB_CLIENT_ANSWER fnAnswer)
{
    const auto pst = client();
    if (!pst) return fnAnswer(WEB_CLIENT_RESULT_E_GONE, "");
    std::string strPacket;
    pst->ask(u32Timeout, std::move(fnAnswer), [&](BU_U32 u32Id) {
        strPacket = encodeQuestion(u32Id, strQuestion, strJson);
        return std::pair(std::string_view(strPacket), std::string_view());
    });
}
