#pragma once

#include <optional>
#include <ostream>
#include <vector>

#include "quorin/path/CubicBezier.h"

namespace quorin::test {

/// A curve that has broken path engines, and its true length to 16 digits where that is known.
struct HardCurve {
    const char* says;
    CubicBezier curve;
    std::optional<CGFloat> length;
};

inline void PrintTo(const HardCurve& hard, std::ostream* stream) { *stream << hard.says; }

inline CubicBezier cubic(CGPoint p1, CGPoint c1, CGPoint c2, CGPoint p2) {
    return {p1, c1 - p1, c2 - p2, p2};
}

inline std::vector<HardCurve> hardCurves() {
    constexpr CGFloat y = 593.90243902439033;
    constexpr CGFloat nearlyNothing = -4.898587196589413e-14;  // 200·sin 2π in doubles
    return {
        {"wave", cubic({0, 0}, {100, 0}, {0, 100}, {100, 100}), 167.6542627420286},
        {"exact cusp", cubic({0, 0}, {100, 100}, {0, 100}, {100, 0}), 182.8427124746190},
        {"near cusp", cubic({0, -0.01}, {128, 128.001}, {128, -0.01}, {0, 128.001}),
         234.0451157903493},
        {"two folds", cubic({0, 10}, {-10, 10}, {180, 10}, {60, 10}), 140.533888522938},
        {"starts where it ends, with two half turns", cubic({10, 0}, {0, 0}, {20, 0}, {10, 0}),
         11.54700538379252},
        {"hairpin", cubic({0, 0}, {300, 0}, {300, 0.001}, {0, 0.001}), 450.0000000171848},
        {"there and back on a line", cubic({10.5, .5}, {11.5, .5}, {-25, .5}, {31, .5}),
         42.08275670074802},
        {"its mirror", cubic({19.5, .5}, {18.5, .5}, {55, .5}, {-1, .5}), 42.08275670074802},
        {"large", cubic({0, 0}, {5e7, 0}, {5e7, 1e7}, {1e8, 1e7}), 100707533.2335976},
        {"very large", cubic({0, 0}, {5e9, 0}, {5e9, 1e9}, {1e10, 1e9}), 10070753323.35976},
        {"a point", cubic({0, 0}, {0, 0}, {0, 0}, {0, 0}), 0},
        {"a point elsewhere", cubic({1, 2}, {1, 2}, {1, 2}, {1, 2}), 0},
        // x = 0.03·t·(1 - t)·(1 - 2t): up to √3/6 of its handle, down through 0, and back.
        {"to and fro on 0.01", cubic({0, 0}, {1e-2, 0}, {-1e-2, 0}, {0, 0}),
         0.02 / 1.7320508075688772},
        {"ends at rest",
         cubic({602.469, 286.585}, {641.975, 286.585}, {562.963, 286.585}, {562.963, 286.585}),
         61.62936},
        {"to the left and back",
         cubic({1096.2962962962963, y}, {1043.6213991769548, y}, {1030.4526748971193, y},
               {1056.7901234567901, y}),
         std::nullopt},
        {"nearly a loop on a line",
         cubic({200, nearlyNothing}, {0, 2 * nearlyNothing}, {0, -2 * nearlyNothing},
               {200, -2 * nearlyNothing}),
         300},
    };
}

}  // namespace quorin::test
