#pragma once

#include <array>
#include <cstddef>
#include <span>

#include "quorin/platform/values/CGGeometry.h"

namespace quorin::scalar {

/// One row for each number of points from 2 to 16: the part of a symmetric Gauss-Legendre rule
/// that is not negative, the centre first when the number is odd, padded with zeros.
using GaussLegendreTable = std::array<std::array<CGFloat, 8>, 15>;

inline constexpr int greatestPointCount = 16;

// Constants rather than lazily built: a compiler that knows n unrolls the sum over them.
// Computed to 60 digits as the roots of the Legendre polynomials, then rounded once.
// clang-format off
inline constexpr GaussLegendreTable gaussLegendreNodeTable{{
    {0.5773502691896257},
    {0.0, 0.7745966692414834},
    {0.33998104358485626, 0.8611363115940526},
    {0.0, 0.5384693101056831, 0.906179845938664},
    {0.2386191860831969, 0.6612093864662645, 0.932469514203152},
    {0.0, 0.4058451513773972, 0.7415311855993945, 0.9491079123427585},
    {0.1834346424956498, 0.525532409916329, 0.7966664774136267, 0.9602898564975363},
    {0.0, 0.3242534234038089, 0.6133714327005904, 0.8360311073266358, 0.9681602395076261},
    {0.14887433898163122, 0.4333953941292472, 0.6794095682990244, 0.8650633666889845,
     0.9739065285171717},
    {0.0, 0.26954315595234496, 0.5190961292068118, 0.7301520055740494, 0.8870625997680953,
     0.978228658146057},
    {0.1252334085114689, 0.3678314989981802, 0.5873179542866175, 0.7699026741943047,
     0.9041172563704749, 0.9815606342467192},
    {0.0, 0.2304583159551348, 0.44849275103644687, 0.6423493394403402, 0.8015780907333099,
     0.9175983992229779, 0.9841830547185881},
    {0.10805494870734367, 0.31911236892788974, 0.5152486363581541, 0.6872929048116855,
     0.827201315069765, 0.9284348836635735, 0.9862838086968123},
    {0.0, 0.20119409399743451, 0.3941513470775634, 0.5709721726085388, 0.7244177313601701,
     0.8482065834104272, 0.937273392400706, 0.9879925180204854},
    {0.09501250983763744, 0.2816035507792589, 0.45801677765722737, 0.6178762444026438,
     0.755404408355003, 0.8656312023878318, 0.9445750230732326, 0.9894009349916499},
}};

inline constexpr GaussLegendreTable gaussLegendreWeightTable{{
    {1.0},
    {0.8888888888888888, 0.5555555555555556},
    {0.6521451548625461, 0.34785484513745385},
    {0.5688888888888889, 0.47862867049936647, 0.23692688505618908},
    {0.46791393457269104, 0.3607615730481386, 0.17132449237917036},
    {0.4179591836734694, 0.3818300505051189, 0.27970539148927664, 0.1294849661688697},
    {0.362683783378362, 0.31370664587788727, 0.22238103445337448, 0.10122853629037626},
    {0.3302393550012598, 0.31234707704000286, 0.26061069640293544, 0.1806481606948574,
     0.08127438836157441},
    {0.29552422471475287, 0.26926671930999635, 0.21908636251598204, 0.1494513491505806,
     0.06667134430868814},
    {0.2729250867779006, 0.26280454451024665, 0.23319376459199048, 0.18629021092773426,
     0.1255803694649046, 0.05566856711617366},
    {0.24914704581340277, 0.2334925365383548, 0.20316742672306592, 0.16007832854334622,
     0.10693932599531843, 0.04717533638651183},
    {0.2325515532308739, 0.22628318026289723, 0.2078160475368885, 0.17814598076194574,
     0.13887351021978725, 0.09212149983772845, 0.04048400476531588},
    {0.2152638534631578, 0.2051984637212956, 0.18553839747793782, 0.15720316715819355,
     0.12151857068790319, 0.08015808715976021, 0.03511946033175186},
    {0.2025782419255613, 0.19843148532711158, 0.1861610000155622, 0.16626920581699392,
     0.13957067792615432, 0.10715922046717194, 0.07036604748810812, 0.03075324199611727},
    {0.1894506104550685, 0.18260341504492358, 0.16915651939500254, 0.14959598881657674,
     0.12462897125553388, 0.09515851168249279, 0.062253523938647894, 0.027152459411754096},
}};
// clang-format on

/// Stops the process: `n` points are outside the tables.
[[noreturn]] void failPointCount(int n);

constexpr std::span<const CGFloat> gaussLegendreRow(const GaussLegendreTable& table, int n) {
    if (n < 2 || n > greatestPointCount)
        failPointCount(n);
    const auto& row = table[static_cast<std::size_t>(n - 2)];
    return {row.data(), static_cast<std::size_t>((n + 1) / 2)};
}

/// The non-negative nodes of the n-point rule on [-1, 1], ascending. Outside 2 to 16 points the
/// process stops.
constexpr std::span<const CGFloat> gaussLegendreNodes(int n) {
    return gaussLegendreRow(gaussLegendreNodeTable, n);
}

/// The weights of those nodes.
constexpr std::span<const CGFloat> gaussLegendreWeights(int n) {
    return gaussLegendreRow(gaussLegendreWeightTable, n);
}

/// The integral of f over [a, b] by n-point Gauss-Legendre quadrature, exact up to rounding for
/// polynomials of degree 2n - 1. Zero below 2 points; above 16 the process stops.
template <typename Function>
CGFloat integrate(Function&& f, CGFloat a, CGFloat b, int n) {
    if (n < 2)
        return 0;
    const std::span<const CGFloat> nodes = gaussLegendreNodes(n);
    const std::span<const CGFloat> weights = gaussLegendreWeights(n);
    const CGFloat A = (b - a) / 2;
    const CGFloat B = A + a;

    const bool hasCentre = n % 2 == 1;
    CGFloat sum = 0;
    for (std::size_t i = hasCentre ? 1 : 0; i < nodes.size(); ++i)
        sum += weights[i] * (f(B + A * nodes[i]) + f(B - A * nodes[i]));
    return hasCentre ? A * sum + A * weights[0] * f(B) : A * sum;
}

}  // namespace quorin::scalar
