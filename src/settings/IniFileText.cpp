// SPDX-License-Identifier: BSD-3-Clause

// The text of a settings file: reading it and writing it back.

#include <cstdio>
#include <optional>
#include <utility>

#include "keldriver/IniFile.h"
#include "settings/FileReplacement.h"
#include "settings/IniText.h"
#include "settings/ResultCodes.h"
#include "settings/TextFile.h"
#include "settings/WriterLock.h"

using namespace KelDriver::Internal;

namespace inifile {

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

void appendNote(std::string& text, const std::string& delimiter, const std::string& note) {
    if (!note.empty()) {
        text += ' ';
        text += delimiter;
        text += note;
    }
}

void appendItem(std::string& text, const IniItem& item, const std::string& delimiter) {
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

} // namespace

int IniFile::Load(const std::string& path) {
    std::string newPath = path; // release empties the path, which may be the one given
    release();
    filePath = std::move(newPath);
    const std::optional<std::string> text = readTextFile(filePath);
    return text ? loadText(*text) : fail(cannotOpen, "open" + filePath + " file failed");
}

/// An item of the section at hand, still in the text.
struct IniFile::LoadedItem {
    std::string_view key, value, rightComment;
    std::string comment;
};

/// Replaces the sections by those of a text; the path stays.
int IniFile::loadText(std::string_view text) {
    dropSections();
    addSection(std::make_unique<IniSection>());
    std::vector<LoadedItem> items;
    const int code = loadLines(text, items);
    storeItems(items);
    return code;
}

int IniFile::loadLines(std::string_view text, std::vector<LoadedItem>& items) {
    std::string comment;
    while (!text.empty()) {
        const std::string_view line = trimmed(takeLine(text));
        if (line.empty()) {
            comment += '\n';
            continue;
        }
        if (startsWith(line, commentDelimiter)) {
            comment += line;
            comment += '\n';
            continue;
        }
        const SplitText parts = splitText(line, commentDelimiter);
        const bool isHeader = startsWith(parts.left, "[");
        if (isHeader) {
            storeItems(items);
        }
        const int code =
            isHeader ? loadHeader(parts.left, comment, parts.right) : loadItem(parts.left, comment, parts.right, items);
        if (code != 0) {
            return code;
        }
        comment.clear();
    }
    return 0;
}

/// Gives the last section its items, in a block of just their size: items that move as a list grows would take as
/// long as all the rest.
void IniFile::storeItems(std::vector<LoadedItem>& items) {
    std::vector<IniItem>& stored = sections.back()->items;
    stored.reserve(items.size());
    for (LoadedItem& item : items) {
        IniItem& place = stored.emplace_back();
        place.key = item.key;
        place.value = item.value;
        place.comment = std::move(item.comment);
        place.rightComment = item.rightComment;
    }
    items.clear();
}

int IniFile::loadHeader(std::string_view content, const std::string& comment, std::string_view rightComment) {
    const size_t end = content.find(']');
    if (end == std::string_view::npos) {
        return fail(noClosingBracket, "no matched ] found");
    }
    if (end == 1) {
        return fail(emptySectionName, "section name is empty");
    }
    const std::string name(trimmed(content.substr(1, end - 1)));
    if (findSection(name) != nullptr) {
        return fail(sectionExists,
                    "section " + name + "already exist"); // without a blank: the text is part of the interface
    }
    addSection(std::make_unique<IniSection>(IniSection{name, comment, std::string(rightComment), {}}));
    return 0;
}

int IniFile::loadItem(std::string_view content, const std::string& comment, std::string_view rightComment,
                      std::vector<LoadedItem>& items) {
    const SplitText parts = splitText(content, "=");
    if (!parts.isFound) {
        return fail(noEqualsSign, "parse line failed:" + std::string(content));
    }
    items.push_back({parts.left, parts.right, rightComment, comment});
    return 0;
}

int IniFile::Save() {
    return SaveAs(filePath);
}

int IniFile::SaveAs(const std::string& path) {
    const std::string text = savedText();
    const WriterLock turn(path);
    writeFile(path, text); // the interface has no code for a failure
    return 0;
}

std::string IniFile::savedText() const {
    std::string text;
    for (const auto& section : sections) {
        text += section->comment;
        if (!section->name.empty()) {
            text += '[';
            text += section->name;
            text += "]\n";
        }
        // Below the header and without a newline of its own: part of the interface.
        appendNote(text, commentDelimiter, section->rightComment);
        for (const IniItem& item : section->items) {
            appendItem(text, item, commentDelimiter);
        }
    }
    return text;
}

void IniFile::print() const {
    std::printf("############ print start ############");
    std::printf("filePath:[%s]\n", filePath.c_str());
    std::printf("commentDelimiter:[%s]\n", commentDelimiter.c_str());
    for (const auto& section : sections) {
        std::printf("comment :[\n%s]\n", section->comment.c_str());
        std::printf("section :\n[%s]\n", section->name.c_str());
        if (!section->rightComment.empty()) {
            std::printf("rightComment:\n%s", section->rightComment.c_str());
        }
        for (const IniItem& item : section->items) {
            std::printf("    comment :[\n%s]\n", item.comment.c_str());
            std::printf("    parm    :%s=%s\n", item.key.c_str(), item.value.c_str());
            if (!item.rightComment.empty()) {
                std::printf("    rcomment:[\n%s]\n", item.rightComment.c_str());
            }
        }
    }
    std::printf("############ print end ############");
}

} // namespace inifile
