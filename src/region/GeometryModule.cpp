// SPDX-License-Identifier: BSD-3-Clause
#include "region/GeometryModule.h"

#include <dlfcn.h>

void* g_GeMoudle = nullptr;
ClipPolylineProc g_ClipProc = nullptr;
ClipBufferFree g_ClipFree = nullptr;

namespace {

[[gnu::constructor]] void openModuleAtLoad() {
    InitInstance();
}

[[gnu::destructor]] void closeModuleAtUnload() {
    ExitInstance();
}

template <typename Function>
Function entryPoint(const char* name) {
    return reinterpret_cast<Function>(dlsym(g_GeMoudle, name));
}

} // namespace

void InitInstance() {
    g_GeMoudle = dlopen("vnbase.so", RTLD_LAZY | RTLD_GLOBAL);
    if (g_GeMoudle == nullptr) {
        return;
    }
    g_ClipProc = entryPoint<ClipPolylineProc>("clipPolylineByPolygons");
    g_ClipFree = entryPoint<ClipBufferFree>("freeClipPolylineBuffer");
}

void ExitInstance() {
    if (g_GeMoudle != nullptr) {
        dlclose(g_GeMoudle);
        g_GeMoudle = nullptr;
    }
}
