// The monitor of a device, driven through its pseudo-terminal and through an event file of the machine.
#include "board/input.h"

#include "camera/power.h"
#include "camera/serial.h"
#include "support/await.h"
#include "support/platformTest.h"
#include "util/fileDescriptor.h"
#include "util/mailbox.h"

#include <array>
#include <atomic>
#include <cstring>
#include <fcntl.h>
#include <fstream>
#include <linux/input.h>
#include <stdarg.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <thread>
#include <unistd.h>

namespace
{
using testing::Contains;
using testing::ElementsAre;
using testing::Not;
namespace fs = std::filesystem;
using namespace std::chrono_literals;

/// What the monitors say: device, press, release or repeat, and the key.
util::Mailbox<std::string> g_heard;
void hear(char cDevice, const input_event *pst)
{
    if (pst->type == EV_KEY) g_heard.post(cDevice + std::string(1, "-+*"[pst->value]) + std::to_string(pst->code));
}
/// Takes what has been heard once it is so many.
std::vector<std::string> heard(std::size_t count, std::chrono::seconds limit = 10s)
{
    std::vector<std::string> all;
    await([&] { return std::ranges::move(g_heard.take(), std::back_inserter(all)), all.size() >= count; }, limit);
    return all;
}

struct MonitorTest : PlatformTest {
    MonitorTest()
    {
        fs::create_directories(machine());
        setenv("CAMERA_INPUT", machine().c_str(), 1);
        g_heard.take();
        std::strcpy(m_astInput[0].acDeviceName, "NecSr"), std::strcpy(m_astInput[1].acDeviceName, "BigOne");
        m_astInput[0].pfEventCb = [](const input_event *pstEvent) { hear('N', pstEvent); };
        m_astInput[1].pfEventCb = [](const input_event *pstEvent) { hear('B', pstEvent); };
    }
    ~MonitorTest() override
    {
        for (auto &stInput : m_astInput)
            if (stInput.bStart) BSP_INPUT_StopMonitorEvent(&stInput);
    }
    std::string machine() const { return root() + "/machine"; }
    std::string link() const { return root() + "/dev/input/NecSr"; }
    void start(int i = 0) { ASSERT_EQ(BSP_INPUT_StartMonitorEvent(&m_astInput[i]), 0); }

    static util::FileDescriptor openDevice(const std::string &strPath)
    {
        int fd = -1;
        // It may be on its way.
        await([&] { return (fd = open(strPath.c_str(), O_WRONLY | O_NOCTTY | O_CLOEXEC)) >= 0; });
        return util::FileDescriptor(fd);
    }
    static void send(int fd, std::initializer_list<std::array<int, 3>> events)
    {
        for (const auto &[s32Type, s32Code, s32Value] : events) {
            const input_event stEvent{{}, static_cast<BU_U16>(s32Type), static_cast<BU_U16>(s32Code), s32Value};
            EXPECT_EQ(write(fd, &stEvent, sizeof(stEvent)), ssize_t{sizeof(stEvent)});
        }
    }

