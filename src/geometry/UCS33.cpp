// SPDX-License-Identifier: BSD-3-Clause
#include "keldriver/UCS33.h"

#include <cmath>

#include "geometry/Numeric.h"

using namespace KelDriver::Internal;

namespace {

constexpr double shortestAxis = 1e-6; // plot units

/// A fresh matrix on which one of the initialisations has run.
CUCS33 stepMatrix(bool (CUCS33::*initialise)(double, double), double first, double second) {
    CUCS33 step;
    (step.*initialise)(first, second);
    return step;
}

} // namespace

CUCS33::CUCS33() : CPrintDriverMatrix(3, 3) {
    InitStandard();
}

CUCS33::~CUCS33() = default;

bool CUCS33::InitStandard() {
    SetElement(0, 0, 1.0);
    SetElement(1, 1, 1.0);
    return SetElement(2, 2, 1.0);
}

bool CUCS33::InitOffsetMatrix(double dx, double dy) {
    InitStandard();
    SetElement(2, 0, dx);
    return SetElement(2, 1, dy);
}

bool CUCS33::InitScaleMatrix(double sx, double sy) {
    SetElement(0, 0, sx);
    return SetElement(1, 1, sy);
}

bool CUCS33::InitRotateMatrix(double cos, double sin) {
    SetElement(0, 0, cos);
    SetElement(0, 1, sin);
    SetElement(1, 0, -sin);
    SetElement(1, 1, cos);
    return SetElement(2, 2, 1.0);
}

bool CUCS33::InitMirrorMatrix(double a, double b) {
    return InitScaleMatrix(a - b, b - a);
}

bool CUCS33::Offset(double dx, double dy) {
    *this *= stepMatrix(&CUCS33::InitOffsetMatrix, dx, dy);
    return true;
}

bool CUCS33::Scale(double sx, double sy) {
    *this *= stepMatrix(&CUCS33::InitScaleMatrix, sx, sy);
    return true;
}

bool CUCS33::Rotate(double cos, double sin) {
    *this *= stepMatrix(&CUCS33::InitRotateMatrix, cos, sin);
    return true;
}

bool CUCS33::Mirror(double a, double b) {
    *this *= stepMatrix(&CUCS33::InitMirrorMatrix, a, b);
    return true;
}

bool CUCS33::MirrorX() {
    return Scale(1.0, -1.0);
}

bool CUCS33::MirrorY() {
    return Scale(-1.0, 1.0);
}

bool CUCS33::MirrorOrg() {
    return Scale(-1.0, -1.0);
}

bool CUCS33::CreateUCS(double ox, double oy, double dx, double dy) {
    InitStandard();
    const double length = std::sqrt(dx * dx + dy * dy);
    if (length > shortestAxis) {
        Scale(length, length);
        Rotate(dx / length, dy / length);
    }
    return Offset(ox, oy);
}

bool CUCS33::MultiplyPointXY(double& x, double& y) const {
    const double mappedX = x * element(0, 0) + y * element(1, 0) + element(2, 0);
    const double mappedY = x * element(0, 1) + y * element(1, 1) + element(2, 1);
    x = mappedX;
    y = mappedY;
    return true;
}

bool CUCS33::MultiplyPointIntXY(int& x, int& y) const {
    double mappedX = x;
    double mappedY = y;
    MultiplyPointXY(mappedX, mappedY);
    x = roundHalfUpToInt32(mappedX);
    y = roundHalfUpToInt32(mappedY);
    return true;
}

void CUCS33::GetElements(double* out, int count) const {
    if (count != 6 && count != 9) {
        return;
    }
    const int columns = count / 3;
    for (int i = 0; i < count; ++i) {
        out[i] = element(i / columns, i % columns);
    }
}
