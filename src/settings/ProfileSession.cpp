// SPDX-License-Identifier: BSD-3-Clause
#include "settings/ProfileSession.h"

#include <algorithm>
#include <cstdlib>
#include <cwchar>
#include <utility>

#include <sys/stat.h>

#include "port/MultiByte.h"
#include "settings/FileReplacement.h"
#include "settings/IniText.h"
#include "settings/TextFile.h"

namespace KelDriver::Internal {

namespace {

constexpr std::string_view delimiter = "#"; // profile files know no other

std::string_view withoutQuotes(std::string_view text) {
    const size_t first = std::min(text.find_first_not_of('"'), text.size());
    text.remove_prefix(first);
    return text.substr(0, text.find_last_not_of('"') + 1);
}

/// Fills a caller's zeroed buffer with texts, each with a terminator; positions count bytes.
class TextList {
public:
    TextList(wchar_t* out, unsigned int size) : m_out(out), m_size(size) {}

    /// Takes a text; false when it does not fit, and then the list is at its end.
    bool add(std::string_view quoted) {
        const std::string text(withoutQuotes(quoted));
        if (text.empty()) {
            return true;
        }
        const size_t length = text.size() + 1;
        if (m_size != 0 && m_count + length > m_size) {
            return false;
        }
        if (m_size != 0) {
            std::wcscpy(m_out + m_count, fromMultiByte(text).c_str());
        }
        m_count += length;
        return true;
    }

    int count() const { return static_cast<int>(m_count); }

private:
    wchar_t* m_out;
    size_t m_size;
    size_t m_count = 0;
};

/// Calls `visit` with the value of each item of that key, until it answers false.
template <typename Visit>
void visitValues(const inifile::IniSection* section, std::string_view key, Visit visit) {
    if (section == nullptr) {
        return;
    }
    for (const inifile::IniItem& item : section->items) {
        if (item.key == key && !visit(item.value)) {
            return;
        }
    }
}

/// Whether the header of a new section would be read as the same section.
bool headerReadsBack(const std::string& name) {
    return name.find_first_of("#]\n") == std::string::npos && trimmed(name).size() == name.size() && !name.empty();
}

/// Turns an item into what reading its saved line gives; false when the line would not be read as an item.
bool readBack(inifile::IniItem& item) {
    std::string line = item.key + '=' + item.value;
    if (!item.rightComment.empty()) {
        line += " #" + item.rightComment;
    }
    const SplitText note = splitText(line, delimiter);
    const SplitText pair = splitText(note.left, "=");
    if (line.find('\n') != std::string::npos || note.left.empty() || note.left.front() == '[' || !pair.isFound) {
        return false;
    }
    item.key = pair.left;
    item.value = pair.right;
    item.rightComment = note.right;
    return true;
}

} // namespace

ProfileSession::ProfileSession(std::string filePath) : m_path(std::move(filePath)) {
    read();
}

ProfileSession::~ProfileSession() {
    try {
        flush();
    } catch (...) { // no memory for the text: an unwritten file is all that a caller could be told
        m_isUnsaved = false;
    }
}

void ProfileSession::read() {
    m_sections.clear();
    m_state = State::Unreadable;
    if (const std::optional<std::string> text = readTextFile(m_path)) {
        const IniResult result = m_sections.read(*text, delimiter);
        m_state = result.code == IniResult::success ? State::WellFormed : State::Malformed;
    }
    examine();
}

/// Of all that can be read, only a header with a note does not read back the same once it is saved.
void ProfileSession::examine() {
    m_readsBackEqual = std::all_of(m_sections.list().begin(), m_sections.list().end(),
                                   [](const auto& section) { return section->rightComment.empty(); });
    m_unsettledSection = nullptr;
}

/// Brings the model to what the next profile call would read, after something was set.
void ProfileSession::settle() {
    if (m_unsettledSection == nullptr) {
        return;
    }
    if (m_readsBackEqual && readBack(m_unsettledSection->items[m_unsettledItem])) {
        m_unsettledSection = nullptr;
        return;
    }
    std::string text = m_sections.text(delimiter);
    if (m_sections.read(text, delimiter).code != IniResult::success) {
        m_state = State::Malformed;
        m_malformedText = std::move(text);
    }
    examine();
}

void ProfileSession::createIfMissing() {
    if (m_state != State::Unreadable) {
        return;
    }
    struct stat status {};
    if (stat(m_path.c_str(), &status) != 0) {
        createFile(m_path);
    }
    read();
}

bool ProfileSession::isReadable() {
    if (m_unsettledSection != nullptr) { // the file gets what was set, not what that reads back as
        flush();
    }
    settle();
    return m_state == State::WellFormed;
}

bool ProfileSession::isWritable() {
    createIfMissing();
    return isReadable();
}

int ProfileSession::getString(std::string_view section, std::string_view key, const wchar_t* defaultValue, wchar_t* out,
                              unsigned int size) {
    TextList list(out, size);
    if (isReadable()) {
        visitValues(m_sections.find(section), key, [&](const std::string& value) { return list.add(value); });
    }
    if (list.count() != 0) {
        return list.count();
    }
    if (defaultValue != nullptr && out != nullptr) {
        std::wcscat(out, defaultValue); // whatever the size, which is part of the interface
    }
    constexpr int defaultUsed = 8;
    return defaultUsed;
}

int ProfileSession::getInt(std::string_view section, std::string_view key, int defaultValue) {
    int number = defaultValue;
    if (isReadable()) {
        visitValues(m_sections.find(section), key, [&](const std::string& value) {
            const std::string text(withoutQuotes(value));
            if (!text.empty()) {
                number = static_cast<int>(std::strtol(text.c_str(), nullptr, 10));
            }
            return text.empty();
        });
    }
    return number;
}

int ProfileSession::getSectionNames(wchar_t* out, unsigned int size) {
    TextList list(out, size);
    if (isReadable()) {
        for (const auto& section : m_sections.list()) {
            if (!list.add(section->name)) {
                break;
            }
        }
    }
    return list.count();
}

void ProfileSession::writeString(const std::string& section, const std::string& key, const std::string& value) {
    createIfMissing();
    settle();
    if (m_state != State::WellFormed) {
        m_isLost = true;
        return;
    }
    m_readsBackEqual = m_readsBackEqual && (m_sections.find(section) != nullptr || headerReadsBack(section));
    m_sections.set(section, key, value, {});
    m_unsettledSection = m_sections.find(section);
    const auto item = firstItem(*m_unsettledSection, key);
    m_unsettledItem = static_cast<size_t>(item - m_unsettledSection->items.begin());
    m_isUnsaved = true;
}

bool ProfileSession::flush() {
    if (m_isUnsaved) {
        m_isUnsaved = false;
        const bool isWritten =
            writeFile(m_path, m_state == State::Malformed ? m_malformedText : m_sections.text(delimiter));
        m_isLost = m_isLost || !isWritten;
    }
    return !m_isLost;
}

} // namespace KelDriver::Internal
