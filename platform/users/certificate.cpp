// When a certificate is made, and what stands in it.
#include "users/certificate.h"

#include "users/secretFile.h"
#include "util/log.h"

#include <memory>
#include <openssl/ec.h>
#include <openssl/err.h>
#include <openssl/evp.h>
#include <openssl/pem.h>
#include <openssl/rand.h>
#include <openssl/x509v3.h>

namespace
{
template <auto Free> struct Freed {
    template <class T> void operator()(T *pst) const { Free(pst); }
};
typedef std::unique_ptr<EVP_PKEY, Freed<EVP_PKEY_free>> Key;
typedef std::unique_ptr<X509, Freed<X509_free>> Certificate;
typedef std::unique_ptr<BIO, Freed<BIO_free_all>> Bio;
typedef std::unique_ptr<X509_EXTENSION, Freed<X509_EXTENSION_free>> Extension;

constexpr long DAY_S = 24 * 60 * 60, LIFE_S = 3652 * DAY_S;

/// A key and a certificate that belong together and may be used today.
bool isUsable(const std::string &strCertificate, const std::string &strKey)
{
    const Bio certificateText(BIO_new_mem_buf(strCertificate.data(), static_cast<int>(strCertificate.size()))),
        keyText(BIO_new_mem_buf(strKey.data(), static_cast<int>(strKey.size())));
    const Certificate certificate(PEM_read_bio_X509(certificateText.get(), nullptr, nullptr, nullptr));
    const Key key(PEM_read_bio_PrivateKey(keyText.get(), nullptr, nullptr, nullptr));
    const bool bUsable = certificate && key && X509_check_private_key(certificate.get(), key.get()) == 1 &&
                         X509_cmp_current_time(X509_get0_notAfter(certificate.get())) > 0;
    ERR_clear_error();
    return bUsable;
}

bool add(X509 *pstCertificate, int s32Nid, const std::string &strValue)
{
    const Extension extension(X509V3_EXT_conf_nid(nullptr, nullptr, s32Nid, strValue.c_str()));
    return extension && X509_add_ext(pstCertificate, extension.get(), -1) == 1;
}

bool setSerial(X509 *pstCertificate)
{
    unsigned char aSerial[8]{};
    if (RAND_bytes(aSerial, sizeof(aSerial)) != 1) return false;
    aSerial[0] &= 0x7F;
    const std::unique_ptr<BIGNUM, Freed<BN_free>> number(BN_bin2bn(aSerial, sizeof(aSerial), nullptr));
    return number && BN_to_ASN1_INTEGER(number.get(), X509_get_serialNumber(pstCertificate));
}

Certificate makeCertificate(EVP_PKEY *pstKey, const std::string &strNames)
{
    Certificate certificate(X509_new());
    X509 *const pst = certificate.get();
    if (!pst || !setSerial(pst)) return nullptr;
    X509_set_version(pst, X509_VERSION_3);
    X509_gmtime_adj(X509_getm_notBefore(pst), -DAY_S); // a camera's clock may be behind
    X509_gmtime_adj(X509_getm_notAfter(pst), LIFE_S);
    X509_NAME *const pstName = X509_get_subject_name(pst);
    const bool bMade =
        X509_NAME_add_entry_by_txt(pstName, "CN", MBSTRING_ASC, reinterpret_cast<const unsigned char *>("PTZ camera"),
                                   -1, -1, 0) == 1 &&
        X509_set_issuer_name(pst, pstName) == 1 && X509_set_pubkey(pst, pstKey) == 1 &&
        add(pst, NID_basic_constraints, "critical,CA:FALSE") && add(pst, NID_key_usage, "critical,digitalSignature") &&
        add(pst, NID_ext_key_usage, "serverAuth") && add(pst, NID_subject_alt_name, strNames) &&
        X509_sign(pst, pstKey, EVP_sha256()) > 0;
    return bMade ? std::move(certificate) : nullptr;
}

std::string textOf(BIO *pstBio)
{
    char *pcText = nullptr;
    const long length = BIO_get_mem_data(pstBio, &pcText);
    return length > 0 ? std::string(pcText, static_cast<std::size_t>(length)) : "";
}

/// What the certificate is for. A machine name that is no DNS name is left out.
std::string namesOf(const std::string &strBindAddress, const std::string &strMachine)
{
    std::string str = "DNS:localhost,IP:127.0.0.1,IP:::1";
    if (strBindAddress != "127.0.0.1" && strBindAddress != "0.0.0.0") str += ",IP:" + strBindAddress;
    constexpr const char *NAME = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789-.";
    if (!strMachine.empty() && strMachine != "localhost" && strMachine.find_first_not_of(NAME) == std::string::npos)
        str += ",DNS:" + strMachine + ",DNS:" + strMachine + ".local";
    return str;
}

bool make(const std::string &strNames)
{
    const Key key(EVP_EC_gen("P-256"));
    const Certificate certificate = key ? makeCertificate(key.get(), strNames) : nullptr;
    const Bio keyText(BIO_new(BIO_s_mem())), certificateText(BIO_new(BIO_s_mem()));
    return certificate &&
           PEM_write_bio_PrivateKey(keyText.get(), key.get(), nullptr, nullptr, 0, nullptr, nullptr) == 1 &&
           PEM_write_bio_X509(certificateText.get(), certificate.get()) == 1 &&
           users::writeSecret(users::KEY_FILE, textOf(keyText.get())) &&
           users::writeSecret(users::CERTIFICATE_FILE, textOf(certificateText.get()));
}
} // namespace

namespace users
{
bool ensureCertificate(const std::string &strBindAddress, const std::string &strMachine)
{
    std::string strCertificate, strKey;
    const bool bRead = readSecret(CERTIFICATE_FILE, strCertificate) == FileState::READ &&
                       readSecret(KEY_FILE, strKey) == FileState::READ;
    if (bRead && isUsable(strCertificate, strKey)) return true;
    LOG_INFO("web: making a certificate for encrypted connections\n");
    if (make(namesOf(strBindAddress, strMachine))) return true;
    LOG_ERROR("web: no certificate could be made\n");
    return false;
}
} // namespace users
