#include <array>
#include <functional>
#include <memory>
#include <optional>
#include <ostream>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "quorin/platform/foundation/NSNotificationCenter.h"
#include "tests/TestSupport.h"

namespace quorin {
namespace {

/// Something done to a centre, by the test or inside a block.
struct Step {
    enum class Kind { add, remove, post };

    Kind kind = Kind::post;
    unsigned name = 0, sender = 0;  // 0 stands for any, or for none
    unsigned which = 0;             // of all observers ever added; a script for a new one

    friend std::ostream& operator<<(std::ostream& out, const Step& step) {
        const char* const kinds[] = {"add", "remove", "post"};
        return out << kinds[static_cast<int>(step.kind)] << ' ' << step.name << ' ' << step.sender
                   << ' ' << step.which;
    }
};

using Script = std::vector<Step>;
constexpr unsigned nameCount = 3, senderCount = 3;

/// What happened: who was called with what, at which depth of posts.
struct Call {
    std::size_t observer;
    unsigned name, sender;
    int depth;

    friend bool operator==(const Call&, const Call&) = default;
    friend std::ostream& operator<<(std::ostream& out, const Call& call) {
        return out << "observer " << call.observer << " of " << call.name << " from " << call.sender
                   << " at depth " << call.depth;
    }
};

/// Plays steps on a world with `add`, `remove` and `post`. Blocks play a script of their own.
template <typename World>
class Player {
public:
    explicit Player(const std::vector<Script>& given) : scripts(given) {}

    std::vector<Call> play() {
        for (const Step& step : scripts.front())
            take(step);
        return calls;
    }

private:
    void take(const Step& step) {
        switch (step.kind) {
            case Step::Kind::add: {
                const std::size_t number = added++;
                const std::size_t script = step.which % scripts.size();
                world.add(step.name % nameCount, step.sender % senderCount,
                          [this, number, script](unsigned name, unsigned sender) {
                              beCalled(number, script, name, sender);
                          });
                break;
            }
            case Step::Kind::remove:
                if (added > 0)
                    world.remove(step.which % added);
                break;
            case Step::Kind::post:
                ++depth;
                world.post(1 + step.name % (nameCount - 1), step.sender % senderCount);
                --depth;
        }
    }

    void beCalled(std::size_t number, std::size_t script, unsigned name, unsigned sender) {
        constexpr std::size_t enough = 400;  // scripts that call each other find an end
        calls.push_back({number, name, sender, depth});
        if (depth < 4 && calls.size() < enough)
            for (const Step& step : scripts[script])
                if (calls.size() < enough)
                    take(step);
    }

    const std::vector<Script>& scripts;
    World world;
    std::vector<Call> calls;
    std::size_t added = 0;
    int depth = 0;
};

using Block = std::function<void(unsigned name, unsigned sender)>;

class Sender : public Object {
public:
    std::string description() const override { return "sender"; }
};

class RealWorld {
public:
    void add(unsigned name, unsigned sender, Block block) {
        std::optional<NSNotificationName> observed;
        if (name != 0)
            observed = names[name];
        observers.push_back(
            center.addObserver(observed, senders[sender],
                               [this, block = std::move(block)](const NSNotification& note) {
                                   unsigned posted = 1, by = 0;
                                   while (note.name() != names[posted])
                                       ++posted;
                                   while (note.object() != senders[by])
                                       ++by;
                                   block(posted, by);
                               }));
    }
    void remove(std::size_t which) { center.removeObserver(observers[which]); }
    void post(unsigned name, unsigned sender) {
        center.postNotification(NSNotification(names[name], senders[sender]));
    }

private:
    NSNotificationCenter center;
    const std::array<NSNotificationName, nameCount> names = {"none", "a", "b"};
    const std::array<std::shared_ptr<Object>, senderCount> senders = {
        nullptr, std::make_shared<Sender>(), std::make_shared<Sender>()};
    std::vector<std::shared_ptr<Object>> observers;
};

/// A list in order, walked up to where it ended as the post began.
class ModelWorld {
public:
    void add(unsigned name, unsigned sender, Block block) {
        observers.push_back({name, sender, std::move(block), true});
    }
    void remove(std::size_t which) { observers[which].isThere = false; }
    void post(unsigned name, unsigned sender) {
        const std::size_t count = observers.size();
        for (std::size_t i = 0; i < count; ++i) {
            const Observer observer = observers[i];
            if (observer.isThere && (observer.name == 0 || observer.name == name) &&
                (observer.sender == 0 || observer.sender == sender))
                observer.block(name, sender);
        }
    }

private:
    struct Observer {
        unsigned name, sender;
        Block block;
        bool isThere;
    };
    std::vector<Observer> observers;
};

RC_GTEST_PROP(NSNotificationCenter, callsAsAListWouldWhateverBlocksAddRemoveAndPost, ()) {
    const auto small = rc::gen::inRange(0u, 20u);
    // A script for the outside, in which adding comes often, and some for blocks.
    const auto step =
        rc::gen::map(rc::gen::tuple(rc::gen::element(Step::Kind::add, Step::Kind::add,
                                                     Step::Kind::remove, Step::Kind::post),
                                    small, small, small),
                     [](const std::tuple<Step::Kind, unsigned, unsigned, unsigned>& drawn) {
                         return Step{std::get<0>(drawn), std::get<1>(drawn), std::get<2>(drawn),
                                     std::get<3>(drawn)};
                     });
    std::vector<Script> scripts = {*rc::gen::container<Script>(step)};
    const auto shortOnes = *rc::gen::container<std::vector<Script>>(
        4, rc::gen::resize(2, rc::gen::container<Script>(step)));
    scripts.insert(scripts.end(), shortOnes.begin(), shortOnes.end());

    const std::vector<Call> expected = Player<ModelWorld>(scripts).play();
    RC_TAG(expected.empty() ? "no call" : expected.size() < 400 ? "some calls" : "many calls");
    RC_ASSERT(Player<RealWorld>(scripts).play() == expected);
}

}  // namespace
}  // namespace quorin
