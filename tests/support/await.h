/// Waits for what another thread does, with an end.
#pragma once

#include <chrono>
#include <future>
#include <gtest/gtest.h>
#include <thread>

/// Asks until it is done, for a limit of real time. @return whether it is done
template <class Done> bool await(const Done &done, std::chrono::seconds limit = std::chrono::seconds(10))
{
    const auto deadline = std::chrono::steady_clock::now() + limit;
    while (!done()) {
        if (std::chrono::steady_clock::now() > deadline) {
            ADD_FAILURE() << "what was awaited does not come";
            return false;
        }
        std::this_thread::sleep_for(std::chrono::microseconds(100));
    }
    return true;
}

/// What a promise of another thread holds, waited for as long.
template <class T> T soon(std::promise<T> &promise)
{
    auto future = promise.get_future();
    if (future.wait_for(std::chrono::seconds(10)) == std::future_status::ready) return future.get();
    ADD_FAILURE() << "what was awaited does not come";
    return T();
}
