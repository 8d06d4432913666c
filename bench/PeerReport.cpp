#include "bench/PeerReport.h"

#include <cstdio>
#include <map>
#include <vector>

namespace quorin::bench {

namespace {

/// Prints nothing while the benchmarks run but the console's own lines, and keeps the times.
class PeerReporter : public benchmark::ConsoleReporter {
public:
    void ReportRuns(const std::vector<Run>& runs) override {
        ConsoleReporter::ReportRuns(runs);
        for (const Run& run : runs) {
            const std::string name = run.benchmark_name();
            const std::size_t slash = name.rfind('/');
            if (run.error_occurred || slash == std::string::npos)
                continue;
            const std::string work = name.substr(0, slash);
            if (times.count(work) == 0)
                order.push_back(work);
            const auto items = run.counters.find("items");
            const double count = items == run.counters.end() ? 1.0 : items->second.value;
            times[work][name.substr(slash + 1)] =
                run.cpu_accumulated_time / static_cast<double>(run.iterations) / count;
        }
    }

    void printRatios() const {
        std::printf("\n%-44s %12s   %s\n", "work, per item", "ours", "peer: its time, ours / peer");
        for (const std::string& work : order)
            printRow(work, times.at(work));
    }

private:
    static void printRow(const std::string& work, const std::map<std::string, double>& row) {
        const auto own = row.find(ours);
        if (own == row.end())
            return;
        std::printf("%-44s %12s  ", work.c_str(), text(own->second).c_str());
        for (const auto& [library, seconds] : row)
            if (library != ours)
                std::printf(" %s: %s, %.2f", library.c_str(), text(seconds).c_str(),
                            own->second / seconds);
        std::printf("\n");
    }

    static std::string text(double seconds) {
        const struct {
            double unit;
            const char* name;
        } scales[] = {{1e-9, "ns"}, {1e-6, "us"}, {1e-3, "ms"}};
        const auto* scale = &scales[0];
        for (const auto& next : scales)
            if (seconds >= next.unit)
                scale = &next;
        char buffer[32];
        std::snprintf(buffer, sizeof buffer, "%.2f %s", seconds / scale->unit, scale->name);
        return buffer;
    }

    std::vector<std::string> order;
    std::map<std::string, std::map<std::string, double>> times;
};

}  // namespace

int runComparison(int argumentCount, char** arguments) {
    benchmark::Initialize(&argumentCount, arguments);
    if (benchmark::ReportUnrecognizedArguments(argumentCount, arguments))
        return 1;
    PeerReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    reporter.printRatios();
    return 0;
}

}  // namespace quorin::bench
