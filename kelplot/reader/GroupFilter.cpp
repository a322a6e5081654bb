#include "reader/GroupFilter.h"

#include <array>
#include <charconv>

namespace kelplot {

namespace {

/// The library stops for ever at a line that its buffer of 1024 bytes cannot hold.
constexpr std::size_t longestValue = 1000;

} // namespace

void GroupFilter::rethrowFailure() const {
    if (failure_) {
        std::rethrow_exception(failure_);
    }
}

GroupFilter::int_type GroupFilter::underflow() {
    if (failure_) {
        return traits_type::eof();
    }
    try {
        if (!fill()) {
            return traits_type::eof();
        }
    } catch (...) {
        // An exception must not pass through the library, which would leak what it holds.
        failure_ = std::current_exception();
        return traits_type::eof();
    }
    setg(text_.data(), text_.data(), text_.data() + text_.size());
    return traits_type::to_int_type(text_.front());
}

bool GroupFilter::fill() {
    Group group;
    while (!router_.sawEnd() && groups_.next(group)) {
        if (router_.take(group, groups_.remaining())) {
            write(group);
            return true;
        }
    }
    return false;
}

void GroupFilter::write(const Group& group) {
    std::array<char, 16> code{};
    const auto end = std::to_chars(code.data(), code.data() + code.size(), group.code).ptr;
    text_.assign(code.data(), end);
    text_ += '\n';
    text_ += group.value.substr(0, longestValue);
    text_ += '\n';
}

} // namespace kelplot
