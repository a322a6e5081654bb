// SPDX-License-Identifier: BSD-3-Clause
#include "port/format/PaddedText.h"

#include <algorithm>

namespace KelDriver::Internal {

namespace {

void append(std::wstring& text, std::wstring_view more) {
    text += more;
}

void append(std::wstring& text, std::string_view bytes) {
    const size_t start = text.size();
    text.resize(start + bytes.size());
    std::transform(bytes.begin(), bytes.end(), text.begin() + static_cast<std::ptrdiff_t>(start),
                   [](char byte) { return static_cast<wchar_t>(static_cast<unsigned char>(byte)); });
}

} // namespace

template <typename View>
void PaddedText::putPadded(View text) {
    const size_t width = m_width > 0 ? static_cast<size_t>(m_width) : 0;
    m_width = 0;
    const size_t start = m_text.size();
    append(m_text, text);
    if (width > text.size()) {
        m_text.insert(m_left ? m_text.size() : start, width - text.size(), m_fill);
    }
}

template void PaddedText::putPadded(std::wstring_view);
template void PaddedText::putPadded(std::string_view);

void PaddedText::putEach(std::wstring_view characters) {
    if (m_width != 0 && !characters.empty()) {
        put(characters.front());
        characters.remove_prefix(1);
    }
    m_text += characters;
}

} // namespace KelDriver::Internal
