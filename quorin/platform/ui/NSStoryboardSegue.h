#pragma once

#include <functional>
#include <memory>
#include <string>

#include "quorin/platform/foundation/NSObject.h"

namespace quorin {

/// The way from one controller to another one. Holds both, and is held by nobody longer than it
/// takes. A class overrides `perform` to go the way in its own manner.
class NSStoryboardSegue : public NSObject {
public:
    using Class = NSClassOf<NSStoryboardSegue, NSObject>;

    using Handler = std::function<void()>;

    NSStoryboardSegue(std::string identifier, std::shared_ptr<NSObject> source,
                      std::shared_ptr<NSObject> destination, Handler performHandler = {});

    const std::string& identifier() const { return _identifier; }
    const std::shared_ptr<NSObject>& sourceController() const { return _sourceController; }
    const std::shared_ptr<NSObject>& destinationController() const {
        return _destinationController;
    }

    /// Calls the handler, if there is one.
    virtual void perform();

private:
    std::string _identifier;
    std::shared_ptr<NSObject> _sourceController, _destinationController;
    Handler performHandler;
};

}  // namespace quorin
