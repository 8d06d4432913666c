#include "quorin/platform/ui/NSLayoutConstraint.h"
#include "quorin/platform/ui/NSView.h"
#include "quorin/platform/ui/layout/VisualFormat.h"
#include "quorin/platform/values/FatalError.h"

namespace quorin {

namespace {

const std::shared_ptr<NSView>& named(std::string_view name,
                                     const NSLayoutConstraint::Views& views) {
    const auto found = views.find(name);
    if (found == views.end() || !found->second)
        fatalError(std::string("a visual format names \"").append(name).append("\", no view does"));
    return found->second;
}

std::shared_ptr<NSView> superviewOf(const NSView& view, std::string_view name) {
    auto above = view.superview();
    if (!above)
        fatalError(std::string("a visual format brings \"")
                       .append(name)
                       .append("\" to the edge of its superview, but it has none"));
    return above;
}

}  // namespace

std::vector<std::shared_ptr<NSLayoutConstraint>> NSLayoutConstraint::constraints(
    std::string_view withVisualFormat, const Views& views) {
    const VisualFormat format = VisualFormat::parse(withVisualFormat);
    const auto start = format.isVertical ? NSLayoutAttribute::top : NSLayoutAttribute::leading;
    const auto end = format.isVertical ? NSLayoutAttribute::bottom : NSLayoutAttribute::trailing;
    const auto extent = format.isVertical ? NSLayoutAttribute::height : NSLayoutAttribute::width;

    std::vector<std::shared_ptr<NSLayoutConstraint>> made;
    std::shared_ptr<NSView> previous;
    for (const VisualFormat::View& each : format.views) {
        const auto& view = named(each.name, views);
        if (previous)
            made.push_back(create(view, start, previous, end, each.distance));
        else if (format.startsAtEdge)
            made.push_back(
                create(view, start, superviewOf(*view, each.name), start, each.distance));
        if (each.extent)
            made.push_back(create(view, extent, *each.extent));
        previous = view;
    }
    if (format.endsAtEdge) {
        const auto above = superviewOf(*previous, format.views.back().name);
        made.push_back(create(above, end, previous, end, format.lastDistance));
    }
    return made;
}

}  // namespace quorin
