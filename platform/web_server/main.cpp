/// camera-web: the web server of the camera, a process of its own. The service starts and watches it.
#include "describe.h"
#include "net/hostRule.h"
#include "request.h"
#include "server.h"
#include "users/certificate.h"
#include "util/file.h"
#include "util/fileDescriptor.h"
#include "util/log.h"
#include "util/platform.h"
#include "util/program.h"
#include "util/time.h"
#include "web_client/client.h"

#include <algorithm>
#include <charconv>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <optional>
#include <string>
#include <string_view>
#include <sys/file.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/syscall.h>
#include <sysexits.h>
#include <unistd.h>

namespace
{
constexpr BU_S32 PREVIEW_PORT = 12345;
constexpr BU_S32 PORTS_TRIED = 10;
constexpr BU_S32 ENDING_MS = 1000, LOOK_MS = 20;

struct Options {
    std::string strRoot, strBind = "127.0.0.1", strPage = util::resource("webui");
    BU_S32 s32Http = -1, s32Https = -1; // negative: not served
    BU_S32 s32ReportFd = -1;
};
constexpr const char *USAGE =
    "camera-web --root FOLDER [--bind ADDRESS] [--http PORT] [--https PORT] [--webui FOLDER] [--report-fd N]\n"
    "Port 0: any free one. Opened ports are reported as lines \"http 8080\".\n"
    "camera-web --describe  prints the documentation of the API\n";

bool parse(std::string_view text, BU_S32 &s32)
{
    const auto [pcEnd, error] = std::from_chars(text.data(), text.data() + text.size(), s32);
    return error == std::errc() && pcEnd == text.data() + text.size() && s32 >= 0 && s32 <= 65535;
}

std::optional<Options> parse(int argc, char **argv)
{
    Options st;
    for (int i = 1; i < argc; i += 2) {
        if (i + 1 == argc) return std::nullopt;
        const std::string_view name = argv[i], value = argv[i + 1];
        bool bGood = true;
        if (name == "--root")
            st.strRoot = value;
        else if (name == "--bind")
            st.strBind = value;
        else if (name == "--webui")
            st.strPage = value;
        else if (name == "--http")
            bGood = parse(value, st.s32Http);
        else if (name == "--https")
            bGood = parse(value, st.s32Https);
        else
            bGood = name == "--report-fd" && parse(value, st.s32ReportFd);
        if (!bGood) return std::nullopt;
    }
    if (st.s32Http < 0 && st.s32Https < 0) return std::nullopt;
    return st;
}

/// Each web server keeps the users in memory, so one alone may have a device root. Waits for one that ends just now.
bool haveRoot()
{
    static const util::FileDescriptor lock(
        open(UTIL_ROOT_Path("/var/camera-web.lock").c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600));
    if (lock < 0) return true; // what cannot be written cannot be mixed up
    const BU_S64 s64EndMs = UTIL_TIME_NowMs() + ENDING_MS;
    while (flock(lock, LOCK_EX | LOCK_NB) != 0) {
        if (UTIL_TIME_NowMs() >= s64EndMs) return false;
        UTIL_TIME_SleepMs(LOOK_MS);
    }
    return true;
}

std::string textOf(const char *pcVariable)
{
    const char *pc = std::getenv(pcVariable);
    return pc ? pc : "";
}

void report(BU_S32 s32Fd, const char *pcScheme, BU_S32 s32Port)
{
    if (s32Fd >= 0) dprintf(s32Fd, "%s %d\n", pcScheme, s32Port);
}

/// The port, or where that is taken or not allowed the first free one of its stand-ins.
BU_S32 open(web_server::Server &server, const Options &stOptions, bool bTls)
{
    const BU_S32 s32Wanted = bTls ? stOptions.s32Https : stOptions.s32Http, s32StandIn = bTls ? 8443 : 8080;
    if (s32Wanted < 0) return 0;
    BU_S32 s32Port = server.listen(bTls, s32Wanted);
    for (BU_S32 i = 0; s32Port == 0 && i < PORTS_TRIED; ++i)
        s32Port = server.listen(bTls, PLATFORM_Port(s32StandIn) + i);
    const char *pcScheme = bTls ? "https" : "http";
    if (s32Port == 0)
        LOG_ERROR("web: no port for %s on %s\n", pcScheme, stOptions.strBind.c_str());
    else {
        LOG_INFO("web: %s://%s:%d/\n", pcScheme, stOptions.strBind.c_str(), s32Port);
        report(stOptions.s32ReportFd, pcScheme, s32Port);
    }
    return s32Port;
}

web_server::Server *g_pstServer = nullptr;

/// Ends with the service, however that ends.
bool followParent(web_server::Server &server, pid_t parentId)
{
    const int s32Parent = static_cast<int>(syscall(SYS_pidfd_open, parentId, 0));
    const bool bFollows = s32Parent >= 0 ? server.stopOn(s32Parent) : prctl(PR_SET_PDEATHSIG, SIGTERM) == 0;
    return bFollows && getppid() == parentId;
}

/// How many connections there are descriptors for; a viewer needs two. The usual limit of a shell is raised.
std::size_t connectionsPossible()
{
    constexpr rlim_t ENOUGH = 4096;
    rlimit st{};
    if (getrlimit(RLIMIT_NOFILE, &st) != 0) return 0;
    st.rlim_cur = std::max(st.rlim_cur, std::min(st.rlim_max, ENOUGH));
    setrlimit(RLIMIT_NOFILE, &st);
    return st.rlim_cur / 2;
}

web_server::ServerConfig configOf(const Options &stOptions, const std::string &strMachine)
{
    web_server::ServerConfig st;
    st.strBind = stOptions.strBind;
    st.strPage = stOptions.strPage;
    st.strPreviewHost = stOptions.strBind == "0.0.0.0" ? "127.0.0.1" : stOptions.strBind;
    st.s32PreviewPort = PLATFORM_Port(PREVIEW_PORT);
    st.connectionsMax = std::min(st.connectionsMax, connectionsPossible());
    if (stOptions.s32Https >= 0 && web_server::ensureCertificate(stOptions.strBind, strMachine)) {
        st.strCertificate = UTIL_ROOT_Path(web_server::CERTIFICATE_FILE);
        st.strKey = UTIL_ROOT_Path(web_server::KEY_FILE);
    }
    return st;
}

void onSignals(void (*pfnHandler)(int))
{
    for (const int s32Signal : {SIGTERM, SIGINT, SIGQUIT}) std::signal(s32Signal, pfnHandler);
}
} // namespace

