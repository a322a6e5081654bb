// SPDX-License-Identifier: GPL-2.0-or-later

// Reads any bytes as the marked-up text of a paragraph text, lays it out, and looks at every number that the plot
// would go by.
//
// Input: a byte with the point that the text hangs on, one with the width in quarters of a letter's height, one with
// the columns (their count in the three lowest bits, then a height for them, then their order), one for the rest (exact
// line spacing, vertical, kind of font, encoding), then the markup. Digits and letters choose well.

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <string_view>
#include <variant>

#include "Application.h"
#include "FuzzInput.h"
#include "Require.h"
#include "plot/text/FontSet.h"
#include "plot/text/MTextLayout.h"
#include "reader/TextEncoding.h"
#include "reader/mtext/MTextMarkup.h"

using namespace kelplot;

namespace {

TextEncoding encodingFor(bool unicode) {
    TextEncoding encoding;
    encoding.setVersion(unicode ? "AC1021" : "AC1015");
    encoding.setCodePage("ANSI_932");
    return encoding;
}

/// The text without its paragraphs, and its style.
struct Frame {
    MText text;
    TextStyle style;
    bool unicode = false;
};

Frame takeFrame(FuzzInput& input) {
    constexpr double height = 2.5;
    Frame frame;
    frame.text.height = height;
    frame.text.attachment = input.take<uint8_t>() % 10;
    frame.text.width = input.take<uint8_t>() % 128 * height / 4.0;
    const auto columns = input.take<uint8_t>();
    frame.text.columns.count = columns & 7;
    frame.text.columns.width = frame.text.width;
    frame.text.columns.gutter = height;
    frame.text.columns.heights.assign((columns & 8) != 0 ? 1 : 0, 4.0 * height);
    frame.text.columns.reversed = (columns & 16) != 0;
    const auto rest = input.take<uint8_t>();
    frame.text.exactLineSpacing = (rest & 1) != 0;
    frame.text.vertical = (rest & 2) != 0;
    frame.style.font = {(rest & 4) != 0 ? "txt.shx" : "DejaVu Sans", (rest & 4) != 0, false, false};
    frame.unicode = (rest & 8) != 0;
    return frame;
}

void check(const Paragraph& paragraph) {
    for (const TextPiece& piece : paragraph.pieces) {
        if (const auto* const span = std::get_if<TextSpan>(&piece)) {
            require(!span->text.empty() && isUtf8(span->text));
        }
    }
    if (paragraph.tabStops) {
        require(std::is_sorted(paragraph.tabStops->begin(), paragraph.tabStops->end()));
    }
}

void check(const TextBlock& block) {
    for (const TextRun& run : block.runs) {
        const Affine2 place = run.place();
        for (const double number : {place.a, place.b, place.c, place.d, place.e, place.f}) {
            require(std::isfinite(number));
        }
    }
    for (const TextStroke& stroke : block.strokes) {
        for (const double number : {stroke.from.x, stroke.from.y, stroke.to.x, stroke.to.y, stroke.width}) {
            require(std::isfinite(number));
        }
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    constexpr size_t frameBytes = 4;
    if (size < frameBytes) {
        return 0;
    }
    needApplication();
    FuzzInput input(data, frameBytes);
    Frame frame = takeFrame(input);
    const std::string_view markup(reinterpret_cast<const char*>(data) + frameBytes, size - frameBytes);

    const TextEncoding encoding = encodingFor(frame.unicode);
    CharacterFormat format;
    format.height = frame.text.height;
    frame.text.paragraphs = paragraphsOf(encoding.decodeMarkup(markup), format, encoding);
    require(!frame.text.paragraphs.empty());
    for (const Paragraph& paragraph : frame.text.paragraphs) {
        check(paragraph);
    }

    // Kept for all inputs, as for all texts of a drawing, and never freed: the application may end before.
    static FontSet& fonts = *new FontSet(FontTable());
    check(layOut(frame.text, frame.style, fonts).block);
    return 0;
}
