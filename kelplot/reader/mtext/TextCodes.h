// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "drawing/Text.h"
#include "reader/TextEncoding.h"

namespace kelplot {

/// Takes a code such as %%c or %%176 off the start of `text`: the character in UTF-8 that it stands for.
/// Nothing where there is none.
std::optional<std::string> takeCharacterCode(std::string_view& text, const TextEncoding& decoder);

/// Takes a caret and a character off the start of `text` where they stand for a control character, or for the caret
/// itself. Nothing where they mean what they show.
std::optional<char> takeCaretCode(std::string_view& text);

/// The stretches of a single-line text in UTF-8, its codes resolved. Unknown codes stay as they are.
std::vector<TextStretch> textStretches(std::string_view text, const TextEncoding& decoder);

} // namespace kelplot
