#include "serverTest.h"

#include <openssl/ssl.h>
#include <openssl/x509v3.h>

namespace
{
/// A browser that trusts the certificate of the camera.
class TlsPeer : public Peer
{
public:
    TlsPeer(BU_S32 s32Port, const char *pcName, int s32MaxVersion = 0, const char *pcCiphers = nullptr)
        : Peer(connectTo(s32Port)), m_context(SSL_CTX_new(TLS_client_method()), SSL_CTX_free), m_ssl(nullptr, SSL_free)
    {
        SSL_CTX_load_verify_file(m_context.get(), UTIL_ROOT_Path(web_server::CERTIFICATE_FILE).c_str());
        SSL_CTX_set_verify(m_context.get(), SSL_VERIFY_PEER, nullptr);
        if (s32MaxVersion) SSL_CTX_set_max_proto_version(m_context.get(), s32MaxVersion);
        if (pcCiphers) SSL_CTX_set_cipher_list(m_context.get(), pcCiphers);
        const unsigned char aProtocols[] = "\x02h2\x08http/1.1";
        SSL_CTX_set_alpn_protos(m_context.get(), aProtocols, sizeof(aProtocols) - 1);
        m_ssl.reset(SSL_new(m_context.get()));
        X509_VERIFY_PARAM *const pstParam = SSL_get0_param(m_ssl.get());
        if (!X509_VERIFY_PARAM_set1_ip_asc(pstParam, pcName)) X509_VERIFY_PARAM_set1_host(pstParam, pcName, 0);
        SSL_set_fd(m_ssl.get(), fd());
        m_bConnected = SSL_connect(m_ssl.get()) == 1;
    }
    bool isConnected() const { return m_bConnected; }
    bool send(std::string_view bytes) override
    {
        return SSL_write(m_ssl.get(), bytes.data(), static_cast<int>(bytes.size())) > 0;
    }
    ssize_t receive(std::string &str) override
    {
        return SSL_read(m_ssl.get(), str.data(), static_cast<int>(str.size()));
    }

private:
    std::unique_ptr<SSL_CTX, decltype(&SSL_CTX_free)> m_context;
    std::unique_ptr<SSL, decltype(&SSL_free)> m_ssl;
    bool m_bConnected = false;
};

TEST_F(ServerTest, SpeaksTlsUnderTheNamesOfItsCertificate)
{
    const std::string strLarge(2'000'000, 'x');
    write("large.png", strLarge);
    start();
    for (const char *pcName : {"localhost", "127.0.0.1", "::1", "machine", "machine.local"})
        EXPECT_TRUE(TlsPeer(httpsPort(), pcName).isConnected()) << pcName;
    for (const auto &[pcName, s32Version] : {std::pair("elsewhere", 0), {"localhost", TLS1_1_VERSION}})
        EXPECT_FALSE(TlsPeer(httpsPort(), pcName, s32Version).isConnected());
    for (const auto &[pcCiphers, bTaken] : {std::pair("ECDHE+AESGCM", true), {"ECDHE+AES:!AESGCM:!AESCCM", false}})
        EXPECT_EQ(TlsPeer(httpsPort(), "localhost", TLS1_2_VERSION, pcCiphers).isConnected(), bTaken) << pcCiphers;
    TlsPeer peer(httpsPort(), "localhost");
    EXPECT_EQ(peer.ask(get("/tls")).strBody, "yes");
    peer.send(get("/large.png") + post("/echo", std::string(60'000, 'y')) + get("/tls"));
    EXPECT_TRUE(peer.readAnswer().strBody == strLarge);
    EXPECT_EQ(peer.readAnswer().strBody, "POST:" + std::string(60'000, 'y'));
    EXPECT_EQ(peer.readAnswer().strBody, "yes");
    EXPECT_EQ(connect().ask(get("/tls")).strBody, "no");
    peer.ask(get("/news"));
    peer.readUntil("}\n\n");
    server().tell(R"({"preset":1})");
    EXPECT_EQ(peer.readUntil("}\n\n"), "data: {\"preset\":1}\n\n");
}

TEST_F(ServerTest, WhoSpeaksNoTlsOnTheSecurePortIsLeft)
{
    config.s64RequestMs = 100;
    start();
    Peer plain = connectTo(httpsPort()), silent = connectTo(httpsPort());
    plain.send(get("/echo"));
    EXPECT_EQ(plain.readAnswer().s32Status, 0);
    EXPECT_TRUE(plain.isEnded() && silent.isEnded());
    EXPECT_EQ(TlsPeer(httpsPort(), "localhost").ask(get("/tls")).strBody, "yes");
}

TEST_F(ServerTest, MakesItsCertificateOnce)
{
    using namespace web_server;
    ASSERT_TRUE(ensureCertificate("127.0.0.1", "machine"));
    const std::string strKey = read(KEY_FILE), strCertificate = read(CERTIFICATE_FILE);
    EXPECT_EQ(std::filesystem::status(UTIL_ROOT_Path(KEY_FILE)).permissions(), std::filesystem::perms(0600));
    ASSERT_TRUE(ensureCertificate("127.0.0.1", "machine"));
    EXPECT_EQ(read(CERTIFICATE_FILE), strCertificate) << "browsers trust this one";
    WebRootTest::write(KEY_FILE, "damaged");
    ASSERT_TRUE(ensureCertificate("127.0.0.2", "a machine, with commas"));
    EXPECT_NE(read(CERTIFICATE_FILE), strCertificate);
    WebRootTest::write(KEY_FILE, strKey);
    ASSERT_TRUE(ensureCertificate("127.0.0.1", "")) << "a key of another certificate";
    EXPECT_NE(read(KEY_FILE), strKey);
}
} // namespace
