// The remote of the page, down to the key handlers.
#include "board/input.h"
#include "camera/serial.h"
#include "input/input.h"
#include "pages/virtualKey.h"
#include "support/await.h"
#include "util/fileDescriptor.h"
#include "web/web.h"
#include "webTest.h"

#include <cstdarg>
#include <cstring>
#include <fcntl.h>
#include <linux/input.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <termios.h>

namespace fs = std::filesystem;

namespace
{
dev_t g_kernelDevice = 0; ///< answers as an input device of the kernel, named "NecSr"

class VirtualKey : public WebTest
{
protected:
    VirtualKey() : m_clMaster(posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC)) { fs::create_directories(folder()); }
    ~VirtualKey() override
    {
        WEB_CMD_VirDestroy();
        g_kernelDevice = 0;
    }
    std::string folder() const { return root() + "/dev/input/"; }
    void plugIn()
    {
        unlockpt(m_clMaster);
        m_clDevice = util::FileDescriptor(open(ptsname(m_clMaster), O_RDWR | O_NOCTTY | O_CLOEXEC));
        termios stMode{};
        cfmakeraw(&stMode);
        tcsetattr(m_clDevice, TCSANOW, &stMode);
        struct stat stDevice {
        };
        fstat(m_clDevice, &stDevice);
        g_kernelDevice = stDevice.st_rdev;
        fs::create_symlink(ptsname(m_clMaster), folder() + "event0");
    }
    static void emit(BU_S32 s32Event, BU_S32 s32Method, BU_S32 s32Device = 0)
    {
        const Response res = call(WEB_RPC_EVENT_GROUP_E_BUSINESS, 1, s32Device, s32Event, s32Method);
        EXPECT_TRUE(!res.bEnabled && res.s32Value == 0 && res.s32SideEffectBitmap == 0);
    }
    static bool isRefused(BU_S32 s32Device, const std::string &strEnd = "")
    {
        const std::string strWhy = "Get virtual ir message but device not opened, dev:" + strEnd;
        return printed([=] { emit(0x15, 1, s32Device); }).find(strWhy) != std::string::npos;
    }
    static bool opens(const BU_CHAR *pcName) { return util::FileDescriptor(bspOpenInputDeivceByName(pcName)) >= 0; }
    static auto openFiles() { return std::distance(fs::directory_iterator("/proc/self/fd"), {}); }

    util::FileDescriptor m_clMaster, m_clDevice;
};

TEST_F(VirtualKey, EventsCarryTheAddressOfTheCamera)
{
    plugIn();
    BSP_StartHttpService();
    const std::tuple<BU_U8, BU_S32, BU_S32, BU_U16> rows[] = {
        {1, 0x15, 1, 0x15},  {1, 0x15, 2, 0x15},  {1, 0x15, 0, 0x15}, {2, 0x15, 1, 0x95},   {4, 0x15, 1, 0x195},
        {3, 0x95, 1, 0x115}, {1, 0x395, 1, 0x15}, {1, -1, 1, 0x7F},   {0, 0x15, -1, 0xFF95}};
    for (const auto &[u8Address, s32Event, s32Method, u16Code] : rows) {
        if (u8Address == 0) journal::inject("IR_API_GetAddr", -1);
        IR_API_SetAddr(u8Address, BU_FALSE, IRADDR_SWITCH_E_SOFT);
        emit(s32Event, s32Method);
        input_event astEvents[3]{}, astExpected[2]{{{}, EV_KEY, u16Code, s32Method}, {}};
        EXPECT_EQ(read(m_clMaster, astEvents, sizeof(astEvents)), ssize_t{sizeof(astExpected)});
        EXPECT_EQ(std::memcmp(astEvents, astExpected, sizeof(astExpected)), 0) << std::hex << astEvents[0].code;
    }
    for (BU_S32 i = 0; i < 5000; ++i) emit(0x15, i % 2); // nobody reads any more, nobody waits
    BSP_StopHttpService();
    EXPECT_TRUE(isRefused(0)) << "the device is still open";
    for (const BU_S32 s32Item : {0, 2, -1}) // no key
        EXPECT_EQ(printed([=] { call(WEB_RPC_EVENT_GROUP_E_BUSINESS, s32Item); }),
                  "-- Business Get " + std::to_string(s32Item) + "\n");
}

