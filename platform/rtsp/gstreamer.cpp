#include "gstreamer.h"

#include "util/log.h"

#include <cstdlib>
#include <gst/gst.h>
#include <initializer_list>
#include <string>

namespace rtsp
{
namespace
{
/// The search of all installed plug-ins takes a second and writes a list into the user's home. Both are off; the
/// environment is the only way to say so, and it may be changed only while the process has one thread.
const bool g_bNoSearch = [] {
    setenv("GST_REGISTRY_DISABLE", "yes", 0);
    setenv("GST_PLUGIN_SYSTEM_PATH_1_0", "", 0);
    return true;
}();

void logGLib(const gchar *pcDomain, GLogLevelFlags enLevel, const gchar *pcText, gpointer)
{
    const BU_S32 s32Level = enLevel & (G_LOG_LEVEL_ERROR | G_LOG_LEVEL_CRITICAL) ? UTIL_LOG_LEVEL_E_ERROR
                            : enLevel & G_LOG_LEVEL_WARNING                      ? UTIL_LOG_LEVEL_E_WARN
                                                                                 : UTIL_LOG_LEVEL_E_DEBUG;
    if (UTIL_LOG_IsOn(s32Level)) UTIL_LOG_Print(s32Level, pcDomain, " %s", pcText);
}

bool loadPlugin(const std::string &strName)
{
    const std::string strFile = std::string(CAMERA_GST_PLUGIN_DIR "/libgst") + strName + ".so";
    GError *pstError = nullptr;
    if (GstPlugin *pst = gst_plugin_load_file(strFile.c_str(), &pstError)) {
        gst_object_unref(pst);
        return true;
    }
    LOG_ERROR("no RTSP: %s: %s", strFile.c_str(), pstError ? pstError->message : "not loaded");
    g_clear_error(&pstError);
    return false;
}

bool load()
{
    g_log_set_default_handler(logGLib, nullptr);
    gst_registry_fork_set_enabled(FALSE);
    GError *pstError = nullptr;
    if (!g_bNoSearch || !gst_init_check(nullptr, nullptr, &pstError)) {
        LOG_ERROR("no RTSP: %s", pstError ? pstError->message : "GStreamer");
        g_clear_error(&pstError);
        return false;
    }
    bool bOk = true;
    for (const BU_CHAR *pcName : {"coreelements", "app", "rtp", "rtpmanager", "udp"}) bOk &= loadPlugin(pcName);
    return bOk;
}
} // namespace

bool loadGStreamer()
{
    static const bool bLoaded = load();
    return bLoaded;
}
} // namespace rtsp
