#pragma once

#include <memory>
#include <utility>

#include "quorin/platform/foundation/NSNotificationCenter.h"

namespace quorin {

/// Keeps an observation of the default notification centre going for as long as it lives.
class NotificationToken {
public:
    /// Takes charge of an observer that the default centre handed out.
    explicit NotificationToken(std::shared_ptr<Object> token) : _token(std::move(token)) {}
    NotificationToken(const NotificationToken&) = delete;
    NotificationToken& operator=(const NotificationToken&) = delete;
    ~NotificationToken() { NSNotificationCenter::defaultCenter().removeObserver(_token); }

    const std::shared_ptr<Object>& token() const { return _token; }

private:
    std::shared_ptr<Object> _token;
};

}  // namespace quorin