TEST_F(VirtualKey, MovesTheHeadAsTheRemoteInTheHandDoes)
{
    setenv("CAMERA_INPUT", (root() + "/none").c_str(), 1);
    journal::inject("BSP_GetGpioNum", -1, 2); // there is no address switch
    BSP_RegisterInputDevice();
    WEB_CMD_VirInit();
    constexpr BU_S32 LEFT = 34;
    for (const auto &[s32Method, pcEffect] : {std::pair{1, "CMD_PT_HandeLeftBtn("}, {0, "CMD_PT_StopMove("}}) {
        emit(LEFT, s32Method);
        std::string strAll;
        EXPECT_TRUE(await([&, pc = pcEffect] { // the monitor is a thread of its own
            for (const auto &strEffect : journal::effects()) strAll += strEffect;
            return strAll.find(pc) != std::string::npos;
        }));
    }
    BSP_UnRegisterInputDevice();
}

TEST_F(VirtualKey, WithoutItsDeviceRefusesEveryKeyUntilTheNextStart)
{
    WEB_CMD_VirInit();
    plugIn();
    EXPECT_TRUE(isRefused(0, "NecSr event: 21 method 1"));
    WEB_CMD_VirInit();
    const auto before = openFiles();
    WEB_CMD_VirInit();
    EXPECT_EQ(openFiles(), before);
    for (const BU_S32 s32Device : {0, 1, -1, INT32_MIN}) EXPECT_EQ(isRefused(s32Device), s32Device != 0);
}

TEST_F(VirtualKey, FindsItsDeviceByTheNameOfTheDevice)
{
    fs::create_symlink("/dev/null", folder() + "NecSr"); // the name of the entry says nothing
    fs::create_symlink("nowhere", folder() + "dangling");
    fs::create_directory(folder() + "by-path");
    const auto before = openFiles();
    EXPECT_FALSE(opens("NecSr"));
    EXPECT_EQ(openFiles(), before);
    plugIn();
    EXPECT_TRUE(opens("NecSr"));
    for (const BU_CHAR *pcOther : {"", "NecS", "NecSr2"}) EXPECT_FALSE(opens(pcOther)) << pcOther;
    journal::inject("BSP_INPUT_GetDeviceName", -1, 2);
    EXPECT_FALSE(opens("NecSr"));
    fs::remove_all(folder());
    EXPECT_FALSE(opens("NecSr"));
}

TEST_F(VirtualKey, ADeviceThatCannotBeOpenedEndsTheSearch)
{
    plugIn();
    const util::FileDescriptor clLocked(posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC));
    const auto first = [this] { return fs::directory_iterator(folder())->path().filename().string(); };
    for (int i = 0; first() == "event0" && i < 100; ++i) // until it is one that the search comes to before
        fs::create_symlink(ptsname(clLocked), folder() + "locked" + std::to_string(i));
    ASSERT_NE(first(), "event0");
    EXPECT_FALSE(opens("NecSr"));
}
} // namespace

extern "C" int ioctl(int fd, unsigned long request, ...) noexcept
{
    va_list args;
    va_start(args, request);
    void *pvArg = va_arg(args, void *);
    va_end(args);
    struct stat stFile {
    };
    if (request != EVIOCGNAME(64) || fstat(fd, &stFile) != 0 || stFile.st_rdev != g_kernelDevice || !g_kernelDevice)
        return static_cast<int>(syscall(SYS_ioctl, fd, request, pvArg));
    return std::snprintf(static_cast<char *>(pvArg), 64, "NecSr") + 1;
}
