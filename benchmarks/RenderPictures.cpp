// SPDX-License-Identifier: BSD-3-Clause
#include "RenderPictures.h"

#include <cmath>
#include <memory>
#include <random>
#include <utility>

#include "RegionShapes.h"
#include "keldriver/KelDriver.h"

namespace {

using Points = std::vector<HT_Double_Point>;

// A spiral: no two neighbours fall on one pixel, and every point lies on the page.
Points spiral(int count) {
    Points points;
    for (int i = 0; i < count; ++i) {
        const double angle = 2.4 * i; // radians; neighbours lie far apart, as in a hatch
        const double radius = 50.0 + 300.0 * i / count;
        points.push_back({400.0 + radius * std::cos(angle), 400.0 + radius * std::sin(angle)});
    }
    return points;
}

// A rounded outline: neighbours lie close together, as along a flattened curve.
Points outline(int count) {
    Points points;
    for (int i = 0; i < count; ++i) {
        const double angle = 6.283185307179586 * i / count;
        points.push_back({400.0 + 380.0 * std::cos(angle), 400.0 + 380.0 * std::sin(angle)});
    }
    return points;
}

Picture polylinePicture(int count) {
    const auto points = std::make_shared<Points>(count == 2 ? Points{{10, 10}, {60, 40}} : outline(count));
    const auto ours = [=](HT_Renderer& renderer, int) {
        renderer.DrawPolyline(points->data(), count);
    };
    const auto hand = [=](HandPainter& painter, int) {
        painter.polyline(points->data(), count);
    };
    return {"Polyline", std::to_string(count), ours, {{"hand", hand}}, {}};
}

Picture polygonPicture(int count) {
    const auto points = std::make_shared<Points>(outline(count));
    const auto ours = [=](HT_Renderer& renderer, int) {
        renderer.FillPolygon(points->data(), count);
    };
    const auto hand = [=](HandPainter& painter, int) {
        painter.polygon(points->data(), count);
    };
    return {"Polygon", std::to_string(count), ours, {{"hand", hand}}, {}};
}

Picture pointPicture() {
    const auto points = std::make_shared<Points>(spiral(512));
    const auto ours = [=](HT_Renderer& renderer, int) {
        for (const HT_Double_Point& point : *points) {
            renderer.DrawPoint(point);
        }
    };
    const auto hand = [=](HandPainter& painter, int) {
        for (const HT_Double_Point& point : *points) {
            painter.point(point);
        }
    };
    return {"Points", "512", ours, {{"hand", hand}}, {}};
}

Picture arcPicture() {
    const auto ours = [](HT_Renderer& renderer, int) {
        renderer.DrawArc({400, 400}, 200, 100, 0.5, 0.25, 3.5);
    };
    const auto hand = [](HandPainter& painter, int) {
        painter.arc({400, 400}, 200, 100, 0.5, 0.25, 3.5);
    };
    return {"Arc", "1", ours, {{"hand", hand}}, {}};
}

// Colour, then weight, then a short line, as at each new entity of a drawing.
Picture stylePicture() {
    const auto points = std::make_shared<Points>(Points{{10, 10}, {60, 40}});
    const auto ours = [=](HT_Renderer& renderer, int call) {
        renderer.SetColor(static_cast<HT_Color>(call) & 0xFFU);
        renderer.SetLineWeight(1.0 + call % 3);
        renderer.DrawPolyline(points->data(), 2);
    };
    const auto hand = [=](HandPainter& painter, int call) {
        painter.ink(QColor(call & 0xFF, 0, 0));
        painter.width(1 + call % 3);
        painter.polyline(points->data(), 2);
    };
    return {"Style", "1", ours, {{"hand", hand}}, {}};
}

// Contours of 40 vertices all over the page, some of which overlap.
std::vector<Outline> clipContours(int count) {
    std::mt19937_64 random(7);
    std::uniform_real_distribution<double> place(100.0, 700.0);
    std::vector<Outline> contours;
    for (int i = 0; i < count; ++i) {
        const HT_Double_Point centre{place(random), place(random)};
        contours.push_back(star(40, centre, 300.0 / std::sqrt(count), static_cast<unsigned>(i)));
    }
    return contours;
}

struct DeleteRgn {
    void operator()(HT_ClipRgn* rgn) const { KelDriver::HT_DeleteRgn(rgn); }
};

std::shared_ptr<HT_ClipRgn> unitedList(const std::vector<Outline>& contours) {
    std::unique_ptr<HT_ClipRgn, DeleteRgn> list;
    for (auto contour = contours.rbegin(); contour != contours.rend(); ++contour) {
        HT_ClipRgn* node = KelDriver::HT_CreatePolygonRgnData(contour->data(), static_cast<int>(contour->size()));
        node->mode = HT_RGN_OR;
        node->next = list.release();
        list.reset(node);
    }
    return list;
}

// A clip and a line that goes through it.
Picture clipPicture(int count) {
    const auto contours = std::make_shared<std::vector<Outline>>(clipContours(count));
    const auto list = unitedList(*contours);
    const auto line = std::make_shared<Points>(spiral(20));
    const auto ours = [=](HT_Renderer& renderer, int) {
        renderer.SetClipRgn(list.get());
        renderer.DrawPolyline(line->data(), 20);
    };
    const auto united = [=](HandPainter& painter, int) {
        painter.clipUnited(*contours);
        painter.polyline(line->data(), 20);
    };
    const auto winding = [=](HandPainter& painter, int) {
        painter.clipWinding(*contours);
        painter.polyline(line->data(), 20);
    };
    return {"ClipList", std::to_string(count), ours, {{"united", united}, {"winding", winding}}, {}};
}

Picture longLines(const char* look, double weight, const std::vector<double>& dashes) {
    const auto lines = std::make_shared<std::vector<Points>>();
    for (int i = 0; i < 16; ++i) { // from the left side to the right, and from the top to the bottom
        const double low = 100.0 + 190.0 * i;
        lines->push_back(i % 2 == 0 ? Points{{10, low}, {3190, 3200 - low}} : Points{{low, 10}, {3200 - low, 3190}});
    }
    const auto ours = [=](HT_Renderer& renderer, int) {
        for (const Points& line : *lines) {
            renderer.DrawPolyline(line.data(), 2);
        }
    };
    const auto hand = [=](HandPainter& painter, int) {
        for (const Points& line : *lines) {
            painter.polyline(line.data(), 2);
        }
    };
    const auto prepare = [=](HT_Renderer& renderer) {
        std::vector<double> pattern = dashes;
        renderer.SetLineWeight(weight);
        if (!pattern.empty()) {
            renderer.SetLineType(HT_PlotStyle::LineTypeCustom, pattern.data(), static_cast<unsigned>(pattern.size()));
        }
    };
    return {"LongLines", look, ours, {{"hand", hand}}, prepare};
}

} // namespace

std::vector<Picture> pagePictures() {
    std::vector<Picture> pictures;
    for (const int count : {2, 20, 2000, 20000}) {
        pictures.push_back(polylinePicture(count));
    }
    for (const int count : {4, 20, 2000}) {
        pictures.push_back(polygonPicture(count));
    }
    pictures.push_back(pointPicture());
    pictures.push_back(arcPicture());
    pictures.push_back(stylePicture());
    for (const int count : {1, 10, 100}) {
        pictures.push_back(clipPicture(count));
    }
    return pictures;
}

std::vector<Picture> longLinePictures() {
    return {longLines("thin", 1.0, {}), longLines("wide", 20.0, {}), longLines("dashed", 1.0, {20.0, 10.0}),
            longLines("wide and dashed", 20.0, {60.0, 40.0})};
}
