#include <algorithm>
#include <array>
#include <map>
#include <tuple>

#include "quorin/observation/KVOController.h"
#include "tests/TestSupport.h"
#include "tests/support/ObservedModels.h"

namespace quorin {
namespace {

using test::Node;
using Options = NSKeyValueObservingOptions;

constexpr std::size_t objectCount = 3, targetCount = 2, controllerCount = 2;
const std::array<std::string, 3> keyPaths{"number", "next.number", "name"};

/// One random operation: what, and on which of the things there are.
struct Step {
    std::size_t operation, object, target, controller, keyPath;
};

std::vector<Step> anySteps() {
    const auto upTo = [](std::size_t count) { return rc::gen::inRange<std::size_t>(0, count); };
    return *rc::gen::container<std::vector<Step>>(
        rc::gen::construct<Step>(upTo(9), upTo(objectCount), upTo(targetCount),
                                 upTo(controllerCount), upTo(keyPaths.size())));
}

/// Registries and objects, and beside them a plain list of what has to be observed. While it is
/// unruly, every block that is called takes the next step, right there in the delivery.
class World {
public:
    World(std::vector<Step> given, bool isUnruly) : steps(std::move(given)), unruly(isUnruly) {
        for (auto& each : objects)
            each = makeObject<Node>();
        for (auto& each : targets)
            each = makeObject<Node>();
        for (auto& each : controllers)
            each = std::make_unique<KVOController>();
    }

    bool isDone() const { return next == steps.size(); }

    void takeStep() {
        const Step step = steps[next++];
        switch (step.operation) {
            case 0:
            case 1:
            case 2:
                observe(step, step.operation == 2 ? Options::initial : Options::none);
                break;
            case 3:
                expected.erase({step.object, step.keyPath, step.controller});
                controllers[step.controller]->unobserve(*objects[step.object],
                                                        keyPaths[step.keyPath]);
                break;
            case 4:
                forget([&](std::size_t object, std::size_t controller) {
                    return object == step.object && controller == step.controller;
                });
                controllers[step.controller]->unobserve(*objects[step.object]);
                break;
            case 5:
                forget([&](auto, std::size_t controller) { return controller == step.controller; });
                ++endedControllers[step.controller];
                controllers[step.controller] = std::make_unique<KVOController>();
                break;
            case 6:
                forget([&](std::size_t object, auto) { return object == step.object; });
                ++endedObjects[step.object];
                objects[step.object] = makeObject<Node>();
                break;
            case 7:
                objects[step.object]->setNext(targets[step.target]);
                break;
            default:
                objects[step.object]->changeValues({"name", "number"});
        }
    }

    /// Whether a change of each thing there is reaches those who observe it, in order, and nobody
    /// else.
    bool isAsExpected() {
        const bool wasUnruly = std::exchange(unruly, false);
        bool holds = true;
        for (std::size_t i = 0; i < objectCount; ++i) {
            const auto reaches = [&](const char* key, std::size_t keyPath) {
                told.clear();
                objects[i]->changeValues({key});
                holds = holds && told == listed([&](std::size_t object, std::size_t path) {
                                     return object == i && path == keyPath;
                                 });
            };
            reaches("number", 0);
            reaches("next", 1);
            reaches("name", 2);
        }
        for (const auto& target : targets) {
            told.clear();
            target->setNumber(target->number() + 1);
            holds = holds && told == listed([&](std::size_t object, std::size_t path) {
                                 return path == 1 && objects[object]->next() == target;
                             });
        }
        unruly = wasUnruly;
        return holds;
    }

private:
    void observe(const Step& step, Options options) {
        const int number = ++observationCount;
        const auto ended = [&] {
            return std::pair(endedObjects[step.object], endedControllers[step.controller]);
        };
        const auto before = ended();
        controllers[step.controller]->observe(
            *objects[step.object], keyPaths[step.keyPath], options | Options::prior,
            [this, number](const KVONotification& notification) { wasTold(number, notification); });
        if (ended() == before)  // neither side went at the initial value
            expected[{step.object, step.keyPath, step.controller}] = number;
    }

    void wasTold(int number, const KVONotification& notification) {
        if (!notification.isPrior())
            told.push_back(number);
        if (unruly && !isDone())
            takeStep();
    }

    template <typename Choice>
    void forget(Choice choice) {
        std::erase_if(expected, [&](const auto& entry) {
            return choice(std::get<0>(entry.first), std::get<2>(entry.first));
        });
    }

    template <typename Choice>
    std::vector<int> listed(Choice choice) const {
        std::vector<int> numbers;
        for (const auto& [place, number] : expected)
            if (choice(std::get<0>(place), std::get<1>(place)))
                numbers.push_back(number);
        std::sort(numbers.begin(), numbers.end());
        return numbers;
    }

    std::vector<Step> steps;
    std::size_t next = 0;
    bool unruly;

    std::array<std::shared_ptr<Node>, objectCount> objects;
    std::array<std::shared_ptr<Node>, targetCount> targets;
    std::array<std::unique_ptr<KVOController>, controllerCount> controllers;

    // Object, key path and controller; observations are numbered in the order of registration.
    std::map<std::tuple<std::size_t, std::size_t, std::size_t>, int> expected;
    std::array<int, objectCount> endedObjects{};
    std::array<int, controllerCount> endedControllers{};
    int observationCount = 0;
    std::vector<int> told;
};

bool holdsAfterEveryStep(World& world) {
    while (!world.isDone()) {
        world.takeStep();
        if (!world.isAsExpected())
            return false;
    }
    return true;
}

RC_GTEST_PROP(KVOControllerLaw, whoeverObservesIsToldAndNobodyElse, ()) {
    World world(anySteps(), false);
    RC_ASSERT(holdsAfterEveryStep(world));
}

RC_GTEST_PROP(KVOControllerLaw, holdsAlsoWhenBlocksDoAnythingInTheMiddleOfADelivery, ()) {
    World world(anySteps(), true);
    RC_ASSERT(holdsAfterEveryStep(world));
}

}  // namespace
}  // namespace quorin
