#pragma once

#include <algorithm>
#include <atomic>
#include <exception>
#include <functional>
#include <mutex>
#include <thread>
#include <vector>

namespace tessarin {

// Runs task(0) .. task(count - 1) on up to `threads` threads (the calling one included) and
// returns when all have ended. Tasks are taken in index order; each task must write only its
// own result slot, so that results combined in index order afterwards do not depend on the
// scheduling. The first exception a task throws is rethrown here once every thread has stopped;
// the tasks not yet started are then skipped.
inline void ParallelFor(int count, int threads, const std::function<void(int)>& task) {
    std::atomic<int> next{0};
    std::exception_ptr failure;
    std::mutex failure_mutex;
    auto work = [&] {
        for (int i = next++; i < count; i = next++) {
            try {
                task(i);
            } catch (...) {
                const std::lock_guard lock(failure_mutex);
                if (!failure) failure = std::current_exception();
                next = count;
            }
        }
    };
    const int helpers = std::clamp(threads, 1, std::max(count, 1)) - 1;
    {
        std::vector<std::jthread> pool;
        pool.reserve(static_cast<std::size_t>(helpers));
        for (int t = 0; t < helpers; ++t)
            pool.emplace_back(work);
        work();
    }
    if (failure) std::rethrow_exception(failure);
}

// The number of threads a parallel run uses when the user names none: all cores.
inline int DefaultThreadCount() {
    return static_cast<int>(std::max(1U, std::thread::hardware_concurrency()));
}

}  // namespace tessarin
