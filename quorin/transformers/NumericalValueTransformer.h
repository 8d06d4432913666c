#pragma once

#include "quorin/geometry/Clamped.h"
#include "quorin/platform/values/CGGeometry.h"
#include "quorin/platform/values/Value.h"

namespace quorin {

/// A transformer whose field steps its value by the arrow keys and keeps it in a range. Values are
/// those of the model. What is no number comes back unchanged; an integer comes back as a double.
class NumericalValueTransformer {
public:
    virtual ~NumericalValueTransformer() = default;

    /// The value `scale` steps of size `increments` further (negative scales go back), snapped to
    /// the nearest multiple of a step, halves away from zero. Steps of 0 give NaN.
    virtual Value incrementValue(const Value& value, double increments, double scale) const;

    /// The value, or the bound it lies beyond; the upper bound is asked first, and a value equal to
    /// the lower bound becomes that bound, which can change the sign of a zero. NaN stays NaN.
    virtual Value clampValue(const Value& value, const ClosedRange<double>& to) const;

protected:
    NumericalValueTransformer() = default;
    NumericalValueTransformer(const NumericalValueTransformer&) = default;
    NumericalValueTransformer& operator=(const NumericalValueTransformer&) = default;

    // What the two do to the number itself, for classes with steps and bounds of their own.
    static double stepped(double number, double step, double scale);
    static double kept(double number, const ClosedRange<double>& within);
};

}  // namespace quorin
