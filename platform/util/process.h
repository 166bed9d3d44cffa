#pragma once

/// The service starts up: it has the device root for itself; from now on one thread takes the signals that end the
/// process and runs their handlers, which log and exit, outside any interrupted code; the journal's debug switch is
/// there. Once; later calls do nothing.
void processStartUp();

/// Replaces the process by a fresh one with the same arguments and environment, shortly, so that an answer under way
/// still leaves.
void processRestartSoon();
