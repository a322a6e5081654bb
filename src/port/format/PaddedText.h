// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>

namespace KelDriver::Internal {

/// A wide text under construction, padded as an output stream pads: the width holds for the next thing written only,
/// fill and justification hold until they are changed.
class PaddedText {
public:
    void reserve(size_t length) { m_text.reserve(length); }
    void setWidth(int width) { m_width = width; }
    void setFill(wchar_t fill) { m_fill = fill; }
    void setLeftJustified(bool left) { m_left = left; }

    void put(wchar_t character) { put(std::wstring_view(&character, 1)); }
    void put(std::wstring_view text) { putPadded(text); }
    /// Every byte becomes the character of its value, whatever the locale.
    void put(std::string_view bytes) { putPadded(bytes); }

    /// Writes characters one after another: the first of them takes up the width.
    void putEach(std::wstring_view characters);

    std::wstring take() { return std::move(m_text); }

private:
    template <typename View>
    void putPadded(View text);

    std::wstring m_text;
    int m_width = 0;
    wchar_t m_fill = L' ';
    bool m_left = false;
};

} // namespace KelDriver::Internal
