/// The questions that are registered.
#pragma once

#include "server.h"

namespace web_rpc
{
/// @param strJson  an object, or empty
Result answerQuestion(const std::string &strQuestion, const std::string &strJson);
} // namespace web_rpc
