// From a key event to the motion command it causes, against a bare pipe between two threads; and what of it is the
// kernel's pseudo-terminal, which a remote is, and what the handler's.
#include "board/input.h"
#include "keys.h"
#include "util/file.h"
#include "util/thread.h"

#include <array>
#include <atomic>
#include <benchmark/benchmark.h>
#include <cstring>
#include <fcntl.h>
#include <linux/input.h>
#include <string>
#include <termios.h>
#include <unistd.h>

namespace
{
constexpr int KEY_OF_UP = 32;

std::atomic<BU_U32> g_u32Done{0};

void done()
{
    g_u32Done++;
    g_u32Done.notify_one();
}
void waitFor(BU_U32 u32Done)
{
    for (BU_U32 u32Now; (u32Now = g_u32Done) != u32Done;) g_u32Done.wait(u32Now);
}

input_event key(bool bPress)
{
    input_event stEvent{};
    stEvent.type = EV_KEY;
    stEvent.code = KEY_OF_UP;
    stEvent.value = bPress;
    return stEvent;
}

/// Sends press and release in turn, each when the one before has had its effect.
void sendKeys(benchmark::State &state, int fd)
{
    g_u32Done = 0;
    BU_U32 u32Sent = 0;
    for (auto _ : state) {
        const input_event stEvent = key(u32Sent++ % 2 == 0);
        if (write(fd, &stEvent, sizeof(stEvent)) != sizeof(stEvent)) state.SkipWithError("write");
        waitFor(u32Sent);
    }
}

/// Both ends are closed at the end, the writer's first, which ends the reader.
void sendBare(benchmark::State &state, int s32Reader, int s32Writer)
{
    {
        const util::Thread reader("reader", [s32Reader](const std::stop_token &) {
            input_event stEvent;
            while (read(s32Reader, &stEvent, sizeof(stEvent)) == sizeof(stEvent)) done();
        });
        sendKeys(state, s32Writer);
        close(s32Writer);
    }
    close(s32Reader);
}

void BM_Pipe(benchmark::State &state)
{
    std::array<int, 2> fds;
    if (pipe2(fds.data(), O_CLOEXEC) != 0) return state.SkipWithError("pipe");
    sendBare(state, fds[0], fds[1]);
}
BENCHMARK(BM_Pipe)->UseRealTime();

void BM_Terminal(benchmark::State &state)
{
    const int s32Master = posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC);
    if (s32Master < 0 || unlockpt(s32Master) != 0) return state.SkipWithError("terminal");
    const int s32Terminal = open(ptsname(s32Master), O_RDWR | O_NOCTTY | O_CLOEXEC);
    termios stMode;
    tcgetattr(s32Terminal, &stMode);
    cfmakeraw(&stMode);
    tcsetattr(s32Terminal, TCSANOW, &stMode);
    sendBare(state, s32Master, s32Terminal);
}
BENCHMARK(BM_Terminal)->UseRealTime();

void BM_KeyToMotion(benchmark::State &state)
{
    BSP_INPUT_THREAD_S stInput{};
    std::strcpy(stInput.acDeviceName, "NecBr");
    stInput.pfEventCb = [](const input_event *pstEvent) {
        BR_COMMON_InputEventCb(pstEvent);
        done();
    };
    if (BSP_INPUT_StartMonitorEvent(&stInput) != 0) return state.SkipWithError("monitor");
    const int fd = open(UTIL_ROOT_Path("/dev/input/NecBr").c_str(), O_WRONLY | O_NOCTTY | O_CLOEXEC);
    sendKeys(state, fd);
    close(fd);
    BSP_INPUT_StopMonitorEvent(&stInput);
}
BENCHMARK(BM_KeyToMotion)->UseRealTime();

/// Decoding, filters and the motion command alone.
void BM_Handler(benchmark::State &state)
{
    BU_U32 u32Sent = 0;
    for (auto _ : state) {
        const input_event stEvent = key(u32Sent++ % 2 == 0);
        BR_COMMON_InputEventCb(&stEvent);
    }
}
BENCHMARK(BM_Handler);
} // namespace
