// One piece of work on a thread of its own, of which only the last one given is wanted. Its result
// is fetched by the thread of the window.
#pragma once
#include <atomic>
#include <functional>
#include <mutex>
#include <optional>
#include <thread>
#include <utility>

#include "core/analysis/StartThread.h"

template <typename Result>
class BackgroundWork {
  public:
    // Asked by the work from time to time, with the share done; false: nobody wants it any more.
    using GoOn = std::function<bool(double done)>;
    using Work = std::function<Result(const GoOn& goOn)>;

    BackgroundWork() = default;
    ~BackgroundWork() { Cancel(); }
    BackgroundWork(const BackgroundWork&) = delete;
    BackgroundWork& operator=(const BackgroundWork&) = delete;

    void Start(Work work) {
        Cancel();
        cancelled = false;
        share = 0;
        running = true;
        thread = StartThread([this, work = std::move(work)] {
            Result found = work([this](double done) {
                share = done;
                return !cancelled;
            });
            const std::lock_guard lock(mutex);
            if (!cancelled) result = std::move(found);
            running = false;
        });
        running = running && thread.joinable();
    }

    // Waits until the work has asked, some ten milliseconds; what was not taken is forgotten.
    void Cancel() {
        cancelled = true;
        if (thread.joinable()) thread.join();
        result.reset();
        running = false;
    }

    // Until its result has been taken, when it has one; without a thread it has none.
    bool IsRunning() const {
        const std::lock_guard lock(mutex);
        return running || result;
    }
    double Share() const { return share; }  // 0..1 of the work

    // Nothing until it is done, and when it was taken.
    std::optional<Result> Take() {
        const std::lock_guard lock(mutex);
        return std::exchange(result, std::nullopt);
    }

  private:
    std::atomic<bool> cancelled = false;
    std::atomic<bool> running = false;
    std::atomic<double> share = 0;
    mutable std::mutex mutex;  // of the result
    std::optional<Result> result;
    std::jthread thread;
};
