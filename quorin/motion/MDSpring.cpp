#include "quorin/motion/MDSpring.h"

namespace quorin {

MDSpring::MDSpring(CGFloat dampingRatio, CGFloat damping, CGFloat stiffness, CGFloat mass,
                   CGFloat velocity)
    : decay(damping / (2 * mass)),
      slope(decay * start + velocity),
      isCritical(!(dampingRatio < 1 || dampingRatio > 1)) {
    if (isCritical)
        return;
    const CGFloat natural = std::sqrt(stiffness / mass);
    frequency = std::sqrt(dampingRatio < 1 ? natural * natural - decay * decay
                                           : decay * decay - natural * natural);
    slope /= frequency;
}

}  // namespace quorin
