// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <optional>
#include <string>

namespace kelplot {

/// A sheet as it lies before the drawing, in millimetres.
struct SheetSize {
    double width = 0.0;
    double height = 0.0;

    SheetSize turned() const { return {height, width}; }
    friend bool operator==(const SheetSize& a, const SheetSize& b) {
        return a.width == b.width && a.height == b.height;
    }
};

/// The strip along each edge of the sheet that the plot keeps clear of, in millimetres.
struct Margins {
    double left = 5.0;
    double top = 5.0;
    double right = 5.0;
    double bottom = 5.0;
};

/// A paper that was asked for by name or by size.
struct Paper {
    SheetSize size;             ///< upright for a paper of the device; as it was given for a size of the user's
    bool keepsPosition = false; ///< the caller gave width and height, so it is not turned unasked
};

/// Tells whether a sheet can have this size.
bool isSheet(const SheetSize& size);

/// Reads a size "WIDTHxHEIGHT" in millimetres. Nothing when the text is not a size, or not one that a sheet can have.
std::optional<SheetSize> sheetSizeFromText(const std::string& text);

} // namespace kelplot
