/// The key and the certificate that encrypted connections use: made once, kept in /var/web of the device root. Whoever
/// has better ones puts them there.
#pragma once

#include <string>

namespace users
{
constexpr const char *CERTIFICATE_FILE = "/var/web/certificate.pem";
constexpr const char *KEY_FILE = "/var/web/key.pem"; // only its owner may read it

/// Makes them when they are not there, do not belong together, or have expired. The certificate is signed by its own
/// key, lasts 10 years and names localhost, the loopback addresses, the bind address and the machine.
/// @return false: neither found nor made; the reason is logged
bool ensureCertificate(const std::string &strBindAddress, const std::string &strMachine);
} // namespace users
