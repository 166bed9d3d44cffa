/// The packet tables of docs/visca.md, written from the packet table.
#pragma once

#include <string>

namespace visca
{
std::string packetTables();
} // namespace visca
