// SPDX-License-Identifier: GPL-2.0-or-later
#include "plot/ToleranceSigns.h"

#include <iterator>

namespace kelplot {

namespace {

constexpr char16_t signs[] = {
    u'\u2220', // a: angularity
    u'\u22A5', // b: perpendicularity
    u'\u23E5', // c: flatness
    u'\u2313', // d: profile of a surface
    u'\u25CB', // e: roundness
    u'\u2225', // f: parallelism
    u'\u232D', // g: cylindricity
    u'\u2197', // h: run-out
    u'\u232F', // i: symmetry
    u'\u2316', // j: position
    u'\u2312', // k: profile of a line
    u'\u24C1', // l: least material
    u'\u24C2', // m: most material
    u'\u2300', // n: diameter
    u'\u25A1', // o: square
    u'\u24C5', // p: projected tolerance zone
    u'\u2104', // q: centre line
    u'\u25CE', // r: concentricity
    u'\u24C8', // s: regardless of size
    u'\u2330', // t: total run-out
    u'\u23E4', // u: straightness
    u'\u2334', // v: counterbore
    u'\u2335', // w: countersink
    u'\u21A7', // x: depth
    u'\u2332', // y: conical taper
    u'\u2333', // z: slope
};
static_assert(std::size(signs) == 'z' - 'a' + 1);

} // namespace

QString toleranceSignsFor(const QString& letters) {
    QString result = letters;
    for (QChar& letter : result) {
        if (letter >= QLatin1Char('a') && letter <= QLatin1Char('z')) {
            letter = QChar(signs[letter.unicode() - u'a']);
        }
    }
    return result;
}

} // namespace kelplot
