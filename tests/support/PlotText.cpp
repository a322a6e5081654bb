// SPDX-License-Identifier: BSD-3-Clause
#include "support/PlotText.h"

#include <cstdio>

namespace plotText {

namespace {

template <typename Value>
struct Name {
    Value value;
    const char* text;
};

constexpr Name<Qt::PenStyle> penStyles[] = {{Qt::SolidLine, "solid"},
                                            {Qt::DashLine, "dash"},
                                            {Qt::DotLine, "dot"},
                                            {Qt::DashDotLine, "dash-dot"},
                                            {Qt::CustomDashLine, "custom"}};
constexpr Name<Qt::PenCapStyle> caps[] = {{Qt::FlatCap, "flat"}, {Qt::SquareCap, "square"}, {Qt::RoundCap, "round"}};
constexpr Name<Qt::PenJoinStyle> joins[] = {
    {Qt::MiterJoin, "miter"}, {Qt::BevelJoin, "bevel"}, {Qt::RoundJoin, "round"}};
constexpr Name<Qt::BrushStyle> brushStyles[] = {{Qt::SolidPattern, "solid"},
                                                {Qt::CrossPattern, "cross"},
                                                {Qt::DiagCrossPattern, "diagonal-cross"},
                                                {Qt::HorPattern, "horizontal"},
                                                {Qt::VerPattern, "vertical"},
                                                {Qt::FDiagPattern, "forward-diagonal"},
                                                {Qt::BDiagPattern, "backward-diagonal"}};
constexpr Name<QPainter::CompositionMode> compositions[] = {{QPainter::CompositionMode_SourceOver, "source-over"},
                                                            {QPainter::CompositionMode_Multiply, "multiply"}};
constexpr Name<QPainterPath::ElementType> elements[] = {{QPainterPath::MoveToElement, "M"},
                                                        {QPainterPath::LineToElement, "L"},
                                                        {QPainterPath::CurveToElement, "C"},
                                                        {QPainterPath::CurveToDataElement, ""}};

template <typename Value, size_t count>
std::string nameIn(const Name<Value> (&names)[count], Value value) {
    for (const Name<Value>& name : names) {
        if (name.value == value) {
            return name.text;
        }
    }
    return "number " + std::to_string(static_cast<int>(value));
}

} // namespace

std::string number(double value) {
    char text[32];
    std::snprintf(text, sizeof text, "%.10g", value + 0.0); // adding zero clears the sign of a zero
    return text;
}

std::string point(const QPointF& point) {
    return number(point.x()) + "," + number(point.y());
}

std::string points(const QPointF* points, int count) {
    std::string text;
    for (int i = 0; i < count; ++i) {
        text += (i > 0 ? " " : "") + point(points[i]);
    }
    return text;
}

std::string rectangle(const QRectF& rect) {
    return point(rect.topLeft()) + " " + number(rect.width()) + "x" + number(rect.height());
}

std::string path(const QPainterPath& path) {
    if (path.isEmpty()) {
        return "empty";
    }
    std::string text;
    for (int i = 0; i < path.elementCount(); ++i) {
        const QPainterPath::Element element = path.elementAt(i);
        text += " " + nameIn(elements, element.type) + point(element);
    }
    return text.substr(1) + (path.fillRule() == Qt::WindingFill ? " winding" : "");
}

std::string colour(const QColor& colour) {
    return colour.name(colour.alpha() == 255 ? QColor::HexRgb : QColor::HexArgb).toStdString();
}

std::string pen(const QPen& pen) {
    if (pen.style() == Qt::NoPen) {
        return "none";
    }
    std::string dashes;
    if (pen.style() == Qt::CustomDashLine) {
        for (const qreal length : pen.dashPattern()) {
            dashes += (dashes.empty() ? "" : " ") + number(length);
        }
        dashes = "[" + dashes + "]";
    }
    return colour(pen.color()) + " " + number(pen.widthF()) + " " + nameIn(penStyles, pen.style()) + dashes + " " +
           nameIn(caps, pen.capStyle()) + " " + nameIn(joins, pen.joinStyle());
}

std::string brush(const QBrush& brush) {
    if (brush.style() == Qt::NoBrush) {
        return "none";
    }
    if (brush.style() == Qt::TexturePattern) {
        const QImage image = brush.textureImage();
        return "texture " + std::to_string(image.width()) + "x" + std::to_string(image.height());
    }
    return colour(brush.color()) + " " + nameIn(brushStyles, brush.style());
}

std::string transform(const QTransform& transform) {
    std::string text = number(transform.m11()) + "," + number(transform.m12()) + "," + number(transform.m21()) + "," +
                       number(transform.m22()) + "," + number(transform.dx()) + "," + number(transform.dy());
    if (!transform.isAffine()) {
        text += "," + number(transform.m13()) + "," + number(transform.m23()) + "," + number(transform.m33());
    }
    return text;
}

std::string composition(QPainter::CompositionMode mode) {
    return nameIn(compositions, mode);
}

} // namespace plotText
