// SPDX-License-Identifier: GPL-2.0-or-later
#include "device/hpgl/PlotterClip.h"

#include <algorithm>
#include <cmath>
#include <gpc.h>
#include <memory>
#include <numeric>

namespace kelplot {
namespace {

/// Contours in the form that the polygon clipper takes.
class Contours {
public:
    explicit Contours(const QList<QPolygonF>& outlines) {
        for (const QPolygonF& outline : outlines) {
            std::vector<gpc_vertex>& vertices = m_vertices.emplace_back();
            for (const QPointF& point : outline) {
                vertices.push_back({point.x(), point.y()});
            }
        }
        for (std::vector<gpc_vertex>& vertices : m_vertices) {
            m_contours.push_back({static_cast<int>(vertices.size()), vertices.data()});
        }
    }

    gpc_polygon polygon() { return {static_cast<int>(m_contours.size()), nullptr, m_contours.data()}; }

private:
    std::vector<std::vector<gpc_vertex>> m_vertices;
    std::vector<gpc_vertex_list> m_contours;
};

QList<QPolygonF> intersection(const QList<QPolygonF>& area, const QList<QPolygonF>& border) {
    Contours subject(area);
    Contours clip(border);
    gpc_polygon first = subject.polygon();
    gpc_polygon second = clip.polygon();
    gpc_polygon result{};
    gpc_polygon_clip(GPC_INT, &first, &second, &result);
    QList<QPolygonF> outlines;
    for (int i = 0; i < result.num_contours; ++i) {
        QPolygonF outline;
        const gpc_vertex_list& contour = result.contour[i];
        std::for_each(contour.vertex, contour.vertex + contour.num_vertices,
                      [&](const gpc_vertex& vertex) { outline << QPointF(vertex.x, vertex.y); });
        outlines << outline;
    }
    gpc_free_polygon(&result);
    return outlines;
}

/// Points of an area whose overlaps are looked for. Where each side crosses all others that takes a tenth of a second
/// for so many, and some seconds for twice as many. Areas of more are cut by the even-odd rule.
constexpr int mostSimplified = 300;

double cross(const QPointF& a, const QPointF& b) {
    return a.x() * b.y() - a.y() * b.x();
}

/// Calls `visit` with the ends of each side.
template <typename Visit>
void forEachSide(const QList<QPolygonF>& border, const Visit& visit) {
    for (const QPolygonF& polygon : border) {
        for (int i = 0; i < polygon.size(); ++i) {
            visit(polygon[i], polygon[(i + 1) % polygon.size()]);
        }
    }
}

} // namespace

QPainterPath pathOf(const PageShape& shape) {
    QPainterPath path;
    path.setFillRule(shape.rule);
    for (size_t i = 0; i < shape.elements.size(); ++i) {
        const PageShape::Element& element = shape.elements[i];
        switch (element.type) {
        case QPainterPath::MoveToElement:
            path.moveTo(element.x, element.y);
            break;
        case QPainterPath::CurveToElement:
            path.cubicTo(element, shape.elements[i + 1], shape.elements[i + 2]);
            i += 2;
            break;
        default:
            path.lineTo(element.x, element.y);
        }
    }
    return path;
}

QList<QPolygonF> evenOddOutlines(const PageShape& shape) {
    const QList<QPolygonF> outlines = pathOf(shape).toSubpathPolygons();
    const int points = std::accumulate(outlines.begin(), outlines.end(), 0,
                                       [](int count, const QPolygonF& outline) { return count + outline.size(); });
    if (shape.rule == Qt::OddEvenFill || points > mostSimplified) {
        return outlines;
    }
    QPainterPath straight; // Qt would go on simplifying curves of great size
    straight.setFillRule(shape.rule);
    for (const QPolygonF& outline : outlines) {
        straight.addPolygon(outline);
    }
    return straight.simplified().toSubpathPolygons();
}

PlotterClip::PlotterClip(const std::vector<PageShape>& clips) {
    for (const PageShape& clip : clips) {
        QRectF rectangle;
        if (clip.isRectangle(rectangle)) {
            m_window = m_window ? m_window->intersected(rectangle) : rectangle;
        } else {
            m_borders.push_back(evenOddOutlines(clip));
        }
    }
}

bool PlotterClip::mayShow(const QRectF& box) const {
    const auto meets = [&](const QRectF& other) {
        return box.left() <= other.right() && other.left() <= box.right() && box.top() <= other.bottom() &&
               other.top() <= box.bottom();
    };
    const auto reaches = [&](const Border& border) {
        return std::any_of(border.begin(), border.end(),
                           [&](const QPolygonF& polygon) { return meets(polygon.boundingRect()); });
    };
    return (!m_window || meets(*m_window)) && std::all_of(m_borders.begin(), m_borders.end(), reaches);
}

bool PlotterClip::isInside(const QPointF& point) const {
    return std::all_of(m_borders.begin(), m_borders.end(), [&](const Border& border) {
        bool inside = false;
        forEachSide(border, [&](const QPointF& from, const QPointF& to) {
            const bool spans = (from.y() > point.y()) != (to.y() > point.y());
            if (spans && point.x() < from.x() + (to.x() - from.x()) * (point.y() - from.y()) / (to.y() - from.y())) {
                inside = !inside;
            }
        });
        return inside;
    });
}

/// Where a segment meets the borders, as parts of its length, from 0 to 1.
std::vector<double> PlotterClip::crossings(const QPointF& from, const QPointF& to) const {
    std::vector<double> places{0.0, 1.0};
    const QPointF along = to - from;
    for (const Border& border : m_borders) {
        forEachSide(border, [&](const QPointF& start, const QPointF& end) {
            const double slant = cross(along, end - start);
            const double place = cross(start - from, end - start) / slant;
            const double onSide = cross(start - from, along) / slant;
            if (slant != 0.0 && place > 0.0 && place < 1.0 && onSide >= 0.0 && onSide <= 1.0) {
                places.push_back(place);
            }
        });
    }
    std::sort(places.begin(), places.end());
    return places;
}

std::vector<std::vector<QPointF>> PlotterClip::partsInside(const std::vector<QPointF>& line) const {
    std::vector<std::vector<QPointF>> parts;
    bool isOpen = false;
    for (size_t i = 1; i < line.size(); ++i) {
        const QPointF along = line[i] - line[i - 1];
        const std::vector<double> places = crossings(line[i - 1], line[i]);
        for (size_t k = 1; k < places.size(); ++k) {
            const bool shows = isInside(line[i - 1] + along * (places[k - 1] + places[k]) / 2.0);
            if (shows && !isOpen) {
                parts.push_back({line[i - 1] + along * places[k - 1]});
            }
            if (shows) {
                parts.back().push_back(line[i - 1] + along * places[k]);
            }
            isOpen = shows;
        }
    }
    return parts;
}

std::vector<QPolygonF> PlotterClip::partInside(const QList<QPolygonF>& outlines) const {
    QList<QPolygonF> left = outlines;
    for (const Border& border : m_borders) {
        left = intersection(left, border);
    }
    return {left.begin(), left.end()};
}

} // namespace kelplot
