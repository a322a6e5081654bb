#include "page/Paper.h"

#include <algorithm>
#include <cctype>

#include "page/Numbers.h"

namespace kelplot {
namespace {

struct NamedPaper {
    const char* name;
    SheetSize size;
};

constexpr double inch = 25.4;

constexpr NamedPaper namedPapers[] = {
    {"A0", {841, 1189}},
    {"A1", {594, 841}},
    {"A2", {420, 594}},
    {"A3", {297, 420}},
    {"A4", {210, 297}},
    {"A5", {148, 210}},
    {"A6", {105, 148}},
    {"B1", {707, 1000}},
    {"B2", {500, 707}},
    {"B3", {353, 500}},
    {"B4", {250, 353}},
    {"B5", {176, 250}},
    {"ANSI-A", {8.5 * inch, 11 * inch}},
    {"ANSI-B", {11 * inch, 17 * inch}},
    {"ANSI-C", {17 * inch, 22 * inch}},
    {"ANSI-D", {22 * inch, 34 * inch}},
    {"ANSI-E", {34 * inch, 44 * inch}},
    {"ARCH-A", {9 * inch, 12 * inch}},
    {"ARCH-B", {12 * inch, 18 * inch}},
    {"ARCH-C", {18 * inch, 24 * inch}},
    {"ARCH-D", {24 * inch, 36 * inch}},
    {"ARCH-E", {36 * inch, 48 * inch}},
    {"Letter", {8.5 * inch, 11 * inch}},
    {"Legal", {8.5 * inch, 14 * inch}},
    {"Tabloid", {11 * inch, 17 * inch}},
    {"Ledger", {11 * inch, 17 * inch}},
};

// The largest side is that of the widest plotter's longest roll; beyond it a size is a slip of the finger.
constexpr double smallestSide = 5.0;
constexpr double largestSide = 20000.0;

/// A name as it is compared: small letters and digits only.
std::string plainName(const std::string& text) {
    std::string plain;
    for (const char c : text) {
        if (c != ' ' && c != '-' && c != '_') {
            plain += static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
        }
    }
    return plain;
}

bool isSheetSide(double length) {
    return length >= smallestSide && length <= largestSide;
}

} // namespace

std::optional<Paper> paperFromText(const std::string& text) {
    const std::string wanted = plainName(text);
    const auto* const found = std::find_if(std::begin(namedPapers), std::end(namedPapers),
                                           [&](const NamedPaper& paper) { return plainName(paper.name) == wanted; });
    if (found != std::end(namedPapers)) {
        return Paper{found->size, false};
    }
    const auto sides = numberPairFromText(text, "xX");
    if (!sides || !isSheetSide(sides->first) || !isSheetSide(sides->second)) {
        return std::nullopt;
    }
    return Paper{{sides->first, sides->second}, true};
}

std::string paperNames() {
    std::string names;
    for (const NamedPaper& paper : namedPapers) {
        names += names.empty() ? "" : ", ";
        names += paper.name;
    }
    return names;
}

} // namespace kelplot
