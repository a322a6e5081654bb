// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <string_view>
#include <vector>

#include "drawing/Text.h"
#include "reader/TextEncoding.h"

namespace kelplot {

/// The paragraphs of a text in UTF-8 with codes inside, which begins in the format `start`. Unknown codes show as they
/// stand. There is at least one paragraph, perhaps an empty one.
std::vector<Paragraph> paragraphsOf(std::string_view markup, const CharacterFormat& start, const TextEncoding& decoder);

} // namespace kelplot
