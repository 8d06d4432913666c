/// Changing a property that is observed: key-value observing beside a signal of Qt.
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>

#include "bench/PeerReport.h"
#include "bench/QtTicker.h"
#include "quorin/observation/KVOController.h"

namespace {

using namespace quorin;
using namespace quorin::bench;

constexpr int changes = 1'000'000;
constexpr auto oldAndNew =
    NSKeyValueObservingOptions::oldValue | NSKeyValueObservingOptions::newValue;

class Counter : public NSObject {
public:
    using Class = NSClassOf<Counter, NSObject>;

    static void declareKeys(NSKeyList<Counter>& keys) {
        keys.reportingProperty("count", &Counter::count, &Counter::setCount)
            .property("next", &Counter::next);
    }

    std::int64_t count() const { return _count; }
    void setCount(std::int64_t count) {
        changeValues({"count"}, [&] { _count = count; });
    }

    std::shared_ptr<Counter> next;

private:
    std::int64_t _count = 0;
};

/// What every observer does: sums up by how much the count grew.
std::int64_t grown = 0;

void check(const char* work, std::int64_t expected) {
    if (grown == expected)
        return;
    std::fprintf(stderr, "%s: told of %lld of %lld\n", work, static_cast<long long>(grown),
                 static_cast<long long>(expected));
    std::exit(EXIT_FAILURE);
}

template <typename Body>
void compareChanges(const std::string& work, const std::string& library, Body change) {
    const auto changeAll = [=] {
        grown = 0;
        for (int i = 1; i <= changes; ++i)
            change(i);
        change(0);
    };
    changeAll();
    check(library.c_str(), 0);
    compare(work, library, changes, changeAll);
}

void addGrowth(const KVONotification& change) {
    grown += *change.newValue().asInteger() - *change.oldValue().asInteger();
}

}  // namespace

int main(int argumentCount, char** arguments) {
    const auto counter = makeObject<Counter>();
    const auto holder = makeObject<Counter>();
    holder->next = makeObject<Counter>();
    const auto unobserved = makeObject<Counter>();
    KVOController controller;
    controller.observe(*counter, "count", oldAndNew, addGrowth);
    controller.observe(*holder, "next.count", oldAndNew, addGrowth);

    QtTicker ticker;
    int last = 0;
    QObject::connect(&ticker, &QtTicker::tick, [&](int count) {
        grown += count - last;
        last = count;
    });

    const std::string work = "change a value with one observer";
    compareChanges(work, ours, [&](int count) { counter->setCount(count); });
    compareChanges(work, "Qt signal", [&](int count) { Q_EMIT ticker.tick(count); });
    compareChanges("change a value along a path of two keys", ours,
                   [&](int count) { holder->next->setCount(count); });
    compareChanges("change a value that nobody observes", ours,
                   [&](int count) { unobserved->setCount(count); });
    return runComparison(argumentCount, arguments);
}
