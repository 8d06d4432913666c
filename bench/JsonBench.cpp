/// A path of many anchors as JSON text, out and in.
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <nlohmann/json.hpp>

#include "bench/BenchData.h"
#include "bench/PeerReport.h"
#include "quorin/platform/foundation/JSONDecoder.h"
#include "quorin/platform/foundation/JSONEncoder.h"

namespace {

using namespace quorin;
using namespace quorin::bench;

constexpr std::size_t anchorCount = 100'000;

template <typename Body>
void compareText(const std::string& work, const std::string& library, std::size_t bytes,
                 Body body) {
    // Per kilobyte: a microsecond for each is a rate of 1,000 megabytes a second.
    compare(work + ", per kB", library, bytes / 1000, [=] { benchmark::DoNotOptimize(body()); });
}

std::size_t segmentCountOf(const std::string& text) {
    std::shared_ptr<Path> path;
    JSONDecoder().decode(text, [&](Decoder& decoder) { path = Path::decode(decoder); });
    return path->segments().count();
}

}  // namespace

int main(int argumentCount, char** arguments) {
    const auto path = scribble(anchorCount);
    const std::string text = JSONEncoder().encode(*path);
    const nlohmann::json parsed = nlohmann::json::parse(text);
    const QByteArray qtText(text.data(), static_cast<qsizetype>(text.size()));
    const QJsonDocument qtParsed = QJsonDocument::fromJson(qtText);

    const std::string write = "write 100,000 anchors", read = "read 100,000 anchors";
    compareText(write, ours, text.size(), [&] { return JSONEncoder().encode(*path).size(); });
    compareText(write, "nlohmann", text.size(), [&] { return parsed.dump().size(); });
    compareText(write, "Qt", text.size(),
                [&] { return qtParsed.toJson(QJsonDocument::Compact).size(); });
    compareText(read, ours, text.size(), [&] { return segmentCountOf(text); });
    compareText(read, "nlohmann", text.size(),
                [&] { return nlohmann::json::parse(text)["segments"].size(); });
    compareText(read, "Qt", text.size(), [&] {
        return QJsonDocument::fromJson(qtText).object()["segments"].toArray().size();
    });
    return runComparison(argumentCount, arguments);
}
