/// Processor time of this process for a packet to a hundred consumers, 30 times a second [% of a core].
/// @param bPaced  false: measured without the pauses between packets, with processors that do not fall asleep
#pragma once

double loadOfReaders(bool bPaced);     ///< threads that read from a stream cache
double loadOfBareThreads(bool bPaced); ///< threads that a bare futex wakes
double loadOfSinks(bool bPaced);       ///< functions that a stream cache calls
