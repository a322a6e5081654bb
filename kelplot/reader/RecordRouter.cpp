// SPDX-License-Identifier: GPL-2.0-or-later
#include "reader/RecordRouter.h"

#include <algorithm>

#include "reader/GroupValue.h"
#include "reader/groups/CountGuard.h"

namespace kelplot {

namespace {

constexpr int recordCode = 0;
constexpr int nameCode = 2;
constexpr int variableCode = 9;
constexpr int embeddedObjectCode = 101;
constexpr int firstCommentCode = 999; ///< from here on: comments and data of other programs

/// What the library is given to read for the start of a record that is not for it.
constexpr std::string_view strangeType = "-";

/// The names of variables begin with this mark; the library takes one without for the type of a record.
constexpr char variableMark = '$';
constexpr std::string_view strangeVariable = "$";

struct LibraryType {
    RecordPlace place;
    std::string_view type;
    std::string_view readAs;
};
constexpr LibraryType libraryTypes[] = {
    {RecordPlace::entities, "LINE", "LINE"},     {RecordPlace::entities, "CIRCLE", "CIRCLE"},
    {RecordPlace::entities, "ARC", "ARC"},       {RecordPlace::entities, "INSERT", "INSERT"},
    {RecordPlace::entities, "POINT", "POINT"},   {RecordPlace::entities, "SOLID", "SOLID"},
    {RecordPlace::entities, "TRACE", "TRACE"},   {RecordPlace::entities, "ELLIPSE", "ELLIPSE"},
    {RecordPlace::entities, "3DFACE", "3DFACE"}, {RecordPlace::entities, "BLOCK", "BLOCK"},
    {RecordPlace::entities, "ENDBLK", "ENDBLK"}, {RecordPlace::tables, "LAYER", "LAYER"},
    {RecordPlace::entities, "3DLINE", "LINE"}, // as the oldest drawings called a line with a height
};

const LibraryType* libraryTypeOf(RecordPlace place, std::string_view type) {
    const auto* const found =
        std::find_if(std::begin(libraryTypes), std::end(libraryTypes),
                     [&](const LibraryType& entry) { return entry.place == place && entry.type == type; });
    return found == std::end(libraryTypes) ? nullptr : found;
}

/// Long texts are cut into groups, one of which may happen to hold blanks only.
bool isBlankText(const Group& group) {
    constexpr int textCode = 1;
    constexpr int furtherTextCode = 3;
    return !group.value.empty() && (group.code == textCode || group.code == furtherTextCode);
}

} // namespace

RecordRouter::RecordRouter(DrawingBuilder& builder)
    : m_builder(builder), m_libraryRecords(builder, [this] { beginRecord(); }) {
}

bool RecordRouter::take(Group& group, std::uintmax_t groupsLeft) {
    if (group.code == recordCode) {
        return takeRecordStart(group);
    }
    if (group.code == nameCode && m_section == Section::none && m_type == "SECTION") {
        enterSection(trimmed(group.value));
        return false;
    }
    if (m_reader == Reader::library && group.code > firstCommentCode) {
        m_libraryRecords.takeExtended(group);
    } else if (m_reader == Reader::decoder && group.code > firstCommentCode) {
        m_decoder->takeExtended(group);
    }
    // The library would read a number from an empty value without setting it.
    const bool blankText = m_reader == Reader::decoder && isBlankText(group);
    const bool meansNothing = trimmed(group.value).empty() && !blankText;
    if (group.code < 0 || group.code >= firstCommentCode || meansNothing) {
        return false;
    }
    if (m_section == Section::header) {
        return takeOfHeader(group);
    }
    m_embedded = m_embedded || group.code == embeddedObjectCode;
    // To the library, the code of a variable would begin a record of any type.
    const bool forLibrary = m_reader == Reader::library;
    if (m_reader == Reader::nobody || (forLibrary && (m_embedded || group.code == variableCode))) {
        return false;
    }
    checkCount(m_type, group, groupsLeft);
    if (forLibrary) {
        m_libraryRecords.take(group);
    } else {
        takeForDecoder(group);
    }
    return forLibrary;
}

void RecordRouter::takeForDecoder(const Group& group) {
    if (m_embedded) {
        m_decoder->takeEmbedded(group);
        return;
    }
    // The common codes are those of entities.
    if (m_section == Section::objects) {
        m_header.takeOfObject(group);
    } else if (m_section != Section::tables) {
        m_header.take(group, m_builder);
    }
    m_decoder->take(group);
}

bool RecordRouter::takeOfHeader(Group& group) {
    if (group.code == variableCode) {
        group.value = trimmed(group.value);
        if (group.value.front() != variableMark) {
            group.value = strangeVariable;
        }
    }
    m_libraryBusy = true;
    return true;
}

bool RecordRouter::takeRecordStart(Group& group) {
    if (m_reader == Reader::decoder) {
        m_decoder->end(m_header, m_builder);
    }
    m_type = trimmed(group.value);
    if (m_decoder != nullptr) {
        m_decoder->beforeRecord(m_type, m_builder);
    }
    group.value = strangeType;
    chooseReader(group.value);
    const bool libraryReads = m_reader == Reader::library || m_libraryBusy;
    m_libraryBusy = m_reader == Reader::library;
    if (!libraryReads) {
        beginRecord();
    }
    return libraryReads;
}

void RecordRouter::enterSection(std::string_view name) {
    constexpr struct {
        std::string_view name;
        Section section;
    } sections[] = {
        {"HEADER", Section::header},     {"TABLES", Section::tables},   {"BLOCKS", Section::blocks},
        {"ENTITIES", Section::entities}, {"OBJECTS", Section::objects},
    };
    const auto* const found =
        std::find_if(std::begin(sections), std::end(sections), [&](const auto& entry) { return entry.name == name; });
    m_section = found == std::end(sections) ? Section::other : found->section;
    m_sawDrawing = m_sawDrawing || m_section != Section::other;
}

/// Sets who reads the record of type `m_type`; `readAs` receives what the library is to take it for.
void RecordRouter::chooseReader(std::string_view& readAs) {
    m_reader = Reader::nobody;
    if (m_type == "SECTION" || m_type == "ENDSEC") {
        m_section = Section::none;
        return;
    }
    if (m_type == "EOF") {
        m_sawEnd = true;
        return;
    }
    if (m_section == Section::header || m_section == Section::other) {
        return;
    }
    RecordPlace place = RecordPlace::entities;
    if (m_section == Section::tables) {
        place = RecordPlace::tables;
    } else if (m_section == Section::objects) {
        place = RecordPlace::objects;
    }
    if (const LibraryType* const found = libraryTypeOf(place, m_type)) {
        m_reader = Reader::library;
        readAs = found->readAs;
    } else if (RecordDecoder* const decoder = m_decoders.find(place, m_type)) {
        m_reader = Reader::decoder;
        m_decoder = decoder;
    } else if (m_section == Section::entities || m_section == Section::blocks) {
        m_reader = Reader::decoder;
        m_decoder = &m_decoders.unplotted();
    }
    // Small programs leave the sections out and write just entities.
    m_sawDrawing = m_sawDrawing || m_reader != Reader::nobody;
}

/// Runs when whoever read the record before has handed it over.
void RecordRouter::beginRecord() {
    m_embedded = false;
    m_header = RecordHeader();
    if (m_type == "SECTION" || m_type == "ENDSEC") {
        m_builder.endBlock();
    }
    if (m_reader == Reader::library) {
        m_libraryRecords.begin(m_type);
    } else if (m_reader == Reader::decoder) {
        m_decoder->begin(m_type);
    }
}

} // namespace kelplot
