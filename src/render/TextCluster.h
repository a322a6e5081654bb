#pragma once

#include <cstddef>
#include <string_view>

/// True for characters without a glyph of their own: controls, joiners, variation selectors, direction marks.
bool isInvisible(wchar_t character);

/// True when all that would show of the cluster is blank.
bool isBlank(std::wstring_view cluster);

/// Where the cluster ends that starts at `start`: a base character with all that must be shown with it in one font.
/// It holds one character at least.
size_t clusterEnd(std::wstring_view text, size_t start);
