#pragma once

#include <stdexcept>
#include <string>

namespace quorin {

/// What a facility of the platform raises when it was asked for something that makes no sense, such
/// as an expression that cannot be parsed. Meant for `tryWithBlock` to catch.
class PlatformException : public std::runtime_error {
public:
    /// `name` is its kind, for programs; `reason` is for people. The message has both.
    PlatformException(const std::string& name, const std::string& reason)
        : std::runtime_error(name + ": " + reason), _name(name), _reason(reason) {}

    const std::string& name() const { return _name; }
    const std::string& reason() const { return _reason; }

private:
    std::string _name, _reason;
};

}  // namespace quorin
