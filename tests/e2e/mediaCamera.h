/// A running camera and the addresses of its live video.
#pragma once

#include "config/liveMedia.h"
#include "player.h"
#include "store/store.h"
#include "support/cameraProcess.h"
#include "support/rtspClient.h"
#include "support/viewer.h"
#include "util/file.h"

#include <filesystem>
#include <fstream>
#include <string>
#include <utility>

/// A device root with settings, made before the camera starts.
class PreparedRoot
{
public:
    PreparedRoot()
    {
        UTIL_ROOT_Set(m_strPath.c_str());
        CFG_STORE_Open("/cfg0/settings.db");
    }
    ~PreparedRoot()
    {
        CFG_STORE_Close();
        std::filesystem::remove_all(m_strPath);
    }
    const std::string &path() const { return m_strPath; }

private:
    const std::string m_strPath = mkdtemp(std::string("/tmp/camera-e2e-XXXXXX").data());
};

class MediaCamera : public CameraProcess
{
public:
    explicit MediaCamera(tagCAMERA_OPTIONS_S stOptions = {}) : CameraProcess(std::move(stOptions)) {}

    /// @param s32Port  8554: of the tunnel
    /// @param strUser  "name:password@", or nothing
    std::string url(const std::string &strSession, int s32Port = 554, const std::string &strUser = "") const
    {
        return "rtsp://" + strUser + "127.0.0.1:" + std::to_string(port(s32Port)) + "/" + strSession;
    }
    /// A client of one's own; it has not asked for anything.
    RtspClient client() const { return RtspClient(port(554)); }
    Viewer viewer(const std::string &strChannel, int s32ReceiveBuffer = 0) const
    {
        return Viewer(port(12345), "/" + strChannel, "", s32ReceiveBuffer);
    }
    /// Gives an encoder other parameters: "1 h265 320x180".
    void setEncoder(const std::string &strLine) const
    {
        std::ofstream(path("/var/debug/app/platform/encoder")) << strLine << '\n';
    }
};

/// Reads pictures of a client that plays, and only counts them.
class Watcher
{
public:
    explicit Watcher(RtspClient &client) : m_client(client) {}
    /// @return how many of the next pictures, as many as asked for, came whole and in order; fewer: the stream ended
    int watch(int s32Pictures)
    {
        int s32Whole = 0;
        bool bWhole = true;
        for (int i = 0; i < s32Pictures;) {
            const tagRTP_S st = m_client.rtp();
            if (st.s32Stream < 0) break;
            if (st.s32Stream != 0) continue;
            bWhole &= m_bFirst || st.u16Sequence == m_u16Next;
            m_bFirst = false;
            m_u16Next = static_cast<BU_U16>(st.u16Sequence + 1);
            if (!st.bMarker) continue;
            s32Whole += std::exchange(bWhole, true);
            ++i;
        }
        return s32Whole;
    }

private:
    RtspClient &m_client;
    bool m_bFirst = true;
    BU_U16 m_u16Next = 0;
};
