#pragma once

#include "quorin/platform/foundation/NSObject.h"

namespace quorin {

// C linkage, so that a host can look it up in a shared library by name.
extern "C" {
/// Has `callback` called with every instance of the object's class, or of a subclass, that is about
/// to be destroyed, before any of its destructors runs. A class is patched at most once: later
/// callbacks for it do nothing, whichever they are. A subclass of a patched class is a class of its
/// own; its instances are announced once for each patched class that they belong to, most derived
/// first. A null object does nothing.
///
/// May be called by several threads at once.
void swizzleObjectClassIfNeeded(NSObject* object, void (*callback)(NSObject* object));
}

}  // namespace quorin
