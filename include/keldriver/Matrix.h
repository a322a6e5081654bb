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
        /// The element of this row in a column.
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
        /// The element of this row in a column, to read or write; makes the matrix the only owner of its block first.
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
    /// A copy with a block of its own.
    CPrintDriverMatrix(const CPrintDriverMatrix& other);
    /// Takes over size and elements of `other`, in a new block; gives up the share in the old one.
    CPrintDriverMatrix& operator=(const CPrintDriverMatrix& other);
    /// Gives up this matrix's share in its block, as `DecrementAndRelease` does.
    virtual ~CPrintDriverMatrix();

    /// The number of rows.
    int GetRows() const { return m_rows; }
    /// The number of columns.
    int GetColumns() const { return m_cols; }

    /// A row to read from: `matrix[row][col]` is an element.
    ConstRow operator[](int row) const { return {*this, row}; }
    /// A row to read from or write to.
    Row operator[](int row) { return {*this, row}; }
    /// Stores `value` as an element; always true.
    bool SetElement(int row, int col, double value);

    /// Adds a share in the block; every share is given up with `DecrementReferenceCount` or `DecrementAndRelease`.
    void IncrementReferenceCount();
    /// Gives up a share and never frees the block.
    void DecrementReferenceCount();
    /// The number of shares in the block; 0 once the block is freed.
    int GetReferenceCount() const;
    /// Gives up a share and frees the block with the last one. The matrix may then only be destroyed or assigned to.
    void DecrementAndRelease();

    /// The sum, element by element; throws where the sizes differ.
    CPrintDriverMatrix operator+(const CPrintDriverMatrix& other) const;
    /// The difference, element by element; throws where the sizes differ.
    CPrintDriverMatrix operator-(const CPrintDriverMatrix& other) const;
    /// Adds `other` element by element; throws where the sizes differ.
    CPrintDriverMatrix& operator+=(const CPrintDriverMatrix& other);
    /// Subtracts `other` element by element; throws where the sizes differ.
    CPrintDriverMatrix& operator-=(const CPrintDriverMatrix& other);
    /// The product, this matrix on the left; throws unless it has as many columns as `other` has rows.
    CPrintDriverMatrix operator*(const CPrintDriverMatrix& other) const;
    /// A copy with every element multiplied by `factor`.
    CPrintDriverMatrix operator*(double factor) const;
    /// Makes this matrix the product, itself on the left; throws as the product does.
    CPrintDriverMatrix& operator*=(const CPrintDriverMatrix& other);
    /// Multiplies every element by `factor`.
    CPrintDriverMatrix& operator*=(double factor);
    /// Compares sizes and then the bytes of the elements: 0.0 and -0.0 differ, a NaN equals the same NaN.
    bool operator==(const CPrintDriverMatrix& other) const;
    /// The opposite of `==`.
    bool operator!=(const CPrintDriverMatrix& other) const { return !(*this == other); }

    /// Makes rows columns and columns rows.
    void Transpose();
    /// The transposed matrix, as a copy.
    CPrintDriverMatrix GetTransposed() const;

    /// A copy of the block of `rows` x `cols` elements from (row, col) on. A block that reaches the last row or column
    /// is refused just like one that exceeds the matrix: both make it throw.
    CPrintDriverMatrix ExtractSubMatrix(int row, int col, int rows, int cols) const;
    /// Writes `other` over the elements from (row, col) on; it must fit, which is not checked.
    void SetSubMatrix(int row, int col, const CPrintDriverMatrix& other);
    /// The diagonal of a square matrix, as one column; throws for any other matrix.
    CPrintDriverMatrix ExtractDiagonal() const;

    /// Lengthens the columns: puts the rows of `other` below those of this matrix. Throws unless both have the same
    /// number of columns.
    void ConcatinateColumns(const CPrintDriverMatrix& other);
    /// What `ConcatinateColumns` would make of this matrix, as a new one.
    CPrintDriverMatrix GetConcatinatedColumns(const CPrintDriverMatrix& other) const;
    /// Lengthens the rows: puts the columns of `other` after those of this matrix. Throws unless both have the same
    /// number of rows.
    void ConcatinateRows(const CPrintDriverMatrix& other);
    /// What `ConcatinateRows` would make of this matrix, as a new one.
    CPrintDriverMatrix GetConcatinatedRows(const CPrintDriverMatrix& other) const;
    /// Lengthens every column by one element, which makes a new last row.
    /// @param values  one for each column; borrowed
    void AddColumn(const double* values);
    /// Lengthens every row by one element, which makes a new last column.
    /// @param values  one for each row; borrowed
    void AddRow(const double* values);

    /// Makes the matrix square by leaving out rows or columns: it keeps the first of every n, where n is how many times
    /// the smaller size goes into the larger one.
    void MakeSquare();
    /// What `MakeSquare` would make of this matrix, as a new one.
    CPrintDriverMatrix GetSquareMatrix() const;
    /// The product of this matrix and its transpose, in this order.
    CPrintDriverMatrix Covariant() const;

    /// The smallest and the largest element; 0 and 0 when there are none.
    void GetNumericRange(double& min, double& max) const;
    /// Maps the elements linearly so that their range becomes `lo` to `hi`. Equal elements become NaN or infinite.
    void Normalise(double lo, double hi);
    /// What `Normalise` would make of this matrix, as a new one.
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

    /// A copy without one column and one row, which count from 1. A number that does not exist removes the last one.
    CPrintDriverMatrix resid(int col, int row) const;
    /// The determinant up to 2x2. From three columns on it is not the determinant: the elements of the first column
    /// times their minors are all added, without alternating signs, which is part of the interface. Elements that a
    /// matrix is too small to have count as zero.
    double calculate() const;
    /// `calculate` of the minor `resid(i, j)`, its sign changed when i + j is even, in single precision.
    double residue(int i, int j) const;

    /// Inverts a square matrix in place. A matrix found to be singular (no pivot of 0.0001 left) is left half
    /// eliminated, and the caller is not told. A matrix that is not square stays as it is.
    void Invert();
    /// What `Invert` makes of a copy; throws unless the matrix is square.
    CPrintDriverMatrix GetInverted() const;

protected:
    /// Where an element lies in the block.
    size_t index(int row, int col) const {
        return static_cast<size_t>(row) + static_cast<size_t>(col) * static_cast<size_t>(m_rows);
    }
    /// An element to read.
    double element(int row, int col) const { return m_data[index(row, col)]; }
    /// An element to write, for a matrix that is the only owner of its block.
    double& element(int row, int col) { return m_data[index(row, col)]; }
    /// Makes this matrix the only owner of its block, before a write.
    void detach() {
        if (GetReferenceCount() > 1) {
            takePrivateCopy();
        }
    }

    int m_rows;     ///< number of rows
    int m_cols;     ///< number of columns
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
