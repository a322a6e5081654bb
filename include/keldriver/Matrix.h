// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <cstddef>
#include <cstdint>

#include "keldriver/Export.h"

/// A dense matrix of doubles with value semantics.
///
/// Rows and columns count from 0 unless a member says otherwise. Indices are not checked. An operation whose
/// operands do not fit throws a pointer to a constant message text (`catch (char const*)`) before it changes
/// anything; so does the construction of a matrix with a negative size. Where memory runs out, the standard
/// exceptions are thrown (`std::bad_alloc` and its kin).
///
/// Elements are stored by column in one block, which also holds a reference count. Copies never share a block;
/// a writer that finds the count above 1 takes a private copy first and gives up its share of the old block.
class KELDRIVER_API CPrintDriverMatrix {
public:
    /// One row of a matrix to read from; valid as long as the matrix is.
    class ConstRow {
    public:
        double operator[](int col) const { return matrix.element(row, col); }

    private:
        friend class CPrintDriverMatrix;
        ConstRow(const CPrintDriverMatrix& owner, int index) : matrix(owner), row(index) {}
        const CPrintDriverMatrix& matrix;
        int row;
    };

    /// One row of a matrix to write to; valid as long as the matrix is.
    class Row {
    public:
        /// Makes the matrix the only owner of its block first.
        double& operator[](int col) const {
            matrix.detach();
            return matrix.element(row, col);
        }

    private:
        friend class CPrintDriverMatrix;
        Row(CPrintDriverMatrix& owner, int index) : matrix(owner), row(index) {}
        CPrintDriverMatrix& matrix;
        int row;
    };

    /// A 1x1 matrix that holds 0.
    CPrintDriverMatrix();
    /// A matrix of zeros.
    CPrintDriverMatrix(int rows, int cols);
    /// A square matrix of zeros, with ones on its diagonal where `identity` says so.
    CPrintDriverMatrix(int size, bool identity);
    CPrintDriverMatrix(const CPrintDriverMatrix& other);
    CPrintDriverMatrix& operator=(const CPrintDriverMatrix& other);
    virtual ~CPrintDriverMatrix();

    int GetRows() const { return m_rows; }
    int GetColumns() const { return m_cols; }

    ConstRow operator[](int row) const { return {*this, row}; }
    Row operator[](int row) { return {*this, row}; }
    /// Stores `value`; always true.
    bool SetElement(int row, int col, double value);

    /// Adds a share in the block; every share is given up with `DecrementReferenceCount` or `DecrementAndRelease`.
    void IncrementReferenceCount();
    /// Gives up a share and never frees the block.
    void DecrementReferenceCount();
    /// The number of shares in the block; 0 once the block is freed.
    int GetReferenceCount() const;
    /// Gives up a share and frees the block with the last one. The matrix may then only be destroyed or assigned to.
    void DecrementAndRelease();

    CPrintDriverMatrix operator+(const CPrintDriverMatrix& other) const;
    CPrintDriverMatrix operator-(const CPrintDriverMatrix& other) const;
    CPrintDriverMatrix& operator+=(const CPrintDriverMatrix& other);
    CPrintDriverMatrix& operator-=(const CPrintDriverMatrix& other);
    /// The product, this matrix on the left.
    CPrintDriverMatrix operator*(const CPrintDriverMatrix& other) const;
    CPrintDriverMatrix operator*(double factor) const;
    /// Makes this matrix the product, itself on the left.
    CPrintDriverMatrix& operator*=(const CPrintDriverMatrix& other);
    CPrintDriverMatrix& operator*=(double factor);
    /// Compares sizes and then the bytes of the elements: 0.0 and -0.0 differ, a NaN equals the same NaN.
    bool operator==(const CPrintDriverMatrix& other) const;
    bool operator!=(const CPrintDriverMatrix& other) const { return !(*this == other); }

    /// Makes rows columns and columns rows.
    void Transpose();
    /// The transposed matrix, as a copy.
    CPrintDriverMatrix GetTransposed() const;

    /// A copy of the block of `rows` x `cols` elements from (row, col) on. A block that reaches the last row or
    /// column is refused like one that leaves the matrix.
    CPrintDriverMatrix ExtractSubMatrix(int row, int col, int rows, int cols) const;
    /// Writes `other` over the elements from (row, col) on; it must fit, which is not checked.
    void SetSubMatrix(int row, int col, const CPrintDriverMatrix& other);
    /// The diagonal of a square matrix, as one column.
    CPrintDriverMatrix ExtractDiagonal() const;

