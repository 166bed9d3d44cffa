/// What the thread sanitizer has to know: GLib's locks are made of system calls that it does not see, so that memory
/// handed from thread to thread inside GLib and GStreamer looks unguarded.
#include "base/types.h"

extern "C" const BU_CHAR *__tsan_default_options() { return "ignore_noninstrumented_modules=1"; }

/// A packet's reference passes through GStreamer's queues to the thread that gives it back.
extern "C" const BU_CHAR *__tsan_default_suppressions() { return "race:giveBack\n"; }
