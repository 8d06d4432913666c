#include "quorin/platform/foundation/NSNull.h"

namespace quorin {

const std::shared_ptr<NSNull>& NSNull::null() {
    static const std::shared_ptr<NSNull> instance(new NSNull);
    return instance;
}

}  // namespace quorin
