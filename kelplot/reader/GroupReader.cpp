#include "reader/GroupReader.h"

#include <algorithm>
#include <charconv>
#include <cstring>
#include <istream>
#include <string>

#include "reader/DrawingFault.h"
#include "reader/GroupValue.h"

namespace kelplot {

namespace {

/// A line must fit; far above anything that programs write.
constexpr std::size_t bufferSize = std::size_t{1} << 18;
constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

/// `text` fit for a message: short, and printable.
std::string quoted(std::string_view text) {
    constexpr std::size_t longest = 24;
    std::string result = "'";
    for (const char c : text.substr(0, longest)) {
        result += c >= ' ' && c < '\x7F' ? c : '?';
    }
    return result + (text.size() > longest ? "...'" : "'");
}

} // namespace

GroupReader::GroupReader(std::istream& input, std::uintmax_t size, const Progress& progress)
    : input_(input), size_(size), progress_(progress), buffer_(bufferSize) {
    skipByteOrderMark();
}

bool GroupReader::next(Group& group) {
    keepFrom_ = begin_;
    std::string_view codeText;
    if (!nextLine(codeText)) {
        return false;
    }
    codeText = trimmed(codeText);
    const auto result = std::from_chars(codeText.data(), codeText.data() + codeText.size(), group.code);
    if (result.ec != std::errc() || result.ptr != codeText.data() + codeText.size()) {
        // An empty line at the very end is no group.
        if (codeText.empty() && remaining() == 0) {
            return false;
        }
        refuseCode(codeText);
    }
    group.line = line_;
    keepFrom_ = begin_;
    return nextLine(group.value);
}

bool GroupReader::nextLine(std::string_view& line) {
    std::size_t searched = begin_;
    const void* newline = nullptr;
    while ((newline = std::memchr(buffer_.data() + searched, '\n', end_ - searched)) == nullptr) {
        const std::size_t unread = end_ - begin_;
        if (!refill()) {
            break;
        }
        searched = begin_ + unread;
    }
    if (newline == nullptr && begin_ == end_) {
        return false;
    }
    const std::size_t lineEnd =
        newline == nullptr ? end_ : static_cast<std::size_t>(static_cast<const char*>(newline) - buffer_.data());
    const std::size_t nextBegin = newline == nullptr ? end_ : lineEnd + 1;
    line = std::string_view(buffer_.data() + begin_, lineEnd - begin_);
    if (!line.empty() && line.back() == '\r') {
        line.remove_suffix(1);
    }
    consumed_ += nextBegin - begin_;
    begin_ = nextBegin;
    ++line_;
    return true;
}

bool GroupReader::refill() {
    if (keepFrom_ > 0) {
        std::memmove(buffer_.data(), buffer_.data() + keepFrom_, end_ - keepFrom_);
        begin_ -= keepFrom_;
        end_ -= keepFrom_;
        keepFrom_ = 0;
    }
    if (end_ == buffer_.size()) {
        throw DrawingFault(line_ + 1, "the line is too long for a drawing");
    }
    // A file that grows while it is read stays within the size it had.
    const auto wanted = std::min<std::uintmax_t>(buffer_.size() - end_, remaining() - (end_ - begin_));
    input_.read(buffer_.data() + end_, static_cast<std::streamsize>(wanted));
    const auto got = static_cast<std::size_t>(input_.gcount());
    end_ += got;
    if (progress_ && got > 0) {
        progress_(static_cast<double>(consumed_) / static_cast<double>(size_));
    }
    return got > 0;
}

void GroupReader::skipByteOrderMark() {
    if (refill() && std::string_view(buffer_.data(), end_).substr(0, byteOrderMark.size()) == byteOrderMark) {
        begin_ = byteOrderMark.size();
        consumed_ = byteOrderMark.size();
    }
}

void GroupReader::refuseCode(std::string_view text) const {
    throw DrawingFault(line_, quoted(text) + " is not a group code, so this is not a drawing or a damaged one");
}

} // namespace kelplot