    std::array<BSP_INPUT_THREAD_S, 2> m_astInput{};
};

TEST_F(MonitorTest, EachDeviceHasItsOwnThreadAndCallback)
{
    start(0);
    start(1);
    EXPECT_NE(m_astInput[0].s32Pid, 0);
    EXPECT_NE(m_astInput[0].s32Pid, m_astInput[1].s32Pid);
    send(openDevice(link()), {{EV_MSC, MSC_SCAN, 5}, {EV_KEY, 30, 1}, {EV_SYN, 0, 0}, {EV_KEY, 30, 0}});
    EXPECT_THAT(heard(2), ElementsAre("N+30", "N-30"));
    const auto clBig = openDevice(root() + "/dev/input/BigOne"); // remotes come and go
    send(clBig, {{EV_KEY, 511, 1}, {EV_KEY, 511, 2}});
    EXPECT_THAT(heard(2), ElementsAre("B+511", "B*511"));
    EXPECT_EQ(BSP_INPUT_StopMonitorEvent(&m_astInput[0]), 0);
    EXPECT_EQ(m_astInput[0].s32Pid, 0);
    EXPECT_FALSE(fs::exists(link()));
    EXPECT_EQ(BSP_INPUT_StopMonitorEvent(&m_astInput[0]), -1);
}

TEST_F(MonitorTest, Refusals)
{
    EXPECT_EQ(BSP_INPUT_StartMonitorEvent(nullptr), -1);
    for (const char *pcName : {"", ".", "..", "../NecSr", "a/b", "no callback"}) {
        BSP_INPUT_THREAD_S stInput = m_astInput[0];
        std::strcpy(stInput.acDeviceName, pcName);
        if (pcName[0] == 'n') stInput.pfEventCb = nullptr;
        EXPECT_EQ(BSP_INPUT_StartMonitorEvent(&stInput), -1) << pcName;
    }
    start();
    EXPECT_EQ(BSP_INPUT_StartMonitorEvent(&m_astInput[0]), -1);
    fs::create_directories(root() + "/dev/input/BigOne/in the way");
    EXPECT_EQ(BSP_INPUT_StartMonitorEvent(&m_astInput[1]), -1);
    EXPECT_EQ(m_astInput[1].s32Pid, 0);
}

TEST_F(MonitorTest, LostReleaseOfAMotorKeyIsMadeUpForAfterFifteenSilentSeconds)
{
    start();
    const auto clDevice = openDevice(link());
    for (const int s32Key : {8, 249, 15, 23, 24, 28, 29, 32, 33, 34, 35, 3 << 7 | 29})
        send(clDevice, {{EV_KEY, s32Key, 1}});
    heard(12);
    clock().advance(14999);
    send(clDevice, {{EV_KEY, 9, 1}}); // nothing was released before it
    EXPECT_THAT(heard(1), ElementsAre("N+9"));
    clock().advance(1);
    EXPECT_THAT(heard(9),
                testing::UnorderedElementsAre("N-23", "N-24", "N-28", "N-29", "N-32", "N-33", "N-34", "N-35", "N-413"));
    clock().advance(60000);
    send(clDevice, {{EV_KEY, 9, 0}}); // keys without a motor are held as long as they are
    EXPECT_THAT(heard(1), ElementsAre("N-9"));
}

TEST_F(MonitorTest, AKeyThatIsHeardStaysHeld)
{
    start();
    const auto clDevice = openDevice(link());
    send(clDevice, {{EV_KEY, 32, 1}});
    for (int i = 0; i < 4; ++i) { // repeats and scan codes in turn, and a marker that tells when they have arrived
        clock().advance(14000);
        send(clDevice, {{i % 2 ? EV_KEY : EV_MSC, i % 2 ? 32 : MSC_SCAN, 2}, {EV_KEY, 200, 0}});
        for (std::vector<std::string> list; list.empty() || list.back() != "N-200";) {
            list = heard(1);
            EXPECT_THAT(list, Not(Contains("N-32")));
        }
    }
    clock().advance(14999);
    send(clDevice, {{EV_KEY, 200, 0}});
    EXPECT_THAT(heard(1), ElementsAre("N-200"));
    clock().advance(1);
    EXPECT_THAT(heard(1), ElementsAre("N-32"));
    send(clDevice, {{EV_KEY, 32, 1}, {EV_KEY, 32, 0}}); // and the next move is watched again
    heard(2);
    clock().advance(30000);
    send(clDevice, {{EV_KEY, 33, 1}});
    EXPECT_THAT(heard(1), ElementsAre("N+33"));
    clock().advance(15000);
    EXPECT_THAT(heard(1), ElementsAre("N-33"));
}

TEST_F(MonitorTest, PowerOfTheLargerRemotesOfItsAddressEndsStandby)
{
    journal::inject("UTIL_CMD_RunSafe", 0, 10); // no restart
    IR_API_SetAddr(2, BU_FALSE, IRADDR_SWITCH_E_SOFT);
    constexpr int POWER = 1 << 7 | 16;
    // clang-format off
    for (const auto &[pcDevice, pcReceiver, s32Code, s32Value, bWakes] :
         {std::tuple{"NecBr", "On", POWER, 1, true}, {"NecYm", "On", POWER, 1, true}, {"NecSr", "On", POWER, 1, false},
          {"NecBr", "On", POWER, 2, false}, // held since it put it to sleep
          {"NecBr", "On", 16, 1, false}, {"NecBr", "On", 1 << 7 | 30, 1, false}, {"NecYm", "Off", POWER, 1, false}}) {
        // clang-format on
        std::strcpy(m_astInput[1].acDeviceName, pcDevice);
        start(1);
        IR_API_SetSwitch(pcReceiver, BU_FALSE);
        const auto clDevice = openDevice(root() + "/dev/input/" + pcDevice);
        SYSTEM_API_SleepAppService();
        send(clDevice, {{EV_KEY, s32Code, s32Value}, {EV_KEY, s32Code, 0}});
        EXPECT_EQ(heard(bWakes ? 1 : 2).size(), bWakes ? 1U : 2U) << pcDevice; // the waking press is nobody else's
        EXPECT_EQ(SYSTEM_API_IsAsleep(), !bWakes) << pcDevice << ' ' << s32Code;
        SYSTEM_API_WakeAppService();
        send(clDevice, {{EV_KEY, POWER, 1}}); // awake it is a key as any other
        EXPECT_THAT(heard(1), ElementsAre("B+144"));
        BSP_INPUT_StopMonitorEvent(&m_astInput[1]);
    }
}

TEST_F(MonitorTest, DeviceThatVanishesReleasesItsKeysAndReturns)
{
    start();
    const std::function<void()> rows[] = {
        [&] { fs::remove(link()); },
        [&] { std::ofstream(link() + ".file") << "x", fs::rename(link() + ".file", link()); },
        [&] { fs::rename(link(), link() + ".away"); }, [&] { fs::rename(root() + "/dev/input", root() + "/dev/away"); },
        [&] { fs::remove(link()); }};
    for (const auto &vanish : rows) {
        {
            const auto clDevice = openDevice(link());
            send(clDevice, {{EV_KEY, 8, 1}, {EV_KEY, 32, 1}});
            EXPECT_EQ(write(clDevice, "\x01\x02\x03", 3), 3);
            heard(2);
        }
        vanish();
        EXPECT_THAT(heard(2), ElementsAre("N-8", "N-32")) << &vanish - rows;
        await([&] { return fs::is_symlink(link()); });
        clock().advance(500); // whatever part of a record was left is old by now
        send(openDevice(link()), {{EV_KEY, 30, 1}, {EV_KEY, 30, 0}});
        EXPECT_THAT(heard(2), ElementsAre("N+30", "N-30")) << &vanish - rows;
    }
}

TEST_F(MonitorTest, StormsArriveWholeAndEndWithNothingHeld)
{
    constexpr BU_U64 EVENTS = 400'000;
    start();
    const auto clDevice = openDevice(link());
    std::vector<input_event> events;
    for (int i = 0; i < 1000; ++i) events.push_back({{}, EV_KEY, static_cast<BU_U16>(1 + i / 2 % 511), i % 2 == 0});
    const auto begin = std::chrono::steady_clock::now();
    for (BU_U64 sent = 0; sent < EVENTS; sent += events.size())
        for (auto bytes = std::as_bytes(std::span(events)); !bytes.empty();) {
            const ssize_t size = write(clDevice, bytes.data(), bytes.size());
            ASSERT_GT(size, 0);
            bytes = bytes.subspan(static_cast<std::size_t>(size));
        }
    ASSERT_GE(heard(EVENTS, 60s).size(), EVENTS);
    const std::chrono::duration<double> took = std::chrono::steady_clock::now() - begin;
    RecordProperty("eventsPerSecond", static_cast<int>(EVENTS / took.count()));
    clock().advance(60000);
    send(clDevice, {{EV_KEY, 30, 1}});
    EXPECT_THAT(heard(1), ElementsAre("N+30"));
}

std::atomic<bool> g_bGrabbed; // the event device, for the camera alone

/// A FIFO with the answers of an event device named "NecSr".
struct EventFile : MonitorTest {
    std::string plugIn()
    {
        const std::string strPath = machine() + "/event3";
        EXPECT_EQ(mkfifo(strPath.c_str(), 0600), 0);
        return strPath;
    }
    void cycle(bool bBefore)
    {
        std::string strPath = bBefore ? plugIn() : "";
        start();
        if (!bBefore) strPath = plugIn();
        for (int i = 0; i < 2; ++i) {
            {
                const auto clDevice = openDevice(strPath); // returns when the monitor has opened it
                send(clDevice, {{EV_KEY, 32, 1}, {EV_SYN, 0, 0}, {EV_KEY, 8, 1}, {EV_SYN, 0, 0}});
                EXPECT_THAT(heard(2), ElementsAre("N+32", "N+8"));
                EXPECT_TRUE(g_bGrabbed.exchange(false));
                fs::remove(strPath);
            } // gone
            EXPECT_THAT(heard(2), ElementsAre("N-8", "N-32"));
            strPath = plugIn();
        }
        send(openDevice(link()), {{EV_KEY, 30, 1}});
        EXPECT_THAT(heard(1), ElementsAre("N+30"));
    }
};
TEST_F(EventFile, PresentAtTheStart) { cycle(true); }
TEST_F(EventFile, ComesLater) { cycle(false); }

TEST_F(EventFile, NamesAreThoseOfTheDevice)
{
    BU_CHAR acName[8] = "before";
    start(1);
    const auto clTerminal = openDevice(root() + "/dev/input/BigOne");
    const util::FileDescriptor clEvents(open(plugIn().c_str(), O_RDWR | O_CLOEXEC));
    for (const auto &[s32Fd, size, pcName] :
         {std::tuple{int{clTerminal}, 8, "BigOne"}, {clTerminal, 4, "Big"}, {clEvents, 8, "NecSr"}}) {
        EXPECT_EQ(BSP_INPUT_GetDeviceName(s32Fd, acName, size), 0);
        EXPECT_STREQ(acName, pcName);
    }
    BSP_INPUT_StopMonitorEvent(&m_astInput[1]); // nobody stands behind the terminal any more
    const util::FileDescriptor clNull(open("/dev/null", O_RDWR | O_CLOEXEC));
    for (const int s32Fd : {int{clTerminal}, int{clNull}, -1})
        EXPECT_EQ(BSP_INPUT_GetDeviceName(s32Fd, acName, sizeof(acName)), -1);
    EXPECT_EQ(BSP_INPUT_GetDeviceName(clEvents, acName, 0), -1);
    EXPECT_STREQ(acName, "NecSr");
}
} // namespace

