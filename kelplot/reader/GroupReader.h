// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <iosfwd>
#include <string_view>
#include <vector>

#include "reader/DrawingReader.h"

namespace kelplot {

/// One group of a drawing: a code that tells the kind of value, and the value as the file has it.
struct Group {
    int code = 0;
    std::string_view value; ///< without the line's end; valid until the next group is read
    size_t line = 0;        ///< number of the line with the code, from 1
};

/// Splits a drawing into groups, holding only a stretch of it in memory.
class GroupReader {
public:
    /// @param input     the drawing's bytes; borrowed
    /// @param size      how many there are
    /// @param progress  told the share of bytes read so far; may be empty; borrowed
    GroupReader(std::istream& input, std::uintmax_t size, const Progress& progress);

    /// Reads the next group. False at the end of the input, also when only half a group is left.
    /// Throws `DrawingFault` where the input cannot be a drawing.
    bool next(Group& group);

    /// How many bytes follow the group read last.
    std::uintmax_t remaining() const { return m_size - m_consumed; }

private:
    bool nextLine(std::string_view& line);
    bool refill();
    void skipByteOrderMark();
    [[noreturn]] void refuseCode(std::string_view text) const;

    std::istream& m_input;
    const std::uintmax_t m_size;
    const Progress& m_progress;
    std::vector<char> m_buffer;
    size_t m_begin = 0; ///< the unread bytes in the buffer
    size_t m_end = 0;
    size_t m_keepFrom = 0; ///< bytes before this are no longer needed
    std::uintmax_t m_consumed = 0;
    size_t m_line = 0;
};

} // namespace kelplot
