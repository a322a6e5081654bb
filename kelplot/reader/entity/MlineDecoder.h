// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <string>

#include "reader/RecordDecoder.h"

namespace kelplot {

/// Multilines, which the file gives line by line.
class MlineDecoder : public RecordDecoder {
public:
    void begin(std::string_view type) override;
    void take(const Group& group) override;
    void end(const RecordHeader& header, DrawingBuilder& builder) override;

private:
    void takeOfVertex(const Group& group);

    Mline m_mline;
    std::string m_style; ///< as the file writes it
};

/// The styles of multilines.
class MlineStyles : public RecordDecoder {
public:
    void begin(std::string_view type) override;
    void take(const Group& group) override;
    void end(const RecordHeader& header, DrawingBuilder& builder) override;

private:
    struct LineRecord {
        RecordHeader look; ///< its colour
        std::string lineType;
    };

    std::string m_name;
    int m_flags = 0;
    RecordHeader m_fill; ///< its colour
    std::vector<LineRecord> m_lines;
};

} // namespace kelplot
