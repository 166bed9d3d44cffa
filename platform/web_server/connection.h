/// One connection of a browser, from its first request to its last byte.
#pragma once

#include "http/output.h"
#include "preview.h"
#include "site.h"

#include <memory>
#include <string>
#include <string_view>

struct lws;

namespace web_server
{
/// Thread: the network thread. Where a function returns bool, false means: the connection ends now.
class Connection
{
public:
    Connection(Site &site, lws *pstWsi, BU_U64 u64Number, std::string strRemote, bool bTls);
    ~Connection();
    Connection(const Connection &) = delete;
    Connection &operator=(const Connection &) = delete;

    bool onBytes(std::string_view bytes);
    bool onWritable();
    bool onTimer();
    void answer(const Reply &stReply); ///< to the request that waits for one
    void tell(const http::Output::Piece &pstEvent);
    void end(); ///< at once: it does not exist any more when this returns

    BU_U64 number() const { return m_u64Number; }
    const std::string &remote() const { return m_strRemote; }
    /// Nobody waits for an answer of it, or they take their time to ask.
    bool isIdle() const { return m_enState == State::HEAD || m_enState == State::BODY || m_enState == State::LINGER; }
    /// They take their time to be answered, or what they asked for has no end.
    bool isSending() const { return !isIdle() && m_enState != State::WAIT; }
    const std::string &session() const { return m_strSession; } ///< of what has no end, else empty
    BU_S64 since() const { return m_s64SinceMs; }               ///< when it began what it does

private:
    enum class State {
        HEAD,    ///< a request is awaited, or comes
        BODY,    ///< its body comes
        WAIT,    ///< somebody makes the answer
        SEND,    ///< the answer goes out
        NEWS,    ///< the answer never ends
        PREVIEW, ///< passes bytes on
        LINGER   ///< all is said; the other end reads
    };
    static constexpr std::size_t PREVIEW_HIGH = 128 << 10, PREVIEW_LOW = 32 << 10; // bytes that wait for the viewer
    static constexpr std::size_t MISSED_BEATS_MAX = 2;

    void enter(State enState, BU_S64 s64LimitMs);
    void updateReading();
    bool advance();
    bool onHead(http::Parsed parsed);
    void decide();
    void carryOut(const Reply &stReply);
    void carryOut(const EventCall &stCall);
    void carryOut(const Question &stQuestion);
    void carryOut(const Work &stWork);
    void carryOut(const File &stFile);
    void carryOut(const NewsStream &stNews);
    void carryOut(const PreviewProxy &stPreview);
    std::function<void(Reply)> finisher() const;
    FN_WEB_CLIENT_ANSWER finisher(const FN_FINISH &fnFinish) const;
    void refuse(BU_U32 u32Status, const char *pcSentence);
    void send(const Reply &stReply, bool bKeepAlive);
    void refusePreview(std::string_view sentence);
    bool isUpgradeSound();
    bool afterSent();
    bool abandon();
    bool beat();
    void stopDrives();
    BU_S64 unixNow() const;

    Site &m_site;
    lws *const m_pstWsi;
    const BU_U64 m_u64Number;
    const std::string m_strRemote;
    const bool m_bTls;

    State m_enState = State::HEAD;
    BU_S64 m_s64SinceMs = 0;
    std::string m_strInput; // what came and is not used yet
    http::HeadReader m_reader;
    http::Head m_stHead; // of the request that is served
    bool m_bHeadBegun = false, m_bKeepAlive = false, m_bReading = true, m_bSettled = false;
    bool m_bHeadOnly = false;      // the request is a HEAD
    std::size_t m_ignored = 0;     // bytes read for nothing
    std::size_t m_missedBeats = 0; // in a row
    http::Output m_output;
    std::string m_strSession; // of what has no end
    std::unique_ptr<PreviewLink> m_pstPreview;
};
} // namespace web_server
