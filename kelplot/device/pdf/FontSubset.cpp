// SPDX-License-Identifier: GPL-2.0-or-later
#include "device/pdf/FontSubset.h"

#include <hb-subset.h>
#include <map>
#include <memory>
#include <new>
#include <stdexcept>

namespace kelplot {
namespace {

struct Release {
    void operator()(hb_face_t* face) const { hb_face_destroy(face); }
    void operator()(hb_blob_t* blob) const { hb_blob_destroy(blob); }
    void operator()(hb_subset_input_t* input) const { hb_subset_input_destroy(input); }
};
template <typename T>
using Owned = std::unique_ptr<T, Release>;

/// The tables of a font that were asked for. The subsetter reads them after it has given them back, so they are kept
/// until it has ended.
struct FontTables {
    const QRawFont& font;
    std::map<hb_tag_t, QByteArray> kept = {};
};

/// Hands a table of the font to the font library.
hb_blob_t* tableOf(hb_face_t* /*face*/, hb_tag_t tag, void* source) {
    auto& tables = *static_cast<FontTables*>(source);
    const char name[] = {static_cast<char>(tag >> 24), static_cast<char>(tag >> 16), static_cast<char>(tag >> 8),
                         static_cast<char>(tag), '\0'};
    const auto table = tables.kept.find(tag);
    const QByteArray& bytes = table != tables.kept.end()
                                  ? table->second
                                  : tables.kept.emplace(tag, tables.font.fontTable(name)).first->second;
    return hb_blob_create(bytes.constData(), static_cast<unsigned>(bytes.size()), HB_MEMORY_MODE_READONLY, nullptr,
                          nullptr);
}

/// What a document has no use for: it finds glyphs by their numbers, and places them itself.
constexpr hb_tag_t dropped[] = {
    HB_TAG('G', 'S', 'U', 'B'), HB_TAG('G', 'P', 'O', 'S'), HB_TAG('G', 'D', 'E', 'F'), HB_TAG('k', 'e', 'r', 'n'),
    HB_TAG('c', 'm', 'a', 'p'), HB_TAG('n', 'a', 'm', 'e'), HB_TAG('p', 'o', 's', 't'), HB_TAG('O', 'S', '/', '2'),
    HB_TAG('M', 'A', 'T', 'H'), HB_TAG('v', 'h', 'e', 'a'), HB_TAG('v', 'm', 't', 'x'), HB_TAG('V', 'O', 'R', 'G'),
    HB_TAG('B', 'A', 'S', 'E'), HB_TAG('g', 'a', 's', 'p'), HB_TAG('D', 'S', 'I', 'G'), HB_TAG('h', 'd', 'm', 'x'),
};

} // namespace

PdfBytes fontSubset(const QRawFont& font, const std::vector<uint32_t>& glyphs, const char* table) {
    FontTables tables{font};
    const Owned<hb_face_t> face(hb_face_create_for_tables(tableOf, &tables, nullptr));
    const Owned<hb_subset_input_t> input(hb_subset_input_create_or_fail());
    if (!input) {
        throw std::bad_alloc();
    }
    hb_subset_input_set_flags(input.get(), HB_SUBSET_FLAGS_NO_HINTING | HB_SUBSET_FLAGS_RETAIN_GIDS);
    for (const uint32_t glyph : glyphs) {
        hb_set_add(hb_subset_input_glyph_set(input.get()), glyph);
    }
    for (const hb_tag_t tag : dropped) {
        hb_set_add(hb_subset_input_set(input.get(), HB_SUBSET_SETS_DROP_TABLE_TAG), tag);
    }
    const Owned<hb_face_t> subset(hb_subset_or_fail(face.get(), input.get()));
    if (!subset) {
        throw std::runtime_error("the font " + font.familyName().toStdString() +
                                 " cannot be embedded; texts can be drawn as outlines (--text=outlines)");
    }
    const Owned<hb_blob_t> blob(table == nullptr
                                    ? hb_face_reference_blob(subset.get())
                                    : hb_face_reference_table(subset.get(), hb_tag_from_string(table, -1)));
    unsigned size = 0;
    const char* const data = hb_blob_get_data(blob.get(), &size);
    PdfBytes bytes;
    bytes << std::string_view(data, size);
    return bytes;
}

} // namespace kelplot
