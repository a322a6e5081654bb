// SPDX-License-Identifier: BSD-3-Clause
#include "image/OwnImages.h"

#include <mutex>
#include <unordered_set>

namespace KelDriver::Internal::OwnImages {

namespace {

struct Registry {
    std::mutex mutex; // an image belongs to one thread, the list to all of them
    std::unordered_set<const HT_RasterImage*> images;
};

/// Never destroyed, since images of a host's static handles end after everything else.
Registry& registry() {
    static auto* const theOne = new Registry;
    return *theOne;
}

} // namespace

void add(const HT_RasterImage& image) {
    Registry& own = registry();
    const std::lock_guard lock(own.mutex);
    own.images.insert(&image);
}

void remove(const HT_RasterImage& image) {
    Registry& own = registry();
    const std::lock_guard lock(own.mutex);
    own.images.erase(&image);
}

bool contains(const HT_RasterImage& image) {
    Registry& own = registry();
    const std::lock_guard lock(own.mutex);
    return own.images.count(&image) != 0;
}

} // namespace KelDriver::Internal::OwnImages