    /// Puts the rows of `other` below those of this matrix.
    void ConcatinateColumns(const CPrintDriverMatrix& other);
    CPrintDriverMatrix GetConcatinatedColumns(const CPrintDriverMatrix& other) const;
    /// Puts the columns of `other` after those of this matrix.
    void ConcatinateRows(const CPrintDriverMatrix& other);
    CPrintDriverMatrix GetConcatinatedRows(const CPrintDriverMatrix& other) const;
    /// Lengthens every column by one element, which makes a new last row.
    /// @param values  one for each column; borrowed
    void AddColumn(const double* values);
    /// Lengthens every row by one element, which makes a new last column.
    /// @param values  one for each row; borrowed
    void AddRow(const double* values);

    /// Makes the matrix square by leaving out rows or columns: of each group of as many as the smaller size goes
    /// into the larger one, the first stays.
    void MakeSquare();
    CPrintDriverMatrix GetSquareMatrix() const;
    /// The product of this matrix and its transpose, in this order.
    CPrintDriverMatrix Covariant() const;

    /// The smallest and the largest element; 0 and 0 when there are none.
    void GetNumericRange(double& min, double& max) const;
    /// Maps the elements linearly so that their range becomes `lo` to `hi`. Equal elements become NaN or infinite.
    void Normalise(double lo, double hi);
    CPrintDriverMatrix GetNormalised(double lo, double hi) const;

    /// The sum of a row's elements; 0 when there are none.
    double SumRow(int row) const;
    /// The sum of a column's elements; 0 when there are none.
    double SumColumn(int col) const;
    /// The sum of the squares of a row's elements; 0 when there are none.
    double SumRowSquared(int row) const;
    /// The sum of the squares of a column's elements; 0 when there are none.
    double SumColumnSquared(int col) const;
    /// The smallest element of a row; 0 when there are none.
    double GetRowMin(int row) const;
    /// The largest element of a row; 0 when there are none.
    double GetRowMax(int row) const;
    /// The smallest element of a column; 0 when there are none.
    double GetColumnMin(int col) const;
    /// The largest element of a column; 0 when there are none.
    double GetColumnMax(int col) const;

    /// A copy without one column and one row, which count from 1. The last one goes where there is none of that
    /// number.
    CPrintDriverMatrix resid(int col, int row) const;
    /// The determinant up to 2x2. From three columns on, the first column times its minors, all added without
    /// alternating signs: callers rely on that, so it is not the determinant there.
    double calculate() const;
    /// `calculate` of the minor `resid(i, j)`, its sign changed when i + j is even, in single precision.
    double residue(int i, int j) const;

    /// Inverts a square matrix in place. A matrix found to be singular (no pivot of 0.0001 left) stays as far as the
    /// elimination got, and nothing tells so. A matrix that is not square stays as it is.
    void Invert();
    /// The inverse of a square matrix, with the same remark.
    CPrintDriverMatrix GetInverted() const;

protected:
    size_t index(int row, int col) const {
        return static_cast<size_t>(row) + static_cast<size_t>(col) * static_cast<size_t>(m_rows);
    }
    double element(int row, int col) const { return m_data[index(row, col)]; }
    double& element(int row, int col) { return m_data[index(row, col)]; }
    /// Makes this matrix the only owner of its block, before a write.
    void detach() {
        if (GetReferenceCount() > 1) {
            takePrivateCopy();
        }
    }

    int m_rows;
    int m_cols;
    double* m_data; ///< rows x cols elements by column, then a slot whose first four bytes are the reference count

private:
    KELDRIVER_LOCAL size_t elementCount() const { return static_cast<size_t>(m_rows) * static_cast<size_t>(m_cols); }
    KELDRIVER_LOCAL void setReferenceCount(int32_t count);
    KELDRIVER_LOCAL void swap(CPrintDriverMatrix& other) noexcept;
    KELDRIVER_LOCAL void exchangeRows(int first, int second);
    KELDRIVER_LOCAL void exchangeColumns(int first, int second);
    KELDRIVER_LOCAL void eliminate(int pivot);
    void takePrivateCopy();
};
