#include "apps/quorin/ContourWork.h"

#include <utility>
#include <vector>

namespace quorin::app {

void replaceContours(Drawing& drawing,
                     FunctionRef<std::shared_ptr<Path>(const std::shared_ptr<Path>&)> work) {
    std::vector<DrawingShape> shapes;
    for (DrawingShape& shape : drawing.shapes) {
        std::vector<std::shared_ptr<Path>> contours;
        for (const std::shared_ptr<Path>& contour : shape.outline->children())
            if (std::shared_ptr<Path> result = work(contour); !result->segments().isEmpty())
                contours.push_back(std::move(result));
        if (contours.empty())
            continue;
        // A new outline, since the old one may be a clip of other shapes as well.
        shape.outline = CompoundPath::create(std::move(contours));
        shapes.push_back(std::move(shape));
    }
    drawing.shapes = std::move(shapes);
}

}  // namespace quorin::app
