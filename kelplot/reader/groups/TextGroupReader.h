// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include "reader/groups/GroupSource.h"
#include "reader/groups/InputWindow.h"

namespace kelplot {

/// Reads the groups of a drawing in text form: a line with the code, and one with the value.
class TextGroupReader : public GroupSource {
public:
    /// For the parameters see `InputWindow`.
    TextGroupReader(std::istream& input, std::uintmax_t size, const Progress& progress);

    bool next(Group& group) override;
    std::uintmax_t mostGroupsLeft() const override;

private:
    bool nextLine(std::string_view& line);
    void skipByteOrderMark();
    [[noreturn]] void refuseCode(std::string_view text) const;

    InputWindow m_window;
    size_t m_line = 0; ///< number of the line read last, from 1
};

} // namespace kelplot
