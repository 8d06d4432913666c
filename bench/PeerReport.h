#pragma once

#include <benchmark/benchmark.h>

#include <cstddef>
#include <string>

namespace quorin::bench {

/// Registers one line of the comparison: the same work on the same data by one library. `body`
/// does all of it once; `items` tells how many pieces of work that is, so that the report can
/// say what one costs.
template <typename Body>
void compare(const std::string& work, const std::string& library, std::size_t items, Body body) {
    benchmark::RegisterBenchmark((work + "/" + library).c_str(), [=](benchmark::State& state) {
        for (auto _ : state)
            body();
        state.counters["items"] = static_cast<double>(items);
    });
}

inline const std::string ours = "ours";

/// Runs what was registered, then prints for each work what ours and every peer took, and how
/// many times the peer's time ours is.
int runComparison(int argumentCount, char** arguments);

}  // namespace quorin::bench
