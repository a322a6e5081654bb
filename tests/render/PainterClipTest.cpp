// SPDX-License-Identifier: BSD-3-Clause
#include <limits>
#include <string>
#include <vector>

#include <QImage>
#include <QPainterPath>

#include "render/RendererFixture.h"
#include "support/RegionOracle.h"

namespace {

using regionOracle::Contour;
using regionOracle::Contours;
using regionOracle::Points;

constexpr double infinity = std::numeric_limits<double>::infinity();

class ClipTest : public RendererTest {
protected:
    // The painter's clip as the next call would meet it.
    std::string clip() {
        recorder.clear();
        painter.drawPoint(0, 0);
        const std::string& state = recorder.calls().back().state;
        const std::string mark = " | clip ";
        const size_t start = state.find(mark);
        return start == std::string::npos ? "none" : state.substr(start + mark.size());
    }

    std::string clipTo(const Contours& contours) {
        renderer.SetClipRgn(regionOracle::toList(contours).get());
        return clip();
    }
};

Contours rectangle(double left, double top, double right, double bottom) {
    return {{HT_RGN_XOR, {{left, top}, {right, top}, {right, bottom}, {left, bottom}}}};
}

const Points square = {{0, 0}, {20, 0}, {20, 20}, {0, 20}};

TEST_F(ClipTest, BecomesThePaintersClip) {
    const struct {
        const char* name;
        double scale;
        Contours contours;
        const char* clip;
    } rows[] = {
        // A single rectangle.
        {"size rounds up", 2.0, rectangle(0.2, 0.2, 1.3, 1.3), "rect -1,-1 5x5"},
        {"widened, from another corner", 1.0, rectangle(110, 70, 10, 20), "rect 9,19 102x52"},
        {"halves away from zero", 1.0, rectangle(2.5, -2.5, 3.5, -1.5), "rect 2,-4 3x3"},
        {"small scale", 1e-9, rectangle(1e9, 2e9, 3e9, 4e9), "rect 0,1 4x4"},
        {"no width", 1.0, rectangle(5, 5, 5, 9), "rect 4,4 2x6"},
        {"scale zero", 0.0, rectangle(5, 5, 7, 9), "rect -1,-1 2x2"},
        {"turned inside out", -1.0, rectangle(0, 0, 10, 10), "rect"},
        {"far right", 1.0, rectangle(3e9, 0, 4e9, 10), "rect 2147483646,-1 2x12"},
        {"far left wraps", 1.0, rectangle(-3e9, 0, -2.5e9, 10), "rect 2147483647,-1 1x12"},
        {"too wide", 1.0, rectangle(0, 0, 4e9, 10), "rect -1,-1 2147483647x12"},
        {"too wide, around the origin", 1.0, rectangle(-2e9, 0, 2e9, 10), "rect -147483646,-1 2147483647x12"},
        {"as wide as the range", 1.0, rectangle(-2147483647, 0, 3e9, 10), "rect -1,-1 2147483647x12"},
        {"widest that fits", 1.0, rectangle(1, 0, 2147483646, 10), "rect 0,-1 2147483647x12"},
        {"to the range's end", 1.0, rectangle(2147483640, 0, 2147483647, 10), "rect 2147483639,-1 9x12"},
        {"far inside out", -1.0, rectangle(-4e9, 0, 4e9, 10), "rect"},
        // Anything else.
        {"snapped after the scale", 2.0, {{4, {{0.2, 0.3}, {1.25, -1.25}, {-3, 4}}}}, "path M0,1 L3,-3 L-6,8"},
        {"five points", 1.0, {{4, {{0, 0}, {4, 0}, {4, 4}, {0, 4}, {0, 0}}}}, "path M0,0 L4,0 L4,4 L0,4 L0,0"},
        {"saturates",
         1e6,
         {{4, {{1e6, 0}, {-infinity, 0}, {0, 1e300}}}},
         "path M2147483647,0 L-2147483648,0 L0,2147483647"},
        {"first code is not read", 1.0, {{HT_RGN_AND, {{0, 0}, {9, 0}, {0, 9}}}}, "path M0,0 L9,0 L0,9"},
        {"a rectangle, then no area", 1.0, {{4, square}, {HT_RGN_AND, {{5, 5}}}}, "path M0,0 L20,0 L20,20 L0,20"},
        {"no vertices", 1.0, {{4, {}}}, "path empty"},
        {"one vertex, whatever follows", 1.0, {{4, {{5, 5}}}, {HT_RGN_COPY, square}}, "path empty"},
        {"two vertices on one pixel do not end the list",
         1.0,
         {{HT_RGN_OR, {{50, 50}, {50.1, 50}}}, {HT_RGN_OR, square}},
         "path M50,50 L50,50 M0,0 L20,0 L20,20 L0,20"},
        {"repeated vertices stay",
         1.0,
         {{4, {{5, 5}, {5, 5}, {9.1, 5}, {9, 5}, {9, 9}, {5, 5}, {5, 5}}}},
         "path M5,5 L5,5 L9,5 L9,5 L9,9 L5,5 L5,5"},
    };
    for (const auto& row : rows) {
        renderer.setScale(row.scale);
        EXPECT_EQ(clipTo(row.contours), row.clip) << row.name;
    }
}

TEST_F(ClipTest, HollowRegionsClipEverythingAway) {
    Points points = square;
    HT_ClipRgn second{HT_RGN_COPY, nullptr, 4, points.data()};
    const HT_ClipRgn withoutPoints{HT_RGN_OR, &second, 4, nullptr};
    const HT_ClipRgn lonely{HT_RGN_OR, nullptr, 4, nullptr};
    const HT_ClipRgn negative{HT_RGN_OR, &second, -4, points.data()};
    for (const HT_ClipRgn* region : {&withoutPoints, &lonely, &negative, static_cast<const HT_ClipRgn*>(nullptr)}) {
        renderer.SetClipRgn(region);
        EXPECT_EQ(clip(), "path empty");
    }
}

TEST_F(ClipTest, EachRegionReplacesTheClipBefore) {
    painter.setClipRect(0, 0, 3, 3);
    EXPECT_EQ(clipTo(rectangle(10, 20, 110, 70)), "rect 9,19 102x52");
    EXPECT_EQ(clipTo({{HT_RGN_OR, {{0, 0}, {9, 0}, {0, 9}}}}), "path M0,0 L9,0 L0,9");
}

// What the painter's clip lets through, pixel by pixel.
class ClippedPage {
public:
    explicit ClippedPage(const Contours& contours) : page(64, 64, QImage::Format_RGB32) {
        page.fill(Qt::white);
        QPainter painter(&page);
        QTRenderer renderer;
        renderer.AttachDriver(&painter, {64, 64}, false);
        renderer.SetClipRgn(regionOracle::toList(contours).get());
        painter.fillRect(page.rect(), Qt::black);
    }

