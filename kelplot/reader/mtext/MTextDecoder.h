// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "reader/DrawingBuilder.h"
#include "reader/RecordDecoder.h"
#include "reader/groups/GroupSource.h"

namespace kelplot {

/// Gathers the groups of a text of paragraphs, of a record of its own or within an attribute.
class MTextRecord {
public:
    void take(const Group& group);
    /// Takes a group of the object within the record, in which newer drawings keep the columns.
    void takeOfColumns(const Group& group);

    bool hasText() const { return !m_markup.empty(); }

    /// The text, in the plane that `extrusion` names.
    MText build(const Vec3& extrusion, DrawingBuilder& builder) const;

private:
    /// How the text is spread over columns, as either form of the file has it.
    struct Columns {
        int type = 0;
        int count = 1;
        bool reversed = false;
        bool automaticHeight = false;
        double width = 0.0;
        double gutter = 0.0;
        std::vector<double> heights;
    };

    void takeText(std::string_view chunk);
    bool takeColumnGroup(const Group& group);
    TextColumns columns() const;
    double rotation(const Vec3& extrusion) const;

    std::string m_markup; ///< as the file has it
    std::string m_style;
    Vec3 m_position;
    Vec3 m_direction;
    double m_rotation = 0.0;
    double m_height = 0.0;
    double m_width = 0.0;
    double m_definedHeight = 0.0;
    double m_depth = 0.0;
    double m_lineSpacing = 1.0;
    int m_lineSpacingStyle = 0;
    int m_attachment = 1;
    int m_flow = 0;
    int m_background = 0; ///< bits of code 90
    double m_borderFactor = 1.5;
    RecordHeader m_maskLook; ///< its colour
    Columns m_columns;
};

/// Texts of paragraphs.
class MTextDecoder : public RecordDecoder {
public:
    void begin(std::string_view) override { m_groups = MTextRecord(); }
    void take(const Group& group) override { m_groups.take(group); }
    void takeEmbedded(const Group& group) override { m_groups.takeOfColumns(group); }
    void end(const RecordHeader& header, DrawingBuilder& builder) override {
        if (m_groups.hasText()) {
            builder.add(header, m_groups.build(header.extrusion, builder));
        }
    }

private:
    MTextRecord m_groups;
};

} // namespace kelplot
