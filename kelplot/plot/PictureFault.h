// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <cstdint>
#include <map>

namespace kelplot {

/// Why a picture is left out.
enum class PictureFault {
    notFound,
    notReadable, ///< there is a file, but the user may not read it
    notPicture,  ///< the file holds none, or a damaged one
    tooLarge,
};

/// The pictures that are left out, by their indices into Drawing::images.
using PictureFaults = std::map<uint32_t, PictureFault>;

} // namespace kelplot
