/// The camera behind the web server in these tests: it takes calls and questions, and answers when it is told to.
#pragma once

#include "web_client/client.h"

#include <string>

namespace camera_double
{
struct tagCALL_S {
    std::string strWhat; ///< the number of the event, or the question
    std::string strBytes;
    FN_WEB_CLIENT_ANSWER fnAnswer;
};
tagCALL_S next(); ///< waits for one
} // namespace camera_double
