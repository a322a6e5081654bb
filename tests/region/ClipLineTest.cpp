// SPDX-License-Identifier: BSD-3-Clause
#include <cstdlib>
#include <cstring>
#include <stdexcept>
#include <string>
#include <vector>

#include <dlfcn.h>

#include <gtest/gtest.h>

#include "keldriver/ClipLine.h"
#include "keldriver/Utility.h"
#include "region/GeometryModule.h"
#include "region/modules/FakeModule.h"
#include "support/PlotText.h"

namespace {

int liveBlocks = 0;
std::vector<unsigned long> requests;
size_t failingRequest = SIZE_MAX; ///< which of the requests is refused

} // namespace

// In the place of the library's own, so that a test can count blocks and run out of memory.
void* HT_Malloc(unsigned long size) {
    requests.push_back(size);
    if (requests.size() - 1 == failingRequest) {
        return nullptr;
    }
    ++liveBlocks;
    return std::malloc(size);
}

void HT_Free(void* memory) {
    liveBlocks -= memory != nullptr ? 1 : 0;
    std::free(memory);
}

namespace {

const HT_Double_Point polyline[] = {{0, 0}, {50, 50}, {90, 0}};
const HT_ClipRgn region{HT_RGN_OR, nullptr, 0, nullptr};

// A piece as a driver reads it.
std::string textOf(const void* piece) {
    if (piece == nullptr) {
        return "null";
    }
    const auto* bytes = static_cast<const std::byte*>(piece);
    int32_t count = 0;
    std::memcpy(&count, bytes, sizeof count);
    std::string text = std::to_string(count) + ":";
    bytes += sizeof count;
    for (int i = 0; i < count; ++i, bytes += 16) {
        double vertex[2];
        std::memcpy(vertex, bytes, sizeof vertex);
        text += " " + plotText::number(vertex[0]) + "," + plotText::number(vertex[1]);
    }
    return text;
}

// A fake module, taken in by the library as a driver's process would have it.
class ClipLineTest : public ::testing::Test {
protected:
    ClipLineTest() {
        failingRequest = SIZE_MAX;
        g_ClipProc = nullptr;
        g_ClipFree = nullptr;
    }
    ~ClipLineTest() override {
        out.Clear();
        EXPECT_EQ(liveBlocks, 0) << "a piece is lost";
        ExitInstance();
        EXPECT_EQ(g_GeMoudle, nullptr);
        ExitInstance(); // once more does nothing
        dlclose(handle);
        EXPECT_EQ(dlopen("vnbase.so", RTLD_LAZY | RTLD_NOLOAD), nullptr) << "the module stays loaded";
    }

    // The loader answers the bare name with the module of that name that is already there.
    void load(const char* kind) {
        const std::string path = std::string(FAKE_MODULES) + "/" + kind + "/vnbase.so";
        handle = dlopen(path.c_str(), RTLD_LAZY | RTLD_LOCAL);
        ASSERT_NE(handle, nullptr) << dlerror();
        module = static_cast<FakeModule*>(dlsym(handle, "fakeModule"));
        InitInstance();
        ASSERT_EQ(g_GeMoudle, handle);
    }

    /// Clips where the module answers `result` with what `coords` and `counts` hold.
    int clip(int result, I_HT_PointerArray& into) {
        module->result = result;
        module->coords = coords.data();
        module->coordCount = coords.size();
        module->counts = counts.data();
        module->countCount = counts.size();
        module->releaseCount = 0;
        requests.clear();
        return HT_ClipLine(&region, polyline, 3, &into);
    }

    void expectBuffersReleased() {
        EXPECT_EQ(module->releaseCount, 2);
        EXPECT_EQ(module->released[0], module->given[0]) << "vertices first";
        EXPECT_EQ(module->released[1], module->given[1]);
    }

