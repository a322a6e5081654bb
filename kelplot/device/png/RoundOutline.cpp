// SPDX-License-Identifier: GPL-2.0-or-later
#include "device/png/RoundOutline.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace kelplot {
namespace {

double dot(QPointF a, QPointF b) {
    return QPointF::dotProduct(a, b);
}

double cross(QPointF a, QPointF b) {
    return a.x() * b.y() - a.y() * b.x();
}

/// A stretch between two points that differ.
struct Stretch {
    QPointF from;
    QPointF to;
    QPointF side; ///< from the line to the outline on one side
    double length;

    Stretch reversed() const { return {to, from, -side, length}; }
};

class OutlineMaker {
public:
    explicit OutlineMaker(double radius) : m_radius(radius) {
        constexpr double tolerance = 1.0 / 32.0; // pixels between an arc and its chords
        const double step = 2.0 * std::acos(1.0 - std::min(1.0, tolerance / radius));
        m_cos = std::cos(step);
        m_sin = std::sin(step);
    }

    QPolygonF outlineOf(const QPolygonF& line) {
        const std::vector<Stretch> stretches = stretchesOf(line);
        m_outline.reserve(static_cast<int>(stretches.size()) * 4 + 32);
        if (stretches.empty()) {
            const QPointF side(m_radius, 0.0);
            addArc(line.first(), side, -side);
            addArc(line.first(), -side, side);
            return m_outline;
        }
        for (size_t i = 0; i < stretches.size(); ++i) {
            if (i > 0) {
                addBend(stretches[i - 1], stretches[i]);
            }
        }
        addEnd(stretches.back());
        for (size_t i = stretches.size() - 1; i > 0; --i) {
            addBend(stretches[i].reversed(), stretches[i - 1].reversed());
        }
        addEnd(stretches.front().reversed());
        return m_outline;
    }

private:
    std::vector<Stretch> stretchesOf(const QPolygonF& line) const {
        std::vector<Stretch> stretches;
        stretches.reserve(static_cast<size_t>(line.size()));
        QPointF from = line.first();
        for (const QPointF& to : line) {
            const QPointF way = to - from;
            const double length = std::sqrt(dot(way, way));
            if (length > 0.0) {
                const double scale = m_radius / length;
                stretches.push_back({from, to, {-way.y() * scale, way.x() * scale}, length});
                from = to;
            }
        }
        return stretches;
    }

    /// Goes round the end of a line from one side to the other.
    void addEnd(const Stretch& last) { addArc(last.to, last.side, -last.side); }

    /// Goes along one side from a stretch to the next. The inside of a bend is passed by way of the line itself, so
    /// that the outline winds at least once around all that the two stretches cover, however short they are.
    void addBend(const Stretch& before, const Stretch& after) {
        const QPointF at = before.to;
        const bool inside = cross(before.side, after.side) > 0.0;
        if (!inside) {
            addArc(at, before.side, after.side);
        } else if (isWithinStep(before.side, after.side) && std::min(before.length, after.length) > m_radius) {
            m_outline << at + before.side << at + after.side;
        } else {
            m_outline << at + before.side << at << at + after.side;
        }
    }

    /// Tells whether one chord serves for the arc between two radii.
    bool isWithinStep(QPointF from, QPointF to) const { return dot(from, to) >= m_radius * m_radius * m_cos; }

    /// Adds the arc of at most half a turn from one radius to the other.
    void addArc(QPointF center, QPointF from, QPointF to) {
        m_outline << center + from;
        while (!isWithinStep(from, to)) {
            from = {from.x() * m_cos + from.y() * m_sin, from.y() * m_cos - from.x() * m_sin};
            m_outline << center + from;
        }
        m_outline << center + to;
    }

    double m_radius;
    double m_cos; ///< of the angle that a chord spans
    double m_sin;
    QPolygonF m_outline;
};

} // namespace

QPolygonF roundOutline(const QPolygonF& line, double radius) {
    return OutlineMaker(radius).outlineOf(line);
}

} // namespace kelplot
