// SPDX-License-Identifier: BSD-3-Clause
#include "render/LogFont.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cwchar>
#include <iterator>

#include <QGuiApplication>
#include <QScreen>

#include "geometry/Numeric.h"
#include "render/WideText.h"

namespace KelDriver::Internal {

namespace {

constexpr double pointsPerInch = 72.0;
constexpr int usualDotsPerInch = 96;
constexpr int usualWeight = 50;

constexpr struct {
    int32_t win32;
    int qt;
} weights[] = {{100, 0}, {200, 12}, {300, 25}, {500, 57}, {600, 63}, {700, 75}, {800, 81}, {900, 87}};

int qtWeightFor(int32_t win32Weight) {
    const auto* found =
        std::find_if(std::begin(weights), std::end(weights), [&](const auto& row) { return row.win32 == win32Weight; });
    return found == std::end(weights) ? usualWeight : found->qt;
}

int32_t negated(int32_t value) {
    return value == INT32_MIN ? INT32_MIN : -value;
}

} // namespace

int screenDotsPerInch() {
    const QScreen* screen = QGuiApplication::primaryScreen();
    return screen == nullptr ? usualDotsPerInch : static_cast<int>(screen->logicalDotsPerInch());
}

std::wstring faceNameOf(const tagLOGFONTW& record) {
    return {record.lfFaceName, std::find(std::begin(record.lfFaceName), std::end(record.lfFaceName), L'\0')};
}

void setFaceName(tagLOGFONTW& record, const std::wstring& faceName) {
    std::wcsncpy(record.lfFaceName, faceName.c_str(), std::size(record.lfFaceName));
}

tagLOGFONTW logFontFor(const HT_Font& font) {
    tagLOGFONTW record{};
    record.lfHeight = negated(roundToInt32(font.height));
    record.lfWeight = font.bold != 0 ? 700 : 400;
    record.lfItalic = font.italic;
    record.lfCharSet = font.charSet;
    record.lfPitchAndFamily = font.pitchAndFamily;
    std::wcsncpy(record.lfFaceName, font.faceName, std::size(record.lfFaceName));
    return record;
}

QFont fontFor(const tagLOGFONTW& record) {
    QFont font(toQString(faceNameOf(record)), -1, -1, false);
    font.setStyle(record.lfItalic != 0 ? QFont::StyleItalic : QFont::StyleNormal);
    if (record.lfWeight != 0) {
        font.setWeight(qtWeightFor(record.lfWeight));
    }
    if (record.lfHeight != 0) { // Qt keeps its usual size rather than take 0
        font.setPointSizeF(std::fabs(static_cast<double>(record.lfHeight)) * pointsPerInch / screenDotsPerInch());
    }
    font.setUnderline(record.lfUnderline != 0);
    font.setOverline(false);
    font.setStrikeOut(record.lfStrikeOut != 0);
    return font;
}

QFont usualSizeFontFor(tagLOGFONTW record) {
    record.lfHeight = 0;
    return fontFor(record);
}

} // namespace KelDriver::Internal
