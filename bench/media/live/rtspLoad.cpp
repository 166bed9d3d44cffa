#include "rtspLoad.h"

#include <algorithm>
#include <arpa/inet.h>
#include <array>
#include <fcntl.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <stdexcept>
#include <sys/epoll.h>
#include <sys/socket.h>
#include <unistd.h>

namespace
{
constexpr int PATIENCE_MS = 5000;
constexpr std::size_t BUFFER = 256 * 1024, HEADER = 4, RTP_HEADER = 12;
constexpr int IDR = 5, STAP_A = 24, FU_A = 28; // NAL unit types
constexpr std::uint8_t START[] = {0, 0, 0, 1};

int typeOf(std::uint8_t u8Unit) { return u8Unit & 0x1F; }
} // namespace

bool tagRTP_VIEW_S::beginsKeyFrame() const
{
    if (size < 2) return false;
    if (typeOf(pu8Payload[0]) == FU_A) return (pu8Payload[1] & 0x80) != 0 && typeOf(pu8Payload[1]) == IDR;
    if (typeOf(pu8Payload[0]) != STAP_A) return typeOf(pu8Payload[0]) == IDR;
    for (std::size_t at = 1; at + 3 <= size;
         at += 2U + static_cast<std::size_t>(pu8Payload[at] << 8 | pu8Payload[at + 1]))
        if (typeOf(pu8Payload[at + 2]) == IDR) return true;
    return false;
}

RtspClient::RtspClient(int s32Port, const std::string &strPath)
    : m_fd(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)), m_in(BUFFER)
{
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(static_cast<std::uint16_t>(s32Port));
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    const int s32On = 1;
    setsockopt(m_fd, IPPROTO_TCP, TCP_NODELAY, &s32On, sizeof(s32On));
    if (connect(m_fd, reinterpret_cast<const sockaddr *>(&address), sizeof(address)) != 0) {
        close(m_fd);
        throw std::runtime_error("cannot connect to port " + std::to_string(s32Port));
    }
    const std::string strUrl = "rtsp://127.0.0.1:" + std::to_string(s32Port) + "/" + strPath;
    const std::string strDescription = ask("DESCRIBE", strUrl, "Accept: application/sdp\r\n");
    const auto control = strDescription.find("a=control:", strDescription.find("m=video"));
    const std::string strControl =
        control == std::string::npos
            ? "stream=0"
            : strDescription.substr(control + 10, strDescription.find('\r', control) - control - 10);
    ask("SETUP", strControl.starts_with("rtsp:") ? strControl : strUrl + "/" + strControl,
        "Transport: RTP/AVP/TCP;unicast;interleaved=0-1\r\n");
    ask("PLAY", strUrl, "Range: npt=0.000-\r\n");
    fcntl(m_fd, F_SETFL, O_NONBLOCK);
}

RtspClient::~RtspClient() { close(m_fd); }

