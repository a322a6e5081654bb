// SPDX-License-Identifier: BSD-3-Clause
#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <functional>
#include <random>
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

Rows rowsOf(const Matrix& matrix) {
    Rows rows;
    for (int r = 0; r < matrix.GetRows(); ++r) {
        rows.emplace_back();
        for (int c = 0; c < matrix.GetColumns(); ++c) {
            rows.back().push_back(matrix[r][c]);
        }
    }
    return rows;
}

std::string messageOf(const std::function<void()>& act) {
    try {
        act();
    } catch (const char* message) {
        return message;
    }
    return "";
}

const Rows twoByThree = {{1, 2, 3}, {4, 5, 6}};
const Rows threeByTwo = {{1, 4}, {2, 5}, {3, 6}};

template <typename Act>
Matrix changed(const Rows& rows, Act act) {
    Matrix matrix = matrixOf(rows);
    act(matrix);
    return matrix;
}

TEST(MatrixTest, Operations) {
    const Matrix a = matrixOf(twoByThree);
    const Matrix b = matrixOf(threeByTwo);
    const double added[] = {7, 8, 9};
    const struct {
        const char* name;
        Matrix result;
        Rows expected;
    } rows[] = {
        {"default", Matrix(), {{0}}},
        {"identity", Matrix(2, true), {{1, 0}, {0, 1}}},
        {"no identity", Matrix(2, false), {{0, 0}, {0, 0}}},
        {"sum", a + a, {{2, 4, 6}, {8, 10, 12}}},
        {"difference with itself", changed(twoByThree, [](Matrix& m) { m.operator-=(m); }), {{0, 0, 0}, {0, 0, 0}}},
        {"product", a * b, {{14, 32}, {32, 77}}},
        {"product in place, from the right",
         changed(threeByTwo, [&](Matrix& m) { m *= a; }),
         {{17, 22, 27}, {22, 29, 36}, {27, 36, 45}}},
        {"factor", a * -2.0, {{-2, -4, -6}, {-8, -10, -12}}},
        {"transposed", a.GetTransposed(), threeByTwo},
        {"transposed in place", changed(threeByTwo, [](Matrix& m) { m.Transpose(); }), twoByThree},
        {"sub-matrix", a.ExtractSubMatrix(0, 1, 1, 1), {{2}}},
        {"sub-matrix set",
         changed(twoByThree,
                 [](Matrix& m) {
                     m.SetSubMatrix(0, 1, matrixOf({{8, 9}, {6, 7}}));
                 }),
         {{1, 8, 9}, {4, 6, 7}}},
        {"diagonal", matrixOf({{1, 2}, {3, 4}}).ExtractDiagonal(), {{1}, {4}}},
        {"columns lengthened by a matrix", a.GetConcatinatedColumns(a), {{1, 2, 3}, {4, 5, 6}, {1, 2, 3}, {4, 5, 6}}},
        {"rows lengthened by itself",
         changed(twoByThree, [](Matrix& m) { m.ConcatinateRows(m); }),
         {{1, 2, 3, 1, 2, 3}, {4, 5, 6, 4, 5, 6}}},
        {"columns lengthened by values",
         changed(twoByThree, [&](Matrix& m) { m.AddColumn(added); }),
         {{1, 2, 3}, {4, 5, 6}, {7, 8, 9}}},
        {"rows lengthened by values",
         changed(twoByThree, [&](Matrix& m) { m.AddRow(added); }),
         {{1, 2, 3, 7}, {4, 5, 6, 8}}},
        {"square of a wide one", matrixOf({{1, 2, 3, 4, 5}, {6, 7, 8, 9, 10}}).GetSquareMatrix(), {{1, 3}, {6, 8}}},
        {"square of a nearly square one", changed(twoByThree, [](Matrix& m) { m.MakeSquare(); }), {{1, 2}, {4, 5}}},
        {"covariant", a.Covariant(), {{14, 32}, {32, 77}}},
        {"normalised", matrixOf({{2, 4}, {6, 10}}).GetNormalised(-1, 1), {{-1, -0.5}, {0, 1}}},
        {"minor, counted from 1, column first", a.resid(3, 1), {{4, 5}}},
        {"minor of no such row or column", a.resid(0, 3), {{1, 2}}},
        {"inverse of one element", matrixOf({{4}}).GetInverted(), {{0.25}}},
        {"inverse that stays as it is", changed(twoByThree, [](Matrix& m) { m.Invert(); }), twoByThree},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(rowsOf(row.result), row.expected) << row.name;
    }
}

