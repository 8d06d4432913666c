#include <map>
#include <mutex>

#include "quorin/transformers/CoordinatesTransformer.h"
#include "quorin/transformers/CornerRadiusTransformer.h"
#include "quorin/transformers/DegreeRadianTransformer.h"
#include "quorin/transformers/DegreeStringTransformer.h"
#include "quorin/transformers/DoubleValueTransformer.h"
#include "quorin/transformers/IntValueTransformer.h"
#include "quorin/transformers/MillisecondTransformer.h"
#include "quorin/transformers/NumberTransformer.h"
#include "quorin/transformers/PercentValueTransformer.h"
#include "quorin/transformers/StringTransformer.h"
#include "quorin/transformers/SuffixlessMillisecondTransformer.h"
#include "quorin/transformers/ValueTransformer.h"

namespace quorin {

/// The makers of all classes by name, behind a lock.
class ValueTransformerRegistry {
public:
    using Maker = ValueTransformer::Maker;

    static ValueTransformerRegistry& shared() {
        // Never destroyed: objects that end after the static variables may still ask.
        static auto& registry = *new ValueTransformerRegistry;
        return registry;
    }

    void insert(const std::string& name, Maker maker) {
        const std::lock_guard lock(mutex);
        makers.insert_or_assign(name, maker);
    }

    /// Null for an unknown name.
    Maker makerOf(std::string_view name) const {
        const std::lock_guard lock(mutex);
        const auto found = makers.find(name);
        return found == makers.end() ? nullptr : found->second;
    }

    std::vector<std::string> names() const {
        const std::lock_guard lock(mutex);
        std::vector<std::string> names;
        for (const auto& [name, maker] : makers)
            names.push_back(name);
        return names;
    }

private:
    // Each is named here, since a linker drops what only registers itself from a static archive.
    ValueTransformerRegistry() {
        insertOwn<NumberTransformer, CoordinatesTransformer, CornerRadiusTransformer,
                  PercentValueTransformer, IntValueTransformer, DoubleValueTransformer,
                  DegreeStringTransformer, DegreeRadianTransformer, MillisecondTransformer,
                  SuffixlessMillisecondTransformer, StringTransformer>();
    }

    template <typename... Types>
    void insertOwn() {
        (insert(NSClass::of<Types>().name(), &ValueTransformer::made<Types>), ...);
    }

    mutable std::mutex mutex;
    std::map<std::string, Maker, std::less<>> makers;
};

void ValueTransformer::registerClass(const std::string& name, Maker maker) {
    ValueTransformerRegistry::shared().insert(name, maker);
}

std::shared_ptr<ValueTransformer> ValueTransformer::create(std::string_view className) {
    const Maker maker = ValueTransformerRegistry::shared().makerOf(className);
    return maker ? maker() : nullptr;
}

std::vector<std::string> ValueTransformer::classNames() {
    return ValueTransformerRegistry::shared().names();
}

}  // namespace quorin
