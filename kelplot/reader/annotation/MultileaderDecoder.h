// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <string>
#include <vector>

#include "reader/RecordDecoder.h"
#include "reader/entity/BlockRecords.h"

namespace kelplot {

/// Notes with any number of leaders: a text or a block, and lines with arrow heads to it.
class MultileaderDecoder : public RecordDecoder {
public:
    explicit MultileaderDecoder(const BlockRecords& blocks) : m_blocks(blocks) {}

    void begin(std::string_view type) override;
    void take(const Group& group) override;
    void end(const RecordHeader& header, DrawingBuilder& builder) override;

private:
    /// The parts of the record, one in another; each has codes of its own.
    enum class Part { whole, context, leader, line };

    /// Lines that meet in one landing.
    struct Leader {
        std::vector<std::vector<Vec3>> lines; ///< from their arrow heads on
        Vec3 end;
        bool hasEnd = false;
        Vec3 direction; ///< of the landing
        double landing = 0.0;
    };
    struct TextContent {
        std::string markup;
        uint64_t style = 0;
        Vec3 position;
        Vec3 direction{1.0, 0.0, 0.0};
        double height = 0.0;
        double width = 0.0;
        double lineSpacing = 1.0;
        int lineSpacingStyle = 1;
        int alignment = 1;
        int colour = 0; ///< this and the next ones with their kind in the highest byte
        int maskColour = 0;
        double maskScale = 1.5;
        bool masked = false;
    };
    struct BlockContent {
        uint64_t block = 0;
        Vec3 position;
        Vec3 scale{1.0, 1.0, 1.0};
        double rotation = 0.0;
        int colour = 0;
    };
    struct AttributeText {
        uint64_t definition = 0;
        std::string text;
    };

    struct Record {
        Part part = Part::whole; ///< that is being read
        std::vector<Leader> leaders;
        TextContent text;
        BlockContent block;
        std::vector<AttributeText> attributes;
        Vec3 normal{0.0, 0.0, 1.0}; ///< of the content
        bool hasText = false;
        bool hasBlock = false;
        bool framed = false;
        bool curved = false;
        bool hasLines = true;
        bool hasLanding = true;
        double arrowSize = 0.0;
        double gap = 0.0; ///< around the text
        uint64_t arrow = 0;
        uint64_t lineType = 0;
        int lineWeight = lineWeightByBlock;
        int lineColour = 0;
    };

    bool changePart(const Group& group);
    void takeOfWhole(const Group& group);
    void takeOfContext(const Group& group);
    void takeOfText(const Group& group);
    void takeOfBlock(const Group& group);
    void takeOfLeader(const Group& group);
    void takeOfLine(const Group& group);

    void addLeader(const Leader& leader, const RecordHeader& header, DrawingBuilder& builder) const;
    void addLine(std::vector<Vec3> points, const RecordHeader& header, DrawingBuilder& builder) const;
    /// Shortens the line by what the arrow head stands for.
    void addArrow(std::vector<Vec3>& points, const RecordHeader& header, DrawingBuilder& builder) const;
    void addText(const RecordHeader& header, DrawingBuilder& builder) const;
    void addBlock(const RecordHeader& header, DrawingBuilder& builder) const;

    const BlockRecords& m_blocks;
    Record m_record;
};

} // namespace kelplot
