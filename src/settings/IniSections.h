// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "keldriver/IniFile.h"

namespace KelDriver::Internal {

/// The outcome of an operation on settings, and the message that goes with a failure.
struct IniResult {
    enum Code : int {
        success = 0,
        noClosingBracket = 2,
        emptySectionName = 3,
        sectionExists = 4,
        noEqualsSign = 5,
        cannotOpen = 6,
        keyMissing = 8,
        sectionMissing = 9,
    };

    Code code = success;
    std::string message;

    /// The code; the message of a failure replaces `lastMessage`.
    int report(std::string& lastMessage) const;
};

/// The sections of a settings file in memory, in their order.
class IniSections {
public:
    using List = std::vector<std::unique_ptr<inifile::IniSection>>;

    const List& list() const { return m_list; }

    /// Replaces the sections by those of a file's text. At the first malformed line it stops, and keeps what stood
    /// above.
    IniResult read(std::string_view text, std::string_view delimiter);
    /// The text of a file that holds the sections.
    std::string text(std::string_view delimiter) const;
    void clear();

    /// The first section of that name; null when there is none.
    inifile::IniSection* find(std::string_view name) const;
    /// The first item of a key; null when there is none, and then `result` tells why.
    inifile::IniItem* findItem(const std::string& section, const std::string& key, IniResult& result) const;

    /// Puts a section at the end, an unnamed one at the front.
    inifile::IniSection& add(inifile::IniSection section);
    /// Sets the value of a section's first item with that key, and the comment above it, creating what is missing.
    void set(const std::string& section, const std::string& key, const std::string& value, std::string comment);
    /// Removes one of the sections.
    void remove(const inifile::IniSection& section);
    /// To be called before a section is handed to somebody who may rename it.
    void expectRenaming() { m_index.reset(); }

private:
    List m_list;
    /// The sections by their own names; none once they may be renamed.
    std::optional<std::unordered_map<std::string_view, inifile::IniSection*>> m_index{std::in_place};
};

/// The first item with that key; the end of the items when there is none.
std::vector<inifile::IniItem>::iterator firstItem(inifile::IniSection& section, const std::string& key);

} // namespace KelDriver::Internal
