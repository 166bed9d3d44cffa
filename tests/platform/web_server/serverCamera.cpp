#include "serverCamera.h"

#include <condition_variable>
#include <deque>
#include <mutex>

namespace
{
struct tagSTATE_S {
    std::mutex lock; // guards calls
    std::condition_variable more;
    std::deque<camera_double::tagCALL_S> calls;
};
tagSTATE_S &state()
{
    static tagSTATE_S st;
    return st;
}

void put(camera_double::tagCALL_S stCall)
{
    const std::lock_guard guard(state().lock);
    state().calls.push_back(std::move(stCall));
    state().more.notify_one();
}
} // namespace

camera_double::tagCALL_S camera_double::next()
{
    std::unique_lock guard(state().lock);
    state().more.wait_for(guard, std::chrono::seconds(20), [] { return !state().calls.empty(); });
    if (state().calls.empty()) return {"none", "", [](WEB_CLIENT_RESULT_E, std::string_view) {}};
    tagCALL_S stCall = std::move(state().calls.front());
    state().calls.pop_front();
    return stCall;
}

void WEB_CLIENT_Call(tag_WEB_RPC_EVENT_GROUP_E enEvent, std::string_view strImage, BU_U32,
                     FN_WEB_CLIENT_ANSWER fnAnswer)
{
    put({std::to_string(enEvent), std::string(strImage), std::move(fnAnswer)});
}

void WEB_CLIENT_Ask(std::string_view strQuestion, std::string_view strJson, BU_U32, FN_WEB_CLIENT_ANSWER fnAnswer)
{
    put({std::string(strQuestion), std::string(strJson), std::move(fnAnswer)});
}
