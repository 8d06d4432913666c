#include "quorin/platform/ui/NSStoryboardSegue.h"

#include <utility>

namespace quorin {

NSStoryboardSegue::NSStoryboardSegue(std::string identifier, std::shared_ptr<NSObject> source,
                                     std::shared_ptr<NSObject> destination, Handler handler)
    : _identifier(std::move(identifier)),
      _sourceController(std::move(source)),
      _destinationController(std::move(destination)),
      performHandler(std::move(handler)) {}

void NSStoryboardSegue::perform() {
    if (performHandler)
        performHandler();
}

}  // namespace quorin
