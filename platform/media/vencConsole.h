/// Other encoder parameters by hand, for the length of a run.
#pragma once

namespace media
{
/// Reads lines such as "1 h265 1280x720 2000" from the debug file of the encoders: channel, format, size and bit rate
/// [kbit/s]; what is left out stays.
void openVencConsole();
} // namespace media
