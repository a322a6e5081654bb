// SPDX-License-Identifier: GPL-2.0-or-later
#include "reader/GroupFilter.h"

#include <array>
#include <charconv>

namespace kelplot {

namespace {

/// The library hangs on a line that does not fit its buffer of 1024 bytes.
constexpr size_t longestValue = 1000;

} // namespace

void GroupFilter::rethrowFailure() const {
    if (m_failure) {
        std::rethrow_exception(m_failure);
    }
}

GroupFilter::int_type GroupFilter::underflow() {
    if (m_failure) {
        return traits_type::eof();
    }
    try {
        if (!fill()) {
            return traits_type::eof();
        }
    } catch (...) {
        // An exception must not pass through the library, which would leak what it holds.
        m_failure = std::current_exception();
        return traits_type::eof();
    }
    setg(m_text.data(), m_text.data(), m_text.data() + m_text.size());
    return traits_type::to_int_type(m_text.front());
}

bool GroupFilter::fill() {
    Group group;
    while (!m_router.sawEnd() && m_groups.next(group)) {
        if (m_router.take(group, m_groups.mostGroupsLeft())) {
            write(group);
            return true;
        }
    }
    return false;
}

void GroupFilter::write(const Group& group) {
    std::array<char, 16> code{};
    auto* const end = std::to_chars(code.data(), code.data() + code.size(), group.code).ptr;
    m_text.assign(code.data(), end);
    m_text += '\n';
    m_text += group.value.substr(0, longestValue);
    m_text += '\n';
}

} // namespace kelplot
