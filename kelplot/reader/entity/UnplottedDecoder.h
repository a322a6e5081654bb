// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <string>

#include "reader/RecordDecoder.h"
#include "reader/proxy/ProxyGraphics.h"

namespace kelplot {

/// Entities of types that have no decoder: they are read as the picture that they bring along, or kept by their names,
/// so that a plot can say what it leaves out.
class UnplottedDecoder : public RecordDecoder {
public:
    void begin(std::string_view type) override;
    void take(const Group& group) override { m_picture.take(group); }
    void end(const RecordHeader& header, DrawingBuilder& builder) override;

private:
    std::string m_type;
    ProxyGraphics m_picture;
};

} // namespace kelplot
