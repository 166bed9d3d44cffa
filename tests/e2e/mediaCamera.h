/// A running camera and the addresses of its live video.
#pragma once

#include "config/liveMedia.h"
#include "player.h"
#include "support/cameraProcess.h"
#include "support/rtspClient.h"
#include "support/viewer.h"

#include <string>
#include <utility>

/// A device root with settings, made before the camera starts.
class PreparedRoot
{
public:
    PreparedRoot();
    ~PreparedRoot();
    PreparedRoot(const PreparedRoot &) = delete;
    PreparedRoot &operator=(const PreparedRoot &) = delete;
    const std::string &path() const { return m_strPath; }

private:
    std::string m_strPath;
};

class MediaCamera : public CameraProcess
{
public:
    explicit MediaCamera(tagCAMERA_OPTIONS_S stOptions = {}) : CameraProcess(std::move(stOptions)) {}

    /// @param strUser  "name:password@", or nothing
    std::string url(const std::string &strSession, const std::string &strUser = "") const
    {
        return "rtsp://" + strUser + "127.0.0.1:" + std::to_string(port(554)) + "/" + strSession;
    }
    std::string tunnelUrl(const std::string &strSession, const std::string &strUser = "") const
    {
        return "rtsp://" + strUser + "127.0.0.1:" + std::to_string(port(8554)) + "/" + strSession;
    }
    /// A client of one's own; it has not asked for anything.
    RtspClient client() const { return RtspClient(port(554)); }
    Viewer viewer(const std::string &strChannel, int s32ReceiveBuffer = 0) const
    {
        return Viewer(port(12345), "/" + strChannel, "", s32ReceiveBuffer);
    }
    /// Gives an encoder other parameters: "1 h265 320x180".
    void setEncoder(const std::string &strLine) const;
};

/// Reads pictures of a client that plays, and only counts them.
class Watcher
{
public:
    explicit Watcher(RtspClient &client) : m_client(client) {}
    /// @return how many of the next pictures, as many as asked for, came whole and in order; fewer: the stream ended
    int watch(int s32Pictures);

private:
    RtspClient &m_client;
    bool m_bFirst = true;
    BU_U16 m_u16Next = 0;
};
