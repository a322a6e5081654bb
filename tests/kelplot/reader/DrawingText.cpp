// SPDX-License-Identifier: GPL-2.0-or-later
#include "DrawingText.h"

#include <gtest/gtest.h>

#include <sstream>

#include "reader/DxfReader.h"
#include "support/TemporaryDirectory.h"

namespace kelplot {

std::string linesOf(const std::string& groups) {
    std::string lines;
    std::istringstream stream(groups);
    for (std::string group; stream >> group;) {
        const size_t sign = group.find('=');
        lines += group.substr(0, sign) + '\n' + group.substr(sign + 1) + '\n';
    }
    return lines;
}

std::string section(const std::string& name, const std::string& content) {
    return " 0=SECTION 2=" + name + ' ' + content + " 0=ENDSEC ";
}

std::string drawingOf(const std::string& entities) {
    return section("ENTITIES", entities) + "0=EOF";
}

Drawing readGroups(const std::string& groups) {
    return readText(linesOf(groups));
}

Drawing readText(const std::string& text) {
    const TemporaryDirectory directory;
    return DxfReader().read(directory.write("drawing.dxf", text), {});
}

std::string textOf(const Colour& colour) {
    constexpr const char* kinds[] = {"byBlock", "byLayer", "index ", "true "};
    const bool isOwn = colour.kind == Colour::Kind::index || colour.kind == Colour::Kind::trueColour;
    return kinds[static_cast<size_t>(colour.kind)] + (isOwn ? std::to_string(colour.value) : "");
}

Entity readOne(const std::string& entities) {
    const Drawing drawing = readGroups(drawingOf(entities));
    EXPECT_EQ(drawing.modelSpace.size(), 1u);
    return drawing.modelSpace.empty() ? Entity() : drawing.modelSpace.front();
}

} // namespace kelplot
