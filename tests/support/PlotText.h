// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <string>

#include <QBrush>
#include <QPainter>
#include <QPainterPath>
#include <QPen>
#include <QTransform>

/// Short texts for what a painter draws with, as they appear in expected plots.
namespace plotText {

std::string number(double value);                     ///< up to ten digits, no negative zero
std::string point(const QPointF& point);              ///< "1,2.5"
std::string points(const QPointF* points, int count); ///< "0,0 5,0"
std::string rectangle(const QRectF& rect);            ///< "x,y wxh"
std::string path(const QPainterPath& path);           ///< "M0,0 L5,0 C1,1 2,2 3,3", then "winding" or nothing
std::string colour(const QColor& colour);             ///< "#rrggbb", or "#aarrggbb" where not opaque
std::string pen(const QPen& pen);                     ///< "#rrggbb width style cap join", or "none"
std::string brush(const QBrush& brush);               ///< "#rrggbb style", "texture wxh", or "none"
std::string transform(const QTransform& transform);   ///< "m11,m12,m21,m22,dx,dy", then the projective terms
std::string composition(QPainter::CompositionMode mode);

} // namespace plotText
