// SPDX-License-Identifier: BSD-3-Clause
#pragma once

class HT_RasterImage;

/// The images of this library that are alive, by their addresses. A driver's own image can be told from them without
/// being asked anything: its class may lack type information, and only what drawing needs is called on it.
namespace KelDriver::Internal::OwnImages {

/// For the constructors of the library's images.
void add(const HT_RasterImage& image);
/// For their destructors.
void remove(const HT_RasterImage& image);
bool contains(const HT_RasterImage& image);

} // namespace KelDriver::Internal::OwnImages
