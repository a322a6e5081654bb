// SPDX-License-Identifier: BSD-3-Clause
#include "region/modules/FakeModule.h"

#include <cstdlib>
#include <cstring>

// Compiled once for each kind of module; the build leaves out what a module lacks.
extern "C" {

extern FakeModule fakeModule;
FakeModule fakeModule;

/// No program defines the first: the module loads where functions are bound when they are called.
void definedNowhere();
void callDefinedNowhere();
void callDefinedNowhere() {
    definedNowhere();
}

#ifndef WITHOUT_CLIP
static int32_t* bufferOf(const int32_t* values, size_t count) {
    auto* const buffer = static_cast<int32_t*>(std::malloc(count * sizeof(int32_t)));
    std::memcpy(buffer, values, count * sizeof(int32_t));
    return buffer;
}

int clipPolylineByPolygons(const HT_Double_Point* pts, int n, const HT_ClipRgn* rgn, int32_t** coords,
                           int32_t** counts) {
    fakeModule.points = pts;
    fakeModule.pointCount = n;
    fakeModule.region = rgn;
    fakeModule.buffersCameNull = *coords == nullptr && *counts == nullptr;
    if (fakeModule.coords != nullptr) {
        fakeModule.given[0] = *coords = bufferOf(fakeModule.coords, fakeModule.coordCount);
        fakeModule.given[1] = *counts = bufferOf(fakeModule.counts, fakeModule.countCount);
    }
    return fakeModule.result;
}
#endif

#ifndef WITHOUT_FREE
void freeClipPolylineBuffer(void* buffer) {
    if (fakeModule.releaseCount < 2) {
        fakeModule.released[fakeModule.releaseCount] = buffer;
    }
    ++fakeModule.releaseCount;
    std::free(buffer);
}
#endif
}
