// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <functional>
#include <map>
#include <string>
#include <vector>

namespace kelplot {

/// A case of a file of cases: a drawing, and the lines of text that are to come of it.
///
/// "[name]" begins a case and may be followed by groups, as `linesOf` takes them. So may a line of its own, with the
/// section they belong to in front where that is not ENTITIES. "> " begins an expected line, "@ " an option, "#" a
/// comment. The case "[*]" is none: the cases up to the next such begin with its groups and options.
struct Case {
    std::string place; ///< file, line and name
    std::map<std::string, std::string> sections;
    std::vector<std::string> options;
    std::vector<std::string> expected;

    /// The groups of the whole drawing.
    std::string groups() const;
};

/// Compares what comes of each case of a file with what is expected.
void expectCases(const std::string& path, const std::function<std::vector<std::string>(const Case&)>& outcomeOf);

} // namespace kelplot
