#include <cstddef>
#include <cstdint>
#include <cstring>

#include "fuzz/FuzzSupport.h"
#include "quorin/geometry/PointArithmetic.h"
#include "quorin/path/Path.h"

using namespace quorin;

namespace {

/// Takes doubles of any bit pattern from the input until it is used up, zeros then.
class Numbers {
public:
    Numbers(const std::uint8_t* data, std::size_t size) : _data(data), _left(size) {}

    bool areLeft() const { return _left >= sizeof(double); }

    CGFloat next() {
        if (!areLeft())
            return 0;
        CGFloat number = 0;
        std::memcpy(&number, _data, sizeof number);
        _data += sizeof number;
        _left -= sizeof number;
        return number;
    }

    CGPoint nextPoint() {
        const CGFloat x = next();
        return {x, next()};
    }

private:
    const std::uint8_t* _data;
    std::size_t _left;
};

/// All that can be asked of one curve.
void ask(Path::Curve curve, CGPoint question, CGFloat amount) {
    curve.length();
    curve.length(amount);
    curve.bounds();
    curve.isLinear();
    curve.curvatureAt(amount);
    curve.timeAt(amount);
    curve.nearestTime(question);
    curve.nearestLocation(question, 1e-3);
    curve.timeOf(question);
    curve.intesections(Line{question, question - curve.p1()});
    if (const auto rest = curve.divideAt(0.5))
        curve.overlap(*rest);
}

}  // namespace

/// Geometry has an answer for every path and every question, whatever the numbers are.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Numbers numbers(data, size);
    const CGPoint question = numbers.nextPoint();
    const CGFloat reach = numbers.next();
    const auto path = Path::create();
    path->moveTo(numbers.nextPoint());
    while (numbers.areLeft()) {
        const CGPoint point = numbers.nextPoint();
        const CGPoint first = numbers.nextPoint();
        path->addCurveTo(point, first, numbers.nextPoint());
    }
    for (const bool isClosed : {false, true}) {
        path->setIsClosed(isClosed);
        path->invalidatePathCache();
        path->hitTestOnPath(question, reach, reach);
        const auto nearest = path->nearestCurveLocation(question, reach, reach);
        fuzz::expect(!nearest || nearest->distance() < reach / 2 + reach,
                     "what is found is in reach");
        path->contains(question);
        path->boundingBox();
        path->isStraight();
        path->isSimpleRectangle();
        for (const Path::Curve& curve : path->curves())
            ask(curve, question, reach);
    }
    return 0;
}
