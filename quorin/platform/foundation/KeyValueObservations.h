#pragma once

#include <compare>
#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "quorin/platform/foundation/NSObject.h"

namespace quorin {

/// One registration of an observer for a key path. It watches one key of each object on the path
/// and moves along when one of them is replaced.
struct KeyPathObservation {
    struct Link {
        std::weak_ptr<NSObject> object;
        NSObject* address;  // of the same; names it even while it is destroyed
        const NSKeyedProperty* property;
    };

    std::uint64_t serial;  // counts registrations, which are told in this order
    std::weak_ptr<NSObject> observer;
    std::string keyPath;
    std::vector<std::string> keys;
    NSKeyValueObservingOptions options;
    const void* context;
    std::vector<Link> links;  // the first is the observed object; ends early at a missing one
    bool isRemoved = false;
};

/// What one object has to know about who observes it: the registrations that start at it, those
/// whose path leads through it, and the changes that are announced but not done.
class KeyValueObservations {
    using Observation = std::shared_ptr<KeyPathObservation>;

public:
    void add(const std::shared_ptr<NSObject>& object, NSObject& observer, std::string_view keyPath,
             NSKeyValueObservingOptions options, const void* context);
    /// Ends the latest matching registration, of any context when that is null; false for none.
    bool remove(NSObject& object, const NSObject& observer, std::string_view keyPath,
                const void* const* context);
    /// The object is destroyed; stops the process when somebody is still registered.
    void end(NSObject& object);

    void willChange(NSObject& object, NSKeyValueChange kind, std::shared_ptr<NSIndexSet> indexes,
                    std::string_view key);
    void didChange(NSObject& object, NSKeyValueChange kind,
                   const std::shared_ptr<NSIndexSet>& indexes, std::string_view key);

private:
    /// The order of telling: by registration. A path through a ring of objects may watch the same
    /// key of the same object at several depths.
    struct Place {
        std::uint64_t serial;
        std::size_t depth;

        friend auto operator<=>(const Place&, const Place&) = default;
    };
    using Watchers = std::map<Place, Observation>;

    /// Who registered for what, in order. The path is the observation's own.
    struct Registrant {
        const NSObject* observer;
        std::string_view keyPath;
        std::uint64_t serial;

        friend auto operator<=>(const Registrant&, const Registrant&) = default;
    };
    using Registrations = std::map<Registrant, Observation>;

    struct Watcher {
        Observation observation;
        std::size_t depth;
        Value oldValue, newValue;
    };

    struct Change {
        std::string key;
        NSKeyValueChange kind;
        std::shared_ptr<NSIndexSet> indexes;
        std::vector<Watcher> watchers;
    };

    static void watch(const Observation& observation, std::shared_ptr<NSObject> object);
    static void unwatch(KeyPathObservation& observation, std::size_t depth, NSObject* dying);
    static std::shared_ptr<NSObject> nextObject(const KeyPathObservation& observation);
    static void rewatch(const Observation& observation, std::size_t depth);
    static void deliverInitial(const NSObject& object, const KeyPathObservation& observation);
    static void deliver(const KeyPathObservation& observation,
                        const NSKeyValueChangeRecord& record);
    static Value currentValue(const NSObject& object, const Watcher& watcher, const Change& change);
    static NSKeyValueChangeRecord recordOf(const Change& change);
    static bool isWatching(const NSObject& object, const Watcher& watcher);

    std::vector<Watcher> watchersOf(std::string_view key, std::size_t keysAhead) const;
    void moveAlong(const NSObject& object, std::string_view key);
    bool isPending(std::string_view key) const;
    std::optional<Change> takePending(const NSObject& object, NSKeyValueChange kind,
                                      const std::shared_ptr<NSIndexSet>& indexes,
                                      std::string_view key);
    Registrations::iterator drop(NSObject& object, Registrations::iterator registration);
    void dropDeadRegistrations(NSObject& object, const NSObject& observer);

    std::map<std::string, Watchers, std::less<>> watchersByKey;
    Registrations registrations;
    std::vector<Change> pending;  // the innermost last
};

}  // namespace quorin
