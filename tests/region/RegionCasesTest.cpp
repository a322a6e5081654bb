// SPDX-License-Identifier: BSD-3-Clause
#include <functional>
#include <map>

#include <gtest/gtest.h>

#include "keldriver/ClipRgn.h"
#include "keldriver/VornRgn.h"
#include "support/PlotText.h"
#include "support/RegionCases.h"

// What regions and lists become, from the file "regions.cases".

namespace {

using regionCases::contoursOf;
using regionCases::pointsOf;
using regionOracle::boxOf;
using regionOracle::Points;

constexpr HT_Double_Rectangle untouched{-7, -7, -7, -7};

std::string sidesOf(const std::vector<double>& box) {
    std::string text;
    for (const double side : box) {
        text += " " + plotText::number(side);
    }
    return text == " -7 -7 -7 -7" ? " untouched" : text;
}

std::string textOf(const HT_Double_Rectangle& box) {
    return sidesOf({box.minX, box.minY, box.maxX, box.maxY});
}

/// Code and number of points of each contour, "3:4 2:3".
std::string textOf(const HT_ClipRgn* list) {
    std::string text;
    for (; list != nullptr; list = list->next) {
        text += (text.empty() ? "" : " ") + std::to_string(list->mode) + ":" + std::to_string(list->pointCount);
    }
    return text;
}

std::string evaluated(const std::string& list) {
    const RgnList given = regionOracle::toList(contoursOf(list));
    EXPECT_EQ(PolyAlgoOperator::ClipRgnOperator(given.get()), given.get());
    return textOf(given.get());
}

std::string ordered(const std::string& list) {
    const RgnList given = regionOracle::toList(contoursOf(list));
    OrderBorder(given.get());
    return textOf(given.get());
}

std::string standard(const std::string& list) {
    HT_Double_Rectangle box = untouched;
    const bool isRect = KelDriver::HT_StandardClipRgn(regionOracle::toList(contoursOf(list)).get(), &box);
    EXPECT_EQ(KelDriver::HT_StandardClipRgn(regionOracle::toList(contoursOf(list)).get(), nullptr), isRect);
    return (isRect ? "rectangle" : "other") + textOf(box);
}

std::string pointsBox(const std::string& countAndPoints) {
    const Points points = pointsOf(countAndPoints.substr(std::min(countAndPoints.find(' '), countAndPoints.size())));
    HT_Double_Rectangle box = untouched;
    const int found =
        KelDriver::HT_GetPointsRect(points.empty() ? nullptr : points.data(), std::stoi(countAndPoints), &box);
    return std::to_string(found) + textOf(box);
}

std::string corners(const std::string& fourPoints) {
    Points points = pointsOf(fourPoints);
    HT_Double_Rectangle box = untouched;
    const bool isRect = KelDriver::IsRect(points.data(), &box);
    EXPECT_EQ(KelDriver::IsRect(points.data(), nullptr), isRect);
    return (isRect ? "rectangle" : "other") + textOf(box);
}

/// Kind, what is reported, and the box.
std::string textOf(const CVornRgn& region) {
    return std::to_string(region.m_nType) + ", reports " + std::to_string(region.GetRgnBox(nullptr)) +
           sidesOf(boxOf(region));
}

std::string made(const std::string& list) {
    const CVornRgn region(regionOracle::toList(contoursOf(list)).get());
    EXPECT_EQ(region.m_pClipRgn == nullptr, list.empty());
    return textOf(region);
}

/// Which of the unit fields from 0 to 9 belong to an expression with brackets.
std::string bracketed(const std::string& list) {
    CVornRgn region;
    region.m_nType = 2;
    region.m_rcBox = untouched;
    region.m_pClipRgn = regionOracle::toList(contoursOf(list)).release();
    const HT_ClipRgn* const given = region.m_pClipRgn;
    region.StandardRgn();
    if (given != nullptr && region.m_pClipRgn == given) {
        return "as it was: " + textOf(given) + textOf(region.m_rcBox);
    }
    const auto contours = regionOracle::toContours(region.GetClipRgnRef());
    std::string fields;
    for (int field = 0; field < 10; ++field) {
        fields += isInside(contours, {field + 0.5, 0.5}) ? '#' : '.';
    }
    EXPECT_EQ(region.m_nType == 3, fields == "..........") << "an empty region knows";
    return fields;
}

double areaOf(const HT_ClipRgn* list) {
    double area = 0;
    for (const regionOracle::Contour& contour : regionOracle::toContours(list)) {
        double twice = 0;
        for (size_t i = 0; i < contour.points.size(); ++i) {
            const HT_Double_Point& a = contour.points[i];
            const HT_Double_Point& b = contour.points[(i + 1) % contour.points.size()];
            twice += a.x * b.y - b.x * a.y;
        }
        area += (contour.mode == HT_RGN_DIFF ? -1 : 1) * std::fabs(twice) / 2;
    }
    return area;
}

/// "none", "empty", "box x,y x,y", or a polygon's points.
CVornRgn regionOf(const std::string& text) {
    CVornRgn region;
    const Points points = pointsOf(text.substr(std::min(text.find_first_of("-0123456789"), text.size())));
    if (text.substr(0, 4) == "box ") {
        region.CreateRectRgn(points[0].x, points[0].y, points[1].x, points[1].y);
    } else if (text == "empty") {
        region = CVornRgn(nullptr);
    } else if (text != "none") {
        region.CreatePolygonRgn(points.data(), static_cast<int>(points.size()), 1);
    }
    return region;
}

/// "region with region", combined into either and into another; with the area of the list that comes of it.
auto combined(int operation) {
    return [operation](const std::string& operands) {
        std::string outcomes[3];
        for (int target = 0; target < 3; ++target) {
            const size_t with = operands.find(" with ");
            CVornRgn regions[] = {regionOf("box 70,70 80,80"), regionOf(operands.substr(0, with)),
                                  regionOf(operands.substr(with + 6))};
            CVornRgn& result = regions[target];
            const int reported = result.CombineRgn(&regions[1], &regions[2], operation);
            EXPECT_EQ(reported, result.GetRgnBox(nullptr)) << target;
            outcomes[target] = textOf(result) + ", area " + plotText::number(areaOf(result.m_pClipRgn));
        }
        EXPECT_EQ(outcomes[1], outcomes[0]);
        EXPECT_EQ(outcomes[2], outcomes[0]);
        return outcomes[0];
    };
}

std::string textOf(const HT_Contour* contour) {
    std::string text = std::to_string(contour->closed) + "/" + std::to_string(contour->mode) + ":";
    for (int i = 0; i < contour->count; ++i) {
        text += " " + plotText::number(contour->points[i].x) + "," + plotText::number(contour->points[i].y);
    }
    return text;
}

/// What is answered for each piece, and what has been collected: finished contours in brackets, then the open one. The
/// low byte of a piece's code is its mode, the rest the flag that says whether it is closed.
std::string collected(const std::string& pieces) {
    HT_Region region;
    std::string text;
    for (const auto& [code, points] : contoursOf(pieces)) {
        text += std::to_string(region.AddPoints(points.data(), static_cast<int>(points.size()), code >> 8,
                                                static_cast<unsigned char>(code & 255)));
    }
    for (const HT_Contour* contour : region.contours) {
        text += " [" + textOf(contour) + "]";
    }
    text += region.current != nullptr ? " " + textOf(region.current) : "";
    const size_t finished = region.contours.size() + (region.current != nullptr ? 1 : 0);
    for (int time = 0; time < 2; ++time) {
        region.EndData();
        EXPECT_TRUE(region.contours.size() == finished && region.current == nullptr);
    }
    region.Clear();
    EXPECT_TRUE(region.contours.empty());
    return text;
}

TEST(Region, CasesHaveTheirOutcomes) {
    const std::map<std::string, std::function<std::string(const std::string&)>> calls = {
        {"evaluate", evaluated}, {"order", ordered},   {"standard", standard},  {"points", pointsBox},
        {"corners", corners},    {"make", made},       {"brackets", bracketed}, {"and", combined(1)},
        {"or", combined(2)},     {"xor", combined(3)}, {"diff", combined(4)},   {"copy", combined(5)},
        {"collect", collected},
    };
    for (const regionCases::Case& each : regionCases::read(REGION_CASES)) {
        SCOPED_TRACE(each.place);
        ASSERT_EQ(calls.count(each.name), 1U);
        EXPECT_EQ(calls.at(each.name)(each.input), each.outcome);
    }
}

} // namespace
