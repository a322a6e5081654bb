// SPDX-License-Identifier: BSD-3-Clause
#include <cstdlib>
#include <memory>
#include <string>

#include <dlfcn.h>

#include <gtest/gtest.h>

#include "keldriver/ClipLine.h"
#include "region/modules/FakeModule.h"

namespace {

void closeLibrary(void* handle) {
    dlclose(handle);
}
using Library = std::unique_ptr<void, void (*)(void*)>;

Library load(const char* path) {
    return {dlopen(path, RTLD_NOW | RTLD_LOCAL), closeLibrary};
}

bool isModuleLoaded() {
    return Library(dlopen("vnbase.so", RTLD_LAZY | RTLD_NOLOAD), closeLibrary) != nullptr;
}

/// Clips by the exported function, as a driver that loads the library at run time finds it. No piece comes, so that
/// there need be no list for them.
int clip(const Library& library) {
    auto* const clipLine = reinterpret_cast<decltype(&HT_ClipLine)>(
        dlsym(library.get(), "_Z11HT_ClipLinePK10HT_ClipRgnPK15HT_Double_PointiP17I_HT_PointerArray"));
    const HT_Double_Point polyline[] = {{0, 0}, {5, 5}};
    const HT_ClipRgn region{HT_RGN_OR, nullptr, 0, nullptr};
    return clipLine(&region, polyline, 2, nullptr);
}

TEST(LibraryLoad, WithoutModuleTheLibraryLoadsAndClipsNothing) {
    const Library library = load(LIBRARY_ALONE);
    ASSERT_NE(library, nullptr) << dlerror();
    ASSERT_FALSE(isModuleLoaded());
    EXPECT_EQ(clip(library), 0);
}

TEST(LibraryLoad, ModuleBesideTheLibraryComesAndGoesWithIt) {
    Library library = load(LIBRARY_WITH_MODULE);
    ASSERT_NE(library, nullptr) << dlerror();
    ASSERT_TRUE(isModuleLoaded());
    {
        const Library module(dlopen("vnbase.so", RTLD_LAZY | RTLD_NOLOAD), closeLibrary);
        auto* const fake = static_cast<FakeModule*>(dlsym(module.get(), "fakeModule"));
        ASSERT_NE(fake, nullptr);
        fake->result = -7;
        EXPECT_EQ(clip(library), -7);
    }
    library.reset();
    EXPECT_FALSE(isModuleLoaded());
}

// In a process of its own, as asking for a name binds the module to the program that asks.
TEST(LibraryLoad, ExportsOfAModuleBesideTheLibraryAreFoundByAll) {
    const auto findExport = [] {
        const Library library = load(LIBRARY_WITH_MODULE);
        std::_Exit(dlsym(RTLD_DEFAULT, "fakeModule") != nullptr ? 0 : 1);
    };
    EXPECT_EXIT(findExport(), testing::ExitedWithCode(0), "");
}

} // namespace
