/// What web servers ask beside the events: settings, presets, the position; and the move to a point of the picture.
#pragma once

#include "server.h"

namespace web_rpc
{
/// @param strJson  an object, or empty
tagRESULT_S answerQuestion(const std::string &strQuestion, const std::string &strJson);

/// {"pan":degrees,"tilt":degrees,"zoom":magnification}, to hundredths.
std::string positionText();
} // namespace web_rpc
