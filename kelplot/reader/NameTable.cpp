#include "reader/NameTable.h"

namespace kelplot {

NameTable::Found NameTable::find(std::string_view bytes, const NameDecoder& decoder, std::string& newName) {
    if (hasLast_ && bytes == lastBytes_) {
        return {lastIndex_, false};
    }
    std::string name = decoder.decode(bytes);
    const QString key = QString::fromStdString(name).toCaseFolded();
    const auto known = indexOf_.constFind(key);
    const bool added = known == indexOf_.constEnd();
    const uint32_t index = added ? static_cast<uint32_t>(indexOf_.size()) : *known;
    if (added) {
        indexOf_.insert(key, index);
        newName = std::move(name);
    }
    lastBytes_ = bytes;
    lastIndex_ = index;
    hasLast_ = true;
    return {index, added};
}

} // namespace kelplot
