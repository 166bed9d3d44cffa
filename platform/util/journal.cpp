/// The record of platform calls: in memory for tests, as a stream for people, with injected results.
#include "util/journal.h"

#include "internal.h"
#include "util/file.h"
#include "util/log.h"
#include "util/time.h"

#include <cinttypes>
#include <cstdio>
#include <map>
#include <memory>
#include <mutex>
#include <utility>

namespace
{
constexpr long STREAM_LIMIT = 4 * 1024 * 1024;

struct Injection {
    BU_S32 s32Result, s32Times;
};

struct Journal {
    std::mutex lock; // guards all members
    bool bRecording = false;
    std::vector<std::string> effects;
    std::map<std::string, Injection, std::less<>> injections;
    std::unique_ptr<std::FILE, int (*)(std::FILE *)> stream{nullptr, std::fclose};
    std::string strStreamPath;
};
Journal &state()
{
    static auto *pstJournal = new Journal;
    return *pstJournal;
}

void updateSwitch(const Journal &stJournal) { journal::g_bOn = stJournal.bRecording || stJournal.stream; }

void openStream(Journal &stJournal)
{
    stJournal.stream.reset(std::fopen(stJournal.strStreamPath.c_str(), "ae"));
    if (stJournal.stream) std::fseek(stJournal.stream.get(), 0, SEEK_END);
}

void writeStream(Journal &stJournal, const std::string &strCall)
{
    const BU_S64 s64Us = UTIL_TIME_NowUs();
    std::fprintf(stJournal.stream.get(), "%" PRId64 ".%06" PRId64 " %s\n", s64Us / 1000000, s64Us % 1000000,
                 strCall.c_str());
    std::fflush(stJournal.stream.get());
    if (std::ftell(stJournal.stream.get()) < STREAM_LIMIT) return;
    std::rename(stJournal.strStreamPath.c_str(), (stJournal.strStreamPath + ".1").c_str());
    openStream(stJournal);
    updateSwitch(stJournal);
}
} // namespace

namespace journal
{
std::atomic<bool> g_bOn{false};

void start()
{
    const std::lock_guard guard(state().lock);
    state().effects.clear();
    state().bRecording = true;
    updateSwitch(state());
}

void stop()
{
    const std::lock_guard guard(state().lock);
    state().effects.clear();
    state().injections.clear();
    state().bRecording = false;
    updateSwitch(state());
}

std::vector<std::string> effects()
{
    const std::lock_guard guard(state().lock);
    return std::exchange(state().effects, {});
}

void inject(const BU_CHAR *pcFunction, BU_S32 s32Result, BU_S32 s32Times)
{
    const std::lock_guard guard(state().lock);
    state().injections[pcFunction] = {s32Result, s32Times};
}

std::optional<BU_S32> record(const BU_CHAR *pcFunction, const std::string &strArgs, bool bEffect)
{
    const std::lock_guard guard(state().lock);
    if (bEffect) {
        std::string strCall = pcFunction + ("(" + strArgs + ")");
        if (state().stream) writeStream(state(), strCall);
        if (state().bRecording) state().effects.push_back(std::move(strCall));
    }
    const auto injection = state().injections.find(pcFunction);
    if (injection == state().injections.end()) return std::nullopt;
    const BU_S32 s32Result = injection->second.s32Result;
    if (--injection->second.s32Times <= 0) state().injections.erase(injection);
    return s32Result;
}

std::string text(BU_S64 s64Value) { return std::to_string(s64Value); }

std::string text(double dValue)
{
    BU_CHAR acText[32];
    std::snprintf(acText, sizeof(acText), "%g", dValue);
    return acText;
}

std::string text(const BU_CHAR *pcText)
{
    if (!pcText) return "NULL";
    std::string strQuoted = "\"";
    for (; *pcText; pcText++) {
        if (*pcText == '"' || *pcText == '\\') strQuoted += '\\';
        strQuoted += *pcText == '\n' ? std::string("\\n") : std::string(1, *pcText);
    }
    return strQuoted + '"';
}

void stream(bool bOn)
{
    std::string strPath = UTIL_ROOT_Path("/var/debug/app/platform/journal.log");
    {
        const std::lock_guard guard(state().lock);
        state().strStreamPath = std::move(strPath);
        if (bOn)
            openStream(state());
        else
            state().stream.reset();
        updateSwitch(state());
        if (!bOn || state().stream) return;
    }
    LOG_ERROR("the journal cannot be written to /var/debug/app/platform/journal.log");
}
} // namespace journal
