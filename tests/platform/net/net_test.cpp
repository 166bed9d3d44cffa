#include "net/datagram.h"
#include "net/listener.h"
#include "net/outbox.h"
#include "net/socket.h"
#include "support/socket.h"

#include <gmock/gmock.h>

#include <cerrno>
#include <numeric>
#include <poll.h>
#include <sys/resource.h>

namespace
{
typedef std::vector<BU_U8> Bytes;

bool isReadable(int s32Fd, int s32WaitMs)
{
    pollfd stPoll{s32Fd, POLLIN, 0};
    return ::poll(&stPoll, 1, s32WaitMs) == 1;
}

TEST(Socket, TellsWhyItIsNone)
{
    const net::Socket first = net::listenTcp("127.0.0.1", 0);
    ASSERT_TRUE(first);
    EXPECT_FALSE(net::listenTcp("127.0.0.1", net::boundPort(*first)));
    EXPECT_EQ(errno, EADDRINUSE);
    EXPECT_FALSE(net::bindUdp("camera", 0));
    EXPECT_EQ(errno, EINVAL);
}

TEST(Listener, TurnsAwayForWhomThereIsNoDescriptor)
{
#ifdef __SANITIZE_ADDRESS__
    GTEST_SKIP() << "the sanitizer's checks need descriptors of their own";
#endif
    net::Listener listener(net::listenTcp("127.0.0.1", 0), "peer", 2);
    const BU_U16 u16Port = net::boundPort(listener.fd());
    std::vector<util::FileDescriptor> peers, taken, filler;
    const auto take = [&](util::FileDescriptor fd, const sockaddr_storage &) { taken.push_back(std::move(fd)); };
    const auto accept = [&] { return listener.accept(take); };
    for (int i = 0; i < 3; ++i) peers.push_back(loopback(SOCK_STREAM, u16Port, ::connect));
    EXPECT_TRUE(accept());
    EXPECT_EQ(taken.size(), 2U) << "so many at once";
    rlimit stLimit{};
    getrlimit(RLIMIT_NOFILE, &stLimit);
    const rlimit stLow{128, stLimit.rlim_max};
    setrlimit(RLIMIT_NOFILE, &stLow);
    for (int s32Fd; (s32Fd = ::dup(0)) >= 0;) filler.emplace_back(s32Fd);
    EXPECT_FALSE(accept()) << "one is turned away, then nobody is left";
    EXPECT_EQ(taken.size(), 2U);
    EXPECT_TRUE(isReadable(peers[2], 20'000)) << "the end of its connection";
    filler.clear();
    setrlimit(RLIMIT_NOFILE, &stLimit);
    peers.push_back(loopback(SOCK_STREAM, u16Port, ::connect));
    EXPECT_TRUE(accept());
    EXPECT_EQ(taken.size(), 3U);
}

TEST(Outbox, KeepsWhatFitsAndLosesNothingOfIt)
{
    for (const auto enFraming : {net::Outbox::Framing::STREAM, net::Outbox::Framing::PACKETS}) {
        const bool bPackets = enFraming == net::Outbox::Framing::PACKETS;
        int as32Pair[2];
        ASSERT_EQ(::socketpair(AF_UNIX, (bPackets ? SOCK_SEQPACKET : SOCK_STREAM) | SOCK_NONBLOCK, 0, as32Pair), 0);
        util::FileDescriptor here(as32Pair[0]), there(as32Pair[1]);
        Bytes piece(100'000), got, room(200'000);
        std::iota(piece.begin(), piece.end(), BU_U8{0});
        net::Outbox outbox(1'000'000, enFraming);
        const std::span<const BU_U8> head(piece.data(), 3), body(piece.data() + 3, piece.size() - 3);
        for (int i = 0; i < 10; ++i) ASSERT_TRUE(outbox.add(head, body)) << i;
        EXPECT_FALSE(outbox.add(head.first(1))) << "full";
        EXPECT_EQ(outbox.send(here), EAGAIN);
        for (ssize_t size = 0; got.size() < 1'000'000 && isReadable(there, 20'000);) {
            ASSERT_GT(size = ::recv(there, room.data(), room.size(), 0), 0);
            ASSERT_TRUE(!bPackets || size == 100'000) << size;
            got.insert(got.end(), room.begin(), room.begin() + size);
            outbox.send(here);
        }
        EXPECT_EQ(got.size(), 1'000'000U);
        EXPECT_TRUE(outbox.isEmpty());
        for (std::size_t i = 0; i < got.size(); ++i) ASSERT_EQ(got[i], piece[i % piece.size()]) << i;
        EXPECT_TRUE(outbox.add(head));
        there = {};
        EXPECT_EQ(outbox.send(here), EPIPE);
        EXPECT_EQ(outbox.isEmpty(), bPackets);
    }
}

TEST(Datagram, BatchesKeepTheirOrderAndTheirSocket)
{
    const net::Socket to = net::bindUdp("127.0.0.1", 0), other = net::bindUdp("127.0.0.1", 0);
    const sockaddr_in stTo = net::socketAddress(INADDR_LOOPBACK, net::boundPort(*to));
    net::DatagramBatch batch(4);
    for (BU_U8 u8 = 0; u8 < 100; ++u8)
        batch.add(u8 % 3 ? *to : *other, stTo, Bytes{u8, 2}, u8 == 50 ? Bytes{1, 2, 3} : Bytes{3, 4});
    batch.flush();
    std::vector<std::array<BU_U8, 3>> buffers(64);
    Bytes first;
    while (isReadable(*to, 0))
        EXPECT_GT(net::receiveDatagrams(*to, std::span<std::array<BU_U8, 3>>(buffers),
                                        [&](const sockaddr_in &stFrom, std::span<const BU_U8> bytes) {
                                            EXPECT_EQ(bytes.size(), 3U) << "cut to the buffer";
                                            EXPECT_EQ(ntohs(stFrom.sin_port),
                                                      net::boundPort(bytes[0] % 3 ? *to : *other));
                                            first.push_back(bytes[0]);
                                        }),
                  0U);
    EXPECT_EQ(first.size(), 99U) << "the one that was too long was left out";
    EXPECT_TRUE(std::ranges::is_sorted(first));
}
} // namespace
