#include "apps/quorin/DrawingChange.h"

#include <algorithm>

#include "apps/quorin/PathSummary.h"
#include "apps/quorin/TextTable.h"
#include "quorin/platform/foundation/JSONEncoder.h"

namespace quorin::app {

namespace {

std::string sizeText(const CGSize& size) {
    return shortText(size.width).append("x").append(shortText(size.height));
}

std::string boxText(const CGRect& box) {
    if (CGRectIsNull(box))
        return "none";
    std::string text = shortText(box.origin.x);
    return text.append(",").append(shortText(box.origin.y)).append(" ").append(sizeText(box.size));
}

void join(std::string& list, std::string_view item) {
    list.append(list.empty() ? "" : ", ").append(item);
}

/// Of changes that leave all numbers as they are.
std::string hiddenChanges(const Drawing& before, const Drawing& now) {
    std::string text;
    if (!hasSameGeometry(before, now))
        join(text, "other outlines");
    const auto hasSamePaint = [](const DrawingShape& a, const DrawingShape& b) {
        return a.paint == b.paint;
    };
    if (!std::equal(before.shapes.begin(), before.shapes.end(), now.shapes.begin(),
                    now.shapes.end(), hasSamePaint))
        join(text, "other paint");
    return text.empty() ? "other names or details" : text;
}

}  // namespace

DrawingReading::DrawingReading(LoadedDrawing read)
    : loaded(std::move(read)),
      // Drawings of huge numbers may have infinite ones, which are as good as others here.
      record(JSONEncoder({.nonFiniteAsTexts = true}).encode(loaded.drawing)) {
    const std::vector<PathSummary> paths = summarize(loaded.drawing);
    const DrawingTotals totals = totalsOf(loaded.drawing, paths);
    fields = {{"size", sizeText(loaded.drawing.size)},
              {"paths", shortText(totals.paths)},
              {"anchors", shortText(totals.anchors)},
              {"length", shortText(totals.length)},
              {"box", boxText(boxAround(paths))}};
}

std::string DrawingReading::numbers() const {
    std::string text;
    for (const auto& [name, value] : fields)
        join(text, std::string(name).append(" ").append(value));
    return text;
}

std::string DrawingReading::changesSince(const DrawingReading& before) const {
    if (record == before.record)
        return "unchanged drawing";
    std::string text;
    for (std::size_t i = 0; i < fields.size(); ++i) {
        const auto& [name, value] = fields[i];
        const std::string& valueBefore = before.fields[i].second;
        if (value != valueBefore)
            join(text,
                 std::string(name).append(" ").append(valueBefore).append(" -> ").append(value));
    }
    return text.empty() ? hiddenChanges(before.drawing(), drawing()) : text;
}

std::vector<std::string> DrawingReading::newWarnings(const DrawingReading* before) const {
    std::vector<std::string> texts;
    for (const SvgWarning& warning : loaded.warnings) {
        const auto isSame = [&](const SvgWarning& old) { return old.message == warning.message; };
        if (!before ||
            std::none_of(before->loaded.warnings.begin(), before->loaded.warnings.end(), isSame))
            texts.push_back(warning.description());
    }
    return texts;
}

}  // namespace quorin::app
