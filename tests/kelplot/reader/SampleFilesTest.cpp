#include <gtest/gtest.h>

#include <filesystem>
#include <set>

#include "reader/DxfReader.h"

namespace kelplot {
namespace {

const std::filesystem::path samples = std::filesystem::path(KELDRIVER_SHARED_DATA) / "dxf";

/// Sound drawings that hold texts or images and nothing else.
const std::set<std::string> withoutGeometry = {"map_graz_georef_image", "text_caret_encoding", "text_layers_unicode"};

std::size_t entityCount(const Drawing& drawing) {
    std::size_t count = drawing.modelSpace.size() + drawing.paperSpace.size();
    for (const Block& block : drawing.blocks) {
        count += block.entities.size();
    }
    return count;
}

/// Reads a sample; fails the test where its result is not what files of its name are to give.
void checkSample(const std::filesystem::path& path) {
    const std::string name = path.stem().string();
    const bool damaged = name.rfind("bad_", 0) == 0;
    const bool binary = name.rfind("ver_bin_", 0) == 0;
    try {
        const Drawing drawing = DxfReader().read(path.string(), {});
        EXPECT_FALSE(binary);
        EXPECT_TRUE(damaged || withoutGeometry.count(name) != 0 || entityCount(drawing) > 0);
    } catch (const ReadError& error) {
        EXPECT_TRUE(damaged || binary) << error.what();
        EXPECT_EQ(error.reason, ReadError::Reason::notADrawing);
    }
}

TEST(SampleFiles, AllEndInADrawingOrARefusal) {
    if (!std::filesystem::is_directory(samples)) {
        GTEST_SKIP() << "no sample drawings in " << samples;
    }
    for (const auto& entry : std::filesystem::directory_iterator(samples)) {
        if (entry.path().extension() != ".dxf") {
            continue;
        }
        SCOPED_TRACE(entry.path().filename().string());
        checkSample(entry.path());
    }
}

} // namespace
} // namespace kelplot
