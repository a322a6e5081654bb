// SPDX-License-Identifier: BSD-3-Clause
#include "settings/IniSections.h"

#include <algorithm>
#include <utility>

#include "settings/IniText.h"

using inifile::IniItem;
using inifile::IniSection;

namespace KelDriver::Internal {

namespace {

/// Cuts the first line off a text, without its newline.
std::string_view takeLine(std::string_view& text) {
    const size_t end = text.find('\n');
    const std::string_view line = text.substr(0, end);
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    return line;
}

void endLine(std::string& text) {
    if (text.empty() || text.back() != '\n') {
        text += '\n';
    }
}

void appendNote(std::string& text, std::string_view delimiter, const std::string& note) {
    if (!note.empty()) {
        text += ' ';
        text += delimiter;
        text += note;
    }
}

void appendItem(std::string& text, const IniItem& item, std::string_view delimiter) {
    if (!item.comment.empty()) {
        text += item.comment;
        endLine(text);
    }
    text += item.key;
    text += '=';
    text += item.value;
    appendNote(text, delimiter, item.rightComment);
    endLine(text);
}

/// Reads the lines of a file into sections.
class LineReader {
public:
    LineReader(IniSections& sections, std::string_view delimiter) : m_sections(sections), m_delimiter(delimiter) {
        m_current = &m_sections.add({});
    }

    IniResult read(std::string_view text) {
        IniResult result;
        while (!text.empty() && result.code == IniResult::success) {
            result = readLine(trimmed(takeLine(text)));
        }
        storeItems();
        return result;
    }

private:
    /// An item of the section at hand, still in the text.
    struct LoadedItem {
        std::string_view key, value, rightComment;
        std::string comment;
    };

    IniResult readLine(std::string_view line) {
        if (line.empty() || startsWith(line, m_delimiter)) {
            m_comment += line;
            m_comment += '\n';
            return {};
        }
        const SplitText parts = splitText(line, m_delimiter);
        IniResult result =
            startsWith(parts.left, "[") ? readHeader(parts.left, parts.right) : readItem(parts.left, parts.right);
        m_comment.clear();
        return result;
    }

    IniResult readHeader(std::string_view content, std::string_view note) {
        storeItems();
        const size_t end = content.find(']');
        if (end == std::string_view::npos) {
            return {IniResult::noClosingBracket, "no matched ] found"};
        }
        if (end == 1) {
            return {IniResult::emptySectionName, "section name is empty"};
        }
        const std::string name(trimmed(content.substr(1, end - 1)));
        if (m_sections.find(name) != nullptr) { // the message has no blank, which is part of the interface
            return {IniResult::sectionExists, "section " + name + "already exist"};
        }
        m_current = &m_sections.add({name, m_comment, std::string(note), {}});
        return {};
    }

    IniResult readItem(std::string_view content, std::string_view note) {
        const SplitText parts = splitText(content, "=");
        if (!parts.isFound) {
            return {IniResult::noEqualsSign, "parse line failed:" + std::string(content)};
        }
        m_items.push_back({parts.left, parts.right, note, std::move(m_comment)});
        return {};
    }

    /// Gives the section at hand its items, in a block of just their size: items that move as a list grows would take
    /// as long as all the rest.
    void storeItems() {
        std::vector<IniItem>& stored = m_current->items;
        stored.reserve(m_items.size());
        for (LoadedItem& item : m_items) {
            IniItem& place = stored.emplace_back();
            place.key = item.key;
            place.value = item.value;
            place.comment = std::move(item.comment);
            place.rightComment = item.rightComment;
        }
        m_items.clear();
    }

    IniSections& m_sections;
    const std::string_view m_delimiter;
    IniSection* m_current;
    std::vector<LoadedItem> m_items;
    std::string m_comment; ///< the comment and blank lines since the last header or item
};

} // namespace

int IniResult::report(std::string& lastMessage) const {
    if (code != success) {
        lastMessage = message;
    }
    return code;
}

IniResult IniSections::read(std::string_view text, std::string_view delimiter) {
    clear();
    return LineReader(*this, delimiter).read(text);
}

std::string IniSections::text(std::string_view delimiter) const {
    std::string text;
    for (const auto& section : m_list) {
        text += section->comment;
        if (!section->name.empty()) {
            text += '[';
            text += section->name;
            text += "]\n";
        }
        // Below the header and without a newline of its own: part of the interface.
        appendNote(text, delimiter, section->rightComment);
        for (const IniItem& item : section->items) {
            appendItem(text, item, delimiter);
        }
    }
    return text;
}

void IniSections::clear() {
    m_index.emplace();
    m_list.clear();
}

IniSection* IniSections::find(std::string_view name) const {
    if (m_index) {
        const auto found = m_index->find(name);
        return found == m_index->end() ? nullptr : found->second;
    }
    const auto found =
        std::find_if(m_list.begin(), m_list.end(), [&](const auto& section) { return section->name == name; });
    return found == m_list.end() ? nullptr : found->get();
}

IniItem* IniSections::findItem(const std::string& section, const std::string& key, IniResult& result) const {
    IniSection* const found = find(section);
    if (found == nullptr) {
        result = {IniResult::sectionMissing, "not find the section " + section};
        return nullptr;
    }
    const auto item = firstItem(*found, key);
    if (item == found->items.end()) {
        result = {IniResult::keyMissing, "not find the key " + key};
        return nullptr;
    }
    return &*item;
}

IniSection& IniSections::add(IniSection section) {
    const auto place = section.name.empty() ? m_list.begin() : m_list.end();
    IniSection& added = **m_list.insert(place, std::make_unique<IniSection>(std::move(section)));
    if (m_index) {
        m_index->emplace(added.name, &added);
    }
    return added;
}

void IniSections::set(const std::string& section, const std::string& key, const std::string& value,
                      std::string comment) {
    IniSection* target = find(section);
    if (target == nullptr) {
        target = &add({section, {}, {}, {}});
    }
    const auto found = firstItem(*target, key);
    if (found == target->items.end()) {
        target->items.push_back({key, value, std::move(comment), {}});
    } else {
        found->value = value;
        found->comment = std::move(comment);
    }
}

void IniSections::remove(const IniSection& section) {
    if (m_index) {
        m_index->erase(section.name);
    }
    m_list.erase(
        std::find_if(m_list.begin(), m_list.end(), [&](const auto& candidate) { return candidate.get() == &section; }));
}

std::vector<IniItem>::iterator firstItem(IniSection& section, const std::string& key) {
    return std::find_if(section.items.begin(), section.items.end(),
                        [&](const IniItem& item) { return item.key == key; });
}

} // namespace KelDriver::Internal
