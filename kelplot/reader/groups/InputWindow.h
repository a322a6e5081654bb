// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <iosfwd>
#include <string_view>
#include <vector>

#include "base/Progress.h"

namespace kelplot {

/// The bytes of a file in their order, a stretch of which is held in memory.
class InputWindow {
public:
    /// @param input     the file's bytes; borrowed
    /// @param size      how many there are
    /// @param progress  told the share of bytes taken so far; may be empty; borrowed
    InputWindow(std::istream& input, std::uintmax_t size, const Progress& progress);

    /// The bytes that come next, as far as they are in memory; valid until more are read.
    std::string_view ahead() const { return {m_buffer.data() + m_begin, m_end - m_begin}; }
    /// Brings more bytes into memory; false at the end of the file. There is no room for them where `isFull`.
    bool more();
    bool isFull() const { return ahead().size() == m_buffer.size(); }
    /// Brings the next `count` bytes into memory, far fewer than there is room for; false where the file ends before.
    bool need(size_t count);

    /// Goes on behind the next `count` bytes, which are in memory and stay there until more are read.
    void skip(size_t count);

    std::uintmax_t consumed() const { return m_consumed; }
    std::uintmax_t remaining() const { return m_size - m_consumed; }

private:
    std::istream& m_input;
    const std::uintmax_t m_size;
    const Progress& m_progress;
    std::vector<char> m_buffer;
    size_t m_begin = 0; ///< the bytes ahead in the buffer
    size_t m_end = 0;
    std::uintmax_t m_consumed = 0;
};

} // namespace kelplot
