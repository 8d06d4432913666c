#pragma once

#include <string>

namespace quorin {

/// Something with an identity that values can refer to, held by `std::shared_ptr`.
class Object {
public:
    Object(const Object&) = delete;
    Object& operator=(const Object&) = delete;
    virtual ~Object() = default;

    /// Whether both stand for the same; only the object itself unless a class says otherwise.
    virtual bool isEqual(const Object& other) const { return this == &other; }
    virtual std::string description() const = 0;

protected:
    Object() = default;
};

}  // namespace quorin
