// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <string>

#include "reader/RecordDecoder.h"
#include "reader/annotation/DimensionStyles.h"
#include "reader/entity/BlockRecords.h"
#include "reader/proxy/ProxyGraphics.h"

namespace kelplot {

/// Dimensions of every kind: each is drawn by a block of its own, or else by what it measures.
class DimensionDecoder : public RecordDecoder {
public:
    DimensionDecoder(const DimensionStyles& styles, const BlockRecords& blocks) : m_styles(styles), m_blocks(blocks) {}

    void begin(std::string_view type) override;
    void take(const Group& group) override;
    void takeExtended(const Group& group) override { m_changes.take(group); }
    void end(const RecordHeader& header, DrawingBuilder& builder) override;

private:
    /// The groups that make up the dimension, as the file has them.
    struct Record {
        std::string type;
        std::string block;
        std::string style;
        std::string text;
        Vec3 copyPosition; ///< off the origin for a copy that shares the block of another dimension
        Vec3 textPosition;
        Vec3 line; ///< this and the next ones by their codes 10, 13 to 16
        Vec3 first;
        Vec3 second;
        Vec3 side;
        Vec3 arc;
        int flags = 0;
        double measured = 0.0;
        double direction = 0.0;
        double level = 0.0;
        double oblique = 0.0;
        double textTurn = 0.0;
        double lineSpacing = 1.0;
    };

    bool takeNumber(const Group& group);
    Dimension geometry(const Vec3& extrusion) const;
    void setText(const RecordHeader& header, const StyleValues& style, DrawingBuilder& builder,
                 Dimension& dimension) const;

    const DimensionStyles& m_styles;
    const BlockRecords& m_blocks;
    Record m_record;
    StyleChanges m_changes;
    ProxyGraphics m_picture;
};

} // namespace kelplot
