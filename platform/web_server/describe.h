#pragma once

#include <string>

namespace web
{
/// docs/web-api.md: the routes and the events with their fields, from the tables that serve them.
std::string describeApi();
} // namespace web
