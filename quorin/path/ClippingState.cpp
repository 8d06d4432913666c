#include "quorin/path/ClippingState.h"

namespace quorin {

std::shared_ptr<ClippingState> ClippingState::create(const CGRect& boundingBox) {
    auto clipping = std::make_shared<ClippingState>(Token());
    clipping->_boundingBox = boundingBox;
    return clipping;
}

bool ClippingState::updateClippingState(const CGRect& with) {
    const CGRect outer = CGRectInset(with, -1, -1);
    const CGRect inner =
        CGRectInset(with, -CGRectGetWidth(with) * 0.5, -CGRectGetHeight(with) * 0.5);
    const State::Kind before = _state.kind();

    if (CGRectContainsRect(outer, _boundingBox)) {
        if (before == State::Kind::contain)
            return false;
        if (before == State::Kind::none) {
            _state = State::contain();
            return true;
        }
        if (CGRectContainsRect(outer, _state.rect()))
            return false;
        _state = State::intersect(_boundingBox);
        return true;
    }

    if (CGRectIntersectsRect(outer, _boundingBox)) {
        if (before == State::Kind::contain) {
            _state = State::intersect(_boundingBox);
            return false;
        }
        if (before == State::Kind::intersect && CGRectContainsRect(inner, _state.rect()))
            return false;
        _state = State::intersect(CGRectIntersection(inner, _boundingBox));
        return true;
    }

    _state = State::none();
    return false;
}

}  // namespace quorin
