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

/// A paper that was asked for by name or by size.
struct Paper {
    SheetSize size;             ///< a named paper stands upright; a size of one's own is as it was given
    bool keepsPosition = false; ///< the caller gave width and height, so it is not turned unasked
};

/// Reads a paper's name, in any case and with or without blanks and hyphens, or a size "WIDTHxHEIGHT" in
/// millimetres. Nothing when there is no such paper or the size cannot be that of a sheet.
std::optional<Paper> paperFromText(const std::string& text);

/// The names that `paperFromText` knows, for a message.
std::string paperNames();

} // namespace kelplot
