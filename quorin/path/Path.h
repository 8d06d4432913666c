#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <span>
#include <utility>
#include <vector>

#include "quorin/path/Curve.h"
#include "quorin/path/CurveLocation.h"
#include "quorin/path/Segment.h"
#include "quorin/path/SegmentCollection.h"
#include "quorin/platform/cgpath/CGPath.h"
#include "quorin/platform/values/CGRect.h"
#include "quorin/platform/values/FunctionRef.h"

namespace quorin {

class Decoder;
class Encoder;
class Value;
struct Vector3;

/// One contour of Bézier anchors, open or closed, that an editor works on. Has identity and is
/// held by `std::shared_ptr`.
///
/// Coordinates are in points. Reading a `const Path` from several threads at once is safe except
/// for `cg()` and `contains()`, which fill the cached platform path; changing a path is the
/// caller's to serialise.
class Path : public std::enable_shared_from_this<Path> {
    struct Token {  // keeps the constructor for create()
        explicit Token() = default;
    };

public:
    using Segment = PathSegment;
    using SegmentCollection = PathSegmentCollection;
    using PointBehavior = quorin::PointBehavior;
    using HandleType = quorin::HandleType;
    using Curve = PathCurve;
    using CurveLocation = PathCurveLocation;

    explicit Path(Token) {}
    Path(const Path&) = delete;
    Path& operator=(const Path&) = delete;

    /// Empty and open.
    static std::shared_ptr<Path> create();
    /// An independent copy.
    static std::shared_ptr<Path> create(const Path& other);
    /// See `setCurves`.
    static std::shared_ptr<Path> create(std::span<const Curve> curves, bool isClosed);
    /// A path read from a platform path, which stays its `cg()` until the first edit. Quadratics
    /// become cubics with both controls at (2q + p0)/3. There is one contour: a second move does
    /// nothing.
    static std::shared_ptr<Path> create(std::shared_ptr<const CGPath> cg);
    /// A path read from the older dictionary form: "isClosed", "pathRotation" in degrees and
    /// "segments", each with "point", "curveTo", "curveFrom", "behaviorMode", "hasTo", "hasFrom"
    /// and "radius". It is turned back about the middle of `frame` and, unless by whole turns,
    /// moved so that its box starts at the origin. Entries that are missing or of another type keep
    /// their defaults; anything but a map gives the empty open path.
    static std::shared_ptr<Path> create(const Value& with, const CGRect& frame);

    /// Closed, from the origin along the width; a negative size mirrors the order of the corners.
    static std::shared_ptr<Path> rectangle(const CGRect& with);
    /// Closed, four mirrored anchors from the left-most one through the smallest y, whatever the
    /// signs of the size. The curves leave the true ellipse by at most 2.8e-4 of its half sizes.
    static std::shared_ptr<Path> ellipse(const CGRect& rectangle);
    /// Closed, 2 · `numPoints` sharp corners in turn at `radius1` and `radius2`, from the one at
    /// the smallest y on towards +x. No points give the empty closed path; a negative number, or
    /// one whose double overflows, is a programming error.
    static std::shared_ptr<Path> star(CGPoint center, std::ptrdiff_t numPoints, CGFloat radius1,
                                      CGFloat radius2);
    /// Open, two anchors.
    static std::shared_ptr<Path> line(CGPoint from, CGPoint to);

    bool isClosed() const { return _isClosed; }
    /// Stores the flag and nothing else: who toggles it drops the cached platform path too.
    void setIsClosed(bool isClosed) { _isClosed = isClosed; }

    const SegmentCollection& segments() const { return _segments; }
    SegmentCollection& segments() { return _segments; }
    /// Takes the collection as it is: nothing is re-parented, no cache dropped.
    void setSegments(SegmentCollection segments) { _segments = std::move(segments); }

    /// Starts the contour; does nothing once there is a segment.
    void moveTo(CGPoint point);
    void addLineTo(CGPoint point);
    /// Control points are absolute.
    void addCurveTo(CGPoint point, CGPoint controlPoint1, CGPoint controlPoint2);
    /// Closes the contour. A last anchor of three or more exactly on the first is folded into it.
    void closePath();
    /// Draws an element of a platform path, as `create` does. An unknown kind of element is a
    /// programming error.
    void addElement(const CGPathElement& element);

    /// The platform path, built on demand and kept until the path changes. Corner radii are not
    /// applied.
    std::shared_ptr<const CGPath> cg() const;
    void invalidatePathCache() {
        if (_cgPath)
            dropPlatformPath();
    }

    /// One curve for each pair of consecutive segments; in a closed path of two or more segments
    /// the closing curve last.
    std::vector<Curve> curves() const;
    /// Rebuilds all segments from the curves; their behaviours are inferred from the handles.
    /// In an open path the first in-handle leads to the origin and the last out-handle repeats
    /// the in-handle.
    void setCurves(std::span<const Curve> curves);

