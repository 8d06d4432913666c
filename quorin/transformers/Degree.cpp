#include "quorin/transformers/Degree.h"

#include <cstdint>
#include <string>

#include "quorin/platform/values/FatalError.h"
#include "quorin/platform/values/TextForm.h"

namespace quorin {

Degree Degree::roundingAt45Degree() const {
    const CGFloat multiple = rawValue >= 0 ? (rawValue + 22.5) / 45 : (rawValue - 22.5) / 45;
    // Also false for NaN. 2^63 itself no longer fits.
    const bool fits = multiple >= -0x1p63 && multiple < 0x1p63;
    if (!fits)
        fatalError(std::string("no 64-bit multiple of 45 is nearest to ")
                       .append(textForm(rawValue))
                       .append(" degrees"));
    return Degree(static_cast<CGFloat>(static_cast<std::int64_t>(multiple)) * 45);
}

}  // namespace quorin
