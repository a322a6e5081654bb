// SPDX-License-Identifier: BSD-3-Clause

// Changing a settings file in memory, and the text helpers that callers share with it.

#include <algorithm>
#include <cctype>
#include <charconv>
#include <iterator>
#include <utility>

#include "keldriver/IniFile.h"
#include "settings/IniSections.h"
#include "settings/IniText.h"

using namespace KelDriver::Internal;

namespace inifile {

namespace {

/// One of the two comment texts that a section and an item have besides their content.
struct CommentPlace {
    std::string IniSection::*ofSection;
    std::string IniItem::*ofItem;
};

constexpr CommentPlace aboveLine{&IniSection::comment, &IniItem::comment};
constexpr CommentPlace behindLine{&IniSection::rightComment, &IniItem::rightComment};

/// Finds a comment: the section's when `key` is empty, else that of its first such item.
std::string* findText(const IniSections& sections, const std::string& section, const std::string& key,
                      const CommentPlace& place, IniResult& result) {
    if (!key.empty()) {
        IniItem* const item = sections.findItem(section, key, result);
        return item != nullptr ? &(item->*place.ofItem) : nullptr;
    }
    IniSection* const found = sections.find(section);
    if (found == nullptr) {
        result = {IniResult::sectionMissing, "not find the section " + section};
    }
    return found != nullptr ? &(found->*place.ofSection) : nullptr;
}

IniResult setText(const IniSections& sections, const std::string& section, const std::string& key,
                  const CommentPlace& place, const std::string& comment) {
    IniResult result;
    if (std::string* const text = findText(sections, section, key, place, result)) {
        *text = comment;
    }
    if (result.code == IniResult::sectionMissing) { // setters spell it with a capital
        result.message = "Not find the section " + section;
    }
    return result;
}

} // namespace

int IniFile::setValue(const std::string& section, const std::string& key, const std::string& value,
                      const std::string& comment) {
    sections->set(section, key, value, comment.empty() ? comment : commentDelimiter + comment);
    return 0;
}

int IniFile::SetStringValue(const std::string& section, const std::string& key, const std::string& value) {
    return setValue(section, key, value);
}

int IniFile::SetIntValue(const std::string& section, const std::string& key, int value) {
    return setValue(section, key, std::to_string(value));
}

int IniFile::SetDoubleValue(const std::string& section, const std::string& key, double value) {
    char text[1 + 309 + 1 + 6]; // the longest: a sign, all digits of the largest number, the point and six decimals
    char* const end = std::to_chars(std::begin(text), std::end(text), value, std::chars_format::fixed, 6).ptr;
    return setValue(section, key, std::string(text, end));
}

int IniFile::SetBoolValue(const std::string& section, const std::string& key, bool value) {
    return setValue(section, key, value ? "true" : "false");
}

int IniFile::GetComment(const std::string& section, const std::string& key, std::string& comment) {
    IniResult result;
    if (const std::string* const text = findText(*sections, section, key, aboveLine, result)) {
        comment = *text;
    }
    return result.report(errMsg);
}

int IniFile::GetRightComment(const std::string& section, const std::string& key, std::string& rightComment) {
    IniResult result;
    if (const std::string* const text = findText(*sections, section, key, behindLine, result)) {
        rightComment = *text;
    }
    return result.report(errMsg);
}

int IniFile::SetComment(const std::string& section, const std::string& key, const std::string& comment) {
    return setText(*sections, section, key, aboveLine, comment).report(errMsg);
}

int IniFile::SetRightComment(const std::string& section, const std::string& key, const std::string& rightComment) {
    return setText(*sections, section, key, behindLine, rightComment).report(errMsg);
}

void IniFile::SetCommentDelimiter(const std::string& delimiter) {
    commentDelimiter = delimiter;
}

void IniFile::DeleteSection(const std::string& section) {
    if (const IniSection* const doomed = sections->find(section)) {
        sections->remove(*doomed);
    }
}

void IniFile::DeleteKey(const std::string& section, const std::string& key) {
    IniSection* const found = sections->find(section);
    if (found == nullptr) {
        return;
    }
    const auto item = firstItem(*found, key);
    if (item != found->items.end()) {
        found->items.erase(item);
    }
}

void IniFile::trim(std::string& text) {
    text = std::string(trimmed(text));
}

void IniFile::trimleft(std::string& text, char c) {
    text.erase(0, std::min(text.find_first_not_of(c), text.size()));
}

void IniFile::trimright(std::string& text, char c) {
    text.erase(text.find_last_not_of(c) + 1); // npos + 1 is 0: nothing else was in it
}

bool IniFile::split(const std::string& text, const std::string& separator, std::string& left, std::string& right) {
    const SplitText parts = splitText(text, separator);
    std::string leftPart(parts.left); // an argument may be a result too
    std::string rightPart(parts.right);
    left = std::move(leftPart);
    right = std::move(rightPart);
    return parts.isFound;
}

bool IniFile::parse(const std::string& line, std::string& key, std::string& value) {
    return split(line, "=", key, value);
}

bool IniFile::StartWith(const std::string& text, const std::string& prefix) {
    return startsWith(text, prefix);
}

bool IniFile::StringCmpIgnoreCase(const std::string& a, const std::string& b) {
    const auto upper = [](char c) {
        return std::toupper(static_cast<unsigned char>(c));
    };
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [&](char left, char right) { return upper(left) == upper(right); });
}

} // namespace inifile