    /// Sets the first four anchors to the corners of `rect`, as `rectangle` orders them; handles,
    /// behaviours and radii stay. Fewer than four segments are a programming error.
    void setBounds(const CGRect& rect);
    /// Multiplies anchors and handles by x and y; corner radii stay as they are.
    void scale(const Vector3& v);
    /// A scaled copy. Factors within `epsilon` of 1, all three of them, leave it as it is.
    std::shared_ptr<Path> scaled(const Vector3& v) const;
    void moveBy(CGPoint delta);
    /// A moved copy. Components below `epsilon`, both of them, leave it where it is.
    std::shared_ptr<Path> offsetBy(CGPoint delta) const;
    /// Runs the other way: the first anchor becomes the last. Behaviours and radii stay with their
    /// anchors.
    void reverse();
    std::shared_ptr<Path> reversed() const;
    /// Adds an anchor at a place on the path, on the curve of that index, and answers the anchor's
    /// index; 0 when there is no such curve. Rebuilds all segments through `setCurves` in any case,
    /// so radii are lost, behaviours inferred anew, and a path without curves becomes empty.
    std::ptrdiff_t insertSegmentAt(const CurveLocation& location);
    /// Adds an anchor as an editor wants it: the outline stays as it is, and of all other anchors
    /// only the two neighbours' facing handles are shortened. Radii and behaviours stay, but a
    /// mirrored neighbour, its handles no longer being opposites, becomes asymmetric. A straight
    /// curve stays straight and gives a straight anchor, any other a smooth one.
    ///
    /// Answers the index of the anchor at the place; that of the anchor already there when the time
    /// is within `curvetimeEpsilon` of an end. Nothing when the path has no such curve or the time
    /// is outside [0, 1].
    std::optional<std::ptrdiff_t> insertAnchorAt(const CurveLocation& location);
    /// Gives the other path as many segments as this one has: cuts its last ones off, or appends
    /// copies of this path's.
    void adjustPathSegments(Path& adjustingPath) const;

    /// The path as it is drawn: each straight anchor with a radius becomes an arc of that radius in
    /// whole points, or of what fits.
    std::shared_ptr<Path> roundedCornerPath() const;
    /// The same beside sides of any shape: each arc lies on the circle of the very radius that
    /// touches both sides, or on the largest smaller one that fits into the halves of the sides
    /// next to the corner and is crossed by neither. Where `roundedCornerPath` leaves a bend beside
    /// a curved side, sides and arcs here go on in one direction, to about 1e-10 radians, and an
    /// arc beyond a quarter turn has several pieces. Corners stay sharp where sides go on in line
    /// or go back on themselves. Other anchors keep their behaviours; only one whose handle was
    /// shortened with its side is mirrored no longer, but asymmetric.
    std::shared_ptr<Path> smoothlyRoundedPath() const;
    /// The stretch between two fractions of the length, rebuilt as an open path by `setCurves`;
    /// from 0 to 1, within `epsilon`, this path itself. Fractions are clamped to [0, 1]; empty when
    /// `to` is not beyond `from`, in a closed path too. Of a curve that is cut, no piece is kept
    /// that is shorter than `epsilon` of the whole.
    std::shared_ptr<Path> partialPath(CGFloat from, CGFloat to);
    std::shared_ptr<const Path> partialPath(CGFloat from, CGFloat to) const;
    /// The stretch of a closed path that runs from one fraction of its length on to another, past
    /// the first anchor where need be: fractions are taken modulo 1, so 0.8 to 0.2 is the same as
    /// -0.2 to 0.2. Rebuilt as an open path, like `partialPath`; a full turn or more, within
    /// `epsilon`, is a copy of this path, closed. Of an open path the same as `partialPath`, but
    /// always a path of its own.
    std::shared_ptr<Path> partialPathAround(CGFloat from, CGFloat to) const;

    /// Calls `body` with each pair of consecutive segments until it answers true; then answers
    /// true. In a closed path the last and first segment come last.
    bool iterateSegments(FunctionRef<bool(const Segment&, const Segment&)> body) const;

    /// The point of the first curve, in order, that comes nearer to `point` than half the line
    /// width plus `tolerance`.
    std::optional<CGPoint> hitTestOnPath(CGPoint point, CGFloat lineWidth, CGFloat tolerance) const;
    /// The nearest place that is nearer to `point` than half the line width plus `tolerance`; of
    /// places equally near the one on the earliest curve.
    std::optional<CurveLocation> nearestCurveLocation(CGPoint from, CGFloat lineWidth,
                                                      CGFloat tolerance) const;
    /// The nearest place of all, on the earliest curve: no other is nearer by more than `accuracy`
    /// points. Nothing when there is no curve.
    std::optional<CurveLocation> nearestLocation(CGPoint from, CGFloat accuracy) const;
    /// The sum of the curves' lengths.
    CGFloat length() const;
    /// The length to `accuracy` points, whatever the curves' shapes; says what was reached.
    MeasuredLength length(CGFloat accuracy) const;
    /// Whether the filled path holds the point, non-zero winding; an open path counts as closed.
    bool contains(CGPoint point) const;
    /// The tight box of the curves; null without segments.
    CGRect boundingBox() const;
    /// Whether all curves are straight and run in one direction.
    bool isStraight() const;
    /// Whether this is a closed upright rectangle of four straight anchors with equal radii.
    bool isSimpleRectangle() const;

    /// Keys "isClosed" and "segments", both required in reading.
    void encode(Encoder& encoder) const;
    static std::shared_ptr<Path> decode(Decoder& decoder);

    /// Equal segments, indices included, and both closed or both open.
    friend bool operator==(const Path& a, const Path& b);

private:
    friend class PathRebuild;

    void dropPlatformPath();
    void bendLast(CGPoint handleOut);
    template <typename Body>
    void changeAnchors(Body body);
    /// A new last anchor, to be filled where it stands: a pen draws them by the hundred thousand.
    PathAnchor& append() {
        // The collection would lock its weak reference to find the cache, at more than the cost of
        // the anchor. One that was supplied may lead to another path, and drops that one's too.
        if (_segments._owner != this)
            _segments.invalidatePathCache();
        invalidatePathCache();
        return _segments.add();
    }

    bool _isClosed = false;
    SegmentCollection _segments;
    mutable std::shared_ptr<const CGPath> _cgPath;
};

}  // namespace quorin
