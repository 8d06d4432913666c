#include "quorin/motion/DragLinearRegression.h"

#include <utility>

#include "quorin/geometry/PointArithmetic.h"
#include "quorin/geometry/PointGeometry.h"
#include "quorin/motion/LinearFit.h"

namespace quorin {

std::shared_ptr<DragLinearRegression> DragLinearRegression::create(std::ptrdiff_t numberOfSamples,
                                                                   Clock clock) {
    return std::make_shared<DragLinearRegression>(Token{}, numberOfSamples, std::move(clock));
}

DragLinearRegression::DragLinearRegression(Token, std::ptrdiff_t numberOfSamples, Clock by)
    : _numberOfSamples(numberOfSamples), clock(std::move(by)) {}

void DragLinearRegression::update(CGPoint point) {
    const double now = clock();
    if (_points.empty()) {
        _points.push_back({now, point, CGPoint::zero});
        return;
    }
    _points.push_back({now, point, absolute(point - _points.back().point)});
    if (std::cmp_less(_numberOfSamples, _points.size()))
        _points.erase(_points.begin());

    if (const auto fit = LinearFit::of(points(), &Sample::time, &Sample::distance))
        _gradient = fit->slope;
    if (const auto fit = LinearFit::of(points(), &Sample::time, &Sample::point))
        _velocity = fit->slope;
}

}  // namespace quorin
