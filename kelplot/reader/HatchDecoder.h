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

    Hatch hatch_;
    HatchLoop loop_;
    HatchEdgeDecoder edge_;
    Stretch stretch_ = Stretch::head;
    int solidCode_ = 0;
    bool inLoop_ = false;
    bool loopIsPolyline_ = false;
};

} // namespace kelplot
