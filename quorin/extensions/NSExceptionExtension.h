#pragma once

#include <string>

#include "quorin/platform/foundation/PlatformException.h"
#include "quorin/platform/values/FunctionRef.h"

namespace quorin {

/// Runs the block. A platform exception that it raises is caught: the answer is then false, and
/// `error`, unless null, says what was raised. Everything else that is thrown passes through.
inline bool tryWithBlock(FunctionRef<void()> block, std::string* error) {
    try {
        block();
        return true;
    } catch (const PlatformException& exception) {
        if (error)
            *error = exception.what();
        return false;
    }
}

/// The same with the exception handed to `catchBlock`.
inline void tryWithBlock(FunctionRef<void()> block,
                         FunctionRef<void(const PlatformException&)> catchBlock) {
    try {
        block();
    } catch (const PlatformException& exception) {
        catchBlock(exception);
    }
}

}  // namespace quorin
