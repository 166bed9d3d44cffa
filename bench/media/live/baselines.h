/// What the camera is compared with, each a process of its own: this program, started anew with the name of its part.
#pragma once

#include <cstdint>
#include <string>
#include <sys/types.h>
#include <vector>

typedef std::vector<std::vector<std::uint8_t>> Pictures; ///< access units

class BaselineProcess
{
public:
    /// @param strPart  "encoder", "example" or "sender". @param strFile  the pictures that it sends
    BaselineProcess(const std::string &strPart, const std::string &strFile, int s32Cpu);
    ~BaselineProcess();
    BaselineProcess(const BaselineProcess &) = delete;
    BaselineProcess &operator=(const BaselineProcess &) = delete;

    int port() const { return m_s32Port; }
    pid_t pid() const { return m_pid; }

private:
    pid_t m_pid = -1;
    int m_s32Port = 0;
};

/// Processor time that a process has used [s].
double cpuSeconds(pid_t pid);

void store(const std::string &strFile, const Pictures &pictures);

/// The encoder of the main stream on pictures of the scene, one each 33 ms; the pictures were made before.
int encodeAlone();
/// GStreamer's own example of a server with an appsrc, its picture made by the file's packets instead of an encoder.
int serveExample(const std::string &strFile);
/// Whoever connects is answered to every request and then gets whole pictures as RTP packets: nothing but sending.
int serveBare(const std::string &strFile);

/// How long the encoder takes for one picture after the other [ms].
std::vector<double> encodeTimes();
