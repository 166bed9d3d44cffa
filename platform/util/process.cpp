/// The process: its start, restart, readiness, address and ports.
#include "internal.h"
#include "util/childProcess.h"
#include "util/debug.h"
#include "util/log.h"
#include "util/platform.h"
#include "util/program.h"
#include "util/thread.h"
#include "util/time.h"

#include <algorithm>
#include <arpa/inet.h>
#include <array>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <iterator>
#include <mutex>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>
#include <vector>

namespace
{
constexpr BU_S32 RESTART_DELAY_MS = 300;
constexpr BU_S32 PORT_MAX = 65535;

struct Process {
    std::mutex lock; // guards all members
    std::vector<std::string> endpoints;
    bool bReady = false;
    BU_TIMER_DATA_S stRestartTimer{};
};
Process &process()
{
    static auto *pstProcess = new Process;
    return *pstProcess;
}

std::vector<std::string> ownArguments()
{
    std::ifstream stFile("/proc/self/cmdline", std::ios::binary);
    std::vector<std::string> arguments;
    for (std::string strArgument; std::getline(stFile, strArgument, '\0');) arguments.push_back(strArgument);
    return arguments;
}

/// The program's file if it is still there, perhaps in a newer version, else the running program itself.
std::string ownProgram()
{
    std::array<BU_CHAR, 4096> acPath{};
    const ssize_t length = readlink("/proc/self/exe", acPath.data(), acPath.size() - 1);
    return length > 0 && access(acPath.data(), X_OK) == 0 ? acPath.data() : "/proc/self/exe";
}

/// The signals that end the process stay blocked: one that comes now is for the new program.
BU_S32 restart(void *)
{
    std::vector<std::string> arguments = ownArguments();
    std::vector<BU_CHAR *> argv;
    argv.reserve(arguments.size() + 1);
    for (std::string &strArgument : arguments) argv.push_back(strArgument.data());
    argv.push_back(nullptr);
    const util::ChildrenStopped stopped; // they would be left unreaped
    std::fflush(nullptr);
    close_range(STDERR_FILENO + 1, ~0U, CLOSE_RANGE_CLOEXEC);
    execv(ownProgram().c_str(), argv.data());
    LOG_ERROR("restart: %s", std::strerror(errno));
    return -1;
}

void printNow(const std::string &strText)
{
    std::fwrite(strText.data(), 1, strText.size(), stdout);
    std::fflush(stdout);
}

/// The notification protocol of systemd: one datagram to the socket it names; a leading '@' stands for an abstract one.
void notifyServiceManager(std::string_view text)
{
    const BU_CHAR *pcSocket = std::getenv("NOTIFY_SOCKET");
    sockaddr_un stAddress{};
    stAddress.sun_family = AF_UNIX;
    if (!pcSocket || !*pcSocket || std::strlen(pcSocket) >= sizeof(stAddress.sun_path)) return;
    std::memcpy(stAddress.sun_path, pcSocket, std::strlen(pcSocket));
    if (*pcSocket == '@') stAddress.sun_path[0] = 0;
    const int s32Fd = socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC, 0);
    const auto length = static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + std::strlen(pcSocket));
    if (s32Fd < 0 || sendto(s32Fd, text.data(), text.size(), MSG_NOSIGNAL,
                            reinterpret_cast<const sockaddr *>(&stAddress), length) < 0)
        LOG_WARN("notify %s: %s", pcSocket, std::strerror(errno));
    if (s32Fd >= 0) close(s32Fd);
}
} // namespace

void util::startProcess()
{
    static std::once_flag once;
    std::call_once(once, [] {
        util::lockRoot();
        LOG_INFO("ptz-camera %s\n", util::version());
        UTIL_DebugRegister(
            "/var/debug/app/platform/journal",
            [](std::istream &stIn, void *) -> BU_S32 {
                BU_S32 s32On = 0;
                if (stIn >> s32On) journal::stream(s32On != 0);
                return 0;
            },
            nullptr);
    });
}

void util::restartSoon()
{
    const std::lock_guard guard(process().lock);
    UTIL_TIMER_Start(BU_TIMER_E_ONCE, RESTART_DELAY_MS, restart, nullptr, &process().stRestartTimer);
}

void PLATFORM_AddEndpoint(const std::string &strEndpoint)
{
    const std::lock_guard guard(process().lock);
    if (std::ranges::find(process().endpoints, strEndpoint) != process().endpoints.end()) return;
    process().endpoints.push_back(strEndpoint);
    if (process().bReady) printNow(strEndpoint + "\n");
}

void PLATFORM_Ready()
{
    std::string strText = "camera ready\n";
    {
        const std::lock_guard guard(process().lock);
        for (const std::string &strEndpoint : process().endpoints) strText += strEndpoint + "\n";
        process().bReady = true;
        printNow(strText);
    }
    notifyServiceManager("READY=1");
}

std::string PLATFORM_BindAddress()
{
    constexpr const BU_CHAR *pcDefault = "127.0.0.1";
    const BU_CHAR *pcBind = std::getenv("CAMERA_BIND");
    if (!pcBind || !*pcBind) return pcDefault;
    in_addr stAddress;
    if (inet_pton(AF_INET, pcBind, &stAddress) == 1) return pcBind;
    LOG_ERROR("CAMERA_BIND \"%s\" is no IPv4 address, %s is used", pcBind, pcDefault);
    return pcDefault;
}

BU_S32 PLATFORM_Port(BU_S32 s32Port)
{
    const BU_CHAR *pcOffset = std::getenv("CAMERA_PORT_OFFSET");
    if (s32Port == 0 || !pcOffset) return s32Port;
    const long shifted = s32Port + std::strtol(pcOffset, nullptr, 10);
    if (shifted >= 1 && shifted <= PORT_MAX) return static_cast<BU_S32>(shifted);
    LOG_ERROR("port %d with CAMERA_PORT_OFFSET \"%s\" is no port, the offset is left out", s32Port, pcOffset);
    return s32Port;
}
