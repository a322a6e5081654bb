// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <optional>
#include <string_view>

namespace kelplot {

/// A number after a code in a text.
struct MarkupNumber {
    double value = 0.0;
    bool relative = false; ///< a factor for what was before
};

/// Takes a number off the start of `text`. Nothing where there is none.
std::optional<double> takeNumber(std::string_view& text);

/// Takes a number off the start of `text`, with the mark of a factor and the semicolon after it where they are present.
std::optional<MarkupNumber> takeArgument(std::string_view& text);

/// Takes what stands before the next semicolon off the start of `text`, and the semicolon. Nothing where another code
/// or a brace comes before it.
std::optional<std::string_view> takeWords(std::string_view& text);

/// Takes `character` off the start of `text` if it is there.
bool takeCharacter(std::string_view& text, char character);

} // namespace kelplot
