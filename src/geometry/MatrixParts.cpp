// SPDX-License-Identifier: BSD-3-Clause

// Matrices made of parts of others.

#include "keldriver/Matrix.h"

#include <algorithm>
#include <cstdint>

namespace {

/// Two sizes added up; a sum that no matrix can have is negative, which the constructor refuses.
int joinedSize(int first, int second) {
    const int64_t sum = static_cast<int64_t>(first) + second;
    return sum > INT32_MAX ? -1 : static_cast<int>(sum);
}

/// Strictly: that a part which reaches the end is refused is part of the interface.
bool isInside(int first, int count, int size) {
    return first >= 0 && static_cast<int64_t>(first) + count < size;
}

} // namespace

CPrintDriverMatrix CPrintDriverMatrix::ExtractSubMatrix(int row, int col, int rows, int cols) const {
    if (!isInside(row, rows, m_rows) || !isInside(col, cols, m_cols)) {
        throw "Sub matrix is not contained in source";
    }
    CPrintDriverMatrix part(rows, cols);
    for (int c = 0; c < cols; ++c) {
        for (int r = 0; r < rows; ++r) {
            part.element(r, c) = element(row + r, col + c);
        }
    }
    return part;
}

void CPrintDriverMatrix::SetSubMatrix(int row, int col, const CPrintDriverMatrix& other) {
    detach();
    for (int c = 0; c < other.m_cols; ++c) {
        for (int r = 0; r < other.m_rows; ++r) {
            element(row + r, col + c) = other.element(r, c);
        }
    }
}

CPrintDriverMatrix CPrintDriverMatrix::ExtractDiagonal() const {
    if (m_rows != m_cols) {
        throw "Can only extract diagonal from square matrix";
    }
    CPrintDriverMatrix diagonal(m_rows, 1);
    for (int i = 0; i < m_rows; ++i) {
        diagonal.element(i, 0) = element(i, i);
    }
    return diagonal;
}

void CPrintDriverMatrix::ConcatinateColumns(const CPrintDriverMatrix& other) {
    *this = GetConcatinatedColumns(other);
}

CPrintDriverMatrix CPrintDriverMatrix::GetConcatinatedColumns(const CPrintDriverMatrix& other) const {
    if (m_cols != other.m_cols) {
        throw "Cannot concatenate matrices, not same size";
    }
    CPrintDriverMatrix joined(joinedSize(m_rows, other.m_rows), m_cols);
    joined.SetSubMatrix(0, 0, *this);
    joined.SetSubMatrix(m_rows, 0, other);
    return joined;
}

void CPrintDriverMatrix::ConcatinateRows(const CPrintDriverMatrix& other) {
    *this = GetConcatinatedRows(other);
}

CPrintDriverMatrix CPrintDriverMatrix::GetConcatinatedRows(const CPrintDriverMatrix& other) const {
    if (m_rows != other.m_rows) {
        throw "Cannot concatenate matrices, not same size";
    }
    CPrintDriverMatrix joined(m_rows, joinedSize(m_cols, other.m_cols));
    joined.SetSubMatrix(0, 0, *this);
    joined.SetSubMatrix(0, m_cols, other);
    return joined;
}

void CPrintDriverMatrix::AddColumn(const double* values) {
    CPrintDriverMatrix lastRow(1, m_cols);
    std::copy_n(values, m_cols, lastRow.m_data);
    ConcatinateColumns(lastRow);
}

void CPrintDriverMatrix::AddRow(const double* values) {
    CPrintDriverMatrix lastColumn(m_rows, 1);
    std::copy_n(values, m_rows, lastColumn.m_data);
    ConcatinateRows(lastColumn);
}

void CPrintDriverMatrix::MakeSquare() {
    *this = GetSquareMatrix();
}

CPrintDriverMatrix CPrintDriverMatrix::GetSquareMatrix() const {
    const int size = std::min(m_rows, m_cols);
    CPrintDriverMatrix square(size, size);
    for (int col = 0; col < size; ++col) {
        for (int row = 0; row < size; ++row) {
            square.element(row, col) = element(row * (m_rows / size), col * (m_cols / size));
        }
    }
    return square;
}

CPrintDriverMatrix CPrintDriverMatrix::resid(int col, int row) const {
    CPrintDriverMatrix minor(m_rows - 1, m_cols - 1);
    const int leftOutRow = row >= 1 && row <= m_rows ? row - 1 : m_rows - 1;
    const int leftOutCol = col >= 1 && col <= m_cols ? col - 1 : m_cols - 1;
    for (int c = 0; c < minor.m_cols; ++c) {
        for (int r = 0; r < minor.m_rows; ++r) {
            minor.element(r, c) = element(r < leftOutRow ? r : r + 1, c < leftOutCol ? c : c + 1);
        }
    }
    return minor;
}
