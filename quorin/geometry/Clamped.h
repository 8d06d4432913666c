#pragma once

namespace quorin {

/// From `lower` to `upper`, both included.
template <typename Value>
struct ClosedRange {
    Value lower, upper;
};

/// From `lower` upwards without end.
template <typename Value>
struct PartialRangeFrom {
    Value lower;
};

/// Everything up to and including `upper`.
template <typename Value>
struct PartialRangeThrough {
    Value upper;
};

template <typename Value>
ClosedRange(Value, Value) -> ClosedRange<Value>;
template <typename Value>
PartialRangeFrom(Value) -> PartialRangeFrom<Value>;
template <typename Value>
PartialRangeThrough(Value) -> PartialRangeThrough<Value>;

/// The value, or the bound it lies beyond; the upper one is asked first. NaN stays NaN.
template <typename Value>
constexpr Value clamped(const Value& value, const ClosedRange<Value>& to) {
    if (to.upper < value)
        return to.upper;
    return value < to.lower ? to.lower : value;
}

template <typename Value>
constexpr Value clamped(const Value& value, const PartialRangeFrom<Value>& to) {
    return value < to.lower ? to.lower : value;
}

template <typename Value>
constexpr Value clamped(const Value& value, const PartialRangeThrough<Value>& to) {
    return to.upper < value ? to.upper : value;
}

}  // namespace quorin
