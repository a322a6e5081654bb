// SPDX-License-Identifier: BSD-3-Clause
#include "host/vnbase/ClippedLine.h"

#include <cstring>
#include <sstream>

#include <gtest/gtest.h>

#include "keldriver/ClipLine.h"
#include "keldriver/Utility.h"

Line lineOf(const std::string& text) {
    std::istringstream in(text);
    Line line;
    for (std::string x, y; std::getline(in, x, ',') && in >> y;) {
        line.push_back({std::stod(x), std::stod(y)});
    }
    return line;
}

PieceList clip(const Contours& region, const Line& line) {
    HT_PointerArray records(0, nullptr, HT_Free);
    const RgnList list = regionOracle::toList(region);
    const int pieceCount = HT_ClipLine(list.get(), line.data(), static_cast<int>(line.size()), &records);
    EXPECT_EQ(pieceCount, records.GetCount());
    PieceList pieces;
    for (int i = 0; i < pieceCount; ++i) {
        const auto* bytes = static_cast<const char*>(records.GetData(i));
        int32_t count = 0;
        std::memcpy(&count, bytes, sizeof count);
        Piece& piece = pieces.emplace_back();
        for (int32_t k = 0; k < count; ++k) {
            double xy[2];
            std::memcpy(xy, bytes + sizeof count + sizeof xy * static_cast<size_t>(k), sizeof xy);
            piece.push_back({static_cast<int32_t>(xy[0]), static_cast<int32_t>(xy[1])});
        }
    }
    records.Clear();
    return pieces;
}

std::string textOf(const PieceList& pieces) {
    std::ostringstream out;
    for (size_t i = 0; i < pieces.size(); ++i) {
        for (size_t k = 0; k < pieces[i].size(); ++k) {
            out << (k > 0 ? " " : i > 0 ? " | " : "") << pieces[i][k][0] << ',' << pieces[i][k][1];
        }
    }
    return out.str();
}
