// SPDX-License-Identifier: BSD-3-Clause

// Figures of the elements of a matrix: sums, extremes, ranges.

#include "keldriver/Matrix.h"

namespace {

double plus(double total, double value) {
    return total + value;
}

double plusSquare(double total, double value) {
    return total + value * value;
}

double smaller(double best, double value) {
    return value < best ? value : best;
}

double larger(double best, double value) {
    return value > best ? value : best;
}

/// Folds the elements of one row or column, one after the other.
template <typename Line, typename Fold>
double fold(int count, double start, Line line, Fold step) {
    for (int i = 0; i < count; ++i) {
        start = step(start, line(i));
    }
    return start;
}

/// The element of a row or column that wins every comparison; 0 when there are none.
template <typename Line, typename Choice>
double best(int count, Line line, Choice choose) {
    return count > 0 ? fold(count, line(0), line, choose) : 0.0;
}

} // namespace

CPrintDriverMatrix CPrintDriverMatrix::Covariant() const {
    return *this * GetTransposed();
}

void CPrintDriverMatrix::GetNumericRange(double& min, double& max) const {
    min = elementCount() > 0 ? m_data[0] : 0.0;
    max = min;
    for (size_t i = 0; i < elementCount(); ++i) {
        min = smaller(min, m_data[i]);
        max = larger(max, m_data[i]);
    }
}

void CPrintDriverMatrix::Normalise(double lo, double hi) {
    double min = 0.0;
    double max = 0.0;
    GetNumericRange(min, max);
    detach();
    for (size_t i = 0; i < elementCount(); ++i) {
        m_data[i] = (m_data[i] - min) / (max - min) * (hi - lo) + lo;
    }
}

CPrintDriverMatrix CPrintDriverMatrix::GetNormalised(double lo, double hi) const {
    CPrintDriverMatrix normalised(*this);
    normalised.Normalise(lo, hi);
    return normalised;
}

double CPrintDriverMatrix::SumRow(int row) const {
    return fold(
        m_cols, 0.0, [&](int col) { return element(row, col); }, plus);
}

double CPrintDriverMatrix::SumColumn(int col) const {
    return fold(
        m_rows, 0.0, [&](int row) { return element(row, col); }, plus);
}

double CPrintDriverMatrix::SumRowSquared(int row) const {
    return fold(
        m_cols, 0.0, [&](int col) { return element(row, col); }, plusSquare);
}

double CPrintDriverMatrix::SumColumnSquared(int col) const {
    return fold(
        m_rows, 0.0, [&](int row) { return element(row, col); }, plusSquare);
}

double CPrintDriverMatrix::GetRowMin(int row) const {
    return best(
        m_cols, [&](int col) { return element(row, col); }, smaller);
}

double CPrintDriverMatrix::GetRowMax(int row) const {
    return best(
        m_cols, [&](int col) { return element(row, col); }, larger);
}

double CPrintDriverMatrix::GetColumnMin(int col) const {
    return best(
        m_rows, [&](int row) { return element(row, col); }, smaller);
}

double CPrintDriverMatrix::GetColumnMax(int col) const {
    return best(
        m_rows, [&](int row) { return element(row, col); }, larger);
}
