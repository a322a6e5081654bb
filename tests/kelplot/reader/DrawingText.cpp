// SPDX-License-Identifier: GPL-2.0-or-later
#include "kelplot/reader/DrawingText.h"

#include <QByteArray>
#include <algorithm>
#include <cstdlib>
#include <cstring>
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

std::string littleEndian(uint64_t bits, size_t bytes) {
    std::string result;
    for (size_t i = 0; i < bytes; ++i) {
        result += static_cast<char>(bits >> 8 * i & 0xFF);
    }
    return result;
}

/// The value as the reference of the format says for its code.
std::string binaryValue(int code, const std::string& value) {
    const auto isIn = [&](int first, int last) {
        return code >= first && code <= last;
    };
    if (isIn(10, 59) || isIn(110, 149) || isIn(210, 239) || isIn(460, 469) || isIn(1010, 1059)) {
        const double number = std::strtod(QByteArray(value.c_str()).replace(',', '.'), nullptr);
        uint64_t bits = 0;
        std::memcpy(&bits, &number, sizeof bits);
        return littleEndian(bits, sizeof bits);
    }
    if (isIn(310, 319) || code == 1004) {
        return static_cast<char>(value.size() / 2) + QByteArray::fromHex(value.c_str()).toStdString();
    }
    const long long integer = std::atoll(value.c_str());
    const auto number = static_cast<uint64_t>(integer);
    if (isIn(290, 299)) {
        return littleEndian(number, 1);
    }
    if (isIn(60, 79) || isIn(170, 179) || isIn(270, 289) || isIn(370, 389) || isIn(400, 409) || isIn(1060, 1070)) {
        return littleEndian(static_cast<uint64_t>(std::clamp(integer, -32768LL, 32767LL)), 2);
    }
    if (isIn(90, 99) || isIn(420, 429) || isIn(440, 459) || code == 1071) {
        return littleEndian(number, 4);
    }
    return isIn(160, 169) ? littleEndian(number, 8) : value + '\0';
}

} // namespace

std::string bytesOf(const std::string& groups, BinaryCodes codes) {
    std::string bytes("Program Binary DXF\r\n\x1A");
    bytes += '\0';
    std::istringstream stream(groups);
    for (std::string group; stream >> group;) {
        const size_t sign = group.find('=');
        const int code = std::stoi(group);
        if (codes == BinaryCodes::wide) {
            bytes += littleEndian(static_cast<uint64_t>(code), 2);
        } else {
            bytes += code < 255 ? littleEndian(static_cast<uint64_t>(code), 1)
                                : '\xFF' + littleEndian(static_cast<uint64_t>(code), 2);
        }
        bytes += binaryValue(code, valueOf(group.substr(sign + 1)));
    }
    return bytes;
}

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
