#pragma once

#include <string>
#include <vector>

#include "tests/support/ObservedModels.h"

namespace quorin::test {

/// The keys of what an observer was told, in order.
inline std::vector<std::string> toldKeys(const Recorder& recorder) {
    std::vector<std::string> keys;
    for (const auto& each : recorder.told)
        keys.push_back(each.keyPath);
    return keys;
}

}  // namespace quorin::test
