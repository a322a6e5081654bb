// SPDX-License-Identifier: GPL-2.0-or-later
#include "plot/picture/PicturePlotter.h"

#include <algorithm>
#include <cmath>

#include "plot/picture/QImagePicture.h"

namespace kelplot {

namespace {

ClipRegion regionOf(const std::vector<Vec2>& pixels, const Image& image, const PlanMap& map) {
    std::vector<Vec2> points;
    points.reserve(pixels.size());
    for (const Vec2 pixel : pixels) {
        points.push_back(map.mapPoint(image.pointAt(pixel)));
    }
    return polygonRegion(points);
}

/// What the clip of a picture leaves of it.
ClipRegion clipOf(const Image& image, const PlanMap& map) {
    ClipRegion clip = regionOf(image.clip, image, map);
    return image.clipInverted ? combined(regionOf(image.corners(), image, map), clip, HT_RGN_DIFF) : std::move(clip);
}

/// A record that puts a picture upright into the box; `upsideDown` turns it over in its place.
///
/// Edges are rounded rather than lengths, so that pictures laid side by side meet.
HT_RasterImage_Record recordFor(HT_RasterImage& picture, const Box2& box, bool upsideDown) {
    const double left = std::round(box.min.x);
    const double top = std::round(box.min.y);
    const double bottom = std::round(box.max.y);
    const bool topRowFirst = picture.getBitmapInfo()->bmiHeader.biHeight < 0;
    const bool inOrder = topRowFirst != upsideDown; // else the renderer turns the rows over and draws upward
    // The renderer takes pictures for a row higher than they are.
    const double factor = (bottom - top) / (std::abs(picture.pixelHeight()) + 1.0);
    HT_RasterImage_Record record{};
    record.image = &picture;
    record.x = left;
    record.y = inOrder ? top : bottom;
    record.widthFactor = (std::round(box.max.x) - left) / picture.pixelWidth();
    record.heightFactor = inOrder ? factor : -factor;
    return record;
}

/// The picture with fewer pixels, each the mean of many: the painter by itself samples only a few of them, and thin
/// lines get lost. Null for a picture with not many more pixels than the device.
HT_RasterImagePtr reduced(const HT_RasterImage& picture, Vec2 dots) {
    constexpr double many = 2.0;
    const bool worthwhile = picture.pixelWidth() > many * dots.x && std::abs(picture.pixelHeight()) > many * dots.y;
    if (!worthwhile) {
        return {};
    }
    const QSize size(static_cast<int>(std::ceil(dots.x)), static_cast<int>(std::ceil(dots.y)));
    return pictureOf(pixelsOf(picture).scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
}

} // namespace

/// Parallel to the edges of the page as nearly as the device can tell, and within the renderer's range of numbers.
bool PicturePlotter::Place::isStraight() const {
    constexpr double leastTurn = 0.5;
    constexpr double farthest = 1e8;
    const Vec2 opposite = corner + right + down;
    const bool near =
        std::max({std::abs(corner.x), std::abs(corner.y), std::abs(opposite.x), std::abs(opposite.y)}) < farthest;
    return near && right.x > 0.0 && std::abs(right.y) < leastTurn && std::abs(down.x) < leastTurn;
}

bool PicturePlotter::draw(const Image& image, uint8_t opacity, const PlanMap& map) {
    Place place;
    place.corner = map.mapPoint(image.pointAt({0.0, 0.0}));
    place.right = map.mapDirection(image.u * image.size.x);
    place.down = map.mapDirection(image.v * -image.size.y);
    const double area = cross(place.right, place.down);
    if (!place.corner.isFinite() || !std::isnormal(area)) {
        return true;
    }
    HT_RasterImage* const picture = m_store.find(image.definition, PictureLook(image, m_grey));
    if (picture == nullptr) {
        return false;
    }
    m_renderer.SetAlpha(opacity); // a new ink alone leaves that of pictures as it was
    if (m_direct != nullptr) { // the pixels of a picture larger than the device shows it are mixed; others stay sharp
        m_direct->mixPixels(m_direct->dotsAlong(place.right) < picture->pixelWidth());
    }
    const HT_RasterImagePtr fitting = fittingDevice(place, *picture);
    HT_RasterImage& drawn = fitting ? *fitting : *picture;
    if (image.clipped) {
        drawClipped(image, map, place, drawn);
    } else {
        drawPixels(place, drawn);
    }
    return true;
}

/// The picture with no more pixels than the device can show; null where that is the picture itself.
HT_RasterImagePtr PicturePlotter::fittingDevice(const Place& place, const HT_RasterImage& picture) const {
    if (m_direct == nullptr) {
        return {};
    }
    const Vec2 dots = {m_direct->dotsAlong(place.right), m_direct->dotsAlong(place.down)};
    return reduced(picture, dots);
}

void PicturePlotter::drawClipped(const Image& image, const PlanMap& map, const Place& place, HT_RasterImage& picture) {
    m_clips.push(clipOf(image, map), ClipStack::Keeps::inside);
    drawPixels(place, picture);
    m_clips.pop();
}

void PicturePlotter::drawPixels(const Place& place, HT_RasterImage& picture) {
    if (!place.isStraight()) {
        drawTurned(place, picture);
        return;
    }
    Box2 box;
    box.add(place.corner);
    box.add(place.corner + place.right + place.down);
    HT_RasterImage_Record record = recordFor(picture, box, place.down.y < 0.0);
    m_renderer.DrawImage(&record);
}

/// The renderer draws only upright pictures: it gets one with a unit per pixel, in coordinates that are turned.
void PicturePlotter::drawTurned(const Place& place, HT_RasterImage& picture) {
    if (m_direct == nullptr) {
        return;
    }
    const double columns = picture.pixelWidth();
    const double rows = std::abs(picture.pixelHeight());
    const Vec2 right = place.right * (1.0 / columns);
    const Vec2 down = place.down * (1.0 / rows);
    HT_RasterImage_Record record = recordFor(picture, {{0.0, 0.0}, {columns, rows}}, false);
    m_direct->drawPlaced({right.x, right.y, down.x, down.y, place.corner.x, place.corner.y},
                         [&] { m_renderer.DrawImage(&record); });
}

} // namespace kelplot
