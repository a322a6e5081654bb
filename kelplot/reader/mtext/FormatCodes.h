// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <string_view>

#include "drawing/Text.h"

namespace kelplot {

/// Applies the code `code` (the letter after a backslash) to `format` and takes its argument off the start of `rest`.
/// False, and nothing changed, where it is no such code or its argument is missing.
bool applyFormatCode(char code, std::string_view& rest, CharacterFormat& format);

/// Applies the argument of a code \\p to `paragraph`; its lengths are in heights of a letter of `height`.
void applyParagraphCode(std::string_view argument, double height, Paragraph& paragraph);

} // namespace kelplot
