#include "apps/quorin/PathSummary.h"

namespace quorin::app {

namespace {

PathSummary summaryOf(const Path& path) {
    PathSummary summary;
    summary.anchors = path.segments().count();
    summary.isClosed = path.isClosed();
    summary.length = path.length();
    summary.box = path.boundingBox();
    summary.isStraight = path.isStraight();
    summary.isRectangle = path.isSimpleRectangle();
    return summary;
}

}  // namespace

void PathSummary::encode(Encoder& encoder) const {
    encoder.encodeInt("shape", static_cast<std::int64_t>(shape));
    encoder.encodeText("id", id);
    encoder.encodeInt("anchors", static_cast<std::int64_t>(anchors));
    encoder.encodeBool("isClosed", isClosed);
    encoder.encodeNumber("length", length);
    encodeBox(box, encoder);
    encoder.encodeBool("isStraight", isStraight);
    encoder.encodeBool("isSimpleRectangle", isRectangle);
}

std::vector<PathSummary> summarize(const Drawing& drawing) {
    std::vector<PathSummary> summaries;
    for (std::size_t i = 0; i < drawing.shapes.size(); ++i)
        for (const auto& path : drawing.shapes[i].outline->children()) {
            summaries.push_back(summaryOf(*path));
            summaries.back().id = drawing.shapes[i].id;
            summaries.back().shape = i;
        }
    return summaries;
}

void DrawingTotals::add(const PathSummary& path) {
    ++paths;
    anchors += path.anchors;
    closed += path.isClosed ? 1 : 0;
    straight += path.isStraight ? 1 : 0;
    rectangles += path.isRectangle ? 1 : 0;
    length += path.length;
}

void DrawingTotals::add(const DrawingTotals& other) {
    shapes += other.shapes;
    paths += other.paths;
    anchors += other.anchors;
    closed += other.closed;
    straight += other.straight;
    rectangles += other.rectangles;
    length += other.length;
}

DrawingTotals totalsOf(const Drawing& drawing, const std::vector<PathSummary>& paths) {
    DrawingTotals totals;
    totals.shapes = drawing.shapes.size();
    for (const PathSummary& path : paths)
        totals.add(path);
    return totals;
}

CGRect boxAround(const std::vector<PathSummary>& paths) {
    CGRect box = CGRectNull;
    for (const PathSummary& path : paths)
        box = CGRectUnion(box, path.box);
    return box;
}

void encodeBox(const CGRect& box, Encoder& encoder) {
    if (!CGRectIsNull(box))
        encoder.encodeRect("boundingBox", box);
}

}  // namespace quorin::app
