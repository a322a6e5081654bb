// SPDX-License-Identifier: BSD-3-Clause
#include "keldriver/IniFile.h"

#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <unistd.h>
#include <utility>

#include "settings/FileReplacement.h"
#include "settings/IniSections.h"
#include "settings/IniText.h"
#include "settings/TextFile.h"
#include "settings/WriterLock.h"

using namespace KelDriver::Internal;

namespace inifile {

IniFile::IniFile() : sections(std::make_unique<IniSections>()) {
}

IniFile::~IniFile() = default;

int IniFile::Load(const std::string& path) {
    std::string newPath = path; // release empties the path, which may be the one given
    release();
    filePath = std::move(newPath);
    const std::optional<std::string> text = readTextFile(filePath);
    isLeftAlone = !text && access(filePath.c_str(), F_OK) == 0;
    const IniResult result = text ? sections->read(*text, commentDelimiter)
                                  : IniResult{IniResult::cannotOpen, "open" + filePath + " file failed"};
    return result.report(errMsg);
}

int IniFile::Save() {
    return SaveAs(filePath);
}

int IniFile::SaveAs(const std::string& path) {
    if (isLeftAlone && path == filePath) {
        return 0;
    }
    const std::string text = sections->text(commentDelimiter);
    const WriterLock turn(path);
    [[maybe_unused]] const bool isWritten = writeFile(path, text); // the interface has no code for a failure
    return 0;
}

void IniFile::release() {
    sections->clear();
    filePath.clear();
    isLeftAlone = false;
}

IniSection* IniFile::getSection(const std::string& section) {
    IniSection* const found = sections->find(section);
    if (found != nullptr) {
        sections->expectRenaming();
    }
    return found;
}

const std::string& IniFile::GetErrMsg() const {
    return errMsg;
}

int IniFile::getValue(const std::string& section, const std::string& key, std::string& value, std::string& comment) {
    IniResult result;
    if (const IniItem* const item = sections->findItem(section, key, result)) {
        value = item->value;
        comment = item->comment;
    }
    return result.report(errMsg);
}

int IniFile::getValue(const std::string& section, const std::string& key, std::string& value) {
    std::string comment;
    return getValue(section, key, value, comment);
}

int IniFile::GetStringValue(const std::string& section, const std::string& key, std::string& value) {
    return getValue(section, key, value);
}

int IniFile::GetStringValueOrDefault(const std::string& section, const std::string& key, std::string& value,
                                     const std::string& defaultValue) {
    const int code = getValue(section, key, value);
    if (code != 0) {
        value = defaultValue;
    }
    return code;
}

int IniFile::GetIntValue(const std::string& section, const std::string& key, int& value) {
    std::string text;
    const int code = getValue(section, key, text);
    value = static_cast<int>(std::strtol(text.c_str(), nullptr, 10));
    return code;
}

int IniFile::GetIntValueOrDefault(const std::string& section, const std::string& key, int& value, int defaultValue) {
    const int code = GetIntValue(section, key, value);
    if (code != 0) {
        value = defaultValue;
    }
    return code;
}

int IniFile::GetDoubleValue(const std::string& section, const std::string& key, double& value) {
    std::string text;
    const int code = getValue(section, key, text);
    static const locale_t classic =
        newlocale(LC_ALL_MASK, "C", nullptr); // a file has a point even where the host has a comma
    value = strtod_l(text.c_str(), nullptr, classic);
    return code;
}

int IniFile::GetDoubleValueOrDefault(const std::string& section, const std::string& key, double& value,
                                     double defaultValue) {
    const int code = GetDoubleValue(section, key, value);
    if (code != 0) {
        value = defaultValue;
    }
    return code;
}

int IniFile::GetBoolValue(const std::string& section, const std::string& key, bool& value) {
    std::string text;
    const int code = getValue(section, key, text);
    if (StringCmpIgnoreCase(text, "true") || text == "1") {
        value = true;
    } else if (StringCmpIgnoreCase(text, "false") || text == "0") {
        value = false;
    }
    return code;
}

int IniFile::GetBoolValueOrDefault(const std::string& section, const std::string& key, bool& value, bool defaultValue) {
    const int code = GetBoolValue(section, key, value);
    if (code != 0) {
        value = defaultValue;
    }
    return code;
}

int IniFile::GetValues(const std::string& section, const std::string& key, std::vector<std::string>& values,
                       std::vector<std::string>& comments) {
    IniResult result;
    if (sections->findItem(section, key, result) == nullptr) {
        return result.report(errMsg);
    }
    for (const IniItem& item : sections->find(section)->items) {
        if (item.key == key) {
            values.push_back(item.value);
            comments.push_back(item.comment);
        }
    }
    return 0;
}

int IniFile::GetValues(const std::string& section, const std::string& key, std::vector<std::string>& values) {
    std::vector<std::string> comments;
    return GetValues(section, key, values, comments);
}

int IniFile::GetSections(std::vector<std::string>& names) {
    for (const auto& section : sections->list()) {
        names.push_back(section->name);
    }
    return static_cast<int>(names.size());
}

int IniFile::GetSectionNum() const {
    return static_cast<int>(sections->list().size());
}

bool IniFile::HasSection(const std::string& section) const {
    return sections->find(section) != nullptr;
}

bool IniFile::HasKey(const std::string& section, const std::string& key) const {
    IniSection* const found = sections->find(section);
    return found != nullptr && firstItem(*found, key) != found->items.end();
}

void IniFile::print() const {
    std::printf("############ print start ############");
    std::printf("filePath:[%s]\n", filePath.c_str());
    std::printf("commentDelimiter:[%s]\n", commentDelimiter.c_str());
    for (const auto& section : sections->list()) {
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

bool IniFile::IsCommentLine(const std::string& line) const {
    return startsWith(line, commentDelimiter);
}

} // namespace inifile
