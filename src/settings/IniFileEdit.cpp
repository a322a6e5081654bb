// SPDX-License-Identifier: BSD-3-Clause

// Changing a settings file in memory, and the text helpers that callers share with it.

#include <algorithm>
#include <cctype>
#include <charconv>
#include <iterator>
#include <utility>

#include "keldriver/IniFile.h"
#include "settings/FirstItem.h"
#include "settings/IniText.h"
#include "settings/ResultCodes.h"

using namespace KelDriver::Internal;

namespace inifile {

int IniFile::setValue(const std::string& section, const std::string& key, const std::string& value,
                      const std::string& comment) {
    IniSection* target = findSection(section);
    if (target == nullptr) {
        target = &addSection(std::make_unique<IniSection>(IniSection{section, {}, {}, {}}));
    }
    IniItem changed{key, value, comment.empty() ? comment : commentDelimiter + comment, {}};
    const auto found = firstItem(*target, key);
    if (found == target->items.end()) {
        target->items.push_back(std::move(changed));
    } else {
        found->value = std::move(changed.value);
        found->comment = std::move(changed.comment);
    }
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

/// Finds a comment: of the section when `key` is empty, else of its first such item.
int IniFile::findText(const std::string& section, const std::string& key, std::string IniSection::*ofSection,
                      std::string IniItem::*ofItem, std::string*& text) {
    if (!key.empty()) {
        int code = 0;
        IniItem* const item = findItem(section, key, code);
        text = item != nullptr ? &(item->*ofItem) : nullptr;
        return code;
    }
    IniSection* const found = findSection(section);
    text = found != nullptr ? &(found->*ofSection) : nullptr;
    return found != nullptr ? 0 : fail(sectionMissing, "not find the section " + section);
}

int IniFile::GetComment(const std::string& section, const std::string& key, std::string& comment) {
    std::string* text = nullptr;
    const int code = findText(section, key, &IniSection::comment, &IniItem::comment, text);
    if (text != nullptr) {
        comment = *text;
    }
    return code;
}

int IniFile::GetRightComment(const std::string& section, const std::string& key, std::string& rightComment) {
    std::string* text = nullptr;
    const int code = findText(section, key, &IniSection::rightComment, &IniItem::rightComment, text);
    if (text != nullptr) {
        rightComment = *text;
    }
    return code;
}

int IniFile::SetComment(const std::string& section, const std::string& key, const std::string& comment) {
    std::string* text = nullptr;
    const int code = findText(section, key, &IniSection::comment, &IniItem::comment, text);
    if (text != nullptr) {
        *text = comment;
    }
    // Setters spell it with a capital.
    return code != sectionMissing ? code : fail(sectionMissing, "Not find the section " + section);
}

int IniFile::SetRightComment(const std::string& section, const std::string& key, const std::string& rightComment) {
    std::string* text = nullptr;
    const int code = findText(section, key, &IniSection::rightComment, &IniItem::rightComment, text);
    if (text != nullptr) {
        *text = rightComment;
    }
    return code != sectionMissing ? code : fail(sectionMissing, "Not find the section " + section);
}

void IniFile::SetCommentDelimiter(const std::string& delimiter) {
    commentDelimiter = delimiter;
}

void IniFile::DeleteSection(const std::string& section) {
    const IniSection* const doomed = findSection(section);
    if (doomed == nullptr) {
        return;
    }
    if (index) {
        index->erase(doomed->name);
    }
    sections.erase(std::find_if(sections.begin(), sections.end(),
                                [doomed](const auto& candidate) { return candidate.get() == doomed; }));
}

void IniFile::DeleteKey(const std::string& section, const std::string& key) {
    IniSection* const found = findSection(section);
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
