#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "quorin/platform/foundation/NSObject.h"
#include "quorin/platform/ui/NSStoryboardSegue.h"
#include "quorin/platform/ui/NSViewController.h"

namespace quorin {

/// The scenes of an interface, which are view controllers to be made, and the segues that lead from
/// one to another. Whatever reads interface files registers what it finds there.
class NSStoryboard : public NSObject {
public:
    using Class = NSClassOf<NSStoryboard, NSObject>;

    using ControllerFactory = std::function<std::shared_ptr<NSViewController>()>;
    using SegueFactory = std::function<std::shared_ptr<NSStoryboardSegue>(
        const std::string& identifier, const std::shared_ptr<NSViewController>& source,
        const std::shared_ptr<NSViewController>& destination)>;

    static std::shared_ptr<NSStoryboard> create();

    /// The first scene is the initial one. Registering again replaces.
    void registerScene(std::string identifier, ControllerFactory factory);
    void registerSegue(std::string identifier, const std::string& from, std::string to,
                       SegueFactory factory);
    /// The same with segues of a class.
    template <typename Segue>
    void registerSegue(std::string identifier, const std::string& from, std::string to) {
        registerSegue(std::move(identifier), from, std::move(to),
                      [](const std::string& name, const auto& source, const auto& destination) {
                          return makeObject<Segue>(name, source, destination);
                      });
    }

    /// Makes the controller of a scene and awakes it. A scene that is not registered, or for the
    /// initial one none at all, stops the process.
    std::shared_ptr<NSViewController> instantiateController(const std::string& withIdentifier);
    std::shared_ptr<NSViewController> instantiateInitialController();

    /// The segue with the destination made for it, neither prepared nor performed. One that is not
    /// registered from the scene of `source` stops the process.
    std::shared_ptr<NSStoryboardSegue> instantiateSegue(
        const std::string& identifier, const std::shared_ptr<NSViewController>& source);

private:
    struct SegueRecord {
        std::string destination;
        SegueFactory factory;
    };

    std::string initialScene;
    std::map<std::string, ControllerFactory> scenes;
    std::map<std::pair<std::string, std::string>, SegueRecord> segues;  // by source, identifier
};

}  // namespace quorin