    bool shows(int x, int y) const { return page.pixel(x, y) == QColor(Qt::black).rgb(); }

private:
    QImage page;
};

TEST(Clip, LetsThroughWhatTheCodesSay) {
    const Points inner = {{5, 5}, {15, 5}, {15, 15}, {5, 15}};
    const Points beside = {{10, 0}, {30, 0}, {30, 20}, {10, 20}};
    const struct {
        const char* name;
        Contours contours;
        const char* row; // at the height of 10, every other pixel from 1 on
    } rows[] = {
        {"and", {{HT_RGN_OR, square}, {HT_RGN_AND, beside}}, ".....#####......"},
        {"copy", {{HT_RGN_OR, square}, {HT_RGN_COPY, beside}}, ".....##########."},
        {"a hole", {{HT_RGN_OR, square}, {HT_RGN_DIFF, inner}}, "##.....###......"},
        {"or", {{HT_RGN_AND, square}, {HT_RGN_OR, beside}}, "###############."},
        {"exclusive or", {{HT_RGN_OR, square}, {HT_RGN_XOR, beside}}, "#####.....#####."},
        {"unknown codes intersect", {{HT_RGN_OR, square}, {7, beside}}, ".....#####......"},
        {"negative codes intersect", {{HT_RGN_OR, square}, {-1, beside}}, ".....#####......"},
        {"codes with bracket bits intersect", {{HT_RGN_OR, square}, {HT_RGN_OR | 0x100, beside}}, ".....#####......"},
        {"a rectangle wider than the range", rectangle(-2e9, -2e9, 10, 2e9), "#####..........."},
        {"a rectangle to far beyond the range", rectangle(0, 0, 4e9, 4e9), "################"},
    };
    for (const auto& row : rows) {
        const ClippedPage page(row.contours);
        std::string shown;
        for (int x = 1; x < 32; x += 2) {
            shown += page.shows(x, 10) ? '#' : '.';
        }
        EXPECT_EQ(shown, row.row) << row.name;
    }
}

QPainterPath pathOf(const Contour& contour, double scale) {
    QPolygonF polygon;
    for (const HT_Double_Point& point : contour.points) {
        polygon.append({std::round(point.x * scale), std::round(point.y * scale)});
    }
    QPainterPath path;
    path.addPolygon(polygon);
    return path;
}

QPainterPath joined(const QPainterPath& clip, const QPainterPath& path, int mode) {
    switch (mode) {
    case HT_RGN_COPY:
        return path;
    case HT_RGN_DIFF:
        return clip.subtracted(path);
    case HT_RGN_OR:
        return clip.united(path);
    case HT_RGN_XOR:
        return clip.united(path).subtracted(clip.intersected(path));
    default:
        return clip.intersected(path);
    }
}

TEST(Clip, IsWhatQtMakesOfTheContoursInOrder) {
    regionOracle::Generator generator(3);
    for (int region = 0; region < 5000; ++region) {
        Contours contours =
            generator.region({HT_RGN_AND, HT_RGN_COPY, HT_RGN_DIFF, HT_RGN_OR, HT_RGN_OR, HT_RGN_XOR, 7});
        contours.insert(contours.begin() + 1, {HT_RGN_AND, {generator.pointIn(contours)}}); // is skipped
        const double scale = generator.real(10, 1000) / (1e12 * generator.tolerance());
        QPainterPath expected = pathOf(contours.front(), scale);
        for (size_t i = 2; i < contours.size(); ++i) {
            expected = joined(expected, pathOf(contours[i], scale), contours[i].mode);
        }
        QImage page(1, 1, QImage::Format_RGB32);
        QPainter painter(&page);
        QTRenderer renderer;
        renderer.AttachDriver(&painter, {1, 1}, false);
        renderer.setScale(scale);
        renderer.SetClipRgn(regionOracle::toList(contours).get());
        const QPainterPath clip = painter.clipPath();
        ASSERT_EQ(clip.elementCount(), expected.elementCount()) << region;
        for (int i = 0; i < clip.elementCount(); ++i) {
            const QPainterPath::Element& a = clip.elementAt(i);
            const QPainterPath::Element& b = expected.elementAt(i);
            ASSERT_TRUE(a.type == b.type && a.x == b.x && a.y == b.y) << region << " at " << i;
        }
    }
}

} // namespace
