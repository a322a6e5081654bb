#include "host/vnbase/RegionModel.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <ostream>
#include <sstream>

namespace {

bool contourHolds(const Line& points, long double x, long double y) {
    bool inside = false;
    for (size_t i = 0; points.size() >= 3 && i < points.size(); ++i) {
        const HT_Double_Point& a = points[i];
        const HT_Double_Point& b = points[(i + 1) % points.size()];
        const bool isBeside = (a.y > y) != (b.y > y);
        inside ^= isBeside && a.x + (y - a.y) * (static_cast<long double>(b.x) - a.x) / (b.y - a.y) > x;
    }
    return inside;
}

bool combined(int32_t mode, bool before, bool contour) {
    switch (mode) {
    case HT_RGN_AND:
        return before && contour;
    case HT_RGN_COPY:
        return contour;
    case HT_RGN_DIFF:
        return before && !contour;
    case HT_RGN_OR:
        return before || contour;
    case HT_RGN_XOR:
        return before != contour;
    default:
        return before;
    }
}

} // namespace

RgnList listOf(const RegionModel& region) {
    RgnList list;
    for (auto contour = region.rbegin(); contour != region.rend(); ++contour) {
        const int count = static_cast<int>(contour->points.size());
        HT_ClipRgn* node = KelDriver::HT_CreatePolygonRgnData(contour->points.data(), count);
        node->mode = contour->mode;
        node->next = list.release();
        list.reset(node);
    }
    return list;
}

Line lineOf(const std::string& text) {
    std::istringstream in(text);
    Line line;
    for (std::string x, y; std::getline(in, x, ',') && in >> y;) {
        line.push_back({std::stod(x), std::stod(y)});
    }
    return line;
}

bool modelHolds(const RegionModel& region, long double x, long double y) {
    const auto isBorder = [](const ModelContour& contour) {
        return contour.mode != HT_RGN_DIFF;
    };
    const auto found = std::find_if(region.begin(), region.end(), isBorder);
    const auto border = found != region.end() ? found : region.begin();
    bool inside = contourHolds(border->points, x, y);
    for (auto contour = region.begin() + 1; contour != region.end(); ++contour) {
        const ModelContour& joining = contour == border ? region.front() : *contour;
        inside = combined(joining.mode, inside, contourHolds(joining.points, x, y));
    }
    return inside;
}

long double distanceToSegment(const HT_Double_Point& a, const HT_Double_Point& b, long double x, long double y) {
    const long double wayX = static_cast<long double>(b.x) - a.x;
    const long double wayY = static_cast<long double>(b.y) - a.y;
    const long double square = wayX * wayX + wayY * wayY;
    const long double along = square > 0 ? ((x - a.x) * wayX + (y - a.y) * wayY) / square : 0;
    const long double t = std::clamp(along, 0.0L, 1.0L);
    return std::hypot(x - a.x - t * wayX, y - a.y - t * wayY);
}

long double distanceToEdges(const RegionModel& region, long double x, long double y) {
    long double least = std::numeric_limits<long double>::infinity();
    for (const ModelContour& contour : region) {
        for (size_t i = 0; i < contour.points.size(); ++i) {
            const HT_Double_Point& next = contour.points[(i + 1) % contour.points.size()];
            least = std::min(least, distanceToSegment(contour.points[i], next, x, y));
        }
    }
    return least;
}

std::ostream& operator<<(std::ostream& out, const RegionModel& region) {
    out.precision(17);
    for (const ModelContour& contour : region) {
        out << "\n  mode " << contour.mode << ':';
        for (const HT_Double_Point& p : contour.points) {
            out << ' ' << p.x << ',' << p.y;
        }
    }
    return out;
}
