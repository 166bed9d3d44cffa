// The start of the benchmarks within one process: a device root and a store of their own, no traces.
#include "store/store.h"
#include "util/file.h"

#include <benchmark/benchmark.h>
#include <cstdlib>
#include <filesystem>

int main(int argc, char **argv)
{
    char acFolder[] = "/tmp/camera-bench-XXXXXX";
    UTIL_ROOT_Set(mkdtemp(acFolder));
    CFG_STORE_Open(nullptr);
    setenv("CAMERA_TRACE", "0", 1); // the traces are for people
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    std::filesystem::remove_all(acFolder);
}
