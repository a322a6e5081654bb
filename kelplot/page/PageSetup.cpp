// SPDX-License-Identifier: GPL-2.0-or-later
#include "page/PageSetup.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "base/Numbers.h"
#include "keldriver/UCS33.h"

namespace kelplot {
namespace {

/// A drawing may be larger than its room by a rounding error of its own coordinates.
constexpr double fitTolerance = 1e-9;

/// Extents smaller than this part of their coordinates are those coordinates' rounding error.
constexpr double pointTolerance = 1e-12;

/// The part of the sheet between the margins, in millimetres from its upper left corner, y downwards.
Box2 roomOn(const SheetSize& sheet, const Margins& margins) {
    Box2 room;
    room.min = {margins.left, margins.top};
    room.max = {sheet.width - margins.right, sheet.height - margins.bottom};
    return room;
}

Box2 sheetBox(const SheetSize& sheet) {
    return roomOn(sheet, {0.0, 0.0, 0.0, 0.0});
}

Affine2 affineOf(const CUCS33& system) {
    std::array<double, 6> elements{};
    system.GetElements(elements.data(), static_cast<int>(elements.size()));
    return {elements[0], elements[1], elements[2], elements[3], elements[4], elements[5]};
}

Box2 mapped(const Box2& box, const Affine2& map) {
    Box2 result;
    result.add(map.mapPoint(box.min));
    result.add(map.mapPoint(box.max));
    return result;
}

bool hasArea(const Box2& box) {
    return box.width() > 0.0 && box.height() > 0.0;
}

bool isFinite(const Box2& box) {
    return std::isfinite(box.min.x) && std::isfinite(box.min.y) && std::isfinite(box.max.x) && std::isfinite(box.max.y);
}

/// Tells whether the box is too small to be made as large as a page.
bool isPoint(const Box2& box) {
    const double magnitude =
        std::max({std::abs(box.min.x), std::abs(box.min.y), std::abs(box.max.x), std::abs(box.max.y)});
    return std::max(box.width(), box.height()) <= pointTolerance * magnitude;
}

/// Sheet millimetres a drawing unit at which `extents` just fill `room`; nothing where no factor does,
/// as for a single point.
std::optional<double> fittingFactor(const Box2& extents, const Box2& room) {
    if (isPoint(extents)) {
        return std::nullopt;
    }
    const double inWidth = extents.width() > 0.0 ? room.width() / extents.width() : INFINITY;
    const double inHeight = extents.height() > 0.0 ? room.height() / extents.height() : INFINITY;
    const double factor = std::min(inWidth, inHeight);
    if (!std::isnormal(factor)) {
        return std::nullopt;
    }
    return factor;
}

SheetSize upright(const SheetSize& size) {
    return size.width <= size.height ? size : size.turned();
}

/// The orientation in which the drawing comes out larger. If only one orientation holds a drawing to scale, it is this
/// one.
SheetSize roomierPosition(const SheetSize& size, const Box2& extents, const Margins& margins) {
    constexpr double noRoom = -1.0;
    const auto factorIn = [&](const SheetSize& sheet) {
        const Box2 room = roomOn(sheet, margins);
        return hasArea(room) ? fittingFactor(extents, room).value_or(0.0) : noRoom;
    };
    return factorIn(size.turned()) > factorIn(size) ? size.turned() : size;
}

SheetSize positionedSheet(const Box2& extents, const PageOptions& options) {
    const SheetSize& size = options.paper.size;
    switch (options.orientation) {
    case Orientation::portrait:
        return upright(size);
    case Orientation::landscape:
        return upright(size).turned();
    case Orientation::automatic:
        break;
    }
    return options.paper.keepsPosition ? size : roomierPosition(size, extents, options.margins);
}

/// What is laid out: the window, or else the extents, or the origin if those are empty.
Box2 subjectOf(const Box2& extents, const PageOptions& options) {
    if (options.window) {
        return *options.window;
    }
    if (!extents.isEmpty() && isFinite(extents)) {
        return extents;
    }
    return {{0.0, 0.0}, {0.0, 0.0}};
}

/// The map that puts the point `from` at `to` and draws `factor` times as large about it, with y turned over.
Affine2 anchoredMap(Vec2 from, Vec2 to, double factor) {
    CUCS33 toSheet;
    toSheet.Offset(-from.x, -from.y);
    toSheet.Scale(factor, factor);
    toSheet.MirrorX();
    toSheet.Offset(to.x, to.y);
    return affineOf(toSheet);
}

} // namespace

std::optional<double> scaleFromText(const std::string& text) {
    std::optional<double> scale = numberFromText(text);
    if (const auto ratio = numberPairFromText(text, ":/")) {
        const bool positive = ratio->first > 0.0 && ratio->second > 0.0;
        scale = positive ? ratio->first / ratio->second : 0.0;
    }
    if (!scale || !std::isnormal(*scale) || *scale < 0.0) {
        return std::nullopt;
    }
    return scale;
}

std::optional<Margins> marginsFromText(const std::string& text) {
    const auto edges = numberListFromText(text);
    if (!edges || std::any_of(edges->begin(), edges->end(), [](double edge) { return edge < 0.0; })) {
        return std::nullopt;
    }
    if (edges->size() == 1) {
        const double edge = edges->front();
        return Margins{edge, edge, edge, edge};
    }
    if (edges->size() != 4) {
        return std::nullopt;
    }
    return Margins{(*edges)[0], (*edges)[1], (*edges)[2], (*edges)[3]};
}

std::optional<Box2> windowFromText(const std::string& text) {
    const auto corners = numberListFromText(text);
    if (!corners || corners->size() != 4) {
        return std::nullopt;
    }
    Box2 window;
    window.add(Vec2{(*corners)[0], (*corners)[1]});
    window.add(Vec2{(*corners)[2], (*corners)[3]});
    const bool hasSides = std::isnormal(window.width()) && std::isnormal(window.height());
    if (!hasSides || isPoint(window)) {
        return std::nullopt;
    }
    return window;
}

bool leavesRoom(const PageOptions& options) {
    return hasArea(roomOn(positionedSheet(Box2(), options), options.margins));
}

PageLayout layOutPage(const Box2& extents, double millimetresPerUnit, const PageOptions& options) {
    const Box2 subject = subjectOf(extents, options);
    PageLayout layout;
    layout.sheet = positionedSheet(subject, options);
    const Box2 room = roomOn(layout.sheet, options.margins);
    const auto fitting = fittingFactor(subject, room);
    const double factor = options.scale ? *options.scale * millimetresPerUnit : fitting.value_or(millimetresPerUnit);
    layout.scale = factor / millimetresPerUnit;
    layout.fittingScale = fitting.value_or(factor) / millimetresPerUnit;
    layout.drawingFits = !fitting || factor <= *fitting * (1.0 + fitTolerance);
    if (!options.scale || options.centred) {
        layout.toSheet = anchoredMap(subject.center(), room.center(), factor);
    } else {
        const PageAnchor anchor = options.anchor.value_or(PageAnchor{subject.min, {}});
        const Vec2 corner{room.min.x, room.max.y};
        layout.toSheet = anchoredMap(anchor.drawing, corner + Vec2{anchor.fromCorner.x, -anchor.fromCorner.y}, factor);
    }
    layout.limits = {layout.drawingFits && !options.window ? sheetBox(layout.sheet) : room};
    if (options.window) {
        layout.limits.push_back(mapped(*options.window, layout.toSheet));
    }
    return layout;
}

PlotTarget plotTargetFor(const PageLayout& layout, const DeviceGrid& grid) {
    const double units = grid.unitsPerMillimetre;
    PlotTarget target;
    target.deviceUnitsPerMillimetre = units;
    target.hairlineWidth = grid.hairlineWidth;
    target.thinnestDashed = grid.thinnestDashed;
    target.flatteningError = grid.flatteningError;
    const Affine2 toUnits = Affine2::scaling(units, units);
    target.toDevice = toUnits.after(layout.toSheet);
    target.pageBox = mapped(sheetBox(layout.sheet), toUnits);
    for (const Box2& limit : layout.limits) {
        target.limits.push_back(mapped(limit, toUnits));
    }
    return target;
}

} // namespace kelplot
