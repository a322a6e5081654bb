// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <list>
#include <string>

#include "keldriver/IniFile.h"

/// What the text of a settings file means and is saved as: short, slow, and made of streams and lists, so that it
/// shares no mistake with the library.
class IniModel {
public:
    struct Item {
        std::string key, value, comment, note;
    };
    struct Section {
        std::string name, comment, note;
        std::list<Item> items;
    };

    explicit IniModel(std::string commentDelimiter = "#") : delimiter(std::move(commentDelimiter)) {}

    /// Answers the code that `IniFile::Load` is to answer for this text.
    int load(const std::string& text);
    std::string text() const;
    void set(const std::string& name, const std::string& key, const std::string& value, const std::string& comment);
    /// The first of that name, or null.
    Section* section(const std::string& name);
    static Item* item(Section* in, const std::string& key);

    const std::string delimiter;
    std::list<Section> sections;
};

/// Every field of every section and item, to compare models by.
std::string dump(const IniModel& model);
std::string dump(inifile::IniFile& file);
