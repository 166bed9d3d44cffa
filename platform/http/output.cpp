// How much leaves at once.
#include "http/output.h"

#include <algorithm>
#include <libwebsockets.h>

namespace http
{
void Output::push(Piece pstPiece)
{
    if (pstPiece->empty()) return;
    m_bytes += pstPiece->size();
    m_waiting.push_back({std::move(pstPiece)});
}

void Output::drop()
{
    while (!m_waiting.empty() && m_waiting.back().sent == 0) {
        m_bytes -= m_waiting.back().pstPiece->size();
        m_waiting.pop_back();
    }
}

bool Output::flush(lws *pstWsi)
{
    constexpr std::size_t AT_ONCE = 64 << 10; // what the library keeps of it when the socket is full stays small
    while (!m_waiting.empty() && !lws_send_pipe_choked(pstWsi)) {
        auto &[pstPiece, sent] = m_waiting.front();
        const std::size_t length = std::min(AT_ONCE, pstPiece->size() - sent);
        // Nothing is put before raw bytes, and they are not changed.
        auto *pu8 = reinterpret_cast<unsigned char *>(const_cast<char *>(pstPiece->data())) + sent;
        if (lws_write(pstWsi, pu8, length, LWS_WRITE_RAW) < 0) return false;
        sent += length;
        m_bytes -= length;
        if (sent == pstPiece->size()) m_waiting.pop_front();
    }
    if (!m_waiting.empty() || lws_partial_buffered(pstWsi)) lws_callback_on_writable(pstWsi);
    return true;
}
} // namespace http
