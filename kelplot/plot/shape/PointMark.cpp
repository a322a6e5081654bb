// SPDX-License-Identifier: GPL-2.0-or-later
#include "plot/shape/PointMark.h"

namespace kelplot {

namespace {

enum Figure { figureDot = 0, figureNothing = 1, figurePlus = 2, figureCross = 3, figureTick = 4 };
constexpr int figureMask = 7;
constexpr int circleFlag = 32;
constexpr int squareFlag = 64;

} // namespace

PointMark pointMarkFor(int mode, double size) {
    const double half = size / 2.0;
    PointMark mark;
    switch (mode & figureMask) {
    case figureNothing:
        break;
    case figurePlus:
        mark.lines = {{{-size, 0.0}, {size, 0.0}}, {{0.0, -size}, {0.0, size}}};
        break;
    case figureCross:
        mark.lines = {{{-size, -size}, {size, size}}, {{-size, size}, {size, -size}}};
        break;
    case figureTick:
        mark.lines = {{{0.0, 0.0}, {0.0, -half}}};
        break;
    case figureDot:
    default: // unknown figures are plotted as dots
        mark.dot = true;
    }
    if (mode & squareFlag) {
        mark.lines.push_back({{-half, -half}, {half, -half}, {half, half}, {-half, half}, {-half, -half}});
    }
    mark.circleRadius = mode & circleFlag ? half : 0.0;
    return mark;
}

bool isPointVisible(int mode) {
    return (mode & figureMask) != figureNothing || (mode & (circleFlag | squareFlag)) != 0;
}

} // namespace kelplot
