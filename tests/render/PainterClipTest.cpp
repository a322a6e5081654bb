// SPDX-License-Identifier: BSD-3-Clause
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

Contours rectangle(double left, double top, double right, double bottom) {
    return {{HT_RGN_XOR, {{left, top}, {right, top}, {right, bottom}, {left, bottom}}}};
}

const Points square = {{0, 0}, {20, 0}, {20, 20}, {0, 20}};

TEST_F(RendererTest, HollowRegionsClipEverythingAway) {
    Points points = square;
    HT_ClipRgn second{HT_RGN_COPY, nullptr, 4, points.data()};
    const HT_ClipRgn withoutPoints{HT_RGN_OR, &second, 4, nullptr};
    const HT_ClipRgn lonely{HT_RGN_OR, nullptr, 4, nullptr};
    const HT_ClipRgn negative{HT_RGN_OR, &second, -4, points.data()};
    for (const HT_ClipRgn* region : {&withoutPoints, &lonely, &negative}) {
        painter.setClipping(false);
        renderer.SetClipRgn(region);
        EXPECT_TRUE(painter.hasClipping() && painter.clipPath().isEmpty());
    }
}

/// What the painter's clip lets through at the height of 10, every other pixel from 1 on.
std::string shownThrough(const Contours& contours) {
    QImage page(64, 64, QImage::Format_RGB32);
    page.fill(Qt::white);
    QPainter painter(&page);
    QTRenderer renderer;
    renderer.AttachDriver(&painter, {64, 64}, false);
    renderer.SetClipRgn(regionOracle::toList(contours).get());
    painter.fillRect(page.rect(), Qt::black);
    std::string shown;
    for (int x = 1; x < 32; x += 2) {
        shown += page.pixel(x, 10) == QColor(Qt::black).rgb() ? '#' : '.';
    }
    return shown;
}

TEST(Clip, LetsThroughWhatTheCodesSay) {
    const Points inner = {{5, 5}, {15, 5}, {15, 15}, {5, 15}};
    const Points beside = {{10, 0}, {30, 0}, {30, 20}, {10, 20}};
    const struct {
        const char* name;
        Contours contours;
        const char* shown;
    } rows[] = {
        {"and", {{HT_RGN_OR, square}, {HT_RGN_AND, beside}}, ".....#####......"},
        {"copy", {{HT_RGN_OR, square}, {HT_RGN_COPY, beside}}, ".....##########."},
        {"a hole", {{HT_RGN_OR, square}, {HT_RGN_DIFF, inner}}, "##.....###......"},
        {"or", {{HT_RGN_AND, square}, {HT_RGN_OR, beside}}, "###############."},
        {"exclusive or", {{HT_RGN_OR, square}, {HT_RGN_XOR, beside}}, "#####.....#####."},
        {"unknown codes intersect", {{HT_RGN_OR, square}, {7, beside}}, ".....#####......"},
        {"codes with bracket bits intersect", {{HT_RGN_OR, square}, {HT_RGN_OR | 0x100, beside}}, ".....#####......"},
        {"a rectangle wider than the range", rectangle(-2e9, -2e9, 10, 2e9), "#####..........."},
        {"a rectangle to far beyond the range", rectangle(0, 0, 4e9, 4e9), "################"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(shownThrough(row.contours), row.shown) << row.name;
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
