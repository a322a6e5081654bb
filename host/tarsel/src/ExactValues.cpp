// SPDX-License-Identifier: BSD-3-Clause
#include "ExactValues.h"

#include <algorithm>

#include "Hashing.h"

namespace tarsel {

namespace {

constexpr uint32_t freeSlot = UINT32_MAX;

} // namespace

ExactValues::ExactValues(size_t capacity)
    : m_slots(size_t{1} << tableBits(capacity), freeSlot), m_shift(64 - tableBits(capacity)) {
    m_entries.reserve(capacity);
}

uint32_t& ExactValues::slotOf(int64_t step) {
    size_t slot = scatter(static_cast<uint64_t>(step)) >> m_shift;
    while (m_slots[slot] != freeSlot && m_entries[m_slots[slot]].step != step) {
        slot = (slot + 1) & (m_slots.size() - 1);
    }
    return m_slots[slot];
}

void ExactValues::add(int64_t step, double value) {
    uint32_t& slot = slotOf(step);
    if (slot == freeSlot) {
        slot = static_cast<uint32_t>(m_entries.size());
        m_entries.push_back({step, value});
    } else {
        m_entries[slot].value = std::min(m_entries[slot].value, value);
    }
}

const double* ExactValues::find(int64_t step) {
    // A result mostly follows an operand's outline, forwards or backwards.
    const size_t guesses[] = {m_lastFound + 1, m_lastFound - 1, m_lastFound};
    for (const size_t guess : guesses) {
        if (isAt(guess, step)) {
            m_lastFound = guess;
            return &m_entries[guess].value;
        }
    }
    const uint32_t slot = slotOf(step);
    if (slot == freeSlot) {
        return nullptr;
    }
    m_lastFound = slot;
    return &m_entries[slot].value;
}

} // namespace tarsel
