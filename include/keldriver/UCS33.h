// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "keldriver/Export.h"
#include "keldriver/Matrix.h"

/// A 3x3 matrix that maps points of the plane between coordinate systems.
///
/// A point is the row vector (x, y, 1) on the left of the matrix, so the translation stands in the bottom row; the
/// third column is never read. `Offset`, `Scale`, `Rotate` and `Mirror` act after everything the matrix does already.
/// The `Init…` members set only the elements they name: start them from a fresh matrix. Members with a `bool` result
/// always answer true.
class KELDRIVER_API CUCS33 : public CPrintDriverMatrix {
public:
    /// The identity.
    CUCS33();
    /// A copy with elements of its own.
    CUCS33(const CUCS33& other) = default;
    /// Takes over the elements of `other`.
    CUCS33& operator=(const CUCS33& other) = default;
    ~CUCS33() override;

    /// Sets the diagonal to ones.
    bool InitStandard();
    /// Sets the diagonal to ones and the translation to (dx, dy).
    bool InitOffsetMatrix(double dx, double dy);
    /// Sets the first two elements of the diagonal.
    bool InitScaleMatrix(double sx, double sy);
    /// Sets a counter-clockwise rotation by the angle with this cosine and sine.
    bool InitRotateMatrix(double cos, double sin);
    /// Sets the first two elements of the diagonal to a - b and b - a: (1, 0) mirrors in the x axis, (0, 1) in the y
    /// axis.
    bool InitMirrorMatrix(double a, double b);

    /// Moves by (dx, dy).
    bool Offset(double dx, double dy);
    /// Stretches about the origin, by `sx` along x and `sy` along y.
    bool Scale(double sx, double sy);
    /// Turns about the origin, counter-clockwise with y upwards, by the angle with this cosine and sine.
    bool Rotate(double cos, double sin);
    /// Mirrors, and stretches, as `InitMirrorMatrix` says.
    bool Mirror(double a, double b);
    /// Mirrors in the x axis: y changes its sign.
    bool MirrorX();
    /// Mirrors in the y axis: x changes its sign.
    bool MirrorY();
    /// Mirrors in the origin.
    bool MirrorOrg();

    /// Turns a fresh matrix into the map from the coordinate system with the origin (ox, oy), whose x axis and its
    /// unit are (dx, dy), to the surrounding one. A vector of at most 1e-6 means no turn and no scale. Only the
    /// diagonal of an older matrix is reset before.
    bool CreateUCS(double ox, double oy, double dx, double dy);

    /// Maps a point in place.
    bool MultiplyPointXY(double& x, double& y) const;
    /// Maps a point in place and rounds it to integers, halves up. Results saturate; NaN gives 0.
    bool MultiplyPointIntXY(int& x, int& y) const;
    /// Writes six elements, in the order of `tagXFORM`, or all nine row by row; nothing for another count.
    void GetElements(double* out, int count) const;
};
