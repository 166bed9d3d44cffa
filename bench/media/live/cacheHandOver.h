/// Processor time of this process while a packet goes to a hundred consumers 30 times a second [% of a core].
#pragma once

double loadOfReaders();     ///< threads that read from a stream cache
double loadOfBareThreads(); ///< threads that a bare futex wakes
double loadOfSinks();       ///< functions that a stream cache calls
