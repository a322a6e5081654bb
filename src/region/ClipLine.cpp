// SPDX-License-Identifier: BSD-3-Clause
#include "keldriver/ClipLine.h"

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <cstring>

#include "port/MallocPtr.h"
#include "region/GeometryModule.h"

using namespace KelDriver::Internal;

namespace {

// The buffers of one call of the module; released whatever becomes of its pieces.
struct ModuleBuffers {
    int32_t* coords = nullptr;
    int32_t* counts = nullptr;

    ModuleBuffers() = default;
    ModuleBuffers(const ModuleBuffers&) = delete;
    ModuleBuffers& operator=(const ModuleBuffers&) = delete;
    ~ModuleBuffers() {
        const ClipBufferFree release = g_ClipFree != nullptr ? g_ClipFree : std::free;
        release(coords);
        release(counts);
    }
};

// A piece as the driver gets it; null when there is no memory for it.
MallocPtr<void> newPiece(int32_t count, size_t vertexCount, const int32_t* coords) {
    MallocPtr<void> piece(HT_Malloc(sizeof count + vertexCount * sizeof(HT_Double_Point)));
    if (piece == nullptr) {
        return piece;
    }
    auto* bytes = static_cast<std::byte*>(piece.get());
    std::memcpy(bytes, &count, sizeof count);
    bytes += sizeof count;
    for (size_t i = 0; i < vertexCount; ++i) {
        const HT_Double_Point vertex{static_cast<double>(coords[2 * i]), static_cast<double>(coords[2 * i + 1])};
        std::memcpy(bytes, &vertex, sizeof vertex); // not aligned, hence no array
        bytes += sizeof vertex;
    }
    return piece;
}

} // namespace

int32_t HT_ClipLine(const HT_ClipRgn* rgn, const HT_Double_Point* pts, int n, I_HT_PointerArray* out) {
    if (g_ClipProc == nullptr) {
        return 0;
    }
    ModuleBuffers buffers;
    const int pieceCount = g_ClipProc(pts, n, rgn, &buffers.coords, &buffers.counts);
    const int32_t* coords = buffers.coords;
    for (int i = 0; i < pieceCount; ++i) {
        const int32_t count = buffers.counts[i];
        const auto vertexCount = static_cast<size_t>(std::max(count, 0));
        MallocPtr<void> piece = newPiece(count, vertexCount, coords);
        coords += 2 * vertexCount;
        out->Insert(i, piece.get());
        static_cast<void>(piece.release()); // the driver's now
    }
    return pieceCount;
}
