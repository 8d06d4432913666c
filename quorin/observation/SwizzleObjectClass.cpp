#include "quorin/observation/SwizzleObjectClass.h"

#include <mutex>
#include <typeindex>
#include <unordered_set>

namespace quorin {

namespace {

struct PatchedClasses {
    std::mutex lock;
    std::unordered_set<std::type_index> types;
};

PatchedClasses& patchedClasses() {
    static PatchedClasses& classes = *new PatchedClasses;  // objects may end after static variables
    return classes;
}

}  // namespace

void swizzleObjectClassIfNeeded(NSObject* object, void (*callback)(NSObject* object)) {
    if (!object)
        return;
    PatchedClasses& patched = patchedClasses();
    const std::lock_guard guard(patched.lock);
    NSClass& objectClass = object->objectClass();
    if (patched.types.insert(objectClass.type()).second)
        objectClass.addDeallocationCallback(callback);
}

}  // namespace quorin
