#include "quorin/platform/ui/NSStoryboard.h"

#include "quorin/platform/values/FatalError.h"

namespace quorin {

std::shared_ptr<NSStoryboard> NSStoryboard::create() { return makeObject<NSStoryboard>(); }

void NSStoryboard::registerScene(std::string identifier, ControllerFactory factory) {
    if (scenes.empty())
        initialScene = identifier;
    scenes.insert_or_assign(std::move(identifier), std::move(factory));
}

void NSStoryboard::registerSegue(std::string identifier, const std::string& from, std::string to,
                                 SegueFactory factory) {
    segues.insert_or_assign({from, std::move(identifier)},
                            SegueRecord{std::move(to), std::move(factory)});
}

std::shared_ptr<NSViewController> NSStoryboard::instantiateController(
    const std::string& withIdentifier) {
    const auto found = scenes.find(withIdentifier);
    if (found == scenes.end())
        fatalError(std::string("a storyboard has no scene \"").append(withIdentifier).append("\""));
    const auto controller = found->second();
    controller->_storyboard = std::static_pointer_cast<NSStoryboard>(shared_from_this());
    controller->scene = withIdentifier;
    controller->awake();
    return controller;
}

std::shared_ptr<NSViewController> NSStoryboard::instantiateInitialController() {
    return instantiateController(initialScene);
}

std::shared_ptr<NSStoryboardSegue> NSStoryboard::instantiateSegue(
    const std::string& identifier, const std::shared_ptr<NSViewController>& source) {
    const auto found = segues.find({source->scene, identifier});
    if (found == segues.end())
        fatalError(std::string("no segue \"")
                       .append(identifier)
                       .append("\" leads from the scene \"")
                       .append(source->scene)
                       .append("\""));
    const SegueRecord& record = found->second;
    return record.factory(identifier, source, instantiateController(record.destination));
}

}  // namespace quorin
