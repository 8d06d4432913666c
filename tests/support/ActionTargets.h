#pragma once

#include <string>
#include <vector>

#include "quorin/platform/ui/NSMenu.h"

/// Objects that perform actions, and write down for whom.
namespace quorin::test {

class ActionTarget : public NSObject {
public:
    using Class = NSClassOf<ActionTarget, NSObject>;

    static void declareActions(NSActionList<ActionTarget>& actions) {
        actions.action("note:", &ActionTarget::note)
            .action("removeFromMenu:", [](ActionTarget& target, NSObject* sender) {
                auto& item = dynamic_cast<NSMenuItem&>(*sender);
                item.menu()->removeItem(item);
                target.titles.push_back(item.title());
            });
    }

    void note(NSObject* sender) { senders.push_back(sender); }

    std::vector<NSObject*> senders;
    std::vector<std::string> titles;
};

}  // namespace quorin::test
