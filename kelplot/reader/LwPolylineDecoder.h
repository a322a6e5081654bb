#pragma once

#include <vector>

#include "reader/RecordDecoder.h"

namespace kelplot {

/// Flat polylines in one record.
class LwPolylineDecoder : public RecordDecoder {
public:
    void begin(std::string_view type) override;
    void take(const Group& group) override;
    void end(const RecordHeader& header, DrawingBuilder& builder) override;

private:
    void takeOfVertex(const Group& group);

    std::vector<PolylineVertex> vertices_; ///< kept from record to record, to grow rarely
    int flags_ = 0;
    double width_ = 0.0;
    double elevation_ = 0.0;
};

} // namespace kelplot
