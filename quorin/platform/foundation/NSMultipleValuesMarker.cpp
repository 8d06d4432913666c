#include "quorin/platform/foundation/NSMultipleValuesMarker.h"

namespace quorin {

const std::shared_ptr<NSMultipleValuesMarker>& NSMultipleValuesMarker::marker() {
    static const std::shared_ptr<NSMultipleValuesMarker> instance(new NSMultipleValuesMarker);
    return instance;
}

}  // namespace quorin
