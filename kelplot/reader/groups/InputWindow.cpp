// SPDX-License-Identifier: GPL-2.0-or-later
#include "reader/groups/InputWindow.h"

#include <algorithm>
#include <cstring>
#include <istream>

namespace kelplot {

namespace {

/// A value must fit; far above anything that programs write.
constexpr size_t bufferSize = size_t{1} << 18;

} // namespace

InputWindow::InputWindow(std::istream& input, std::uintmax_t size, const Progress& progress)
    : m_input(input), m_size(size), m_progress(progress), m_buffer(bufferSize) {
}

bool InputWindow::more() {
    if (m_begin > 0) {
        std::memmove(m_buffer.data(), m_buffer.data() + m_begin, m_end - m_begin);
        m_end -= m_begin;
        m_begin = 0;
    }
    // A file that grows while it is read stays within the size it had.
    const auto wanted = std::min<std::uintmax_t>(m_buffer.size() - m_end, remaining() - m_end);
    m_input.read(m_buffer.data() + m_end, static_cast<std::streamsize>(wanted));
    const auto got = static_cast<size_t>(m_input.gcount());
    m_end += got;
    if (m_progress && got > 0) {
        m_progress(static_cast<double>(m_consumed) / static_cast<double>(m_size));
    }
    return got > 0;
}

bool InputWindow::need(size_t count) {
    while (ahead().size() < count) {
        if (!more()) {
            return false;
        }
    }
    return true;
}

void InputWindow::skip(size_t count) {
    m_begin += count;
    m_consumed += count;
}

} // namespace kelplot
