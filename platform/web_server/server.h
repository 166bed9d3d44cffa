/// The web server's network: ports, connections and the one thread that serves them. libwebsockets brings sockets,
/// encryption, timers and the event loop; the bytes on them are read by http/request.h, which refuses with an answer
/// where the library would just hang up.
#pragma once

#include "request.h"

#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace web_server
{
struct ServerConfig {
    std::string strBind = "127.0.0.1";
    std::string strPage;                      ///< folder of the page
    std::string strCertificate, strKey;       ///< PEM files; needed for TLS only
    std::string strPreviewHost = "127.0.0.1"; ///< where the preview is
    BU_S32 s32PreviewPort = 0;
    std::size_t connectionsMax = 1024; ///< beyond it the one that idles longest goes
    std::size_t perAddressMax = 64;    ///< not for this machine itself
    BU_S64 s64RequestMs = 10'000;      ///< for a head to arrive, and again for a body
    BU_S64 s64IdleMs = 30'000;         ///< between two requests
    BU_S64 s64AnswerMs = 60'000;       ///< for an answer to be made, and again for it to be taken
    BU_S64 s64LingerMs = 2'000;        ///< for the other end to read the last answer
    BU_S64 s64HeartbeatMs = 5'000;     ///< of streams; also how often their session is looked at
};

/// Who decides: WebLogic, or in tests somebody else. Called on the network thread, isOpen too.
struct Decisions {
    std::function<Admission(const Request &)> fnAdmit;
    std::function<Outcome(const Request &)> fnHandle;
    std::function<bool(const std::string &, BU_S64)> fnIsOpen;
};

class Server
{
public:
    /// @return null: no memory or descriptors
    static std::unique_ptr<Server> make(const ServerConfig &stConfig, const Decisions &stDecisions);
    virtual ~Server() = default; ///< after run; disconnects everybody and closes the ports

    /// Opens a port. Before run. @param s32Port  0: any free one
    /// @return the port, 0: taken, or nobody may listen there, or no usable certificate
    virtual BU_S32 listen(bool bTls, BU_S32 s32Port) = 0;
    /// Ends run as soon as there is something to read, or the other end is gone. Before run.
    virtual bool stopOn(int s32Fd) = 0;
    virtual void run() = 0;  ///< serves until it is stopped
    virtual void stop() = 0; ///< any thread, also a signal handler

    /// News for the event streams, a JSON object. Any thread.
    virtual void tell(std::string_view json) = 0;
    /// The camera is there, or gone. Any thread.
    virtual void setCamera(bool bUp) = 0;
};
} // namespace web_server
