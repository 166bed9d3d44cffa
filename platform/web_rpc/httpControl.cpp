// The web server process: its ports, and that it runs.
#include "camera/webPort.h"
#include "store/record.h"
#include "util/childProcess.h"
#include "util/file.h"
#include "util/journal.h"
#include "util/log.h"
#include "util/platform.h"

#include <array>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <memory>

namespace
{
constexpr BU_S32 PORT_MAX = 65535;
constexpr BU_S64 REPORT_MS = 300; // so long a start waits to hear the ports

struct Ports {
    BU_S32 s32Http = 80, s32Https = 443;
};
constexpr store::Field<Ports> FIELDS[] = {store::number<&Ports::s32Http>("Port", 1, PORT_MAX),
                                          store::number<&Ports::s32Https>("SecurePort", 1, PORT_MAX)};
BU_S32 reload();
const store::Record<Ports> PORTS{"Http/", FIELDS, SYSTEM_RESTORE_E_NETWORK, reload};

struct WebServer {
    std::mutex lock; // guards the rest
    Ports stAsked;   // what counts where none is stored
    std::vector<std::string> arguments;
    std::unique_ptr<util::ChildProcess> pstProgram;
};
WebServer &server()
{
    static auto *pstServer = new WebServer;
    return *pstServer;
}

/// The program beside this one, or that of CAMERA_WEB_SERVER. @return empty: there is, or is to be, none
std::string program()
{
    const BU_CHAR *pcProgram = std::getenv("CAMERA_WEB_SERVER");
    if (pcProgram && !*pcProgram) return "";
    std::error_code error;
    const std::string strProgram =
        pcProgram ? pcProgram
                  : (std::filesystem::read_symlink("/proc/self/exe", error).parent_path() / "camera-web").string();
    if (access(strProgram.c_str(), X_OK) == 0) return strProgram;
    LOG_WARN("no web page: there is no program \"%s\"\n", strProgram.c_str());
    return "";
}

/// A line of the report: "http 8080".
void tellEndpoint(std::string_view line)
{
    std::array<BU_CHAR, 8> acScheme{};
    int s32Port = 0;
    const std::string strLine(line);
    if (std::sscanf(strLine.c_str(), "%7s %d", acScheme.data(), &s32Port) != 2 || s32Port < 1 || s32Port > PORT_MAX) {
        LOG_WARN("the web server reports \"%s\"\n", strLine.c_str());
        return;
    }
    const std::string strBind = PLATFORM_BindAddress();
    const std::string strUrl = std::string(acScheme.data()) + "://" + (strBind == "0.0.0.0" ? "127.0.0.1" : strBind) +
                               ":" + std::to_string(s32Port) + "/";
    LOG_INFO("web page at %s\n", strUrl.c_str());
    PLATFORM_AddEndpoint(strUrl + " web page");
}

void run(WebServer &st)
{
    const Ports stPorts = PORTS.load("", st.stAsked);
    std::vector<std::string> arguments = {"--root",  UTIL_ROOT_Path("/"),
                                          "--bind",  PLATFORM_BindAddress(),
                                          "--http",  std::to_string(PLATFORM_Port(stPorts.s32Http)),
                                          "--https", std::to_string(PLATFORM_Port(stPorts.s32Https))};
    if (st.pstProgram && st.arguments == arguments) return;
    st.pstProgram.reset(); // the old one gives its ports away first
    const std::string strProgram = program();
    if (strProgram.empty()) return;
    st.arguments = std::move(arguments);
    st.pstProgram = std::make_unique<util::ChildProcess>(strProgram, st.arguments, tellEndpoint);
    st.pstProgram->waitForReport(REPORT_MS);
}

BU_S32 reload()
{
    const std::lock_guard guard(server().lock);
    if (server().pstProgram) run(server());
    return 0;
}
} // namespace

BU_S32 SYSTEM_API_SetHttpPort(BU_S32 s32Http, BU_S32 s32Https)
{
    if (const auto injected = journal::call(__func__, s32Http, s32Https)) return *injected;
    if (PORTS.check({s32Http, s32Https}) != 0) return -1;
    const std::lock_guard guard(server().lock);
    server().stAsked = {s32Http, s32Https};
    run(server());
    return 0;
}

BU_S32 CFG_SYSTEM_GetHttpPort(BU_S32 *ps32Http, BU_S32 *ps32Https)
{
    if (const auto injected = journal::ask(__func__)) return *injected;
    const std::lock_guard guard(server().lock);
    const Ports stPorts = PORTS.load("", server().stAsked);
    if (ps32Http) *ps32Http = stPorts.s32Http;
    if (ps32Https) *ps32Https = stPorts.s32Https;
    return 0;
}

BU_S32 SYSTEM_API_StopHttpDaemon()
{
    if (const auto injected = journal::call(__func__)) return *injected;
    const std::lock_guard guard(server().lock);
    server().pstProgram.reset();
    return 0;
}
