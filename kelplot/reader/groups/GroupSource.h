// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <cstdint>
#include <string_view>

#include "reader/DrawingReader.h"

namespace kelplot {

/// One group of a drawing: a code that tells the kind of value, and the value as drawings in text form write it.
struct Group {
    int code = 0;
    std::string_view value; ///< without the line's end; valid until the next group is read
    FilePlace place = {};   ///< of the value
};

/// The groups of a drawing, one after another.
class GroupSource {
public:
    virtual ~GroupSource() = default;

    /// Reads the next group. False at the end of the input, also when only half a group is left.
    /// Throws `DrawingFault` where the input cannot be a drawing.
    virtual bool next(Group& group) = 0;

    /// How many groups there can be at most behind the one read last.
    virtual std::uintmax_t mostGroupsLeft() const = 0;
};

} // namespace kelplot
