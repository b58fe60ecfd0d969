// A thread for long work, where one can be had: a system under pressure may have none left, and
// nothing of the game is lost for that.
#pragma once
#include <system_error>
#include <thread>
#include <utility>

// Not joinable when there is none.
template <typename Work>
std::jthread StartThread(Work work) {
    try {
        return std::jthread(std::move(work));
    } catch (const std::system_error&) {
        return {};
    }
}
