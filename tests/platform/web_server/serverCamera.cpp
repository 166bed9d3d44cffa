// Hands the web server's calls over to the test.
#include "serverCamera.h"

#include <condition_variable>
#include <deque>
#include <mutex>

namespace
{
std::mutex g_lock; // guards the calls
std::condition_variable g_more;
std::deque<camera_double::tagCALL_S> g_calls;

void put(std::string strWhat, std::string_view bytes, FN_WEB_CLIENT_ANSWER fnAnswer)
{
    const std::lock_guard guard(g_lock);
    g_calls.push_back({std::move(strWhat), std::string(bytes), std::move(fnAnswer)});
    g_more.notify_one();
}
} // namespace

camera_double::tagCALL_S camera_double::next()
{
    std::unique_lock guard(g_lock);
    if (!g_more.wait_for(guard, std::chrono::seconds(20), [] { return !g_calls.empty(); }))
        return {"none", "", [](WEB_CLIENT_RESULT_E, std::string_view) {}};
    tagCALL_S stCall = std::move(g_calls.front());
    g_calls.pop_front();
    return stCall;
}

void WEB_CLIENT_Call(tag_WEB_RPC_EVENT_GROUP_E enEvent, std::string_view strImage, BU_U32, FN_WEB_CLIENT_ANSWER fn)
{
    put(std::to_string(enEvent), strImage, std::move(fn));
}
void WEB_CLIENT_Ask(std::string_view strQuestion, std::string_view strJson, BU_U32, FN_WEB_CLIENT_ANSWER fn)
{
    put(std::string(strQuestion), strJson, std::move(fn));
}
