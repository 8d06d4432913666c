#include "tests/motion/SpringTruth.h"

namespace quorin::test {

TrueState afterSeriesStep(const TrueSpring& spring, TrueState from, long double delta) {
    long double x = from.progress - 1, v = from.velocity;
    TrueState sum = from;
    for (int power = 1; power <= 4; ++power) {
        const long double factor = delta / static_cast<long double>(power);
        const long double nextX = v * factor;
        v = (-spring.stiffness * x - spring.friction * v) * factor;
        x = nextX;
        sum.progress += x;
        sum.velocity += v;
    }
    return sum;
}

TrueState moved(const TrueSpring& spring, TrueState from, long double time) {
    constexpr int stepCount = 20'000;
    for (int i = 0; i < stepCount; ++i)
        from = afterSeriesStep(spring, from, time / stepCount);
    return from;
}

}  // namespace quorin::test
