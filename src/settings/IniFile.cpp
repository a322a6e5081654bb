// SPDX-License-Identifier: BSD-3-Clause
#include "keldriver/IniFile.h"

#include <algorithm>
#include <clocale>
#include <cstdlib>
#include <utility>

#include "settings/FirstItem.h"
#include "settings/IniText.h"
#include "settings/ResultCodes.h"

using namespace KelDriver::Internal;

namespace inifile {

IniFile::IniFile() : index(std::in_place) {
}

IniFile::~IniFile() = default;

void IniFile::release() {
    dropSections();
    filePath.clear();
}

void IniFile::dropSections() {
    index.emplace();
    sections.clear();
}

/// Puts a section at the end, an unnamed one at the front.
IniSection& IniFile::addSection(std::unique_ptr<IniSection> section) {
    IniSection& added = *section;
    sections.insert(added.name.empty() ? sections.begin() : sections.end(), std::move(section));
    if (index) {
        index->emplace(added.name, &added);
    }
    return added;
}

IniSection* IniFile::findSection(std::string_view name) const {
    if (index) {
        const auto found = index->find(name);
        return found == index->end() ? nullptr : found->second;
    }
    const auto found =
        std::find_if(sections.begin(), sections.end(), [&](const auto& section) { return section->name == name; });
    return found == sections.end() ? nullptr : found->get();
}

IniSection* IniFile::getSection(const std::string& section) {
    IniSection* const found = findSection(section);
    if (found != nullptr) { // the caller may rename it from now on
        index.reset();
    }
    return found;
}

int IniFile::fail(int code, std::string message) {
    errMsg = std::move(message);
    return code;
}

const std::string& IniFile::GetErrMsg() const {
    return errMsg;
}

IniItem* IniFile::findItem(const std::string& section, const std::string& key, int& code) {
    IniSection* const found = findSection(section);
    if (found == nullptr) {
        code = fail(sectionMissing, "not find the section " + section);
        return nullptr;
    }
    const auto item = firstItem(*found, key);
    if (item == found->items.end()) {
        code = fail(keyMissing, "not find the key " + key);
        return nullptr;
    }
    code = 0;
    return &*item;
}

int IniFile::getValue(const std::string& section, const std::string& key, std::string& value, std::string& comment) {
    int code = 0;
    if (const IniItem* const item = findItem(section, key, code)) {
        value = item->value;
        comment = item->comment;
    }
    return code;
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
    static const locale_t classic = newlocale(LC_ALL_MASK, "C", nullptr); // a file's point is none of the host's comma
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
    int code = 0;
    if (findItem(section, key, code) == nullptr) {
        return code;
    }
    for (const IniItem& item : findSection(section)->items) {
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
    for (const auto& section : sections) {
        names.push_back(section->name);
    }
    return static_cast<int>(names.size());
}

int IniFile::GetSectionNum() const {
    return static_cast<int>(sections.size());
}

bool IniFile::HasSection(const std::string& section) const {
    return findSection(section) != nullptr;
}

bool IniFile::HasKey(const std::string& section, const std::string& key) const {
    IniSection* const found = findSection(section);
    return found != nullptr && firstItem(*found, key) != found->items.end();
}

bool IniFile::IsCommentLine(const std::string& line) const {
    return startsWith(line, commentDelimiter);
}

} // namespace inifile
