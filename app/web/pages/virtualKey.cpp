// The remote of the page: key events for the input device of a remote.
#include "virtualKey.h"

#include "board/input.h"
#include "camera/serial.h"
#include "util/file.h"
#include "util/log.h"

#include <array>
#include <atomic>
#include <fcntl.h>
#include <filesystem>
#include <linux/input.h>
#include <string_view>
#include <unistd.h>

namespace
{
constexpr std::size_t NAME_SIZE = 64;
constexpr BU_S32 KEYS_PER_ADDRESS = 128;

struct WEB_VIR_ABILITY_S {
    const BU_CHAR *id;
    const BU_CHAR *dev; ///< name of the input device
    BU_BOOL bEnable;
};
constexpr std::array ABILITIES{WEB_VIR_ABILITY_S{"mini_controller", "NecSr", BU_TRUE}};

// By ability, -1: not open. Written when the service starts and stops.
std::array<std::atomic<BU_S32>, ABILITIES.size()> gs_VirtualIrFd{-1};
static_assert(ABILITIES.size() == 1, "one initial handle an ability");

input_event keyEvent(BU_U8 u8Address, BU_S32 s32Key, BU_S32 s32Value)
{
    input_event stEvent{};
    stEvent.type = EV_KEY;
    stEvent.code = static_cast<BU_U16>((u8Address - 1) * KEYS_PER_ADDRESS | (s32Key & (KEYS_PER_ADDRESS - 1)));
    stEvent.value = s32Value;
    return stEvent;
}

bool isNamed(int s32Device, std::string_view name)
{
    std::array<BU_CHAR, NAME_SIZE> acName{};
    return BSP_INPUT_GetDeviceName(s32Device, acName.data(), NAME_SIZE) == 0 && name == acName.data();
}
} // namespace

BU_S32 bspOpenInputDeivceByName(const BU_CHAR *pcName)
{
    std::error_code error;
    std::filesystem::directory_iterator entry(UTIL_ROOT_Path("/dev/input"), error);
    if (error) {
        LOG_ERROR("open input dir failed\n");
        return -1;
    }
    for (; entry != std::filesystem::directory_iterator(); entry.increment(error)) {
        const std::filesystem::path path = entry->path();
        if (!std::filesystem::is_character_file(path, error)) continue;
        // Without waiting: when nobody takes the events any more, keys are lost and the caller is not held up.
        const int s32Device = open(path.c_str(), O_RDWR | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
        if (s32Device < 0) {
            LOG_ERROR("open %s error\n", path.c_str());
            return -1;
        }
        if (isNamed(s32Device, pcName)) {
            LOG_INFO("open input dev %s success\n", pcName);
            return s32Device;
        }
        close(s32Device);
    }
    return -1;
}

BU_S32 WEB_CMD_VirInit()
{
    WEB_CMD_VirDestroy();
    for (std::size_t i = 0; i < ABILITIES.size(); ++i)
        gs_VirtualIrFd[i] = ABILITIES[i].bEnable ? bspOpenInputDeivceByName(ABILITIES[i].dev) : -1;
    return 0;
}

BU_S32 WEB_CMD_VirDestroy()
{
    for (auto &fd : gs_VirtualIrFd)
        if (const BU_S32 s32Device = fd.exchange(-1); s32Device != -1) close(s32Device);
    return 0;
}

BU_S32 WEB_CMD_VirEmit(tag_WEB_RPC_PANEL_REQ_PAYLOAD_S *req, tag_WEB_RPC_PANEL_RES_PAYLOAD_S *)
{
    const BU_S32 s32Event = req->s32Value0, s32Method = req->s32Value1;
    const auto index = static_cast<std::size_t>(req->s32Id);
    BU_U8 u8Address = 0;
    IR_API_GetAddr(&u8Address, BU_FALSE);
    const BU_CHAR *pcDevice = index < ABILITIES.size() ? ABILITIES[index].dev : "";
    const BU_S32 s32Device = index < ABILITIES.size() ? gs_VirtualIrFd[index].load() : -1;
    if (s32Device == -1) {
        LOG_ERROR("Get virtual ir message but device not opened, dev:%s event: %d method %d", pcDevice, s32Event,
                  s32Method);
        return 0;
    }
    UTIL_TRACE_Print("-- Web Vir dev:%s event: %d method: %d\n", pcDevice, s32Event, s32Method);
    constexpr input_event REPORT{};
    const std::array astEvents{keyEvent(u8Address, s32Event, s32Method), REPORT};
    [[maybe_unused]] const ssize_t written = write(s32Device, astEvents.data(), sizeof(astEvents));
    return 0;
}
