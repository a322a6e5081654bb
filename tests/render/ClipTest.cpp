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
         "path M0,0 L20,0 L20,20 L0,20"},
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

TEST(Clip, WithoutPainterNothingHappens) {
    QTRenderer renderer;
    renderer.SetClipRgn(nullptr);
    renderer.SetClipRgn(regionOracle::toList(rectangle(0, 0, 5, 5)).get());
}

// What the painter's clip lets through, pixel by pixel.
class ClippedPage {
public:
    static constexpr int size = 64;

    ClippedPage(const Contours& contours, double scale, const QPoint& corner) : page(size, size, QImage::Format_RGB32) {
        page.fill(Qt::white);
        QPainter painter(&page);
        painter.translate(-corner);
        QTRenderer renderer;
        renderer.AttachDriver(&painter, {size, size}, false);
        renderer.setScale(scale);
        renderer.SetClipRgn(regionOracle::toList(contours).get());
        painter.fillRect(QRect(corner, page.size()), Qt::black);
    }

    bool shows(int x, int y) const { return page.pixel(x, y) == QColor(Qt::black).rgb(); }

private:
    QImage page;
};

TEST(Clip, UnknownCodesIntersect) {
    const Points second = {{10, 10}, {30, 10}, {30, 30}, {10, 30}};
    for (const int mode : {int(HT_RGN_AND), 7, -1, HT_RGN_OR | 0x100}) {
        const ClippedPage page({{HT_RGN_AND, square}, {mode, second}}, 1.0, {0, 0});
        EXPECT_FALSE(page.shows(5, 5)) << mode;
        EXPECT_TRUE(page.shows(15, 15)) << mode;
        EXPECT_FALSE(page.shows(25, 25)) << mode;
    }
}

// A random region laid on a page, and the same region as the painter should take it.
class RandomClip {
public:
    explicit RandomClip(regionOracle::Generator& generator)
        : contours(generator.region({HT_RGN_AND, HT_RGN_COPY, HT_RGN_DIFF, HT_RGN_OR, HT_RGN_OR, HT_RGN_XOR, 7})) {
        if (generator.integer(0, 9) == 0) { // one that is to be skipped
            contours.push_back({HT_RGN_AND, {generator.pointIn(contours)}});
        }
        HT_Double_Rectangle box{infinity, infinity, -infinity, -infinity};
        for (const Contour& contour : contours) {
            HT_Double_Rectangle part{};
            KelDriver::HT_GetPointsRect(contour.points.data(), static_cast<int>(contour.points.size()), &part);
            UnionRectangle(box, part);
        }
        scale = (ClippedPage::size - 4) / std::max(box.maxX - box.minX, box.maxY - box.minY);
        corner = {static_cast<int>(std::floor(box.minX * scale)) - 2,
                  static_cast<int>(std::floor(box.minY * scale)) - 2};
    }

    // A single rectangle is widened on purpose.
    bool isRectangle() {
        Points& first = contours.front().points;
        return contours.size() == 1 && first.size() == 4 && KelDriver::IsRect(first.data(), nullptr);
    }

    ClippedPage draw() const { return {contours, scale, corner}; }

    Contours onPage() const {
        Contours snapped;
        for (Contour contour : contours) {
            if (contour.points.size() < 2) {
                continue;
            }
            for (HT_Double_Point& point : contour.points) {
                point = {std::round(point.x * scale) - corner.x(), std::round(point.y * scale) - corner.y()};
            }
            contour.mode = contour.mode == 7 ? HT_RGN_AND : contour.mode;
            snapped.push_back(contour);
        }
        return snapped;
    }

private:
    Contours contours;
    double scale = 1.0;
    QPoint corner;
};

TEST(Clip, RandomRegionsLetThroughWhatTheirCodesSay) {
    constexpr double rasterError = 0.1; // of a pixel, for crossings that lie between pixels
    regionOracle::Generator generator(3);
    for (int region = 0; region < 4000; ++region) {
        RandomClip clip(generator);
        if (clip.isRectangle()) {
            continue;
        }
        const ClippedPage page = clip.draw();
        const Contours onPage = clip.onPage();
        for (int y = 0; y < ClippedPage::size; ++y) {
            for (int x = 0; x < ClippedPage::size; ++x) {
                const HT_Double_Point centre{x + 0.5, y + 0.5};
                const bool isRight = page.shows(x, y) == isInside(onPage, centre);
                ASSERT_TRUE(isRight || isNearEdge(onPage, centre, rasterError))
                    << "region " << region << " at " << x << ", " << y;
            }
        }
    }
}

} // namespace