/// Event devices cannot be made here: a FIFO answers the questions of one, everything else goes to the kernel.
extern "C" int ioctl(int fd, unsigned long request, ...) noexcept
{
    va_list args;
    va_start(args, request);
    void *pvArg = va_arg(args, void *);
    va_end(args);
    struct stat stFile {
    };
    if (_IOC_TYPE(request) != 'E' || fstat(fd, &stFile) != 0 || !S_ISFIFO(stFile.st_mode))
        return static_cast<int>(syscall(SYS_ioctl, fd, request, pvArg));
    const std::size_t size = _IOC_SIZE(request);
    if (request == EVIOCGRAB) g_bGrabbed = pvArg != nullptr;
    if (_IOC_DIR(request) != _IOC_READ) return 0;
    std::memset(pvArg, 0, size);
    const unsigned u32Number = _IOC_NR(request);
    if (u32Number == _IOC_NR(EVIOCGNAME(0))) return std::snprintf(static_cast<char *>(pvArg), size, "NecSr") + 1;
    if (u32Number == _IOC_NR(EVIOCGBIT(0, 0))) *static_cast<BU_U8 *>(pvArg) = 1 << EV_SYN | 1 << EV_KEY;
    if (u32Number == _IOC_NR(EVIOCGBIT(EV_KEY, 0))) std::memset(pvArg, 0xFF, std::min<std::size_t>(size, 64));
    return static_cast<int>(size);
}
