// SPDX-License-Identifier: BSD-3-Clause

// The determinant of a matrix and its inverse.

#include "keldriver/Matrix.h"

#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

namespace {

constexpr double smallestPivot = 9.999999747378752e-05; // 0.0001 in single precision

} // namespace

double CPrintDriverMatrix::calculate() const {
    // Elements that a narrow or low matrix lacks count as zero.
    const int heads = std::min(m_rows, m_cols);
    if (heads < 2) {
        return m_rows == 1 && m_cols == 1 ? element(0, 0) : 0.0;
    }
    if (m_cols < 3) {
        return element(0, 0) * element(1, 1) - element(1, 0) * element(0, 1);
    }
    double sum = 0.0;
    for (int row = 0; row < heads; ++row) {
        sum += element(row, 0) * resid(1, row + 1).calculate();
    }
    return sum;
}

double CPrintDriverMatrix::residue(int i, int j) const {
    const double value = resid(i, j).calculate();
    const bool isEven = ((static_cast<unsigned>(i) ^ static_cast<unsigned>(j)) & 1U) == 0;
    return static_cast<double>(static_cast<float>(isEven ? -value : value));
}

void CPrintDriverMatrix::exchangeRows(int first, int second) {
    for (int col = 0; first != second && col < m_cols; ++col) {
        std::swap(element(first, col), element(second, col));
    }
}

void CPrintDriverMatrix::exchangeColumns(int first, int second) {
    for (int row = 0; first != second && row < m_rows; ++row) {
        std::swap(element(row, first), element(row, second));
    }
}

/// One step of the elimination, with the pivot on the diagonal.
void CPrintDriverMatrix::eliminate(int pivot) {
    const double inverse = 1.0 / element(pivot, pivot);
    element(pivot, pivot) = inverse;
    for (int col = 0; col < m_cols; ++col) {
        if (col != pivot) {
            element(pivot, col) *= inverse;
        }
    }
    for (int row = 0; row < m_rows; ++row) {
        for (int col = 0; row != pivot && col < m_cols; ++col) {
            if (col != pivot) {
                element(row, col) -= element(row, pivot) * element(pivot, col);
            }
        }
    }
    for (int row = 0; row < m_rows; ++row) {
        if (row != pivot) {
            element(row, pivot) *= -inverse;
        }
    }
}

void CPrintDriverMatrix::Invert() {
    if (m_rows != m_cols) {
        return;
    }
    struct Pivot {
        int row;
        int col;
    };
    detach();
    std::vector<Pivot> pivots;
    for (int step = 0; step < m_rows; ++step) {
        Pivot pivot{step, step};
        double largest = 0.0;
        for (int row = step; row < m_rows; ++row) {
            for (int col = step; col < m_cols; ++col) {
                const double size = std::fabs(element(row, col));
                if (size > largest) {
                    largest = size;
                    pivot = {row, col};
                }
            }
        }
        if (largest < smallestPivot) {
            return;
        }
        pivots.push_back(pivot);
        exchangeRows(pivot.row, step);
        exchangeColumns(pivot.col, step);
        eliminate(step);
    }
    // In the inverse, rows and columns have changed places.
    for (int step = m_rows - 1; step >= 0; --step) {
        const Pivot& pivot = pivots[static_cast<size_t>(step)];
        exchangeRows(pivot.col, step);
        exchangeColumns(pivot.row, step);
    }
}

CPrintDriverMatrix CPrintDriverMatrix::GetInverted() const {
    if (m_rows != m_cols) {
        throw "Matrix must be square.";
    }
    CPrintDriverMatrix inverted(*this);
    inverted.Invert();
    return inverted;
}
