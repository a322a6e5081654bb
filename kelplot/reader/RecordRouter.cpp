#include "reader/RecordRouter.h"

#include <algorithm>

#include "reader/CountGuard.h"
#include "reader/GroupValue.h"

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
    std::string_view type;
    std::string_view readAs;
};
constexpr LibraryType libraryEntities[] = {
    {"LINE", "LINE"},     {"CIRCLE", "CIRCLE"}, {"ARC", "ARC"},         {"INSERT", "INSERT"}, {"POINT", "POINT"},
    {"SOLID", "SOLID"},   {"TRACE", "TRACE"},   {"ELLIPSE", "ELLIPSE"}, {"3DFACE", "3DFACE"}, {"BLOCK", "BLOCK"},
    {"ENDBLK", "ENDBLK"}, {"3DLINE", "LINE"}, // as the oldest drawings called a line with a height
};
constexpr LibraryType libraryTables[] = {{"LAYER", "LAYER"}, {"LTYPE", "LTYPE"}};

template <std::size_t count>
const LibraryType* findType(const LibraryType (&types)[count], std::string_view type) {
    const auto* const found =
        std::find_if(std::begin(types), std::end(types), [&](const LibraryType& entry) { return entry.type == type; });
    return found == std::end(types) ? nullptr : found;
}

} // namespace

RecordRouter::RecordRouter(DrawingBuilder& builder)
    : builder_(builder), libraryRecords_(builder, [this] { beginRecord(); }) {
}

bool RecordRouter::take(Group& group, std::uintmax_t remaining) {
    if (group.code == recordCode) {
        return takeRecordStart(group);
    }
    if (group.code == nameCode && section_ == Section::none && type_ == "SECTION") {
        enterSection(trimmed(group.value));
        return false;
    }
    if (reader_ == Reader::library && group.code > firstCommentCode) {
        libraryRecords_.takeExtended(group);
    }
    // The library would read a number from an empty value without setting it.
    if (group.code < 0 || group.code >= firstCommentCode || trimmed(group.value).empty()) {
        return false;
    }
    if (section_ == Section::header) {
        return takeOfHeader(group);
    }
    embedded_ = embedded_ || group.code == embeddedObjectCode;
    // To the library, the code of a variable would begin a record of any type.
    if (reader_ == Reader::nobody || embedded_ || group.code == variableCode) {
        return false;
    }
    checkCount(type_, group, remaining);
    if (reader_ == Reader::library) {
        libraryRecords_.take(group);
        return true;
    }
    header_.take(group, builder_);
    decoder_->take(group);
    return false;
}

bool RecordRouter::takeOfHeader(Group& group) {
    if (group.code == variableCode) {
        group.value = trimmed(group.value);
        if (group.value.front() != variableMark) {
            group.value = strangeVariable;
        }
    }
    libraryBusy_ = true;
    return true;
}

bool RecordRouter::takeRecordStart(Group& group) {
    if (reader_ == Reader::decoder) {
        decoder_->end(header_, builder_);
    }
    type_ = trimmed(group.value);
    if (!PolylineDecoder::continues(type_)) {
        polylines_.finish(builder_);
    }
    group.value = strangeType;
    chooseReader(group.value);
    const bool libraryReads = reader_ == Reader::library || libraryBusy_;
    libraryBusy_ = reader_ == Reader::library;
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
        {"HEADER", Section::header},
        {"TABLES", Section::tables},
        {"BLOCKS", Section::blocks},
        {"ENTITIES", Section::entities},
    };
    const auto* const found =
        std::find_if(std::begin(sections), std::end(sections), [&](const auto& entry) { return entry.name == name; });
    section_ = found == std::end(sections) ? Section::other : found->section;
    sawDrawing_ = sawDrawing_ || section_ != Section::other;
}

/// Sets who reads the record of type `type_`; `readAs` receives what the library is to take it for.
void RecordRouter::chooseReader(std::string_view& readAs) {
    reader_ = Reader::nobody;
    decoder_ = nullptr;
    if (type_ == "SECTION" || type_ == "ENDSEC") {
        section_ = Section::none;
        return;
    }
    if (type_ == "EOF") {
        sawEnd_ = true;
        return;
    }
    if (section_ == Section::header || section_ == Section::other) {
        return;
    }
    const bool inTables = section_ == Section::tables;
    if (const LibraryType* const found = inTables ? findType(libraryTables, type_) : findType(libraryEntities, type_)) {
        reader_ = Reader::library;
        readAs = found->readAs;
    } else if (!inTables) {
        decoder_ = decoderFor(type_);
        reader_ = decoder_ != nullptr ? Reader::decoder : Reader::nobody;
    }
    // Small programs leave the sections out and write just entities.
    sawDrawing_ = sawDrawing_ || reader_ != Reader::nobody;
}

/// Runs when whoever read the record before has handed it over.
void RecordRouter::beginRecord() {
    embedded_ = false;
    header_ = RecordHeader();
    if (type_ == "SECTION" || type_ == "ENDSEC") {
        builder_.endBlock();
    }
    if (reader_ == Reader::library) {
        libraryRecords_.begin(type_);
    } else if (reader_ == Reader::decoder) {
        decoder_->begin(type_);
    }
}

RecordDecoder* RecordRouter::decoderFor(std::string_view type) {
    const struct {
        std::string_view type;
        RecordDecoder* decoder;
    } decoders[] = {
        {"LWPOLYLINE", &lwPolylines_},
        {"VERTEX", &polylines_},
        {"POLYLINE", &polylines_},
        {"SEQEND", &polylines_},
        {"HATCH", &hatches_},
        {"MPOLYGON", &hatches_},
        {"SPLINE", &splines_},
        {"DIMENSION", &dimensions_},
        {"ARC_DIMENSION", &dimensions_},
        {"LARGE_RADIAL_DIMENSION", &dimensions_},
    };
    const auto* const found =
        std::find_if(std::begin(decoders), std::end(decoders), [&](const auto& entry) { return entry.type == type; });
    return found == std::end(decoders) ? nullptr : found->decoder;
}

} // namespace kelplot
