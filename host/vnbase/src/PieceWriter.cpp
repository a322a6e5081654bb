// SPDX-License-Identifier: BSD-3-Clause
#include "PieceWriter.h"

#include "PixelRounding.h"

namespace vnbase {

void PieceWriter::add(const HT_Double_Point& p) {
    m_pieces.coordinates.push_back(roundToInt32(p.x));
    m_pieces.coordinates.push_back(roundToInt32(p.y));
    ++m_count;
}

void PieceWriter::close() {
    if (isOpen()) {
        m_pieces.counts.push_back(m_count);
        m_count = 0;
    }
}

} // namespace vnbase
