/// The connection to the preview behind one viewer. It speaks no WebSocket itself: the viewer's frames pass as bytes.
#pragma once

#include "http/output.h"

#include <functional>
#include <string>
#include <string_view>

struct lws;
struct lws_context;
struct lws_vhost;

namespace web_server
{
/// Thread: the network thread.
class PreviewLink
{
public:
    struct Events {
        std::function<void()> fnOpen;                            ///< it became a WebSocket
        std::function<void(std::string_view bytes)> fnBytes;     ///< after that
        std::function<void(std::string_view sentence)> fnRefuse; ///< it will not: why. Nothing follows
        std::function<void()> fnEnd;                             ///< it was open and has ended. Nothing follows
        std::function<void()> fnSent;                            ///< there is room for more
    };
    static constexpr std::size_t WAITING_MAX = 16 << 10; ///< bytes to the preview

    explicit PreviewLink(Events events) : m_events(std::move(events)) {}
    ~PreviewLink();
    PreviewLink(const PreviewLink &) = delete;
    PreviewLink &operator=(const PreviewLink &) = delete;

    /// @param path  with query. @param key  the viewer's Sec-WebSocket-Key
    void open(lws_context *pstContext, lws_vhost *pstVhost, const std::string &strHost, int s32Port,
              std::string_view path, std::string_view key);
    void send(std::string_view bytes);
    bool isOpen() const { return m_bOpen; }
    bool isReady() const { return m_bOpen && m_output.bytes() <= WAITING_MAX; } ///< takes bytes
    void setReading(bool bReading);

    // What the library reports. @return false: the connection goes
    bool onConnected(lws *pstWsi);
    bool onBytes(std::string_view bytes);
    bool onWritable();
    void onClosed();

private:
    bool onHead();

    const Events m_events;
    lws *m_pstWsi = nullptr;
    http::Output m_output;
    std::string m_strHead; // of its answer
    bool m_bOpen = false, m_bOver = false, m_bReading = true;
};
} // namespace web_server
