#include "reader/SplineShape.h"

#include <algorithm>

namespace kelplot {

namespace {

constexpr int usualDegree = 3;
constexpr int highestDegree = 25;

bool knotsServe(const Spline& spline) {
    const auto degree = static_cast<std::size_t>(spline.degree);
    const std::size_t points = spline.controlPoints.size();
    return points > degree && spline.knots.size() == points + degree + 1 &&
           std::is_sorted(spline.knots.begin(), spline.knots.end()) && spline.knots[degree] < spline.knots[points];
}

void spaceKnotsEvenly(Spline& spline) {
    const auto points = static_cast<int>(spline.controlPoints.size());
    spline.degree = std::min(spline.degree, points - 1);
    const int spans = points - spline.degree;
    spline.knots.clear();
    for (int i = 0; i <= points + spline.degree; ++i) {
        spline.knots.push_back(std::clamp(i - spline.degree, 0, spans));
    }
}

} // namespace

bool completeSpline(Spline& spline) {
    if (spline.degree < 1 || spline.degree > highestDegree) {
        spline.degree = usualDegree;
    }
    const bool weighted = spline.weights.size() == spline.controlPoints.size() &&
                          std::all_of(spline.weights.begin(), spline.weights.end(), [](double w) { return w > 0.0; });
    if (!weighted) {
        spline.weights.clear();
    }
    if (knotsServe(spline)) {
        return true;
    }
    if (spline.fitPoints.size() >= 2) {
        spline.knots.clear();
        spline.controlPoints.clear();
        spline.weights.clear();
        return true;
    }
    if (spline.controlPoints.size() < 2) {
        return false;
    }
    spaceKnotsEvenly(spline);
    return true;
}

} // namespace kelplot
