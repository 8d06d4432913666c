#pragma once

#include <cmath>

#include "quorin/platform/values/CGGeometry.h"

namespace quorin {

/// A damped oscillator in closed form: a function from time in seconds to progress, 0 at the start
/// and 1 at rest. Cheap enough to be called for every frame.
///
/// The ratio only chooses the form of the motion, which itself comes from damping, stiffness and
/// mass: critical at exactly 1 (and for NaN), otherwise with a circular sine and cosine. Ratios
/// above 1 swing too; for how such a spring really moves see `DampedSpring`. Where damping,
/// stiffness and mass do not fit the ratio, the progress may not be finite.
class MDSpring {
public:
    MDSpring(CGFloat dampingRatio, CGFloat damping, CGFloat stiffness, CGFloat mass,
             CGFloat velocity);

    CGFloat operator()(CGFloat time) const {
        const CGFloat envelope = std::exp(-decay * time);
        if (isCritical)
            return envelope * (start + slope * time) - start;
        const CGFloat angle = frequency * time;
        return envelope * (start * std::cos(angle) + slope * std::sin(angle)) - start;
    }

private:
    /// The displacement from rest at time 0.
    static constexpr CGFloat start = -1;

    CGFloat decay;
    CGFloat frequency = 0;
    CGFloat slope;  // by time when critical, otherwise by angle
    bool isCritical;
};

}  // namespace quorin
