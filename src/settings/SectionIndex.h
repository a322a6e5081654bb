#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "keldriver/IniFile.h"

namespace inifile {

/// Finds sections by name. It lies in one block, because loading a file looks up every header, and a node for each
/// section would cost more than reading its lines.
///
/// Sections must be removed before they are destroyed or renamed.
class SectionIndex {
public:
    IniSection* find(std::string_view name) const;
    /// `section` must have a name that is not in the index.
    void add(IniSection* section);
    void remove(const IniSection* section);
    void clear();

private:
    /// Never used while the hash is 0; used once and free again while only the section is null.
    struct Slot {
        size_t hash = 0;
        IniSection* section = nullptr;
    };

    static size_t hashOf(std::string_view name);
    void put(Slot slot);
    void grow();

    std::vector<Slot> slots; // empty, or a power of two of them, at most half used
    size_t used = 0;
};

} // namespace inifile
