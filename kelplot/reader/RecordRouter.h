// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "reader/LibraryRecords.h"
#include "reader/entity/Decoders.h"

namespace kelplot {

/// Sees every group of a drawing first, and gives each record to whoever reads records of its type: the
/// DXF library, a decoder of ours, or nobody.
class RecordRouter {
public:
    explicit RecordRouter(DrawingBuilder& builder);

    /// Routes `group`, after which at most `groupsLeft` follow in the file. True where the DXF library is to
    /// read the group; its value may then be another than in the file. Throws `DrawingFault`.
    bool take(Group& group, std::uintmax_t groupsLeft);

    /// Whether the mark that ends a drawing has come.
    bool sawEnd() const { return m_sawEnd; }
    /// Whether anything has come that tells a drawing from another file of numbers and lines.
    bool sawDrawing() const { return m_sawDrawing; }

    /// What the DXF library has to report to.
    LibraryRecords& libraryRecords() { return m_libraryRecords; }

private:
    enum class Section { none, header, tables, blocks, entities, objects, other };
    enum class Reader { nobody, library, decoder };

    bool takeOfHeader(Group& group);
    bool takeRecordStart(Group& group);
    void enterSection(std::string_view name);
    void chooseReader(std::string_view& readAs);
    void beginRecord();
    void takeForDecoder(const Group& group);

    DrawingBuilder& m_builder;
    LibraryRecords m_libraryRecords;
    Decoders m_decoders;

    Section m_section = Section::none;
    std::string m_type; ///< of the current record
    Reader m_reader = Reader::nobody;
    RecordDecoder* m_decoder = nullptr; ///< the last one; of the current record with Reader::decoder
    RecordHeader m_header;              ///< of a record that a decoder reads
    bool m_embedded = false;            ///< in an object within the record, with codes of its own
    bool m_libraryBusy = false;         ///< the library holds a record that it has not handed over
    bool m_sawEnd = false;
    bool m_sawDrawing = false;
};

} // namespace kelplot
