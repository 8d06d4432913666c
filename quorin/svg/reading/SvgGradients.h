#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <pugixml.hpp>
#include <unordered_map>
#include <vector>

#include "quorin/svg/Drawing.h"
#include "quorin/svg/reading/SvgCascade.h"
#include "quorin/svg/reading/SvgDocument.h"
#include "quorin/svg/reading/SvgLength.h"

namespace quorin {

/// A gradient element with what it takes over from those it refers to.
struct SvgGradient {
    bool isRadial = false;
    bool isInUserSpace = false;  ///< otherwise in parts of the shape's box
    CGAffineTransform transform;
    DrawingGradientSpread spread = DrawingGradientSpread::pad;
    SvgLength x1, y1, x2{100, true}, y2;
    SvgLength cx{50, true}, cy{50, true}, r{50, true}, fr;
    std::optional<SvgLength> fx, fy;
    std::vector<DrawingGradientStop> stops;
};

/// Where a gradient is used.
struct SvgGradientPlace {
    CGRect box;  ///< the tight box of the shape in its own coordinates
    CGSize viewport;
    CGAffineTransform transform;  ///< from the shape's coordinates to the drawing's
};

/// Finds the gradients that shapes refer to and reads each of them once.
class SvgGradients {
public:
    SvgGradients(SvgDocument& svgDocument, SvgCascade& svgCascade)
        : document(svgDocument), cascade(svgCascade) {}

    /// Null when `node` is not a gradient.
    const SvgGradient* gradient(pugi::xml_node node);

private:
    SvgGradient read(pugi::xml_node node);
    std::vector<pugi::xml_node> chain(pugi::xml_node node);
    void readAttributes(pugi::xml_node node, SvgGradient& gradient);
    void readStops(pugi::xml_node node, SvgGradient& gradient);

    SvgDocument& document;
    SvgCascade& cascade;
    std::unordered_map<std::size_t, SvgGradient> gradients;  // by the node's hash value
};

/// What a shape is painted with: one colour where the gradient has no extent, nothing where it
/// has no stops or the shape no box for it.
DrawingBrush brushOf(const SvgGradient& gradient, const SvgGradientPlace& place);

}  // namespace quorin
