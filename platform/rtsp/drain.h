/// A viewer of the server's own that always has room.
#pragma once

#include <vector>

typedef struct _GstRTSPMedia GstRTSPMedia;
typedef struct _GstRTSPStreamTransport GstRTSPStreamTransport;

namespace rtsp
{
/// Takes the packets of every stream of a media and forgets them. Without it one client that stops reading holds up the
/// others: the library waits until any of those who watch over TCP has room.
class Drain
{
public:
    /// @param pstMedia  prepared, and longer there than the drain
    explicit Drain(GstRTSPMedia *pstMedia);
    ~Drain();
    Drain(const Drain &) = delete;
    Drain &operator=(const Drain &) = delete;

private:
    std::vector<GstRTSPStreamTransport *> m_listTransports;
};

/// Whether a way to a client is none but a drain's.
bool isDrain(GstRTSPStreamTransport *pstTransport);
} // namespace rtsp