std::string RtspClient::ask(const std::string &strMethod, const std::string &strUrl, const std::string &strHeaders)
{
    const std::string strRequest = strMethod + " " + strUrl + " RTSP/1.0\r\nCSeq: " + std::to_string(++m_s32Sequence) +
                                   "\r\n" + (m_strSession.empty() ? "" : "Session: " + m_strSession + "\r\n") +
                                   strHeaders + "\r\n";
    if (write(m_fd, strRequest.data(), strRequest.size()) < 0) throw std::runtime_error("cannot ask");
    for (;;) {
        parse(nullptr); // packets may come before the answer to PLAY
        const std::string_view in(reinterpret_cast<const char *>(m_in.data()), m_filled);
        const auto end = in.find("\r\n\r\n");
        if (in.starts_with("RTSP/") && end != std::string_view::npos) {
            const auto field = [&](std::string_view name) -> std::string {
                const auto at = in.substr(0, end).find(name);
                return at == std::string_view::npos
                           ? ""
                           : std::string(in.substr(at + name.size(), in.find('\r', at) - at - name.size()));
            };
            if (!in.starts_with("RTSP/1.0 200"))
                throw std::runtime_error(strMethod + ": " + std::string(in.substr(0, in.find('\r'))));
            const std::string strLength = field("Content-Length: ");
            const std::size_t all = end + 4 + (strLength.empty() ? 0 : std::stoul(strLength));
            if (in.size() >= all) {
                if (const std::string strSession = field("Session: "); !strSession.empty())
                    m_strSession = strSession.substr(0, strSession.find(';'));
                const std::string strAnswer(in.substr(0, all));
                std::copy(m_in.begin() + static_cast<std::ptrdiff_t>(all),
                          m_in.begin() + static_cast<std::ptrdiff_t>(m_filled), m_in.begin());
                m_filled -= all;
                return strAnswer;
            }
        }
        pollfd readable{m_fd, POLLIN, 0};
        const ssize_t got =
            ::poll(&readable, 1, PATIENCE_MS) > 0 ? read(m_fd, m_in.data() + m_filled, m_in.size() - m_filled) : 0;
        if (got <= 0) throw std::runtime_error("no answer to " + strMethod);
        m_filled += static_cast<std::size_t>(got);
    }
}

void RtspClient::count(const tagRTP_VIEW_S &st)
{
    if (!m_bFirst) m_u64Gaps += st.u16Sequence != m_u16Next;
    m_bFirst = false;
    m_u16Next = static_cast<std::uint16_t>(st.u16Sequence + 1);
    m_u64Pictures += st.bMarker;
}

bool RtspClient::parse(const std::function<bool(const tagRTP_VIEW_S &)> *pfn)
{
    std::size_t at = 0;
    bool bOn = true;
    while (bOn && m_filled - at >= HEADER && m_in[at] == '$') {
        const std::uint8_t *pu8 = m_in.data() + at;
        const std::size_t size = static_cast<std::size_t>(pu8[2] << 8 | pu8[3]);
        if (m_filled - at < HEADER + size) break;
        at += HEADER + size;
        if (pu8[1] != 0 || size < RTP_HEADER) continue; // control packets
        const std::uint8_t *pu8Rtp = pu8 + HEADER;
        std::uint32_t u32Time = 0;
        for (int i = 4; i < 8; ++i) u32Time = u32Time << 8 | pu8Rtp[i];
        const tagRTP_VIEW_S st{static_cast<std::uint16_t>(pu8Rtp[2] << 8 | pu8Rtp[3]), u32Time, (pu8Rtp[1] & 0x80) != 0,
                               pu8Rtp + RTP_HEADER, size - RTP_HEADER};
        count(st);
        bOn = !pfn || (*pfn)(st);
    }
    std::copy(m_in.begin() + static_cast<std::ptrdiff_t>(at), m_in.begin() + static_cast<std::ptrdiff_t>(m_filled),
              m_in.begin());
    m_filled -= at;
    return bOn;
}

bool RtspClient::take()
{
    const ssize_t got = read(m_fd, m_in.data() + m_filled, m_in.size() - m_filled);
    if (got == 0 || (got < 0 && errno != EAGAIN)) return false;
    m_filled += static_cast<std::size_t>(std::max<ssize_t>(got, 0));
    parse(nullptr);
    return true;
}

bool RtspClient::watch(const std::function<bool(const tagRTP_VIEW_S &)> &fn)
{
    while (parse(&fn)) {
        pollfd readable{m_fd, POLLIN, 0};
        const ssize_t got =
            ::poll(&readable, 1, PATIENCE_MS) > 0 ? read(m_fd, m_in.data() + m_filled, m_in.size() - m_filled) : 0;
        if (got <= 0) return false;
        m_filled += static_cast<std::size_t>(got);
    }
    return true;
}

RtspLoad::RtspLoad(int s32Port, std::string strPath)
    : m_s32Port(s32Port), m_strPath(std::move(strPath)), m_fdEpoll(epoll_create1(EPOLL_CLOEXEC))
{
}
RtspLoad::~RtspLoad() { close(m_fdEpoll); }

