// Servers of recorded packets.
#include "baselines.h"
#include "rtspLoad.h"

#include <arpa/inet.h>
#include <array>
#include <cstdio>
#include <fcntl.h>
#include <fstream>
#include <gst/gst.h>
#include <gst/rtsp-server/rtsp-server.h>
#include <map>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

namespace
{
constexpr std::chrono::microseconds FRAME(33'333);

Pictures load(const std::string &strFile)
{
    Pictures pictures;
    std::ifstream in(strFile, std::ios::binary);
    for (std::uint32_t u32Size = 0; in.read(reinterpret_cast<char *>(&u32Size), sizeof(u32Size));) {
        pictures.emplace_back(u32Size);
        in.read(reinterpret_cast<char *>(pictures.back().data()), u32Size);
    }
    return pictures;
}

void tellPort(int s32Port)
{
    std::printf("ready %d\n", s32Port);
    std::fflush(stdout);
}

/// The example's state: which picture is next.
struct tagEXAMPLE_S {
    Pictures pictures;
    std::size_t next = 0;
};

void needData(GstElement *pstSource, guint, tagEXAMPLE_S *pst)
{
    const auto &picture = pst->pictures[pst->next % pst->pictures.size()];
    GstBuffer *pstBuffer = gst_buffer_new_memdup(picture.data(), picture.size());
    GST_BUFFER_PTS(pstBuffer) = pst->next * GST_SECOND / 30;
    GST_BUFFER_DURATION(pstBuffer) = GST_SECOND / 30;
    ++pst->next;
    GstFlowReturn enRet = GST_FLOW_OK;
    g_signal_emit_by_name(pstSource, "push-buffer", pstBuffer, &enRet);
    gst_buffer_unref(pstBuffer);
}

void configure(GstRTSPMediaFactory *, GstRTSPMedia *pstMedia, tagEXAMPLE_S *pst)
{
    GstElement *pstElement = gst_rtsp_media_get_element(pstMedia);
    GstElement *pstSource = gst_bin_get_by_name_recurse_up(GST_BIN(pstElement), "mysrc");
    gst_util_set_object_arg(G_OBJECT(pstSource), "format", "time");
    GstCaps *pstCaps = gst_caps_from_string("video/x-h264,stream-format=byte-stream,alignment=au,framerate=30/1");
    g_object_set(pstSource, "caps", pstCaps, nullptr);
    gst_caps_unref(pstCaps);
    pst->next = 0;
    g_signal_connect(pstSource, "need-data", G_CALLBACK(needData), pst);
    gst_object_unref(pstSource);
    gst_object_unref(pstElement);
}

int listenAnywhere(int &s32Port)
{
    const int fd = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof(address);
    bind(fd, reinterpret_cast<const sockaddr *>(&address), size);
    listen(fd, 512);
    getsockname(fd, reinterpret_cast<sockaddr *>(&address), &size);
    s32Port = ntohs(address.sin_port);
    return fd;
}

/// A picture as interleaved RTP packets in one piece, whose sequence numbers are set anew each time.
struct tagPACKETS_S {
    std::vector<std::uint8_t> bytes;
    std::vector<std::size_t> starts; ///< of the RTP headers
};

tagPACKETS_S packetsOf(const std::vector<std::uint8_t> &picture)
{
    constexpr std::size_t PART = 1400;
    tagPACKETS_S st;
    for (std::size_t at = 0; at < picture.size(); at += PART) {
        const std::size_t size = std::min(PART, picture.size() - at), all = 12 + 2 + size;
        const bool bFirst = at == 0, bLast = at + size == picture.size();
        for (const std::size_t u : {std::size_t{'$'}, std::size_t{0}, all >> 8, all & 0xFF})
            st.bytes.push_back(static_cast<std::uint8_t>(u));
        st.starts.push_back(st.bytes.size());
        std::array<std::uint8_t, 14> header{0x80, static_cast<std::uint8_t>(bLast ? 0x80 | 96 : 96)};
        header[12] = 0x7C; // parts of one unit: who counts gaps needs no more
        header[13] = static_cast<std::uint8_t>((bFirst ? 0x80 : 0) | (bLast ? 0x40 : 0) | 1);
        st.bytes.insert(st.bytes.end(), header.begin(), header.end());
        st.bytes.insert(st.bytes.end(), picture.begin() + static_cast<std::ptrdiff_t>(at),
                        picture.begin() + static_cast<std::ptrdiff_t>(at + size));
    }
    return st;
}

/// @return the client plays now
bool answer(int fd)
{
    std::array<char, 4096> acRequest;
    const ssize_t got = read(fd, acRequest.data(), acRequest.size());
    const std::string strRequest(acRequest.data(), static_cast<std::size_t>(std::max<ssize_t>(got, 0)));
    const auto sequence = strRequest.find("CSeq: ");
    const std::string strAnswer =
        "RTSP/1.0 200 OK\r\n" +
        (sequence == std::string::npos ? ""
                                       : strRequest.substr(sequence, strRequest.find('\n', sequence) - sequence + 1)) +
        "Session: 1\r\n\r\n";
    return write(fd, strAnswer.data(), strAnswer.size()) > 0 && strRequest.starts_with("PLAY");
}
} // namespace

int serveExample(const std::string &strFile)
{
    gst_init(nullptr, nullptr);
    tagEXAMPLE_S stExample{load(strFile)};
    GMainLoop *pstLoop = g_main_loop_new(nullptr, FALSE);
    GstRTSPServer *pstServer = gst_rtsp_server_new();
    gst_rtsp_server_set_address(pstServer, "127.0.0.1");
    gst_rtsp_server_set_service(pstServer, "0");
    gst_rtsp_server_set_backlog(pstServer, 512);
    GstRTSPMountPoints *pstMounts = gst_rtsp_server_get_mount_points(pstServer);
    GstRTSPMediaFactory *pstFactory = gst_rtsp_media_factory_new();
    gst_rtsp_media_factory_set_launch(pstFactory, "( appsrc name=mysrc ! rtph264pay name=pay0 pt=96 )");
    gst_rtsp_media_factory_set_shared(pstFactory, TRUE); // else each client would have a pipeline of its own
    g_signal_connect(pstFactory, "media-configure", G_CALLBACK(configure), &stExample);
    gst_rtsp_mount_points_add_factory(pstMounts, "/test", pstFactory);
    g_object_unref(pstMounts);
    gst_rtsp_server_attach(pstServer, nullptr);
    tellPort(gst_rtsp_server_get_bound_port(pstServer));
    g_main_loop_run(pstLoop);
    return 0;
}

int serveBare(const std::string &strFile)
{
    std::vector<tagPACKETS_S> pictures;
    for (const auto &picture : load(strFile)) pictures.push_back(packetsOf(picture));
    int s32Port = 0;
    std::vector<pollfd> polled{{listenAnywhere(s32Port), POLLIN, 0}};
    tellPort(s32Port);
    std::map<int, bool> playing;
    std::uint16_t u16Sequence = 0;
    std::size_t number = 0;
    for (auto due = Clock::now();;) {
        const int s32WaitMs = std::max(0, static_cast<int>(milliseconds(due - Clock::now()) + 1));
        poll(polled.data(), polled.size(), s32WaitMs);
        if (polled[0].revents) polled.push_back({accept(polled[0].fd, nullptr, nullptr), POLLIN, 0});
        for (std::size_t i = 1; i < polled.size(); ++i)
            if (polled[i].revents) playing[polled[i].fd] |= answer(polled[i].fd);
        if (Clock::now() < due) continue;
        due += FRAME;
        tagPACKETS_S &st = pictures[number++ % pictures.size()];
        for (const std::size_t start : st.starts) {
            st.bytes[start + 2] = static_cast<std::uint8_t>(u16Sequence >> 8);
            st.bytes[start + 3] = static_cast<std::uint8_t>(u16Sequence++);
        }
        for (const auto &[fd, bPlays] : playing)
            if (bPlays) static_cast<void>(send(fd, st.bytes.data(), st.bytes.size(), MSG_NOSIGNAL));
    }
}
