#pragma once

#include <condition_variable>
#include <memory>
#include <mutex>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "quorin/platform/foundation/SCNetworkReachability.h"

namespace quorin::test {

/// Resolves names, but only when the test lets it.
class HeldResolver {
public:
    /// For `NetworkServices`: shares the resolver.
    static std::function<std::vector<NetworkAddress>(const std::string&)> asking(
        const std::shared_ptr<HeldResolver>& resolver) {
        return [resolver](const std::string&) { return resolver->answerWhenReleased(); };
    }

    /// From now on every question is answered so, without being held.
    void release(std::vector<NetworkAddress> addresses) {
        const std::lock_guard lock(mutex);
        answer = std::move(addresses);
        isReleased = true;
        changed.notify_all();
    }
    /// From now on questions are held again.
    void hold() {
        const std::lock_guard lock(mutex);
        isReleased = false;
    }
    /// Waits until so many questions have come.
    void waitUntilAsked(int count) {
        std::unique_lock lock(mutex);
        changed.wait(lock, [&] { return asked >= count; });
    }
    int timesAsked() const {
        const std::lock_guard lock(mutex);
        return asked;
    }
    /// That of the last answer.
    std::thread::id thread() const {
        const std::lock_guard lock(mutex);
        return answering;
    }

private:
    std::vector<NetworkAddress> answerWhenReleased() {
        std::unique_lock lock(mutex);
        ++asked;
        changed.notify_all();
        changed.wait(lock, [&] { return isReleased; });
        answering = std::this_thread::get_id();
        return answer;
    }

    mutable std::mutex mutex;
    std::condition_variable changed;
    int asked = 0;
    bool isReleased = false;
    std::thread::id answering;
    std::vector<NetworkAddress> answer;
};

}  // namespace quorin::test
