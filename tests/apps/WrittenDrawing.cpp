#include "tests/apps/WrittenDrawing.h"

#include "quorin/svg/SvgReader.h"
#include "tests/apps/ProgramRun.h"

namespace quorin::test {

Drawing writtenDrawing(const std::string& file) {
    SvgReadResult result = readSvg(contents(file), file);
    EXPECT_TRUE(result.warnings.empty());
    return std::move(result.drawing);
}

std::vector<std::shared_ptr<Path>> writtenContours(const std::string& file) {
    std::vector<std::shared_ptr<Path>> contours;
    for (const DrawingShape& shape : writtenDrawing(file).shapes)
        for (const auto& contour : shape.outline->children())
            contours.push_back(contour);
    return contours;
}

std::vector<CGPoint> anchorPoints(const Path& contour) {
    std::vector<CGPoint> points;
    for (const PathAnchor& anchor : contour.segments().anchors())
        points.push_back(anchor.point);
    return points;
}

}  // namespace quorin::test
