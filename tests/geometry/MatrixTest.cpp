// SPDX-License-Identifier: BSD-3-Clause
#include <cmath>
#include <cstdint>
#include <cstring>
#include <functional>
#include <random>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "keldriver/Matrix.h"

namespace {

using Matrix = CPrintDriverMatrix;
using Rows = std::vector<std::vector<double>>;

Matrix matrixOf(const Rows& rows) {
    Matrix matrix(static_cast<int>(rows.size()), rows.empty() ? 0 : static_cast<int>(rows[0].size()));
    for (size_t r = 0; r < rows.size(); ++r) {
        for (size_t c = 0; c < rows[r].size(); ++c) {
            matrix.SetElement(static_cast<int>(r), static_cast<int>(c), rows[r][c]);
        }
    }
    return matrix;
}

/// The rows, "1 2 3, 4 5 6".
std::string textOf(const Matrix& matrix) {
    std::ostringstream text;
    for (int r = 0; r < matrix.GetRows(); ++r) {
        for (int c = 0; c < matrix.GetColumns(); ++c) {
            text << (c > 0 ? " " : r > 0 ? ", " : "") << matrix[r][c];
        }
    }
    return text.str();
}

/// What a calculation gives, or what it says when it refuses.
std::string outcomeOf(const std::function<Matrix()>& calculate) {
    try {
        return textOf(calculate());
    } catch (const char* message) {
        return message;
    }
}

TEST(MatrixTest, OperationsGiveOrRefuse) {
    const Matrix a = matrixOf({{1, 2, 3}, {4, 5, 6}});
    const Matrix b = matrixOf({{1, 4}, {2, 5}, {3, 6}});
    const Matrix square = matrixOf({{8, 9}, {6, 7}});
    const Matrix wide = matrixOf({{1, 2, 3, 4, 5}, {6, 7, 8, 9, 10}});
    const double added[] = {7, 8, 9};
    const auto changed = [](Matrix m, auto change) {
        change(m);
        return m;
    };
    const struct {
        const char* name;
        std::function<Matrix()> calculate;
        const char* outcome;
    } rows[] = {
        {"default", [] { return Matrix(); }, "0"},
        {"identity", [] { return Matrix(2, true); }, "1 0, 0 1"},
        {"no identity", [] { return Matrix(2, false); }, "0 0, 0 0"},
        {"negative size", [] { return Matrix(-1, 2); }, "Invalid matrix size"},
        {"sum", [&] { return a + a; }, "2 4 6, 8 10 12"},
        {"sum of others", [&] { return a + b; }, "Invalid operation"},
        {"sum and difference", [&] { return a + a - a; }, "1 2 3, 4 5 6"},
        {"difference", [&] { return changed(a, [](Matrix& m) { m.operator-=(m); }); }, "0 0 0, 0 0 0"},
        {"difference of others", [&] { return changed(a, [&](Matrix& m) { m -= b; }); }, "Invalid operation"},
        {"product", [&] { return a * b; }, "14 32, 32 77"},
        {"from the right", [&] { return changed(b, [&](Matrix& m) { m *= a; }); }, "17 22 27, 22 29 36, 27 36 45"},
        {"product of others", [&] { return a * a; }, "Matrices do not have common size"},
        {"factor", [&] { return a * -2.0; }, "-2 -4 -6, -8 -10 -12"},
        {"transposed", [&] { return a.GetTransposed(); }, "1 4, 2 5, 3 6"},
        {"in place", [&] { return changed(b, [](Matrix& m) { m.Transpose(); }); }, "1 2 3, 4 5 6"},
        {"sub-matrix", [&] { return a.ExtractSubMatrix(0, 1, 1, 1); }, "2"},
        {"all of it", [&] { return a.ExtractSubMatrix(0, 0, 2, 3); }, "Sub matrix is not contained in source"},
        {"last row", [&] { return a.ExtractSubMatrix(1, 0, 1, 1); }, "Sub matrix is not contained in source"},
        {"before it", [&] { return a.ExtractSubMatrix(0, -1, 1, 1); }, "Sub matrix is not contained in source"},
        {"far", [&] { return a.ExtractSubMatrix(INT32_MAX, 0, INT32_MAX, 1); },
         "Sub matrix is not contained in source"},
        {"set", [&] { return changed(a, [&](Matrix& m) { m.SetSubMatrix(0, 1, square); }); }, "1 8 9, 4 6 7"},
        {"diagonal", [&] { return square.ExtractDiagonal(); }, "8, 7"},
        {"no diagonal", [&] { return a.ExtractDiagonal(); }, "Can only extract diagonal from square matrix"},
        {"longer columns", [&] { return a.GetConcatinatedColumns(a); }, "1 2 3, 4 5 6, 1 2 3, 4 5 6"},
        {"others' columns", [&] { return a.GetConcatinatedColumns(b); }, "Cannot concatenate matrices, not same size"},
        {"longer rows", [&] { return changed(a, [](Matrix& m) { m.ConcatinateRows(m); }); },
         "1 2 3 1 2 3, 4 5 6 4 5 6"},
        {"others' rows", [&] { return a.GetConcatinatedRows(b); }, "Cannot concatenate matrices, not same size"},
        {"added row", [&] { return changed(a, [&](Matrix& m) { m.AddColumn(added); }); }, "1 2 3, 4 5 6, 7 8 9"},
        {"added column", [&] { return changed(a, [&](Matrix& m) { m.AddRow(added); }); }, "1 2 3 7, 4 5 6 8"},
        {"square", [&] { return wide.GetSquareMatrix(); }, "1 3, 6 8"},
        {"square in place", [&] { return changed(a, [](Matrix& m) { m.MakeSquare(); }); }, "1 2, 4 5"},
        {"covariant", [&] { return a.Covariant(); }, "14 32, 32 77"},
        {"normalised", [&] { return square.GetNormalised(-1, 2); }, "1 2, -1 0"},
        {"minor, counted from 1, column first", [&] { return a.resid(3, 1); }, "4 5"},
        {"minor of no such row or column", [&] { return a.resid(0, 3); }, "1 2"},
        {"inverse of one element", [] { return matrixOf({{4}}).GetInverted(); }, "0.25"},
        {"no inverse", [&] { return a.GetInverted(); }, "Matrix must be square."},
        {"inverse that stays as it is", [&] { return changed(a, [](Matrix& m) { m.Invert(); }); }, "1 2 3, 4 5 6"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(outcomeOf(row.calculate), row.outcome) << row.name;
        EXPECT_EQ(textOf(a), "1 2 3, 4 5 6") << row.name;
    }
}

TEST(MatrixTest, Figures) {
    const Matrix m = matrixOf({{1, -2, 3}, {4, 5, -6}, {7, 8, 10}});
    double min = 0;
    double max = 0;
    m.GetNumericRange(min, max);
    double one[2] = {};
    matrixOf({{7}}).GetNumericRange(one[0], one[1]);
    const struct {
        const char* name;
        double value;
        double expected;
    } rows[] = {
        {"min of one", one[0], 7},
        {"max of one", one[1], 7},
        {"min", min, -6},
        {"max", max, 10},
        {"row sum", m.SumRow(1), 3},
        {"column sum", m.SumColumn(1), 11},
        {"row squares", m.SumRowSquared(0), 14},
        {"column squares", m.SumColumnSquared(2), 145},
        {"row min", m.GetRowMin(1), -6},
        {"row max", m.GetRowMax(1), 5},
        {"column min", m.GetColumnMin(1), -2},
        {"column max", m.GetColumnMax(2), 10},
        {"one element", matrixOf({{-7}}).calculate(), -7},
        {"two columns", matrixOf({{1, 2}, {3, 5}}).calculate(), -1},
        {"three columns, all added", m.calculate(), 1 * (50 + 48) + 4 * (-20 - 24) + 7 * (12 - 15)},
        {"residue, even", Matrix(3, true).residue(1, 1), -1},
        {"residue, odd: without column 1 and row 2", m.residue(1, 2), -44},
        {"residue in single precision", matrixOf({{0.1, 0}, {0, 0.3}}).residue(2, 2), static_cast<double>(-0.1F)},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(row.value, row.expected) << row.name;
    }
}

TEST(MatrixTest, InverseUndoesTheMatrix) {
    std::vector<Matrix> cases = {matrixOf({{2, 0, 0}, {0, 4, 0}, {0, 0, 8}}),
                                 matrixOf({{0, 1, 0}, {0, 0, 1}, {1, 0, 0}})};
    std::mt19937 random(5);
    std::uniform_real_distribution<double> elements(-10, 10);
    for (int i = 0; i < 300; ++i) {
        const int size = 1 + i % 5;
        Matrix& matrix = cases.emplace_back(size, size);
        for (int k = 0; k < size * size; ++k) {
            matrix.SetElement(k / size, k % size, elements(random));
        }
    }
    for (const Matrix& matrix : cases) {
        const Matrix product = matrix * matrix.GetInverted();
        for (int r = 0; r < product.GetRows(); ++r) {
            for (int c = 0; c < product.GetColumns(); ++c) {
                ASSERT_NEAR(product[r][c], r == c ? 1 : 0, 1e-7) << textOf(matrix);
            }
        }
    }
}

TEST(MatrixTest, SingularMatricesStayAsFarAsTheEliminationGot) {
    EXPECT_EQ(textOf(matrixOf({{4, 2}, {2, 1}}).GetInverted()), "0.25 0.5, -0.5 0");
    EXPECT_EQ(textOf(matrixOf({{2, -2}, {2, -2}}).GetInverted()), "0.5 -1, -1 0") << "the first pivot";
    const auto smallest = static_cast<double>(0.0001F);
    const double below = std::nextafter(smallest, 0);
    EXPECT_EQ(matrixOf({{smallest}}).GetInverted(), matrixOf({{1 / smallest}}));
    for (const Matrix& matrix : {matrixOf({{below}}), matrixOf({{5e-5, 0}, {0, 1e-5}})}) {
        EXPECT_EQ(matrix.GetInverted(), matrix);
    }
}

TEST(MatrixTest, WritersLeaveASharedBlock) {
    const Matrix original = matrixOf({{1, 2, 3}, {4, 5, 6}});
    Matrix matrix = matrixOf({{1, 2, 3}, {4, 5, 6}});
    EXPECT_EQ(Matrix(matrix).GetReferenceCount(), 1);
    const double* block = &matrix[0][0];
    matrix.IncrementReferenceCount();
    ASSERT_EQ(matrix.GetReferenceCount(), 2);
    matrix.SetElement(0, 0, 9);
    EXPECT_NE(&matrix[0][0], block);
    EXPECT_EQ(matrix.GetReferenceCount(), 1);
    EXPECT_EQ(block[0], 1);
    int32_t count = 0;
    std::memcpy(&count, block + 6, sizeof count); // after the elements
    EXPECT_EQ(count, 1) << "the writer's share";
    delete[] block;

    EXPECT_NE(matrix, original);
    matrix[0][0] = 1;
    EXPECT_EQ(matrix, original);
    EXPECT_NE(matrixOf({{0.0}}), matrixOf({{-0.0}})) << "bytes are compared";
    matrix.DecrementAndRelease();
    EXPECT_EQ(matrix.GetReferenceCount(), 0);
    matrix = matrixOf({{3}});
    EXPECT_EQ(textOf(matrix), "3");
}

} // namespace
