#include "host/vnbase/ClippedLine.h"

#include <cstring>
#include <sstream>

#include <dlfcn.h>

#include <gtest/gtest.h>

#include "keldriver/ClipLine.h"
#include "keldriver/Utility.h"

const Module& module() {
    static void* const handle = dlopen(VNBASE_MODULE, RTLD_NOW | RTLD_LOCAL);
    static const Module loaded{reinterpret_cast<ClipProc>(dlsym(handle, "clipPolylineByPolygons")),
                               reinterpret_cast<FreeProc>(dlsym(handle, "freeClipPolylineBuffer"))};
    return loaded;
}

PieceList clipWithModule(const RegionModel& region, const Line& line) {
    int32_t* coordinates = nullptr;
    int32_t* counts = nullptr;
    const RgnList list = listOf(region);
    const int pieceCount = module().clip(line.data(), static_cast<int>(line.size()), list.get(), &coordinates, &counts);
    EXPECT_EQ(pieceCount > 0, coordinates != nullptr && counts != nullptr);
    PieceList pieces;
    const int32_t* next = coordinates;
    for (int i = 0; i < pieceCount; ++i) {
        Piece piece(static_cast<size_t>(counts[i]));
        std::memcpy(piece.data(), next, piece.size() * sizeof(piece[0]));
        next += 2 * piece.size();
        pieces.push_back(piece);
    }
    module().free(coordinates);
    module().free(counts);
    return pieces;
}

PieceList clipWithLibrary(const RegionModel& region, const Line& line) {
    HT_PointerArray records(0, nullptr, HT_Free);
    const RgnList list = listOf(region);
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
