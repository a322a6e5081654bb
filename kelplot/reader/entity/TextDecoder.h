// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <string>

#include "reader/RecordDecoder.h"
#include "reader/mtext/MTextDecoder.h"

namespace kelplot {

/// Single lines of text: texts, the attributes of block references, and the definitions that attributes are made from.
/// Attributes may hold paragraphs instead.
class TextDecoder : public RecordDecoder {
public:
    void begin(std::string_view type) override;
    void take(const Group& group) override;
    void takeEmbedded(const Group& group) override;
    void end(const RecordHeader& stated, DrawingBuilder& builder) override;

private:
    enum class Kind { text, attribute, definition };

    void takeLook(const Group& group);
    bool isShown(const DrawingBuilder& builder) const;
    Text build(std::string_view value, DrawingBuilder& builder) const;

    Kind m_kind = Kind::text;
    Text m_text;
    std::string m_value; ///< this and the names as the file has them
    std::string m_style;
    std::string m_tag;
    int m_flags = 0; ///< of an attribute
    bool m_aligned = false;
    bool m_pastText = false; ///< in a part of the record with other meanings of the codes
    MTextRecord m_paragraphs;
    int m_embeddedObjects = 0;
};

} // namespace kelplot
