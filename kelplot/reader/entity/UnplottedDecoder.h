// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <string>

#include "reader/RecordDecoder.h"

namespace kelplot {

/// Entities of types that have no decoder: they are kept by their names, so that a plot can say what it leaves out.
class UnplottedDecoder : public RecordDecoder {
public:
    void begin(std::string_view type) override;
    void take(const Group&) override {}
    void end(const RecordHeader& header, DrawingBuilder& builder) override;

private:
    std::string m_type;
};

} // namespace kelplot
