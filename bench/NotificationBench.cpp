/// Telling observers: typed notifications beside the signals of other libraries.
#include <sigc++/sigc++.h>

#include <boost/signals2/signal.hpp>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "bench/PeerReport.h"
#include "bench/QtTicker.h"
#include "quorin/observation/TypedNotification.h"

namespace {

using namespace quorin;
using namespace quorin::bench;

class Sender : public Object {
public:
    std::string description() const override { return "sender"; }
};

/// Tells who sends it. The number keeps those that are observed by different crowds apart.
template <std::size_t crowd>
struct Tick {
    explicit Tick(std::shared_ptr<Object> from) : sender(std::move(from)) {}
    explicit Tick(const NSNotification& note) : sender(note.object()) {}
    static NSNotificationName name() {
        static const NSNotificationName name("Tick for " + std::to_string(crowd));
        return name;
    }
    const std::shared_ptr<Object>& object() const { return sender; }
    NSNotification::UserInfo userInfo() const { return std::nullopt; }

    std::shared_ptr<Object> sender;
};

/// Carries a size besides.
struct Resize {
    explicit Resize(CGSize to) : size(to) {}
    explicit Resize(const NSNotification& note)
        : size(note.userInfo()->at("size").asSize().value()) {}
    std::shared_ptr<Object> object() const { return nullptr; }
    NSNotification::UserInfo userInfo() const { return Value::Map{{"size", size}}; }

    CGSize size;
};

/// What every observer does, whoever tells it.
std::size_t told = 0;
void beTold() { ++told; }

template <typename Body>
void compareTelling(const std::string& work, const std::string& library, std::size_t observers,
                    Body tell) {
    told = 0;
    tell();
    if (told != observers) {
        std::fprintf(stderr, "%s: %zu told by %s\n", work.c_str(), told, library.c_str());
        std::exit(1);
    }
    compare(work, library, 1, tell);
}

template <std::size_t observers>
void registerPosts() {
    const std::string work = "post, observers: " + std::to_string(observers);
    const auto sender = std::make_shared<Sender>();
    std::vector<std::shared_ptr<NotificationToken>> tokens;
    const auto signal = std::make_shared<boost::signals2::signal<void(const Tick<observers>&)>>();
    const auto sigcSignal = std::make_shared<sigc::signal<void, const Tick<observers>&>>();
    const auto ticker = std::make_shared<QtTicker>();
    const auto listener = [](const Tick<observers>&) { beTold(); };
    for (std::size_t i = 0; i < observers; ++i) {
        tokens.push_back(startObserving<Tick<observers>>(sender, listener));
        signal->connect(listener);
        sigcSignal->connect(listener);
        QObject::connect(ticker.get(), &QtTicker::tick, ticker.get(), [](int) { beTold(); });
    }
    compareTelling(work, ours, observers, [sender, tokens] { post(Tick<observers>(sender)); });
    compareTelling(work, "Boost", observers, [=] { (*signal)(Tick<observers>(sender)); });
    compareTelling(work, "sigc++", observers, [=] { sigcSignal->emit(Tick<observers>(sender)); });
    compareTelling(work, "Qt", observers, [=] { Q_EMIT ticker->tick(1); });
}

/// Ours alone: the others pass the size as it is.
void registerPostWithUserInfo() {
    const auto token = startObserving<Resize>(nullptr, [](const Resize&) { beTold(); });
    compareTelling("post with a size as user info", ours, 1, [token] { post(Resize({3, 4})); });
}

template <std::size_t others>
void registerObserving() {
    const std::string work = "observe and release, others: " + std::to_string(others);
    const auto sender = std::make_shared<Sender>();
    std::vector<std::shared_ptr<NotificationToken>> tokens;
    using Observed = Tick<1'000 + others>;  // none of those that are posted
    const auto signal = std::make_shared<boost::signals2::signal<void(const Observed&)>>();
    const auto sigcSignal = std::make_shared<sigc::signal<void, const Observed&>>();
    const auto ticker = std::make_shared<QtTicker>();
    const auto listener = [](const Observed&) { beTold(); };
    for (std::size_t i = 0; i < others; ++i) {
        tokens.push_back(startObserving<Observed>(sender, listener));
        signal->connect(listener);
        sigcSignal->connect(listener);
        QObject::connect(ticker.get(), &QtTicker::tick, ticker.get(), [](int) { beTold(); });
    }
    compare(work, ours, 1, [=, held = tokens] {
        benchmark::DoNotOptimize(startObserving<Observed>(sender, listener));
    });
    compare(work, "Boost", 1, [=] {
        const boost::signals2::scoped_connection connection = signal->connect(listener);
        benchmark::DoNotOptimize(connection.connected());
    });
    compare(work, "sigc++", 1,
            [=] { sigc::connection(sigcSignal->connect(listener)).disconnect(); });
    compare(work, "Qt", 1, [=] {
        QObject::disconnect(
            QObject::connect(ticker.get(), &QtTicker::tick, ticker.get(), [](int) { beTold(); }));
    });
}

}  // namespace

int main(int argumentCount, char** arguments) {
    // As in any host with threads: from the first on, shared pointers count atomically.
    std::thread([] {}).join();
    registerPosts<1>();
    registerPosts<10>();
    registerPosts<100>();
    registerPostWithUserInfo();
    registerObserving<0>();
    registerObserving<100>();
    return runComparison(argumentCount, arguments);
}