    std::vector<int32_t> coords{1, 2, 3, 4};
    std::vector<int32_t> counts{1, 1};
    HT_PointerArray out{0, nullptr, HT_Free};
    FakeModule* module = nullptr;

private:
    void* handle = nullptr;
};

TEST_F(ClipLineTest, PiecesLandInOrderAndBuffersGoBack) {
    const struct {
        const char* name;
        std::vector<int32_t> coords;
        std::vector<int32_t> counts;
        const char* pieces;
        std::vector<unsigned long> requests;
        size_t failingRequest = SIZE_MAX;
    } rows[] = {
        {"pieces",
         {0, 0, 5, 0, 5, 5, 7, INT32_MAX, INT32_MIN, 9},
         {3, 0, 2},
         "3: 0,0 5,0 5,5; 0:; 2: 7,2147483647 -2147483648,9; ",
         {52, 4, 36}},
        {"negative counts are kept without vertices",
         {1, 2, 3, 4},
         {1, INT32_MIN, -1, 1},
         "1: 1,2; -2147483648:; -1:; 1: 3,4; ",
         {20, 4, 4, 20}},
        {"no memory for one, and the others follow",
         {1, 2, 3, 4, 5, 6},
         {1, 1, 1},
         "1: 1,2; null; 1: 5,6; ",
         {20, 20, 20},
         1},
        {"sizes are counted in 64 bits", {1, 2}, {INT32_MAX}, "null; ", {4 + 16UL * INT32_MAX}, 0},
    };
    load("whole");
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        coords = row.coords;
        counts = row.counts;
        failingRequest = row.failingRequest;
        out.Insert(0, nullptr);
        const int count = static_cast<int>(counts.size());
        EXPECT_EQ(clip(count, out), count);
        std::string pieces;
        for (int i = 0; i < count; ++i) {
            pieces += textOf(out.GetData(i)) + "; ";
        }
        EXPECT_EQ(pieces, row.pieces);
        EXPECT_EQ(out.GetCount(), count + 1) << "before what the list held";
        EXPECT_EQ(requests, row.requests);
        EXPECT_TRUE(module->points == polyline && module->pointCount == 3 && module->region == &region);
        EXPECT_TRUE(module->buffersCameNull);
        expectBuffersReleased();
        out.Clear();
    }
}

// A driver's own list that fails.
struct FullArray : I_HT_PointerArray {
    int32_t GetCount() const override { return 0; }
    void* GetData(int) override { return nullptr; }
    void Insert(int, void*) override { throw std::length_error("full"); }
    void Remove(int) override {}
    void Clear() override {}
};

TEST_F(ClipLineTest, BuffersGoBackWithoutPiecesAndWhenTheListThrows) {
    load("whole");
    for (const int result : {0, -3, INT32_MIN}) { // handed on
        EXPECT_EQ(clip(result, out), result);
        EXPECT_EQ(out.GetCount(), 0);
        expectBuffersReleased();
    }
    FullArray full;
    EXPECT_THROW(clip(2, full), std::length_error);
    EXPECT_EQ(liveBlocks, 0);
    expectBuffersReleased();
    ExitInstance();
    EXPECT_TRUE(g_ClipProc != nullptr && g_ClipFree != nullptr) << "closing keeps the entry points";
}

TEST_F(ClipLineTest, ModuleWithoutFreeHasItsBuffersFreed) {
    load("without-free"); // the leak checker tells
    EXPECT_EQ(g_ClipFree, nullptr);
    EXPECT_EQ(clip(1, out), 1);
    EXPECT_EQ(textOf(out.GetData(0)), "1: 1,2");
}

TEST_F(ClipLineTest, ModuleWithoutClipMeansNoPieces) {
    load("without-clip");
    EXPECT_EQ(g_ClipProc, nullptr);
    EXPECT_NE(g_ClipFree, nullptr);
    EXPECT_EQ(clip(2, out), 0);
    EXPECT_EQ(out.GetCount() + module->releaseCount, 0);
}

} // namespace
