// SPDX-License-Identifier: GPL-2.0-or-later
#include "geometry/Nurbs.h"

#include <array>

namespace kelplot {

namespace {

using Control = NurbsCurve::Control;

Control mix(const Control& a, const Control& b, double t) {
    return {a.scaled * (1.0 - t) + b.scaled * t, a.weight * (1.0 - t) + b.weight * t};
}

/// Flattens the knot span of a curve that starts at knot number `span`.
class SpanFlattener {
public:
    SpanFlattener(const NurbsCurve& nurbs, size_t knotSpan, double maxDistance, std::vector<Vec2>& points)
        : m_curve(nurbs), m_span(knotSpan), m_tolerance(maxDistance), m_out(points) {}

    void run(bool first) {
        const Sample from = sampleAt(m_curve.knots[m_span]);
        const Sample to = sampleAt(m_curve.knots[m_span + 1]);
        if (first) {
            m_out.push_back(from.point);
        }
        constexpr int maxHalvings = 16;
        halve(from, sampleAt((from.t + to.t) / 2.0), to, maxHalvings);
    }

private:
    struct Sample {
        double t;
        Vec2 point;
    };

    /// De Boor's scheme.
    Sample sampleAt(double t) const {
        const auto degree = static_cast<size_t>(m_curve.degree);
        std::array<Control, NurbsCurve::maxDegree + 1> points;
        for (size_t i = 0; i <= degree; ++i) {
            points[i] = m_curve.controls[m_span - degree + i];
        }
        for (size_t round = 1; round <= degree; ++round) {
            for (size_t i = degree; i >= round; --i) {
                const double low = m_curve.knots[m_span - degree + i];
                const double high = m_curve.knots[m_span + 1 + i - round];
                points[i] = mix(points[i - 1], points[i], (t - low) / (high - low));
            }
        }
        return {t, points[degree].scaled * (1.0 / points[degree].weight)};
    }

    static double distance(Vec2 p, Vec2 from, Vec2 to) {
        const Vec2 chord = to - from;
        const double square = dot(chord, chord);
        const double along = square > 0.0 ? std::clamp(dot(p - from, chord) / square, 0.0, 1.0) : 0.0;
        return (p - from - chord * along).length();
    }

    /// Looks at three inner points, because the middle of an S lies on its chord.
    void halve(const Sample& from, const Sample& middle, const Sample& to, int halvingsLeft) {
        const Sample early = sampleAt((from.t + middle.t) / 2.0);
        const Sample late = sampleAt((middle.t + to.t) / 2.0);
        const bool flat = distance(middle.point, from.point, to.point) <= m_tolerance &&
                          distance(early.point, from.point, to.point) <= m_tolerance &&
                          distance(late.point, from.point, to.point) <= m_tolerance;
        if (flat || halvingsLeft == 0) {
            m_out.push_back(to.point);
            return;
        }
        halve(from, early, middle, halvingsLeft - 1);
        halve(middle, late, to, halvingsLeft - 1);
    }

