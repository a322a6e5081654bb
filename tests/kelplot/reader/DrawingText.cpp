// SPDX-License-Identifier: GPL-2.0-or-later
#include "kelplot/reader/DrawingText.h"

#include <QByteArray>
#include <sstream>

#include "reader/DxfReader.h"
#include "support/TemporaryDirectory.h"

namespace kelplot {
namespace {

std::string valueOf(std::string text) {
    const std::string blank = "␣";
    for (size_t at; (at = text.find(blank)) != std::string::npos;) {
        text.replace(at, blank.size(), " ");
    }
    for (size_t at = 0; (at = text.find("\\x", at)) != std::string::npos; ++at) {
        text.replace(at, 4, QByteArray::fromHex(text.substr(at + 2, 2).c_str()).toStdString());
    }
    return text;
}

} // namespace

std::string linesOf(const std::string& groups) {
    std::string lines;
    std::istringstream stream(groups);
    for (std::string group; stream >> group;) {
        const size_t sign = group.find('=');
        lines += group.substr(0, sign) + '\n' + valueOf(group.substr(sign + 1)) + '\n';
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

} // namespace kelplot
