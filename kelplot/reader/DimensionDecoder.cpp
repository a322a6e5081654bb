#include "reader/DimensionDecoder.h"

#include "reader/GroupValue.h"

namespace kelplot {

void DimensionDecoder::begin(std::string_view) {
    block_.clear();
    position_ = {};
}

void DimensionDecoder::take(const Group& group) {
    switch (group.code) {
    case 2:
        if (block_.empty()) {
            block_ = trimmed(group.value);
        }
        break;
    case 12:
        position_.x = toReal(group.value);
        break;
    case 22:
        position_.y = toReal(group.value);
        break;
    case 32:
        position_.z = toReal(group.value);
        break;
    default:
        break;
    }
}

void DimensionDecoder::end(const RecordHeader& header, DrawingBuilder& builder) {
    if (block_.empty()) {
        return;
    }
    Insert insert;
    insert.block = builder.block(block_);
    insert.position = position_;
    // The block holds world coordinates, whatever plane was dimensioned.
    builder.addInWorld(header, insert);
}

} // namespace kelplot
