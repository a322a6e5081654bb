// SPDX-License-Identifier: GPL-2.0-or-later
#include "page/SheetSize.h"

#include "base/Numbers.h"

namespace kelplot {
namespace {

// The largest side is that of the widest plotter's longest roll; a size beyond it is a typing error.
constexpr double smallestSide = 5.0;
constexpr double largestSide = 20000.0;

bool isSheetSide(double length) {
    return length >= smallestSide && length <= largestSide;
}

} // namespace

bool isSheet(const SheetSize& size) {
    return isSheetSide(size.width) && isSheetSide(size.height);
}

std::optional<SheetSize> sheetSizeFromText(const std::string& text) {
    const auto sides = numberPairFromText(text, "xX");
    const SheetSize size = sides ? SheetSize{sides->first, sides->second} : SheetSize();
    return isSheet(size) ? std::optional(size) : std::nullopt;
}

} // namespace kelplot
