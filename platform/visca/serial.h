/// The serial receivers.
#pragma once

namespace visca
{
/// Registers for the bytes of the serial ports that speak VISCA.
void startSerial();
/// Returns when the last packet is done.
void stopSerial();
} // namespace visca
