// SPDX-License-Identifier: BSD-3-Clause
#include <string>
#include <tuple>

#include <QImage>
#include <QPainterPath>

#include "render/RendererFixture.h"
#include "support/RegionOracle.h"

namespace {

using regionOracle::Contour;
using regionOracle::Contours;

TEST_F(RendererTest, HollowRegionsClipEverythingAway) {
    HT_Double_Point points[] = {{0, 0}, {20, 0}, {20, 20}, {0, 20}};
    HT_ClipRgn second{HT_RGN_COPY, nullptr, 4, points};
    const HT_ClipRgn withoutPoints{HT_RGN_OR, &second, 4, nullptr};
    const HT_ClipRgn lonely{HT_RGN_OR, nullptr, 4, nullptr};
    const HT_ClipRgn negative{HT_RGN_OR, &second, -4, points};
    for (const HT_ClipRgn* region : {&withoutPoints, &lonely, &negative}) {
        painter.setClipping(false);
        renderer.SetClipRgn(region);
        EXPECT_TRUE(painter.hasClipping() && painter.clipPath().isEmpty());
    }
}

// Qt takes a rectangle for empty when its width is no `int`: seen in what a clip lets through at the height of 10.
TEST(Clip, RectanglesBeyondTheRangeLetTheirPartOfThePageThrough) {
    for (const auto& [left, right, shown] :
         {std::tuple(-2e9, 10.0, "#####..........."), {0.0, 4e9, "################"}}) {
        QImage page(64, 64, QImage::Format_RGB32);
        page.fill(Qt::white);
        QPainter painter(&page);
        QTRenderer renderer;
        renderer.AttachDriver(&painter, {64, 64}, false);
        const Contours region = {{HT_RGN_XOR, {{left, left}, {right, left}, {right, 4e9}, {left, 4e9}}}};
        renderer.SetClipRgn(regionOracle::toList(region).get());
        painter.fillRect(page.rect(), Qt::black);
        std::string row;
        for (int x = 1; x < 32; x += 2) {
            row += page.pixel(x, 10) == QColor(Qt::black).rgb() ? '#' : '.';
        }
        EXPECT_EQ(row, shown);
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

TEST(Clip, IsWhatQtMakesOfTheContoursInOrder) {
    regionOracle::Generator generator(3);
    for (int region = 0; region < 5000; ++region) {
        Contours contours = generator.region({HT_RGN_DIFF, HT_RGN_OR, HT_RGN_OR});
        contours.insert(contours.begin() + 1, {HT_RGN_AND, {generator.pointIn(contours)}}); // is skipped
        const double scale = generator.real(10, 1000) / (1e12 * generator.tolerance());
        QPainterPath expected = pathOf(contours.front(), scale);
        for (size_t i = 2; i < contours.size(); ++i) {
            const QPainterPath next = pathOf(contours[i], scale);
            expected = contours[i].mode == HT_RGN_OR ? expected.united(next) : expected.subtracted(next);
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
