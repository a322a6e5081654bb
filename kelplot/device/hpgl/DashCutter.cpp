// SPDX-License-Identifier: GPL-2.0-or-later
#include "device/hpgl/DashCutter.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace kelplot {
namespace {

/// The lengths of dashes and gaps by turns; empty: the line is continuous.
std::vector<double> lengthsOf(const QPen& pen) {
    std::vector<double> lengths;
    if (pen.style() == Qt::SolidLine) {
        return lengths;
    }
    const double unit = pen.widthF() > 0.0 ? pen.widthF() : 1.0;
    double period = 0.0;
    for (const double entry : pen.dashPattern()) {
        lengths.push_back(std::max(entry, 0.0) * unit);
        period += lengths.back();
    }
    if (lengths.size() % 2 != 0 || !(period > 0.0)) {
        lengths.clear();
    }
    return lengths;
}

double lengthOf(const std::vector<QPointF>& line) {
    double length = 0.0;
    for (size_t i = 1; i < line.size(); ++i) {
        length += std::hypot(line[i].x() - line[i - 1].x(), line[i].y() - line[i - 1].y());
    }
    return length;
}

/// Where along its pattern a line is.
class Pattern {
public:
    Pattern(std::vector<double> lengths, double offset) : m_lengths(std::move(lengths)), m_left(m_lengths[0]) {
        const double period = std::accumulate(m_lengths.begin(), m_lengths.end(), 0.0);
        double rest = std::fmod(std::max(offset, 0.0), period);
        for (; rest >= m_left; next()) {
            rest -= m_left;
        }
        m_left -= rest;
    }

    bool isDash() const { return m_index % 2 == 0; }
    double left() const { return m_left; }
    void advance(double length) { m_left -= length; }
    void next() {
        m_index = (m_index + 1) % m_lengths.size();
        m_left = m_lengths[m_index];
    }

private:
    std::vector<double> m_lengths;
    size_t m_index = 0;
    double m_left;
};

} // namespace

void forEachDash(const std::vector<QPointF>& line, const QPen& pen,
                 const std::function<void(const std::vector<QPointF>&)>& draw) {
    constexpr double mostPeriods = 1e5; // finer ones are continuous on paper
    const std::vector<double> lengths = lengthsOf(pen);
    const double period = std::accumulate(lengths.begin(), lengths.end(), 0.0);
    if (lengths.empty() || lengthOf(line) > mostPeriods * period) {
        draw(line);
        return;
    }
    Pattern pattern(lengths, pen.dashOffset() * (pen.widthF() > 0.0 ? pen.widthF() : 1.0));
    std::vector<QPointF> dash;
    for (size_t i = 1; i < line.size(); ++i) {
        const QPointF along = line[i] - line[i - 1];
        const double length = std::hypot(along.x(), along.y());
        double done = 0.0;
        if (pattern.isDash() && dash.empty()) {
            dash.push_back(line[i - 1]);
        }
        while (length - done > pattern.left()) {
            done += pattern.left();
            const QPointF point = line[i - 1] + along * (done / length);
            if (pattern.isDash()) {
                dash.push_back(point);
                draw(dash);
                dash.clear();
            }
            pattern.next();
            if (pattern.isDash()) {
                dash.push_back(point);
            }
        }
        pattern.advance(length - done);
        if (pattern.isDash()) {
            dash.push_back(line[i]);
        }
    }
    if (dash.size() > 1) {
        draw(dash);
    }
}

} // namespace kelplot
