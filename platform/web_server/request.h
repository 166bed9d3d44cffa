/// The seam between the network half of the web server and its decisions: a request as plain data in, an outcome out.
///
/// The network half reads a request, asks WebLogic::admit when the headers are there (before any body is read), then
/// WebLogic::handle, and carries the outcome out: it sends the reply, or has the camera called and sends what the
/// finish function makes of the answer. It adds securityHeaders() to every answer, whoever made it.
#pragma once

#include "http/answer.h"
#include "http/request.h"
#include "users/users.h"
#include "web_client/client.h"

#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <variant>

namespace web_server
{
using namespace users; // who may do what

using http::Header;
using http::Reply;
using http::Request;

/// `{"error":"<sentence>"}`. Also for what only the network half sees: 400 request line, 404 no such file, 408, 413,
/// 414, 431, 503.
Reply problem(BU_U32 u32Status, std::string_view sentence);

/// Makes the reply of what the camera answered. A pure function: exactly once, on any thread (also the one of the
/// answer).
typedef std::function<Reply(WEB_CLIENT_RESULT_E enResult, std::string_view strAnswer)> FN_FINISH;

/// WEB_CLIENT_Call with these, then finish.
struct EventCall {
    tag_WEB_RPC_EVENT_GROUP_E enEvent;
    std::string strImage;
    BU_U32 u32TimeoutMs;
    FN_FINISH fnFinish;
    std::string strSession{}; ///< whose call it is
};

/// WEB_CLIENT_Ask with these, then finish.
struct Question {
    std::string strQuestion, strJson;
    BU_U32 u32TimeoutMs;
    FN_FINISH fnFinish;
};

/// Something slow (a password hash takes 50 to 100 ms and 64 MiB, a file is synchronised): run it on the worker thread,
/// then send its reply. One worker thread, in order, with a bounded queue (8); beyond it answer 503 with
/// Retry-After: 1. It uses the WebLogic: the worker ends before that does.
struct Work {
    std::function<Reply()> fnRun; ///< worker thread, once; never throws
};

/// A file to send. The path is safe: plain names joined by '/', none of them beginning with a dot.
struct File {
    bool bPage;          ///< true: relative to the folder of the page; false: "/var/...", for UTIL_ROOT_Path
    std::string strPath; ///< "index.html", "/var/web/presets/3.jpg"
};

/// What stays open: the news as text/event-stream, or a WebSocket to the preview (which also checks Origin once more).
/// It belongs to a session: end it when WebLogic::isOpen(strSession) turns false; looking every few seconds is enough.
struct NewsStream {
    std::string strSession;
};
struct PreviewProxy {
    std::string strChannel; ///< "ch1", "ch2"
    std::string strSession;
};

typedef std::variant<Reply, EventCall, Question, Work, File, NewsStream, PreviewProxy> Outcome;

/// What is known once the headers are there.
struct Admission {
    std::optional<Reply> stRefusal; ///< send it, read no body, close the connection
    std::size_t bodyMax = 0;        ///< bytes to read at most; more: problem(413, ...) and close
};

/// For every answer, also files, errors and the answer to an upgrade.
std::span<const Header> securityHeaders();

/// The decisions. One object for all listeners (HTTP and HTTPS).
class WebLogic
{
public:
    /// @param strHosts  CAMERA_WEB_HOSTS: names by which browsers may call the camera, separated by commas
    /// @param strMachine  the machine's host name
    /// Reads the users and sessions below /var/web of the device root; when there are no users and strFirstPassword
    /// (CAMERA_WEB_PASSWORD) holds a password, makes the user "admin" with it. Takes up to 100 ms.
    WebLogic(std::string_view strHosts, std::string_view strMachine, std::string_view strFirstPassword);
    ~WebLogic();

    /// Judges a request by its headers; strBody is not looked at. Network thread, does not wait.
    Admission admit(const Request &stRequest);
    /// Judges everything again and decides. Network thread, does not wait.
    Outcome handle(const Request &stRequest);
    /// Whether a session of NewsStream or PreviewProxy goes on. Counts as a use of it. Any thread.
    /// @param s64Unix  now [s since 1970]
    bool isOpen(const std::string &strSession, BU_S64 s64Unix);
    /// The camera is there, or gone: for the answers. Any thread.
    void setCamera(bool bUp);

    struct Impl;

private:
    std::unique_ptr<Impl> m_pImpl;
};
} // namespace web_server