    const NurbsCurve& m_curve;
    size_t m_span;
    double m_tolerance;
    std::vector<Vec2>& m_out;
};

/// The box of the control points that shape the span; the curve does not leave it.
Box2 hullOfSpan(const NurbsCurve& curve, size_t span) {
    Box2 hull;
    for (size_t i = span - static_cast<size_t>(curve.degree); i <= span; ++i) {
        hull.add(curve.controls[i].scaled * (1.0 / curve.controls[i].weight));
    }
    return hull;
}

/// Second derivatives, at the points, of the natural cubic spline through them.
std::vector<Vec2> secondDerivatives(const std::vector<Vec2>& points, const std::vector<double>& steps) {
    const size_t last = points.size() - 1;
    std::vector<Vec2> result(points.size());
    std::vector<double> factor(points.size(), 0.0);
    for (size_t i = 1; i < last; ++i) {
        const Vec2 slopeChange =
            (points[i + 1] - points[i]) * (1.0 / steps[i]) - (points[i] - points[i - 1]) * (1.0 / steps[i - 1]);
        const double pivot = 2.0 * (steps[i - 1] + steps[i]) - steps[i - 1] * factor[i - 1];
        factor[i] = steps[i] / pivot;
        result[i] = (slopeChange * 6.0 - result[i - 1] * steps[i - 1]) * (1.0 / pivot);
    }
    for (size_t i = last; i-- > 1;) {
        result[i] = result[i] - result[i + 1] * factor[i];
    }
    return result;
}

/// The points with copies of the last ones before and of the first ones after them. The influence of a
/// natural end falls to a quarter from point to point, so that the middle part closes smoothly.
std::vector<Vec2> wrapped(const std::vector<Vec2>& points, size_t extra) {
    std::vector<Vec2> result;
    const size_t count = points.size();
    result.reserve(count + 2 * extra + 1);
    for (size_t i = 0; i < count + 2 * extra + 1; ++i) {
        result.push_back(points[(i + count * extra - extra) % count]);
    }
    return result;
}

} // namespace

void NurbsCurve::flatten(const Flattening& rules, std::vector<Vec2>& out) const {
    bool first = true;
    for (auto span = static_cast<size_t>(degree); span < controls.size(); ++span) {
        if (!(knots[span] < knots[span + 1])) {
            continue;
        }
        const bool seen = hullOfSpan(*this, span).intersects(rules.interest);
        SpanFlattener(*this, span, seen ? rules.tolerance : HUGE_VAL, out).run(first);
        first = false;
    }
}

bool areUsableKnots(const std::vector<double>& knots, int degree, size_t controlCount) {
    if (controlCount <= static_cast<size_t>(degree) || knots.size() != controlCount + static_cast<size_t>(degree) + 1) {
        return false;
    }
    for (size_t i = 0; i < knots.size(); ++i) {
        if (!std::isfinite(knots[i]) || (i > 0 && knots[i] < knots[i - 1])) {
            return false;
        }
    }
    return knots[static_cast<size_t>(degree)] < knots[controlCount];
}

bool areUsableWeights(const std::vector<double>& weights, size_t controlCount) {
    const auto usable = [](double weight) {
        return weight > 0.0 && std::isfinite(weight);
    };
    return weights.size() == controlCount && std::all_of(weights.begin(), weights.end(), usable);
}

std::vector<double> clampedKnots(int degree, size_t controlCount) {
    const auto order = static_cast<size_t>(degree) + 1;
    std::vector<double> knots(controlCount + order);
    for (size_t i = 0; i < knots.size(); ++i) {
        knots[i] = static_cast<double>(std::clamp(i, order - 1, controlCount) - (order - 1));
    }
    return knots;
}

NurbsCurve curveThrough(const std::vector<Vec2>& points, bool closed) {
    constexpr size_t enoughCopies = 16;
    const size_t extra = closed ? enoughCopies : 0;
    const std::vector<Vec2> path = closed ? wrapped(points, extra) : points;
    std::vector<double> steps;
    for (size_t i = 0; i + 1 < path.size(); ++i) {
        steps.push_back((path[i + 1] - path[i]).length());
    }
    const std::vector<Vec2> bend = secondDerivatives(path, steps);

    NurbsCurve curve;
    double knot = 0.0;
    curve.knots.assign(4, knot);
    curve.controls.push_back({path[extra], 1.0});
    for (size_t i = extra; i + 1 < path.size() - extra; ++i) {
        const double h = steps[i];
        const Vec2 chord = path[i + 1] - path[i];
        const Vec2 leaving = chord - (bend[i] * 2.0 + bend[i + 1]) * (h * h / 6.0);
        const Vec2 arriving = chord + (bend[i] + bend[i + 1] * 2.0) * (h * h / 6.0);
        curve.controls.push_back({path[i] + leaving * (1.0 / 3.0), 1.0});
        curve.controls.push_back({path[i + 1] - arriving * (1.0 / 3.0), 1.0});
        curve.controls.push_back({path[i + 1], 1.0});
        knot += h;
        curve.knots.insert(curve.knots.end(), 3, knot);
    }
    curve.knots.push_back(knot);
    return curve;
}

} // namespace kelplot