int main(int argc, char **argv)
{
    if (argc == 2 && std::string_view(argv[1]) == "--describe")
        return std::fputs(web_server::describeApi().c_str(), stdout) < 0;
    const pid_t parentId = getppid();
    UTIL_LOG_SetFile("camera-web.log");
    const auto options = parse(argc, argv);
    if (!options) return std::fputs(USAGE, stderr), 2;
    if (!options->strRoot.empty() && UTIL_ROOT_Set(options->strRoot.c_str()) != 0) return 1;
    if (!haveRoot()) {
        LOG_ERROR("web: another web server has %s\n", UTIL_ROOT_Path("/").c_str());
        return EX_TEMPFAIL;
    }

    LOG_INFO("ptz-camera %s, web server\n", util::version());
    const std::string strMachine = net::machineName();
    web_server::WebLogic logic(textOf("CAMERA_WEB_HOSTS"), strMachine, textOf("CAMERA_WEB_PASSWORD"));
    const web_server::ServerConfig stConfig = configOf(*options, strMachine);
    const auto pstServer = web_server::Server::make(
        stConfig, {[&](const web_server::Request &st) { return logic.admit(st); },
                   [&](const web_server::Request &st) { return logic.handle(st); },
                   [&](const std::string &strSession, BU_S64 s64Unix) { return logic.isOpen(strSession, s64Unix); }});
    if (!pstServer || !followParent(*pstServer, parentId)) {
        LOG_ERROR("web: cannot start\n");
        return 1;
    }
    g_pstServer = pstServer.get();
    onSignals([](int) { g_pstServer->stop(); });
    const BU_S32 s32Http = open(*pstServer, *options, false);
    const BU_S32 s32Https = stConfig.strCertificate.empty() ? 0 : open(*pstServer, *options, true);
    if (s32Http == 0 && s32Https == 0) return 1;
    if (options->s32ReportFd >= 0) close(options->s32ReportFd);

    WEB_CLIENT_Start(
        [&](BU_BOOL bUp) {
            logic.setCamera(bUp != 0);
            pstServer->setCamera(bUp != 0);
        },
        [&](std::string_view json) { pstServer->tell(json); });
    pstServer->run();
    onSignals(SIG_IGN); // it ends already
    WEB_CLIENT_Stop();
    return 0;
}
