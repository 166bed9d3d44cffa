#pragma once

#include <string>

namespace web_server
{
/// docs/web-api.md: the routes and the events with their fields, from the tables that serve them.
std::string describeApi();
} // namespace web_server
