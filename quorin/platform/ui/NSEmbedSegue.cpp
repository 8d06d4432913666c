#include "quorin/platform/ui/NSEmbedSegue.h"

#include "quorin/platform/ui/NSViewController.h"
#include "quorin/platform/values/FatalError.h"

namespace quorin {

void NSEmbedSegue::perform() {
    const auto source = std::dynamic_pointer_cast<NSViewController>(sourceController());
    const auto destination = std::dynamic_pointer_cast<NSViewController>(destinationController());
    if (!source || !destination)
        fatalError(std::string("the segue \"")
                       .append(identifier())
                       .append("\" embeds what is no view controller"));
    source->addChild(destination);
    const auto outside = source->view();
    const auto child = destination->view();
    child->setFrame(outside->bounds());
    outside->addSubview(child);
    outside->pinToEdges(child);
}

}  // namespace quorin
