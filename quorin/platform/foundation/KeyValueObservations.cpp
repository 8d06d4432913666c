#include "quorin/platform/foundation/KeyValueObservations.h"

#include <algorithm>
#include <atomic>
#include <iterator>
#include <limits>
#include <utility>

#include "quorin/platform/foundation/NSNull.h"
#include "quorin/platform/values/FatalError.h"

namespace quorin {

namespace {

using Key = NSKeyValueChangeKey;
using Options = NSKeyValueObservingOptions;

std::vector<std::string> keysOf(std::string_view keyPath) {
    std::vector<std::string> keys;
    for (;;) {
        const std::size_t dot = keyPath.find('.');
        keys.emplace_back(keyPath.substr(0, dot));
        if (dot == std::string_view::npos)
            return keys;
        keyPath.remove_prefix(dot + 1);
    }
}

std::shared_ptr<NSObject> objectIn(const Value& value) {
    return std::dynamic_pointer_cast<NSObject>(value.asObject());
}

Value orNull(Value value) { return value.isNothing() ? Value(NSNull::null()) : std::move(value); }

Value::List elementsAt(const NSIndexSet& indexes, const Value& value, std::string_view key) {
    const Value::List* list = value.asList();
    if (!list)
        fatalError(std::string("key \"").append(key).append("\" is no ordered collection"));
    Value::List elements;
    for (const std::size_t index : indexes.indexes()) {
        if (index >= list->size())
            fatalError(std::string("element ")
                           .append(std::to_string(index))
                           .append(" of ")
                           .append(std::to_string(list->size()))
                           .append(" under key \"")
                           .append(key)
                           .append("\" is announced"));
        elements.push_back((*list)[index]);
    }
    return elements;
}

bool hasOld(NSKeyValueChange kind) { return kind != NSKeyValueChange::insertion; }
bool hasNew(NSKeyValueChange kind) { return kind != NSKeyValueChange::removal; }

std::uint64_t nextSerial() {
    static std::atomic<std::uint64_t> serial{0};
    return ++serial;
}

}  // namespace

void KeyValueObservations::add(const std::shared_ptr<NSObject>& object, NSObject& observer,
                               std::string_view keyPath, Options options, const void* context) {
    dropDeadRegistrations(*object, observer);
    const auto observation =
        std::make_shared<KeyPathObservation>(KeyPathObservation{nextSerial(),
                                                                observer.weak_from_this(),
                                                                std::string(keyPath),
                                                                keysOf(keyPath),
                                                                options,
                                                                context,
                                                                {},
                                                                false});
    const auto registration = registrations.emplace(
        Registrant{&observer, observation->keyPath, observation->serial}, observation);
    try {
        watch(observation, object);
        if (contains(options, Options::initial))
            deliverInitial(*object, *observation);
    } catch (...) {  // by a getter or by the observer: as if nothing had been asked
        if (!observation->isRemoved)
            drop(*object, registration.first);
        throw;
    }
}

void KeyValueObservations::deliverInitial(const NSObject& object,
                                          const KeyPathObservation& observation) {
    NSKeyValueChangeRecord record;
    record.set(Key::kind, static_cast<std::uint64_t>(NSKeyValueChange::setting));
    if (contains(observation.options, Options::newValue))
        record.set(Key::newValue, orNull(object.valueForKeyPath(observation.keyPath)));
    deliver(observation, record);
}

bool KeyValueObservations::remove(NSObject& object, const NSObject& observer,
                                  std::string_view keyPath, const void* const* context) {
    auto each =
        registrations.upper_bound({&observer, keyPath, std::numeric_limits<std::uint64_t>::max()});
    while (each != registrations.begin()) {
        --each;
        if (each->first.observer != &observer || each->first.keyPath != keyPath)
            return false;
        if (!context || each->second->context == *context) {
            drop(object, each);
            return true;
        }
    }
    return false;
}

KeyValueObservations::Registrations::iterator KeyValueObservations::drop(
    NSObject& object, Registrations::iterator registration) {
    unwatch(*registration->second, 0, &object);
    registration->second->isRemoved = true;
    return registrations.erase(registration);
}

/// An observer that went without a word may have left its address to this one. Only one of them has
/// registrations here, so the first tells whose they are.
void KeyValueObservations::dropDeadRegistrations(NSObject& object, const NSObject& observer) {
    auto each = registrations.lower_bound({&observer, {}, 0});
    while (each != registrations.end() && each->first.observer == &observer &&
           each->second->observer.expired())
        each = drop(object, each);
}

void KeyValueObservations::end(NSObject& object) {
    for (const auto& [registrant, observation] : registrations) {
        if (const auto observer = observation->observer.lock())
            fatalError(object.description()
                           .append(" is destroyed while ")
                           .append(observer->description())
                           .append(" observes \"")
                           .append(observation->keyPath)
                           .append("\""));
        unwatch(*observation, 0, &object);
        observation->isRemoved = true;
    }
}

/// What the last key that is watched leads to.
std::shared_ptr<NSObject> KeyValueObservations::nextObject(const KeyPathObservation& observation) {
    const KeyPathObservation::Link& link = observation.links.back();
    const auto object = link.object.lock();
    const Value next = link.property->get(*object);
    if (!next.isNothing() && !objectIn(next))
        fatalError(std::string("key \"")
                       .append(observation.keys[observation.links.size() - 1])
                       .append("\" of ")
                       .append(object->objectClass().name())
                       .append(" is no object with keys"));
    return objectIn(next);
}

/// Watches the keys that are not watched yet, the first of them on `object`.
void KeyValueObservations::watch(const Observation& observation, std::shared_ptr<NSObject> object) {
    const auto& keys = observation->keys;
    for (std::size_t depth = observation->links.size(); object; ++depth) {
        const NSKeyedProperty& property = object->objectClass().requiredProperty(keys[depth]);
        object->madeObservations().watchersByKey[keys[depth]].emplace(
            Place{observation->serial, depth}, observation);
        observation->links.push_back({object, object.get(), &property});
        if (depth + 1 == keys.size())
            return;
        object = nextObject(*observation);
    }
}

/// Lets go of all keys from `depth` on. The object that is destroyed right now, if any, can no
/// longer be reached by weak references.
void KeyValueObservations::unwatch(KeyPathObservation& observation, std::size_t depth,
                                   NSObject* dying) {
    for (; observation.links.size() > depth; observation.links.pop_back()) {
        const KeyPathObservation::Link& link = observation.links.back();
        const auto holder = link.object.lock();
        NSObject* object = link.address == dying ? dying : holder.get();
        if (!object)
            continue;  // it took its table along
        auto& table = object->observations->watchersByKey;
        const std::size_t last = observation.links.size() - 1;
        const auto watchers = table.find(observation.keys[last]);
        watchers->second.erase({observation.serial, last});
        if (watchers->second.empty())
            table.erase(watchers);
    }
}

/// Follows the path anew after the value under the key at `depth` has changed.
void KeyValueObservations::rewatch(const Observation& observation, std::size_t depth) {
    unwatch(*observation, depth + 1, nullptr);
    watch(observation, nextObject(*observation));
}

bool KeyValueObservations::isWatching(const NSObject& object, const Watcher& watcher) {
    const KeyPathObservation& observation = *watcher.observation;
    return !observation.isRemoved && watcher.depth < observation.links.size() &&
           observation.links[watcher.depth].address == &object;
}

/// The value at the end of the path, as seen from the object that changes.
Value KeyValueObservations::currentValue(const NSObject& object, const Watcher& watcher,
                                         const Change& change) {
    const KeyPathObservation& observation = *watcher.observation;
    Value value = observation.links[watcher.depth].property->get(object);
    for (std::size_t depth = watcher.depth + 1; depth < observation.keys.size(); ++depth) {
        const auto next = objectIn(value);
        if (!next)
            return NSNull::null();
        value = next->valueForKey(observation.keys[depth]);
    }
    if (change.kind != NSKeyValueChange::setting)
        return elementsAt(*change.indexes, value, change.key);
    return orNull(std::move(value));
}

NSKeyValueChangeRecord KeyValueObservations::recordOf(const Change& change) {
    NSKeyValueChangeRecord record;
    record.set(Key::kind, static_cast<std::uint64_t>(change.kind));
    if (change.kind != NSKeyValueChange::setting)
        record.set(Key::indexes, change.indexes);
    return record;
}

void KeyValueObservations::deliver(const KeyPathObservation& observation,
                                   const NSKeyValueChangeRecord& record) {
    if (observation.isRemoved)
        return;
    const auto observer = observation.observer.lock();
    const auto object = observation.links.front().object.lock();
    if (observer && object)
        observer->observeValue(&observation.keyPath, object.get(), &record, observation.context);
}

/// Those who watch the key and, on their path, as many keys more.
std::vector<KeyValueObservations::Watcher> KeyValueObservations::watchersOf(
    std::string_view key, std::size_t keysAhead) const {
    std::vector<Watcher> watchers;
    const auto found = watchersByKey.find(key);
    if (found == watchersByKey.end())
        return watchers;
    if (keysAhead == 0)
        watchers.reserve(found->second.size());
    for (const auto& [place, observation] : found->second)
        // The shallowest watch of a registration speaks for its deeper ones.
        if (place.depth + keysAhead < observation->keys.size() &&
            (watchers.empty() || watchers.back().observation != observation))
            watchers.push_back({observation, place.depth, {}, {}});
    return watchers;
}

void KeyValueObservations::willChange(NSObject& object, NSKeyValueChange kind,
                                      std::shared_ptr<NSIndexSet> indexes, std::string_view key) {
    const auto self = object.weak_from_this().lock();  // an observer may let go of the object
    // A pair within a pair is kept in mind even when all stopped observing in between: its end is
    // not to be taken for the end of the outer one.
    if (!self || (watchersByKey.find(key) == watchersByKey.end() && !isPending(key)))
        return;
    if (kind != NSKeyValueChange::setting && !indexes)
        fatalError(std::string("a change of elements under key \"")
                       .append(key)
                       .append("\" is announced without indexes"));

    Change change{std::string(key), kind, std::move(indexes), watchersOf(key, 0)};
    for (Watcher& watcher : change.watchers)
        if (hasOld(kind) && contains(watcher.observation->options, Options::oldValue))
            watcher.oldValue = currentValue(object, watcher, change);

    for (const Watcher& watcher : change.watchers) {
        if (!contains(watcher.observation->options, Options::prior))
            continue;
        NSKeyValueChangeRecord record = recordOf(change);
        record.set(Key::notificationIsPrior, true);
        record.set(Key::oldValue, watcher.oldValue);
        deliver(*watcher.observation, record);
    }
    pending.push_back(std::move(change));
}

bool KeyValueObservations::isPending(std::string_view key) const {
    return std::any_of(pending.begin(), pending.end(),
                       [&](const Change& each) { return each.key == key; });
}

/// Nothing when nobody observed the key when the change was announced.
std::optional<KeyValueObservations::Change> KeyValueObservations::takePending(
    const NSObject& object, NSKeyValueChange kind, const std::shared_ptr<NSIndexSet>& indexes,
    std::string_view key) {
    const auto found = std::find_if(pending.rbegin(), pending.rend(),
                                    [&](const Change& each) { return each.key == key; });
    if (found == pending.rend())
        return std::nullopt;
    Change change = std::move(*found);
    pending.erase(std::next(found).base());
    const bool sameIndexes = kind == NSKeyValueChange::setting ||
                             (indexes && change.indexes && change.indexes->isEqual(*indexes));
    if (change.kind != kind || !sameIndexes)
        fatalError(std::string("key \"")
                       .append(change.key)
                       .append("\" of ")
                       .append(object.objectClass().name())
                       .append(" did change in another way than announced"));
    return change;
}

/// Has all paths that lead on from this key follow its new value: also those of observers that came
/// after the change was announced and will not be told of it.
void KeyValueObservations::moveAlong(const NSObject& object, std::string_view key) {
    for (const Watcher& watcher : watchersOf(key, 1))
        if (isWatching(object, watcher))
            rewatch(watcher.observation, watcher.depth);
}

void KeyValueObservations::didChange(NSObject& object, NSKeyValueChange kind,
                                     const std::shared_ptr<NSIndexSet>& indexes,
                                     std::string_view key) {
    const auto self = object.weak_from_this().lock();
    if (!self)
        return;
    std::optional<Change> announced = takePending(object, kind, indexes, key);
    // All paths are put in order before anybody is told, since a delivery may change what they
    // lead to; and all new values are read, since it may change those as well.
    moveAlong(object, key);
    if (!announced)
        return;
    Change& change = *announced;
    std::erase_if(change.watchers,
                  [&](const Watcher& watcher) { return !isWatching(object, watcher); });
    for (Watcher& watcher : change.watchers)
        if (hasNew(kind) && contains(watcher.observation->options, Options::newValue))
            watcher.newValue = currentValue(object, watcher, change);

    for (Watcher& watcher : change.watchers) {
        NSKeyValueChangeRecord record = recordOf(change);
        record.set(Key::oldValue, std::move(watcher.oldValue));
        record.set(Key::newValue, std::move(watcher.newValue));
        deliver(*watcher.observation, record);
    }
}

}  // namespace quorin
