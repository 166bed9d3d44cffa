/// Waits for what another thread does, with an end.
#pragma once

#include <chrono>
#include <gtest/gtest.h>
#include <thread>

/// Runs step until done, for ten seconds of real time at most. @return whether it is done
template <class Done> bool await(const Done &done)
{
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(10);
    while (!done()) {
        if (std::chrono::steady_clock::now() > deadline) {
            ADD_FAILURE() << "what was awaited does not come";
            return false;
        }
        std::this_thread::yield();
    }
    return true;
}