TEST(MatrixTest, RefusesWhatDoesNotFit) {
    Matrix a = matrixOf(twoByThree);
    const Matrix b = matrixOf(threeByTwo);
    const std::string sizes = "Cannot concatenate matrices, not same size";
    const std::string outside = "Sub matrix is not contained in source";
    const struct {
        const char* name;
        std::function<void()> act;
        std::string message;
    } rows[] = {
        {"sum", [&] { a + b; }, "Invalid operation"},
        {"difference in place", [&] { a -= b; }, "Invalid operation"},
        {"product", [&] { a* a; }, "Matrices do not have common size"},
        {"product in place", [&] { a *= a; }, "Matrices do not have common size"},
        {"inverse", [&] { a.GetInverted(); }, "Matrix must be square."},
        {"diagonal", [&] { a.ExtractDiagonal(); }, "Can only extract diagonal from square matrix"},
        {"columns", [&] { a.ConcatinateColumns(b); }, sizes},
        {"rows", [&] { a.GetConcatinatedRows(b); }, sizes},
        {"whole matrix", [&] { a.ExtractSubMatrix(0, 0, 2, 3); }, outside},
        {"up to the last row", [&] { a.ExtractSubMatrix(1, 0, 1, 1); }, outside},
        {"before the first column", [&] { a.ExtractSubMatrix(0, -1, 1, 1); }, outside},
        {"far outside", [&] { a.ExtractSubMatrix(INT32_MAX, 0, INT32_MAX, 1); }, outside},
        {"negative size", [&] { Matrix(-1, 2); }, "Invalid matrix size"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(messageOf(row.act), row.message) << row.name;
        EXPECT_EQ(rowsOf(a), twoByThree) << row.name;
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
    std::vector<Rows> cases = {{{2, 0, 0}, {0, 4, 0}, {0, 0, 8}}, {{0, 1, 0}, {0, 0, 1}, {1, 0, 0}}};
    std::mt19937 random(5);
    std::uniform_real_distribution<double> elements(-10, 10);
    for (size_t i = 0; i < 300; ++i) {
        const size_t size = 1 + i % 5;
        cases.emplace_back(size, std::vector<double>(size));
        for (auto& row : cases.back()) {
            std::generate(row.begin(), row.end(), [&] { return elements(random); });
        }
    }
    for (const Rows& rows : cases) {
        const Matrix product = matrixOf(rows) * matrixOf(rows).GetInverted();
        for (int r = 0; r < product.GetRows(); ++r) {
            for (int c = 0; c < product.GetColumns(); ++c) {
                ASSERT_NEAR(product[r][c], r == c ? 1 : 0, 1e-7) << ::testing::PrintToString(rows);
            }
        }
    }
}

TEST(MatrixTest, SingularMatricesStayAsFarAsTheEliminationGot) {
    const Rows tiny = {{5e-5, 0}, {0, 1e-5}};
    EXPECT_EQ(rowsOf(matrixOf(tiny).GetInverted()), tiny);
    EXPECT_EQ(rowsOf(matrixOf({{4, 2}, {2, 1}}).GetInverted()), (Rows{{0.25, 0.5}, {-0.5, 0}}));
    EXPECT_EQ(rowsOf(matrixOf({{2, -2}, {2, -2}}).GetInverted()), (Rows{{0.5, -1}, {-1, 0}})) << "the first pivot";
    const auto smallestPivot = static_cast<double>(0.0001F);
    EXPECT_EQ(rowsOf(matrixOf({{smallestPivot}}).GetInverted()), (Rows{{1 / smallestPivot}}));
    const double tooSmall = std::nextafter(smallestPivot, 0);
    EXPECT_EQ(rowsOf(matrixOf({{tooSmall}}).GetInverted()), (Rows{{tooSmall}}));
}

TEST(MatrixTest, WritersLeaveASharedBlock) {
    Matrix matrix = matrixOf(twoByThree);
    EXPECT_EQ(Matrix(matrix).GetReferenceCount(), 1);
    const double* block = &matrix[0][0];
    matrix.IncrementReferenceCount();
    ASSERT_EQ(matrix.GetReferenceCount(), 2);
    matrix.SetElement(0, 0, 9);
    EXPECT_NE(&matrix[0][0], block);
    EXPECT_EQ(matrix.GetReferenceCount(), 1);
    EXPECT_EQ(block[0], 1);
    int32_t count = 0;
    std::memcpy(&count, block + 6, sizeof count); // behind the elements
    EXPECT_EQ(count, 1) << "the writer's share";
    delete[] block;

    EXPECT_NE(matrix, matrixOf(twoByThree));
    matrix[0][0] = 1;
    EXPECT_EQ(matrix, matrixOf(twoByThree));
    EXPECT_NE(matrixOf({{0.0}}), matrixOf({{-0.0}})) << "bytes are compared";
    matrix.DecrementAndRelease();
    EXPECT_EQ(matrix.GetReferenceCount(), 0);
    matrix = matrixOf({{3}});
    EXPECT_EQ(rowsOf(matrix), (Rows{{3}}));
}

} // namespace
