// Decisions of the tests.
#include "serverTest.h"

using namespace web_server;

void ServerTest::start()
{
    ASSERT_TRUE(ensureCertificate(config.strBind, "machine"));
    config.strCertificate = UTIL_ROOT_Path(CERTIFICATE_FILE);
    config.strKey = UTIL_ROOT_Path(KEY_FILE);
    const auto admit = [](const Request &st) {
        if (st.strPath == "/forbidden") return Admission{problem(403, "no"), 0};
        return Admission{std::nullopt, st.strPath == "/small" ? 10U : 1U << 20};
    };
    m_pstServer = Server::make(config, {admit, [this](const Request &st) { return decide(st); },
                                        [this](const std::string &, BU_S64) { return bSessionOpen.load(); }});
    ASSERT_TRUE(m_pstServer);
    m_s32Http = m_pstServer->listen(false, 0);
    m_s32Https = m_pstServer->listen(true, 0);
    ASSERT_GT(m_s32Http, 0);
    ASSERT_GT(m_s32Https, 0);
    m_thread = std::thread([this] { m_pstServer->run(); });
}

Outcome ServerTest::decide(const Request &st) const
{
    const FN_FINISH finish = [](WEB_CLIENT_RESULT_E enResult, std::string_view answer) {
        return Reply{200, "text/plain", std::to_string(enResult) + ":" + std::string(answer), {}};
    };
    if (st.strPath == "/echo") return Reply{200, "text/plain", st.strMethod + ":" + st.strBody, {}};
    if (st.strPath == "/tls") return Reply{200, "text/plain", st.bTls ? "yes" : "no", {}};
    if (st.strPath == "/drive") return EventCall{WEB_RPC_EVENT_GROUP_E_SET_PT, st.strBody, 1000, finish, st.strQuery};
    if (st.strPath == "/call") return EventCall{static_cast<tag_WEB_RPC_EVENT_GROUP_E>(7), st.strBody, 1000, finish};
    if (st.strPath == "/ask") return Question{"presets", st.strBody, 1000, finish};
    if (st.strPath == "/work") return Work{fnWork};
    if (st.strPath == "/news") return NewsStream{st.strQuery.empty() ? "session" : st.strQuery};
    if (st.strPath.starts_with("/preview/")) return PreviewProxy{st.strPath.substr(9), "session"};
    if (st.strPath.starts_with("/device/")) return File{false, st.strPath.substr(7)};
    return File{true, st.strPath.substr(1)};
}
