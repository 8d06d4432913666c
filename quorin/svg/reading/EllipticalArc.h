#pragma once

#include <vector>

#include "quorin/platform/values/CGGeometry.h"

namespace quorin {

/// A stretch of an ellipse between two points, as path data names it. Radii in user units, the
/// rotation of the ellipse's x axis in degrees.
struct EllipticalArc {
    CGPoint from, to;
    CGFloat radiusX = 0, radiusY = 0;
    CGFloat rotation = 0;
    bool isLarge = false;  ///< more than half of the ellipse
    bool isSweep = false;  ///< towards greater angles, clockwise where y points down
};

/// Both controls and the end of a cubic that goes on where the last one ended.
struct CubicPiece {
    CGPoint control1, control2, end;
};

/// Cubics along the arc, each at most a quarter turn and so within 2.8e-4 of the radius. The last
/// one ends exactly at `to`. Radii that are too small to reach are scaled up. None when the ends
/// coincide; a straight piece when a radius is zero or the numbers overflow.
///
/// Source: SVG 2, appendix "Elliptical arc implementation notes", with the centre found on the
/// unit circle, where nothing is squared that can cancel.
std::vector<CubicPiece> cubicPieces(const EllipticalArc& arc);

}  // namespace quorin
