#pragma once

#include <memory>

#include "quorin/platform/values/CGRect.h"

namespace quorin {

/// Remembers how something with a bounding box was clipped when it was last drawn, so that it is
/// drawn again only when the visible area has moved far enough. Held by `std::shared_ptr`.
class ClippingState {
    struct Token {  // keeps the constructor for create()
        explicit Token() = default;
    };

public:
    /// `intersect` carries what is drawn: the part of the box near the visible area. `none` means
    /// that nothing is, `contain` that all of the box is.
    class State {
    public:
        enum class Kind { intersect, none, contain };

        static State intersect(const CGRect& rect) { return {Kind::intersect, rect}; }
        static State none() { return {Kind::none, CGRect::zero}; }
        static State contain() { return {Kind::contain, CGRect::zero}; }

        Kind kind() const { return _kind; }
        /// The carried rect; zero unless `kind()` is `intersect`.
        const CGRect& rect() const { return _rect; }

        friend bool operator==(const State&, const State&) = default;

    private:
        State(Kind kind, const CGRect& rect) : _kind(kind), _rect(rect) {}

        Kind _kind;
        CGRect _rect;
    };

    explicit ClippingState(Token) {}
    ClippingState(const ClippingState&) = delete;
    ClippingState& operator=(const ClippingState&) = delete;

    /// Nothing drawn yet.
    static std::shared_ptr<ClippingState> create(const CGRect& boundingBox);

    const State& state() const { return _state; }
    void setState(const State& state) { _state = state; }
    const CGRect& boundingBox() const { return _boundingBox; }
    void setBoundingBox(const CGRect& boundingBox) { _boundingBox = boundingBox; }

    /// Takes note of the visible area `with` and answers whether to draw again with a new clip.
    /// Two changes are silent: a box that leaves the area, and one that was drawn whole and now
    /// sticks out of it. What is drawn already serves both.
    bool updateClippingState(const CGRect& with);

private:
    State _state = State::none();
    CGRect _boundingBox;
};

}  // namespace quorin
