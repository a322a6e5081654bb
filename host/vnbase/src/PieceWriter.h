// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <cstdint>
#include <utility>
#include <vector>

#include "keldriver/Types.h"

namespace vnbase {

/// Pieces of a polyline in device coordinates.
struct Pieces {
    std::vector<int32_t> coordinates; ///< x and y of each vertex, piece after piece
    std::vector<int32_t> counts;      ///< vertices of each piece
};

/// Writes pieces vertex by vertex, rounded.
class PieceWriter {
public:
    bool isOpen() const { return m_count != 0; }
    /// Continues the piece, or starts one.
    void add(const HT_Double_Point& p);
    /// Ends the piece, if there is one.
    void close();
    /// Hands over the closed pieces.
    Pieces takePieces() { return std::move(m_pieces); }

private:
    Pieces m_pieces;
    int32_t m_count = 0; ///< vertices of the open piece
};

} // namespace vnbase
