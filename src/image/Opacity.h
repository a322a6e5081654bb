// SPDX-License-Identifier: BSD-3-Clause
#pragma once

class QImage;

namespace KelDriver::Internal {

/// Tells whether any pixel's alpha is not 255.
bool hasTranslucentPixel(const QImage& image);

/// Multiplies every pixel's alpha by `alpha` / 255, rounded and kept within 0 to 255. Images without an alpha
/// channel stay as they are, and so do those with a palette, whose pixels have no alpha of their own.
void multiplyOpacity(QImage& image, int alpha);

} // namespace KelDriver::Internal
