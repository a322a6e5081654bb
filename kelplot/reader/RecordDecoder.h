// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <string_view>

#include "reader/DrawingBuilder.h"
#include "reader/GroupValue.h"
#include "reader/RecordHeader.h"
#include "reader/groups/GroupSource.h"

namespace kelplot {

/// Builds the entities of one family straight from the groups of their records, where the DXF library
/// trusts counts in the file or drops what a plot needs.
class RecordDecoder {
public:
    virtual ~RecordDecoder() = default;

    /// A record of `type` begins; `type` is valid during the call only.
    virtual void begin(std::string_view type) = 0;
    /// Takes a group of the record, except the one that begins it and those of the next two.
    virtual void take(const Group& group) = 0;
    /// Takes a group of an object within the record, which has codes of its own; the first one is its mark.
    virtual void takeEmbedded(const Group&) {}
    /// Takes a group of what programs attached to the record.
    virtual void takeExtended(const Group&) {}
    /// The record is complete.
    virtual void end(const RecordHeader& header, DrawingBuilder& builder) = 0;
    /// A record of `nextType` follows, whoever reads it; for decoders of what is spread over several records.
    virtual void beforeRecord(std::string_view, DrawingBuilder&) {}
};

/// Sets the coordinate of `point` that `group` states, where the point's x has the code `xCode`. False for other
/// groups.
inline bool takePoint(const Group& group, int xCode, Vec3& point) {
    double* const axes[] = {&point.x, &point.y, &point.z};
    const int offset = group.code - xCode;
    if (offset < 0 || offset > 20 || offset % 10 != 0) {
        return false;
    }
    *axes[offset / 10] = toReal(group.value);
    return true;
}

} // namespace kelplot
