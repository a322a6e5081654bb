// SPDX-License-Identifier: BSD-3-Clause
#include "keldriver/FontName.h"

#include "render/LogFont.h"

using namespace KelDriver::Internal;

int GetFontFullName(const tagLOGFONTW* font, std::wstring& name) {
    name = fontFor(font != nullptr ? *font : tagLOGFONTW{}).family().toStdWString();
    return 1;
}
