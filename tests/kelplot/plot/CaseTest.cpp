// SPDX-License-Identifier: GPL-2.0-or-later
#include <gtest/gtest.h>

#include <sstream>

#include "kelplot/CaseFile.h"
#include "kelplot/plot/PlotKit.h"
#include "plot/annotation/AnnotationBlocks.h"
#include "support/PlotText.h"

namespace kelplot {
namespace {

/// How a case wants to be plotted.
struct Settings {
    PlotTarget target = tenfoldTarget();
    PlotStyleOptions style;
};

/// "window LEFT TOP RIGHT BOTTOM" in device units, "map SCALE X Y", "hairline WIDTH", "scale FACTOR" of line weights,
/// "monochrome", "fonts", "look NUMBER ENDS JOINS FILL" of pens by the numbers of what these are, "grey NUMBER",
/// "fitted NUMBER DASH GAP..." of a line type in millimetres, or "pen NUMBER WIDTH COLOUR INK", of which "-" leaves a
/// part to the drawing.
void apply(const std::string& option, Settings& to) {
    std::istringstream words(option);
    std::string name;
    words >> name;
    if (name == "window") {
        Box2& limit = to.target.limits.emplace_back();
        words >> limit.min.x >> limit.min.y >> limit.max.x >> limit.max.y;
    } else if (name == "map") {
        Affine2& map = to.target.toDevice;
        words >> map.a >> map.e >> map.f;
        map.d = -map.a;
    } else if (name == "hairline") {
        words >> to.target.hairlineWidth;
    } else if (name == "scale") {
        words >> to.style.lineWeightScale;
    } else if (name == "look") {
        int number = 0, ends = 0, joins = 0, fill = 0;
        words >> number >> ends >> joins >> fill;
        PenRule rule;
        rule.ends = static_cast<HT_PlotStyle::LineEndStyle>(ends);
        rule.joins = static_cast<HT_PlotStyle::LineJoinStyle>(joins);
        rule.fill = static_cast<HT_PlotStyle::FillStyle>(fill);
        to.style.pens.set(number, rule);
    } else if (name == "fitted") {
        int number = 0;
        PenRule rule;
        rule.fitsLineType = true;
        words >> number;
        LineType& lineType = rule.lineType.emplace();
        for (double length = 0.0; words >> length;) {
            lineType.pattern.push_back(length);
        }
        to.style.pens.set(number, rule);
        words.clear();
    } else if (name == "grey") {
        int number = 0;
        PenRule rule;
        rule.grey = true;
        words >> number;
        to.style.pens.set(number, rule);
    } else if (name == "pen") {
        int number = 0;
        std::string width, colour;
        PenRule rule;
        words >> number >> width >> colour >> rule.screening;
        if (width != "-") {
            rule.width = std::stod(width);
        }
        if (colour != "-") {
            rule.ink = std::stoul(colour, nullptr, 16);
        }
        to.style.pens.set(number, rule);
    } else {
        EXPECT_TRUE(name == "monochrome" || name == "fonts") << option;
        to.style.monochrome = name == "monochrome";
        to.style.texts = name == "fonts" ? TextMode::fonts : TextMode::outlines;
    }
    EXPECT_FALSE(words.fail()) << option;
}

/// Those of the points after the word of a line, in drawing units, that the areas cover, or leave bare.
std::string covered(const std::string& line, bool wanted, const Shapes& shapes) {
    std::istringstream words(line);
    std::string result;
    words >> result;
    char comma = 0;
    for (Vec2 p; words >> p.x >> comma >> p.y;) {
        if (isCovered(shapes, onPage(p)) == wanted) {
            result += ' ' + plotText::point({p.x, p.y});
        }
    }
    return result;
}

std::string text(const Box2& box) {
    const auto rounded = [](Vec2 p) {
        return plotText::point({std::round(p.x * 1e4) / 1e4, std::round(p.y * 1e4) / 1e4});
    };
    return box.isEmpty() ? " none" : ' ' + rounded(box.min) + ' ' + rounded(box.max);
}

/// What comes of a drawing, as its case wants to see it: the points that are "covered" and those that are "bare", the
/// "extents", and else all that is drawn, with its style where the first line has one and its clip where the last line
/// has one. Where there are points or extents to see, and no other line, what is drawn is left open.
std::vector<std::string> outcomeOf(const Case& given) {
    Settings settings;
    for (const std::string& option : given.options) {
        apply(option, settings);
    }
    Drawing drawing = readGroups(given.groups());
    buildAnnotations(drawing, settings.style.fonts);
    const Shapes shapes = shapesOf(drawing, settings.target, settings.style);
    const bool withStyles = !given.expected.empty() && given.expected[0].find(" | ") != std::string::npos;
    const bool withClips = !given.expected.empty() && given.expected.back().find(" within ") != std::string::npos;
    std::vector<std::string> lines;
    bool onlyChecks = !given.expected.empty();
    for (const std::string& line : given.expected) {
        const std::string word = line.substr(0, line.find(' '));
        if (word == "covered" || word == "bare") {
            lines.push_back(covered(line, word == "covered", shapes));
        } else if (word == "extents") {
            lines.push_back(word + text(extentsOf(drawing)));
            onlyChecks = onlyChecks && line != "extents none";
        } else {
            onlyChecks = false;
        }
    }
    for (size_t i = 0; !onlyChecks && i < shapes.size(); ++i) {
        lines.push_back(shapes[i].text() + (withStyles ? " | " + shapes[i].style : "") +
                        (withClips ? " within " + shapes[i].clip : ""));
    }
    return lines;
}

TEST(PlotCases, ArePlottedAsExpected) {
    for (const char* const file : {"areas", "blocks", "dimensions", "extents", "lines", "sheets", "styles", "texts"}) {
        expectCases(std::string(CASES) + file + ".cases", outcomeOf);
    }
}

} // namespace
} // namespace kelplot
