// The life of a connection, request by request.
#include "connection.h"

#include "http/headers.h"
#include "util/log.h"
#include "util/time.h"

#include <algorithm>
#include <ctime>
#include <libwebsockets.h>
#include <sys/socket.h>

namespace web_server
{
namespace
{
constexpr std::size_t IGNORED_MAX = 1 << 20; // [bytes]
} // namespace

Connection::Connection(Site &site, lws *pstWsi, BU_U64 u64Number, std::string strRemote, bool bTls)
    : m_site(site), m_pstWsi(pstWsi), m_u64Number(u64Number), m_strRemote(std::move(strRemote)), m_bTls(bTls)
{
    enter(State::HEAD, m_site.stConfig.s64RequestMs);
}

Connection::~Connection()
{
    if (m_site.newsReaders.erase(this) > 0) stopDrives();
}

/// @param s64LimitMs  how long the state may last
void Connection::enter(State enState, BU_S64 s64LimitMs)
{
    m_enState = enState;
    m_s64SinceMs = UTIL_TIME_NowMs();
    lws_set_timer_usecs(m_pstWsi, s64LimitMs * 1000);
    updateReading();
}

/// Reads only what somebody wants, and nothing while the socket takes no more: the library would not read it either,
/// but wake up for it again and again.
void Connection::updateReading()
{
    const bool bWanted = m_enState != State::WAIT && m_enState != State::SEND &&
                         (m_enState != State::PREVIEW || (m_pstPreview && m_pstPreview->isReady()));
    const bool bReading = bWanted && !lws_partial_buffered(m_pstWsi);
    if (bReading == m_bReading) return;
    m_bReading = bReading;
    lws_rx_flow_control(m_pstWsi, bReading);
}

void Connection::end() { lws_set_timeout(m_pstWsi, PENDING_TIMEOUT_USER_OK, LWS_TO_KILL_SYNC); }

BU_S64 Connection::unixNow() const { return std::time(nullptr); }

bool Connection::onBytes(std::string_view bytes)
{
    if (!m_bSettled) lws_set_timeout(m_pstWsi, NO_PENDING_TIMEOUT, 0); // the one of the TLS handshake
    m_bSettled = true;
    switch (m_enState) {
    case State::NEWS:
    case State::LINGER:
        m_ignored += bytes.size();
        return m_ignored <= IGNORED_MAX;
    case State::PREVIEW:
        m_pstPreview->send(bytes);
        updateReading();
        return true;
    default:
        m_strInput += bytes;
        return advance();
    }
}

/// Serves as many of the requests that came as can be answered at once: one.
bool Connection::advance()
{
    if (m_enState == State::HEAD) {
        if (!m_bHeadBegun && !m_strInput.empty()) {
            m_bHeadBegun = true;
            enter(State::HEAD, m_site.stConfig.s64RequestMs);
        }
        auto parsed = m_reader.take(m_strInput);
        if (parsed && !onHead(std::move(*parsed))) return false;
    }
    if (m_enState == State::BODY && m_strInput.size() >= m_stHead.stRequest.u64BodyBytes.value_or(0)) {
        const std::size_t length = static_cast<std::size_t>(m_stHead.stRequest.u64BodyBytes.value_or(0));
        m_stHead.stRequest.strBody = m_strInput.substr(0, length);
        m_strInput.erase(0, length);
        decide();
    }
    return true;
}

bool Connection::onHead(http::Parsed parsed)
{
    if (const auto *pst = std::get_if<http::Refusal>(&parsed)) {
        refuse(pst->u32Status, pst->pcSentence);
        return true;
    }
    m_stHead = std::get<http::Head>(std::move(parsed));
    m_bHeadBegun = false;
    Request &st = m_stHead.stRequest;
    m_bHeadOnly = st.strMethod == "HEAD";
    if (m_bHeadOnly) st.strMethod = "GET"; // the same answer, without its body
    st.bTls = m_bTls;
    st.strRemote = m_strRemote;
    st.s64NowMs = UTIL_TIME_NowMs();
    st.s64Unix = unixNow();
    const bool bBody = st.bChunked || st.u64BodyBytes.value_or(0) > 0;
    const Admission stAdmission = m_site.stDecisions.fnAdmit(st);
    if (stAdmission.stRefusal)
        send(*stAdmission.stRefusal, m_stHead.bKeepAlive && !bBody && !st.bUpgrade);
    else if (st.bChunked)
        refuse(411, "the length of the body must be told first");
    else if (st.u64BodyBytes.value_or(0) > std::min(stAdmission.bodyMax, http::BODY_MAX_BYTES))
        refuse(413, "the body is too large");
    else if (bBody) {
        if (m_stHead.bExpectContinue) m_output.push(std::string(http::CONTINUE));
        enter(State::BODY, m_site.stConfig.s64RequestMs);
        return m_output.flush(m_pstWsi);
    } else
        decide();
    return true;
}

void Connection::decide()
{
    enter(State::WAIT, m_site.stConfig.s64AnswerMs);
    Outcome outcome = m_site.stDecisions.fnHandle(m_stHead.stRequest);
    std::visit([this](const auto &what) { carryOut(what); }, outcome);
}

/// What makes the reply of this connection on another thread hands it over through this, if there is still somebody.
std::function<void(Reply)> Connection::finisher() const
{
    return [pstInbox = m_site.pstInbox, &fnAnswer = m_site.fnAnswer, u64 = m_u64Number](Reply stReply) {
        pstInbox->post([&fnAnswer, u64, stReply = std::move(stReply)] { fnAnswer(u64, stReply); });
    };
}

FN_WEB_CLIENT_ANSWER Connection::finisher(const FN_FINISH &fnFinish) const
{
    return [fnFinish, fnPost = finisher()](WEB_CLIENT_RESULT_E enResult, std::string_view answer) {
        fnPost(fnFinish(enResult, answer));
    };
}

void Connection::carryOut(const Reply &stReply) { send(stReply, m_stHead.bKeepAlive); }

void Connection::carryOut(const EventCall &st)
{
    m_site.drives.note(st.strSession, st.enEvent, st.strImage);
    WEB_CLIENT_Call(st.enEvent, st.strImage, st.u32TimeoutMs, finisher(st.fnFinish));
}

void Connection::carryOut(const Question &st)
{
    WEB_CLIENT_Ask(st.strQuestion, st.strJson, st.u32TimeoutMs, finisher(st.fnFinish));
}

void Connection::carryOut(const Work &stWork)
{
    if (m_site.worker.run([fnRun = stWork.fnRun, fnPost = finisher()] { fnPost(fnRun()); })) return;
    Reply stBusy = problem(503, "the camera is busy");
    stBusy.headers.emplace_back("Retry-After", "1");
    send(stBusy, m_stHead.bKeepAlive);
}

void Connection::answer(const Reply &stReply)
{
    if (m_enState == State::WAIT) send(stReply, m_stHead.bKeepAlive);
}

/// For requests that are not understood, so nothing behind them is either.
void Connection::refuse(BU_U32 u32Status, const char *pcSentence) { send(problem(u32Status, pcSentence), false); }

void Connection::send(const Reply &stReply, bool bKeepAlive)
{
    m_bKeepAlive = bKeepAlive;
    const bool bEmpty = stReply.strBody.empty();
    std::string str = http::answerHead({stReply.u32Status, bEmpty ? "" : std::string_view(stReply.strType),
                                        stReply.strBody.size(), bKeepAlive, unixNow()},
                                       stReply.headers, securityHeaders());
    if (!m_bHeadOnly) str += stReply.strBody;
    m_output.push(std::move(str));
    enter(State::SEND, m_site.stConfig.s64AnswerMs);
    lws_callback_on_writable(m_pstWsi);
}

void Connection::carryOut(const File &stFile)
{
    std::string_view path = stFile.strPath;
    if (!stFile.bPage && path.starts_with('/')) path.remove_prefix(1);
    const FileContent *pst = (stFile.bPage ? m_site.page : m_site.device).find(path);
    if (!pst) return send(problem(404, "there is no such file"), m_stHead.bKeepAlive);
    m_bKeepAlive = m_stHead.bKeepAlive;
    const bool bSame = http::isTagIn(m_stHead.strIfNoneMatch, pst->strTag);
    const bool bBody = !bSame && !m_bHeadOnly;
    m_output.push(http::answerHead(
        {bSame ? 304U : 200U, bSame ? "" : typeOfFile(stFile.strPath), pst->pstBytes->size(), m_bKeepAlive, unixNow()},
        {{"ETag", pst->strTag}, {"Cache-Control", stFile.bPage ? "no-cache" : "private, no-cache"}},
        securityHeaders()));
    if (bBody) m_output.push(pst->pstBytes);
    enter(State::SEND, m_site.stConfig.s64AnswerMs);
    lws_callback_on_writable(m_pstWsi);
}

bool Connection::onWritable()
{
    if (!m_output.flush(m_pstWsi)) return false;
    const bool bSent = m_output.bytes() == 0 && !lws_partial_buffered(m_pstWsi);
    if (m_enState == State::SEND && bSent && !afterSent()) return false;
    if (m_enState == State::PREVIEW) m_pstPreview->setReading(m_output.bytes() <= PREVIEW_LOW);
    updateReading();
    return true;
}

/// The answer is out.
bool Connection::afterSent()
{
    m_bHeadOnly = false;
    if (m_bKeepAlive) {
        m_stHead = {};
        enter(State::HEAD, m_site.stConfig.s64IdleMs);
        return advance();
    }
    // Closing with something unread would take the answer away from who has not read it yet.
    shutdown(lws_get_socket_fd(m_pstWsi), SHUT_WR);
    m_strInput.clear();
    enter(State::LINGER, m_site.stConfig.s64LingerMs);
    return true;
}

bool Connection::onTimer()
{
    switch (m_enState) {
    case State::HEAD:
        if (m_strInput.empty()) return false;
        refuse(408, "the request took too long to arrive");
        return true;
    case State::BODY:
        refuse(408, "the body took too long to arrive");
        return true;
    case State::WAIT:
        refuse(504, "the answer took too long");
        return true;
    case State::NEWS:
    case State::PREVIEW:
        return beat();
    case State::SEND:
        return abandon();
    default:
        return false;
    }
}

/// Ends without waiting for what lies in the socket: nobody takes it.
bool Connection::abandon()
{
    constexpr linger NOW{1, 0};
    setsockopt(lws_get_socket_fd(m_pstWsi), SOL_SOCKET, SO_LINGER, &NOW, sizeof(NOW));
    return false;
}
} // namespace web_server
