#include "DrawingText.h"

#include <gtest/gtest.h>

#include "reader/DxfReader.h"
#include "support/TemporaryDirectory.h"

namespace kelplot {

std::string groups(std::initializer_list<WrittenGroup> written) {
    std::string text;
    for (const WrittenGroup& group : written) {
        text += std::to_string(group.code) + "\n" + group.value + "\n";
    }
    return text;
}

std::string section(const std::string& name, const std::string& content) {
    return groups({{0, "SECTION"}, {2, name}}) + content + groups({{0, "ENDSEC"}});
}

std::string drawingOf(const std::string& entities) {
    return section("ENTITIES", entities) + groups({{0, "EOF"}});
}

Drawing readText(const std::string& text) {
    const TemporaryDirectory directory;
    return DxfReader().read(directory.write("drawing.dxf", text), {});
}

Entity readOne(const std::string& entities) {
    const Drawing drawing = readText(drawingOf(entities));
    EXPECT_EQ(drawing.modelSpace.size(), 1u);
    return drawing.modelSpace.empty() ? Entity() : drawing.modelSpace.front();
}

} // namespace kelplot
