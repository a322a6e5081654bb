// SPDX-License-Identifier: GPL-2.0-or-later
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

    std::vector<PolylineVertex> m_vertices; ///< kept from record to record, to grow rarely
    int m_flags = 0;
    double m_width = 0.0;
    double m_elevation = 0.0;
};

} // namespace kelplot
