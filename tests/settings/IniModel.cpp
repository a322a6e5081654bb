// SPDX-License-Identifier: BSD-3-Clause
#include "settings/IniModel.h"

#include <cctype>
#include <sstream>
#include <vector>

namespace {

std::string strip(std::string text) {
    while (!text.empty() && std::isspace(static_cast<unsigned char>(text.back()))) {
        text.pop_back();
    }
    while (!text.empty() && std::isspace(static_cast<unsigned char>(text.front()))) {
        text.erase(0, 1);
    }
    return text;
}

std::string before(const std::string& text, const std::string& mark) {
    return strip(text.substr(0, text.find(mark)));
}

/// One byte further on than the mark begins, however long it is.
std::string after(const std::string& text, const std::string& mark) {
    return text.find(mark) == std::string::npos ? "" : strip(text.substr(text.find(mark) + 1));
}

template <typename Sections>
std::string dumpSections(const Sections& sections) {
    std::ostringstream out;
    for (const auto& [name, comment, note, items] : sections) {
        out << '<' << name << '|' << comment << '|' << note << ">\n";
        for (const auto& [key, value, above, behind] : items) {
            out << "  <" << key << '|' << value << '|' << above << '|' << behind << ">\n";
        }
    }
    return out.str();
}

} // namespace

int IniModel::load(const std::string& text) {
    sections = {{}};
    std::string above;
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
        line = strip(line);
        if (line.empty() || line.rfind(delimiter, 0) == 0) {
            above += line + "\n";
            continue;
        }
        const std::string content = before(line, delimiter);
        const std::string note = after(line, delimiter);
        if (content[0] != '[') {
            if (content.find('=') == std::string::npos) {
                return 5;
            }
            sections.back().items.push_back({before(content, "="), after(content, "="), above, note});
        } else {
            const std::string name = before(content.substr(1), "]");
            if (content.find(']') == std::string::npos) {
                return 2;
            }
            if (content[1] == ']') {
                return 3;
            }
            if (section(name) != nullptr) {
                return 4;
            }
            sections.push_back({name, above, note, {}});
        }
        above.clear();
    }
    return 0;
}

std::string IniModel::text() const {
    std::string out;
    const auto lineBreak = [&out] {
        out += !out.empty() && out.back() == '\n' ? "" : "\n";
    };
    const auto behind = [this](const std::string& note) {
        return note.empty() ? "" : " " + delimiter + note;
    };
    for (const Section& each : sections) {
        out += each.comment + (each.name.empty() ? "" : "[" + each.name + "]\n") + behind(each.note);
        for (const Item& item : each.items) {
            if (!item.comment.empty()) {
                out += item.comment;
                lineBreak();
            }
            out += item.key + "=" + item.value + behind(item.note);
            lineBreak();
        }
    }
    return out;
}

void IniModel::set(const std::string& name, const std::string& key, const std::string& value,
                   const std::string& comment) {
    if (section(name) == nullptr) {
        sections.insert(name.empty() ? sections.begin() : sections.end(), Section{name, "", "", {}});
    }
    if (item(section(name), key) == nullptr) {
        section(name)->items.push_back({key, "", "", ""});
    }
    item(section(name), key)->value = value;
    item(section(name), key)->comment = comment.empty() ? "" : delimiter + comment;
}

IniModel::Section* IniModel::section(const std::string& name) {
    for (Section& each : sections) {
        if (each.name == name) {
            return &each;
        }
    }
    return nullptr;
}

IniModel::Item* IniModel::item(Section* in, const std::string& key) {
    if (in != nullptr) {
        for (Item& each : in->items) {
            if (each.key == key) {
                return &each;
            }
        }
    }
    return nullptr;
}

std::string dump(const IniModel& model) {
    return dumpSections(model.sections);
}

std::string dump(inifile::IniFile& file) {
    std::vector<std::string> names;
    file.GetSections(names);
    std::list<inifile::IniSection> sections;
    for (const std::string& name : names) {
        sections.push_back(*file.getSection(name));
    }
    return dumpSections(sections);
}
