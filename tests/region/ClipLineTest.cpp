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
        HT_Double_Point vertex;
        std::memcpy(&vertex, bytes, sizeof vertex);
        char number[64];
        std::snprintf(number, sizeof number, " %.17g,%.17g", vertex.x, vertex.y);
        text += number;
    }
    return text;
}

// A fake module, taken in by the library as a driver's process would have it.
class ClipLineTest : public ::testing::Test {
protected:
    ClipLineTest() {
        requests.clear();
        failingRequest = SIZE_MAX;
        g_ClipProc = nullptr;
        g_ClipFree = nullptr;
    }
    ~ClipLineTest() override {
        out.Clear();
        EXPECT_EQ(liveBlocks, 0) << "a piece is lost";
        ExitInstance();
        if (handle != nullptr) {
            dlclose(handle);
        }
        EXPECT_EQ(dlopen("vnbase.so", RTLD_LAZY | RTLD_NOLOAD), nullptr) << "the module stays loaded";
    }

    // The loader answers the bare name with the module of that name that is already there.
    void load(const char* kind) {
        const std::string path = std::string(FAKE_MODULES) + "/" + kind + "/vnbase.so";
        handle = dlopen(path.c_str(), RTLD_LAZY | RTLD_LOCAL);
        ASSERT_NE(handle, nullptr) << dlerror();
        module = static_cast<FakeModule*>(dlsym(handle, "fakeModule"));
        ASSERT_NE(module, nullptr);
        InitInstance();
        ASSERT_EQ(g_GeMoudle, handle);
    }

    void answer(int result, const std::vector<int32_t>& coords, const std::vector<int32_t>& counts) {
        module->result = result;
        module->coords = coords.data();
        module->coordCount = coords.size();
        module->counts = counts.data();
        module->countCount = counts.size();
        module->releaseCount = 0;
        requests.clear();
    }

    static int clip(I_HT_PointerArray& into) { return HT_ClipLine(&region, polyline, 3, &into); }

    std::string pieces() {
        std::string text;
        for (int i = 0; i < out.GetCount(); ++i) {
            text += (i > 0 ? "; " : "") + textOf(out.GetData(i));
        }
        return text;
    }

    void expectBuffersReleased() {
        EXPECT_EQ(module->releaseCount, 2);
        EXPECT_EQ(module->released[0], module->given[0]) << "vertices first";
        EXPECT_EQ(module->released[1], module->given[1]);
    }

    HT_PointerArray out{0, nullptr, HT_Free};
    FakeModule* module = nullptr;

private:
    void* handle = nullptr;
};

TEST_F(ClipLineTest, PiecesLandInOrderAndBuffersGoBack) {
    constexpr size_t none = SIZE_MAX;
    const struct {
        const char* name;
        std::vector<int32_t> coords;
        std::vector<int32_t> counts;
        size_t failingRequest;
        const char* pieces;
        std::vector<unsigned long> requests;
    } rows[] = {
        {"pieces",
         {0, 0, 5, 0, 5, 5, 7, INT32_MAX, INT32_MIN, 9},
         {3, 0, 2},
         none,
         "3: 0,0 5,0 5,5; 0:; 2: 7,2147483647 -2147483648,9",
         {52, 4, 36}},
        {"negative counts are kept without vertices",
         {1, 2, 3, 4},
         {1, INT32_MIN, -1, 1},
         none,
         "1: 1,2; -2147483648:; -1:; 1: 3,4",
         {20, 4, 4, 20}},
        {"no memory for one, and the others follow",
         {1, 2, 3, 4, 5, 6},
         {1, 1, 1},
         1,
         "1: 1,2; null; 1: 5,6",
         {20, 20, 20}},
        {"sizes are counted in 64 bits", {1, 2}, {INT32_MAX}, 0, "null", {4 + 16UL * INT32_MAX}},
    };
    load("whole");
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        const int count = static_cast<int>(row.counts.size());
        answer(count, row.coords, row.counts);
        failingRequest = row.failingRequest;
        out.Insert(0, nullptr);
        EXPECT_EQ(clip(out), count);
        EXPECT_EQ(pieces(), row.pieces + std::string("; null")) << "before what the list held";
        EXPECT_EQ(requests, row.requests);
        EXPECT_EQ(module->points, polyline);
        EXPECT_EQ(module->pointCount, 3);
        EXPECT_EQ(module->region, &region);
        EXPECT_TRUE(module->buffersCameNull);
        expectBuffersReleased();
        out.Clear();
    }
}

TEST_F(ClipLineTest, WithoutPiecesTheResultIsHandedOnAndBuffersStillGoBack) {
    load("whole");
    const std::vector<int32_t> unread{9, 9};
    for (const auto& [result, hasBuffers] : {std::pair(0, true), std::pair(-3, true), std::pair(INT32_MIN, false)}) {
        SCOPED_TRACE(result);
        answer(result, unread, unread);
        module->coords = hasBuffers ? unread.data() : nullptr;
        EXPECT_EQ(clip(out), result);
        EXPECT_EQ(out.GetCount(), 0);
        expectBuffersReleased(); // null pointers too
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

TEST_F(ClipLineTest, NothingLeaksWhenTheListThrows) {
    load("whole");
    const std::vector<int32_t> coords{1, 2, 3, 4};
    const std::vector<int32_t> counts{1, 1};
    answer(2, coords, counts);
    FullArray full;
    EXPECT_THROW(clip(full), std::length_error);
    EXPECT_EQ(liveBlocks, 0);
    expectBuffersReleased();
}

TEST_F(ClipLineTest, ModuleWithoutFreeHasItsBuffersFreed) {
    load("without-free"); // the leak checker tells
    EXPECT_EQ(g_ClipFree, nullptr);
    const std::vector<int32_t> coords{1, 2};
    const std::vector<int32_t> counts{1};
    answer(1, coords, counts);
    EXPECT_EQ(clip(out), 1);
    EXPECT_EQ(pieces(), "1: 1,2");
    module->coords = nullptr;
    module->result = -1;
    EXPECT_EQ(clip(out), -1);
}

TEST_F(ClipLineTest, ModuleWithoutClipMeansNoPieces) {
    load("without-clip");
    EXPECT_EQ(g_ClipProc, nullptr);
    EXPECT_NE(g_ClipFree, nullptr);
    EXPECT_EQ(clip(out), 0);
    EXPECT_EQ(out.GetCount(), 0);
    EXPECT_EQ(module->releaseCount, 0);
}

TEST_F(ClipLineTest, ClosingKeepsTheEntryPoints) {
    load("whole");
    ExitInstance();
    EXPECT_EQ(g_GeMoudle, nullptr);
    EXPECT_NE(g_ClipProc, nullptr);
    EXPECT_NE(g_ClipFree, nullptr);
    ExitInstance(); // once more does nothing
}

} // namespace
