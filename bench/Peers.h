#pragma once

#include <2geom/bezier-curve.h>
#include <2geom/path.h>
#include <cairo.h>

#include <QPainterPath>
#include <vector>

#include "quorin/path/CubicBezier.h"
#include "quorin/path/Path.h"

/// Our data in the peers' own types.
namespace quorin::bench {

Geom::CubicBezier toGeom(const CubicBezier& cubic);
Geom::Path toGeom(const Path& path);
QPainterPath toQt(const Path& path);
void addToCairo(cairo_t* context, const Path& path);

}  // namespace quorin::bench
