#include <quorin/path/Path.h>

#include <iostream>

int main() {
    const auto leaf = quorin::Path::create();
    leaf->moveTo({0, 0});
    leaf->addCurveTo({100, 0}, {30, 60}, {70, 60});
    leaf->addCurveTo({0, 0}, {70, -60}, {30, -60});
    leaf->closePath();

    const quorin::CGPoint click{50, 43};
    if (const auto hit = leaf->nearestCurveLocation(click, 2, 3))  // line width, tolerance
        std::cout << "hit at (" << hit->point().x << ", " << hit->point().y << ")\n";
    std::cout << (leaf->contains(click) ? "inside\n" : "outside\n");
}
