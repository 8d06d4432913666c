/// Springs: making the curve of a transition, and asking a spring for one frame.
#include <array>
#include <cmath>
#include <cstdio>
#include <cstdlib>

#include "bench/BenchData.h"
#include "bench/PeerReport.h"
#include "quorin/motion/DampedSpring.h"
#include "quorin/motion/MDSpring.h"
#include "quorin/motion/RK4Spring.h"

namespace {

using namespace quorin;
using namespace quorin::bench;

constexpr CGFloat frame = 1.0 / 60;

/// Comes to rest after `stepCount` frames.
constexpr CGFloat tension = 92, friction = 4;
constexpr std::size_t stepCount = 200;
using Curve = std::array<CGFloat, stepCount>;

/// The integration alone: a known number of steps, no question whether the spring rests, no
/// repair, and an array that is there already.
void bareLoop(Curve& curve, CGFloat T, CGFloat F, CGFloat h) {
    CGFloat x = -1, v = 0;
    for (CGFloat& value : curve) {
        const CGFloat a1 = -T * x - F * v;
        const CGFloat u2 = v + a1 * h / 2;
        const CGFloat a2 = -T * (x + v * h / 2) - F * u2;
        const CGFloat u3 = v + a2 * h / 2;
        const CGFloat a3 = -T * (x + u2 * h / 2) - F * u3;
        const CGFloat u4 = v + a3 * h;
        const CGFloat a4 = -T * (x + u3 * h) - F * u4;
        x += (v + 2 * (u2 + u3) + u4) * h * (1.0 / 6);
        v += (a1 + 2 * (a2 + a3) + a4) * h * (1.0 / 6);
        value = x + 1;
    }
}

void require(bool holds, const char* what, CGFloat number) {
    if (holds)
        return;
    std::fprintf(stderr, "SpringBench: %s: %g\n", what, number);
    std::exit(1);
}

void checkCurves() {
    const std::vector<CGFloat> own = RK4SpringAnimation(tension, friction, 0, frame);
    require(own.size() == stepCount, "steps of our curve", static_cast<CGFloat>(own.size()));
    Curve bare;
    bareLoop(bare, tension, friction, frame);
    for (std::size_t i = 0; i < stepCount; ++i)
        require(std::abs(own[i] - bare[i]) < 1e-12, "difference from the bare loop",
                own[i] - bare[i]);
}

/// Some spring with a ratio below 1, and what its formula asks the mathematical library for.
constexpr CGFloat damping = 6, stiffness = 100;
constexpr CGFloat decay = damping / 2;
const CGFloat frequency = std::sqrt(stiffness - decay * decay);

void checkFrames(const std::vector<CGFloat>& times) {
    const MDSpring spring(0.3, damping, stiffness, 1, 2);
    const long double omega = std::sqrt(91.0L);
    for (const CGFloat time : times) {
        const long double t = time;
        const long double truth =
            1 + std::exp(-3 * t) * (-std::cos(omega * t) - std::sin(omega * t) / omega);
        require(std::abs(spring(time) - static_cast<CGFloat>(truth)) < 1e-13,
                "progress far from the true one at time", time);
    }
}

void registerCurves() {
    const std::string work = "Runge-Kutta spring of 200 steps";
    compare(work, ours, 1, [] {
        benchmark::DoNotOptimize(RK4SpringAnimation(tension, friction, 0, frame).data());
    });
    compare(work, "bare loop", 1, [] {
        CGFloat T = tension, F = friction, h = frame;  // not known to the compiler
        benchmark::DoNotOptimize(T);
        benchmark::DoNotOptimize(F);
        benchmark::DoNotOptimize(h);
        Curve curve;
        bareLoop(curve, T, F, h);
        benchmark::DoNotOptimize(curve.data());
        benchmark::ClobberMemory();
    });
}

template <typename Question>
void compareFrames(const std::string& work, const std::string& name,
                   const std::vector<CGFloat>& times, Question question) {
    compare(work, name, times.size(), [&times, question] {
        for (const CGFloat time : times)
            benchmark::DoNotOptimize(question(time));
    });
}

void registerFrames(const std::vector<CGFloat>& times) {
    const std::string work = "one frame of a damped oscillator";
    const std::string calls = "exp, sin and cos";
    const auto threeCalls = [w = frequency](CGFloat time) {
        return std::exp(-decay * time) + std::sin(w * time) + std::cos(w * time);
    };
    const auto oneCall = [](CGFloat time) { return std::exp(-decay * time); };
    compareFrames(work, ours, times, MDSpring(0.3, damping, stiffness, 1, 2));
    compareFrames(work, calls, times, threeCalls);
    compareFrames(work + ", critical", ours, times, MDSpring(1, damping, decay * decay, 1, 2));
    compareFrames(work + ", critical", "exp", times, oneCall);
    compareFrames("one frame of a spring that swings", ours, times, DampedSpring(0.3, 10, 2));
    compareFrames("one frame of a spring that swings", calls, times, threeCalls);
}

}  // namespace

int main(int argumentCount, char** arguments) {
    FixedNumbers numbers(5);
    std::vector<CGFloat> times;
    for (int i = 0; i < 1000; ++i)
        times.push_back(numbers.between(0, 3));
    checkCurves();
    checkFrames(times);
    registerCurves();
    registerFrames(times);
    return runComparison(argumentCount, arguments);
}
