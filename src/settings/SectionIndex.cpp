#include "settings/SectionIndex.h"

#include <functional>

namespace inifile {

size_t SectionIndex::hashOf(std::string_view name) {
    return std::hash<std::string_view>()(name) | 1U; // 0 marks a slot never used
}

IniSection* SectionIndex::find(std::string_view name) const {
    if (slots.empty()) {
        return nullptr;
    }
    const size_t hash = hashOf(name);
    const size_t mask = slots.size() - 1;
    for (size_t i = hash >> 1U & mask; slots[i].hash != 0; i = (i + 1) & mask) {
        if (slots[i].hash == hash && slots[i].section != nullptr && slots[i].section->name == name) {
            return slots[i].section;
        }
    }
    return nullptr;
}

void SectionIndex::add(IniSection* section) {
    if (2 * used >= slots.size()) {
        grow();
    }
    put({hashOf(section->name), section});
}

void SectionIndex::put(Slot slot) {
    const size_t mask = slots.size() - 1;
    size_t i = slot.hash >> 1U & mask;
    while (slots[i].hash != 0) {
        i = (i + 1) & mask;
    }
    slots[i] = slot;
    ++used;
}

/// Doubles the room, and drops what has been removed.
void SectionIndex::grow() {
    constexpr size_t smallest = 16;
    std::vector<Slot> old(slots.empty() ? smallest : 2 * slots.size());
    old.swap(slots);
    used = 0;
    for (const Slot& slot : old) {
        if (slot.section != nullptr) {
            put(slot);
        }
    }
}

void SectionIndex::remove(const IniSection* section) {
    if (slots.empty()) {
        return;
    }
    const size_t hash = hashOf(section->name);
    const size_t mask = slots.size() - 1;
    for (size_t i = hash >> 1U & mask; slots[i].hash != 0; i = (i + 1) & mask) {
        if (slots[i].section == section) {
            slots[i].section = nullptr;
            return;
        }
    }
}

void SectionIndex::clear() {
    slots.clear();
    used = 0;
}

} // namespace inifile
