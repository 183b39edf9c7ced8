// SPDX-License-Identifier: MIT
// Runs a task with a timeout.
#pragma once

#include <chrono>
#include <functional>
#include <future>
#include <optional>
#include <thread>
#include <utility>

namespace serving {

/// Does `work` on a thread of its own and returns what it returns, or throws what it throws; nothing
/// once `limit` has passed. The work then goes on by itself, so it must own all that it uses. Throws
/// std::system_error where no thread can be had.
template <class Answer>
std::optional<Answer> onOwnThread(std::function<Answer()> work, std::chrono::milliseconds limit) {
    std::packaged_task<Answer()> task(std::move(work));
    std::future<Answer> answer = task.get_future();
    std::thread thread(std::move(task));
    if (answer.wait_for(limit) != std::future_status::ready) {
        thread.detach();
        return std::nullopt;
    }
    thread.join();
    return answer.get();
}

}  // namespace serving
