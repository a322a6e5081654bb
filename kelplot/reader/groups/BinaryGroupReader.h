// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <string>

#include "reader/groups/GroupSource.h"
#include "reader/groups/InputWindow.h"

namespace kelplot {

/// Tells a drawing in binary form by the bytes that a file begins with.
bool isBinaryDrawing(std::string_view beginning);

/// Reads the groups of a drawing in binary form. Codes have two bytes; up to release 12 they have one, and those above
/// 254 follow a byte of 255. The code tells what the value is and how many bytes it has.
class BinaryGroupReader : public GroupSource {
public:
    /// For the parameters see `InputWindow`.
    BinaryGroupReader(std::istream& input, std::uintmax_t size, const Progress& progress);

    bool next(Group& group) override;
    std::uintmax_t mostGroupsLeft() const override;

private:
    bool readCode(int& code);
    bool readText(std::string_view& value);
    bool readReal(std::string_view& value);
    bool readChunk(std::string_view& value);
    template <typename Number>
    bool readInteger(std::string_view& value);
    template <typename Number>
    bool readNumber(Number& number);

    InputWindow m_window;
    bool m_wideCodes = false;
    std::string m_text; ///< of the value read last, where it is not in the file as such
};

} // namespace kelplot
