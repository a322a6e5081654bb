// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include "reader/HatchEdgeDecoder.h"
#include "reader/RecordDecoder.h"

namespace kelplot {

/// Hatches, and polygons that are stored like them.
class HatchDecoder : public RecordDecoder {
public:
    void begin(std::string_view type) override;
    void take(const Group& group) override;
    void end(const RecordHeader& header, DrawingBuilder& builder) override;

private:
    /// The stretch of the record that is being read; codes mean other things in each.
    enum class Stretch { head, boundaries, pattern };

    void takeOfBoundaries(const Group& group);
    void takeOfPolyline(const Group& group);
    void beginLoop(int flags);
    void endLoop();

    Hatch m_hatch;
    HatchLoop m_loop;
    HatchEdgeDecoder m_edge;
    Stretch m_stretch = Stretch::head;
    int m_solidCode = 0;
    bool m_inLoop = false;
    bool m_loopIsPolyline = false;
};

} // namespace kelplot
