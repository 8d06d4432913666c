#include "quorin/extensions/NSColorExtension.h"

#include "quorin/platform/values/NSNumber.h"
#include "quorin/platform/values/TextForm.h"

namespace quorin {

std::string webRGB(const NSColor& color) {
    const CGColor rgb = color.usingGenericRGB().value_or(CGColor{0, 0, 0, 0});
    std::string text = "rgba(";
    for (const double component : {rgb.red, rgb.green, rgb.blue})
        text.append(textForm(NSNumber(component * 256).integerValue())).append(", ");
    return text.append(textForm(rgb.alpha)).append(")");
}

}  // namespace quorin
