/// Where lines of the log go: console and a rotating file of the present device root.
#include "util/log.h"

#include "internal.h"
#include "util/file.h"

#include <algorithm>
#include <atomic>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <mutex>
#include <spdlog/logger.h>
#include <spdlog/sinks/rotating_file_sink.h>
#include <spdlog/sinks/stdout_sinks.h>

namespace
{
constexpr std::size_t LINE_SIZE = 1024;
constexpr std::size_t FILE_SIZE = 2 * 1024 * 1024;
constexpr std::size_t FILE_COUNT = 3;
constexpr BU_U32 NO_GENERATION = ~0U;
std::atomic<const BU_CHAR *> g_pcFile{"camera.log"};

spdlog::level::level_enum levelOf(BU_S32 s32Level)
{
    if (s32Level <= UTIL_LOG_LEVEL_E_ERROR) return spdlog::level::err;
    if (s32Level <= UTIL_LOG_LEVEL_E_WARN) return spdlog::level::warn;
    return s32Level <= UTIL_LOG_LEVEL_E_INFO ? spdlog::level::info : spdlog::level::debug;
}

BU_S32 numberOf(const BU_CHAR *pcVariable, BU_S32 s32Default)
{
    const BU_CHAR *pcText = std::getenv(pcVariable);
    return pcText && *pcText ? std::atoi(pcText) : s32Default;
}

class Log
{
public:
    static Log &instance()
    {
        static auto *pclLog = new Log;
        return *pclLog;
    }

    void write(BU_S32 s32Level, const BU_CHAR *pcLine)
    {
        followRoot();
        const auto sink = fileSink();
        const spdlog::details::log_msg stMessage("", levelOf(s32Level), pcLine);
        m_clConsole->log(stMessage);
        if (!sink) return;
        try {
            sink->log(stMessage);
            sink->flush();
            m_bFileFailed = false;
        } catch (const std::exception &error) {
            if (!m_bFileFailed.exchange(true)) std::fprintf(stderr, "log file: %s\n", error.what());
        }
    }

private:
    typedef std::shared_ptr<spdlog::sinks::rotating_file_sink_mt> FileSink;

    Log() { m_clConsole->set_pattern(PATTERN); }

    FileSink fileSink()
    {
        const std::lock_guard guard(m_lock);
        return m_clFile;
    }

    /// Opens the file of the current device root. The root may log while it is made: that line goes to the console.
    void followRoot()
    {
        thread_local bool bOpening = false;
        if (bOpening || m_u32Generation == util::rootGeneration()) return;
        bOpening = true;
        const std::string strPath = UTIL_ROOT_Path((std::string("/var/log/") + g_pcFile.load()).c_str());
        FileSink sink;
        try {
            sink = std::make_shared<FileSink::element_type>(strPath, FILE_SIZE, FILE_COUNT - 1);
            sink->set_pattern(PATTERN);
        } catch (const std::exception &error) {
            std::fprintf(stderr, "log file: %s\n", error.what());
        }
        {
            const std::lock_guard guard(m_lock);
            m_clFile = std::move(sink);
            m_u32Generation = util::rootGeneration();
        }
        bOpening = false;
    }

    static constexpr const BU_CHAR *PATTERN = "%Y-%m-%d %H:%M:%S.%e %L %v";
    std::mutex m_lock; // guards m_clFile
    FileSink m_clFile;
    std::atomic<BU_U32> m_u32Generation{NO_GENERATION};
    std::atomic<bool> m_bFileFailed{false};
    std::shared_ptr<spdlog::sinks::stderr_sink_mt> m_clConsole = std::make_shared<spdlog::sinks::stderr_sink_mt>();
};
} // namespace

void UTIL_LOG_SetFile(const BU_CHAR *pcName) { g_pcFile = pcName; }

void UTIL_LOG_Print(BU_S32 s32Level, const BU_CHAR *pcPrefix, const BU_CHAR *pcFormat, ...)
{
    if (!UTIL_LOG_IsOn(s32Level)) return;
    BU_CHAR acLine[LINE_SIZE];
    const std::size_t prefix = pcPrefix ? strnlen(pcPrefix, sizeof(util::LogPrefix::acText)) : 0;
    if (prefix > 0) std::memcpy(acLine, pcPrefix, prefix);
    va_list args;
    va_start(args, pcFormat);
    if (std::vsnprintf(acLine + prefix, sizeof(acLine) - prefix, pcFormat, args) < 0) acLine[prefix] = 0;
    va_end(args);
    for (std::size_t end = std::strlen(acLine); end > 0 && acLine[end - 1] == '\n'; end--) acLine[end - 1] = 0;
    const auto isControl = [](BU_CHAR c) { return static_cast<unsigned char>(c) < 0x20 || c == 0x7F; };
    std::replace_if(acLine, acLine + std::strlen(acLine), isControl, '?'); // what strangers sent makes no lines
    try {
        Log::instance().write(s32Level, acLine);
    } catch (...) {
        std::fprintf(stderr, "%s\n", acLine);
    }
}

BU_BOOL UTIL_LOG_IsOn(BU_S32 s32Level)
{
    static const BU_S32 s32Limit = numberOf("CAMERA_LOG", UTIL_LOG_LEVEL_E_INFO);
    return s32Level <= s32Limit;
}

void UTIL_TRACE_Print(const BU_CHAR *pcFormat, ...)
{
    static const bool bOn = numberOf("CAMERA_TRACE", 1) != 0;
    if (!bOn) return;
    va_list args;
    va_start(args, pcFormat);
    std::vprintf(pcFormat, args);
    va_end(args);
}

util::LogPrefix::LogPrefix(const BU_CHAR *pcFunction, BU_S32 s32Line)
{
    // The function's name is cut before the line number is.
    std::snprintf(acText, sizeof(acText), "%.48s[%d] ", pcFunction, s32Line);
}