void RtspLoad::grow(std::size_t clients)
{
    while (m_clients.size() < clients) {
        auto &pst = m_clients.emplace_back(std::make_unique<RtspClient>(m_s32Port, m_strPath));
        epoll_event event{};
        event.events = EPOLLIN;
        event.data.ptr = pst.get();
        epoll_ctl(m_fdEpoll, EPOLL_CTL_ADD, pst->fd(), &event);
        poll(0);
    }
}

void RtspLoad::poll(int s32TimeoutMs)
{
    std::array<epoll_event, 64> events;
    const int s32Count = epoll_wait(m_fdEpoll, events.data(), events.size(), s32TimeoutMs);
    for (int i = 0; i < s32Count; ++i) {
        auto *pst = static_cast<RtspClient *>(events[static_cast<std::size_t>(i)].data.ptr);
        if (pst->take()) continue;
        ++m_lost;
        epoll_ctl(m_fdEpoll, EPOLL_CTL_DEL, pst->fd(), nullptr);
    }
}

void RtspLoad::run(std::chrono::milliseconds duration)
{
    for (const auto end = Clock::now() + duration; Clock::now() < end;) poll(20);
}

std::uint64_t RtspLoad::pictures() const
{
    std::uint64_t u64 = 0;
    for (const auto &pst : m_clients) u64 += pst->pictures();
    return u64;
}

std::uint64_t RtspLoad::gaps() const
{
    std::uint64_t u64 = 0;
    for (const auto &pst : m_clients) u64 += pst->gaps();
    return u64;
}

double firstKeyFrame(int s32Port, const std::string &strPath)
{
    const auto start = Clock::now();
    RtspClient client(s32Port, strPath);
    bool bKey = false;
    client.watch([&](const tagRTP_VIEW_S &st) {
        bKey |= st.beginsKeyFrame();
        return !(bKey && st.bMarker);
    });
    return milliseconds(Clock::now() - start);
}

std::vector<std::vector<std::uint8_t>> record(int s32Port, const std::string &strPath, std::size_t pictures)
{
    RtspClient client(s32Port, strPath);
    std::vector<std::vector<std::uint8_t>> list;
    std::vector<std::uint8_t> unit;
    bool bKey = false;
    const auto add = [&unit](const std::uint8_t *pu8, std::size_t size) {
        unit.insert(unit.end(), std::begin(START), std::end(START));
        unit.insert(unit.end(), pu8, pu8 + size);
    };
    client.watch([&](const tagRTP_VIEW_S &st) {
        const std::uint8_t *pu8 = st.pu8Payload;
        bKey |= st.beginsKeyFrame();
        if (typeOf(pu8[0]) == FU_A) {
            const auto u8Unit = static_cast<std::uint8_t>((pu8[0] & 0xE0) | (pu8[1] & 0x1F));
            if (pu8[1] & 0x80) add(&u8Unit, 1);
            unit.insert(unit.end(), pu8 + 2, pu8 + st.size);
        } else if (typeOf(pu8[0]) == STAP_A) {
            for (std::size_t at = 1, size = 0; at + 2 < st.size; at += 2 + size)
                add(pu8 + at + 2, size = static_cast<std::size_t>(pu8[at] << 8 | pu8[at + 1]));
        } else
            add(pu8, st.size);
        if (!st.bMarker) return true;
        if (bKey || !list.empty()) list.push_back(unit);
        unit.clear();
        return list.size() < pictures;
    });
    if (list.size() < pictures) throw std::runtime_error("the stream ended while it was recorded");
    return list;
}

double percentile(std::vector<double> values, double dPercent)
{
    if (values.empty()) return 0;
    const auto n = static_cast<std::ptrdiff_t>(static_cast<double>(values.size() - 1) * dPercent / 100);
    std::nth_element(values.begin(), values.begin() + n, values.end());
    return values[static_cast<std::size_t>(n)];
}
