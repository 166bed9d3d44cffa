/// The service as a whole: started or stopped.
#pragma once

#include <functional>

namespace web_rpc
{
/// Runs fn unless the service is started; a start waits for it. @return false: started, fn was not run
bool whileStopped(const std::function<void()> &fn);
} // namespace web_rpc
