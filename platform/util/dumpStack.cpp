/// What a crash prints.
#include "util/watchdog.h"

#include <array>
#include <csignal>
#include <cstring>
#include <execinfo.h>
#include <unistd.h>

// A sanitizer prints a better report than ours.
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
#define SANITIZED 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer) || __has_feature(thread_sanitizer)
#define SANITIZED 1
#endif
#endif

namespace
{
#ifndef SANITIZED
constexpr int MAX_FRAMES = 64;

/// Only what is allowed inside a signal: no allocation, no log. The default action follows when the handler returns.
void printStack(int s32Signal)
{
    std::array<void *, MAX_FRAMES> apvFrames;
    const BU_CHAR *pcName = sigabbrev_np(s32Signal);
    const auto print = [](const BU_CHAR *pcText) {
        if (write(STDERR_FILENO, pcText, std::strlen(pcText)) < 0) return;
    };
    print("crash by signal ");
    print(pcName ? pcName : "?");
    print(", call stack:\n");
    backtrace_symbols_fd(apvFrames.data(), backtrace(apvFrames.data(), MAX_FRAMES), STDERR_FILENO);
    raise(s32Signal);
}

void installCrashHandlers()
{
    // The first call loads a library, which a crash handler cannot.
    std::array<void *, 1> apvFrame;
    backtrace(apvFrame.data(), 1);
    // A stack that has run over leaves no room for the handler: it gets one of its own on the main thread.
    static std::array<BU_CHAR, 64 * 1024> acStack;
    stack_t stStack{};
    stStack.ss_sp = acStack.data();
    stStack.ss_size = acStack.size();
    sigaltstack(&stStack, nullptr);
    struct sigaction stAction {
    };
    stAction.sa_handler = printStack;
    stAction.sa_flags = static_cast<int>(SA_RESETHAND | SA_ONSTACK);
    for (const int s32Signal : {SIGSEGV, SIGBUS, SIGILL, SIGFPE, SIGABRT}) sigaction(s32Signal, &stAction, nullptr);
}
#else
void installCrashHandlers() {}
#endif
} // namespace

void UTIL_DUMPSTACK_PrintCallStack()
{
    installCrashHandlers();
    // A peer that closes its connection gives an error where we write to it, not the end of the process.
    std::signal(SIGPIPE, SIG_IGN);
}
