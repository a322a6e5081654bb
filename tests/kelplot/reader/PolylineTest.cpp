#include <gtest/gtest.h>

#include "DrawingText.h"

namespace kelplot {
namespace {

/// x, y, bulge, start width and end width of each vertex.
using Row = std::array<double, 5>;

std::vector<Row> rowsOf(const Polyline& polyline) {
    std::vector<Row> rows;
    for (const PolylineVertex& v : polyline.vertices) {
        rows.push_back({v.position.x, v.position.y, v.bulge, v.startWidth, v.endWidth});
    }
    return rows;
}

Polyline readPolyline(const std::string& text) {
    const Entity entity = readOne(text);
    const Polyline* const polyline = std::get_if<Polyline>(&entity.geometry);
    EXPECT_NE(polyline, nullptr);
    return polyline != nullptr ? *polyline : Polyline();
}

TEST(FlatPolyline, KeepsWidthsBulgesAndFlags) {
    const Polyline polyline = readPolyline(
        groups({{0, "LWPOLYLINE"}, {90, "3"}, {70, "129"}, {38, "7"}, {43, "2"}, {10, "1"}, {20, "2"}, {42, "0.5"}}) +
        groups({{10, "3"}, {20, "4"}, {40, "1"}, {41, "3"}, {10, "5"}, {20, "6"}, {40, "-1"}, {1000, "x"}}));
    EXPECT_EQ(rowsOf(polyline), (std::vector<Row>{{1, 2, 0.5, 2, 2}, {3, 4, 0, 1, 3}, {5, 6, 0, 0, 2}}));
    EXPECT_EQ(polyline.vertices[1].position.z, 7.0);
    EXPECT_TRUE(polyline.closed);
    EXPECT_TRUE(polyline.continuousPattern);
    EXPECT_FALSE(polyline.spatial);
}

TEST(FlatPolyline, HasTheVerticesThatCome) {
    // The count, too small and none at all; what the polyline before had does not come back.
    const std::string text =
        groups({{0, "LWPOLYLINE"}, {90, "1"}, {70, "1"}, {10, "1"}, {20, "1"}, {10, "2"}, {20, "2"}}) +
        groups({{0, "LWPOLYLINE"}, {10, "3"}, {20, "3"}});
    const Drawing drawing = readText(drawingOf(text));
    ASSERT_EQ(drawing.modelSpace.size(), 2u);
    const auto& second = std::get<Polyline>(drawing.modelSpace[1].geometry);
    EXPECT_EQ(std::get<Polyline>(drawing.modelSpace[0].geometry).vertices.size(), 2u);
    EXPECT_EQ(second.vertices.size(), 1u);
    EXPECT_FALSE(second.closed);
}

std::string vertex(const char* x, const char* y, const std::string& more = "") {
    return groups({{0, "VERTEX"}, {10, x}, {20, y}, {30, "9"}}) + more;
}
const std::string sequenceEnd = groups({{0, "SEQEND"}});

TEST(OldPolyline, TakesWidthsFromItsHead) {
    const Polyline polyline =
        readPolyline(groups({{0, "POLYLINE"}, {62, "5"}, {70, "1"}, {30, "4"}, {40, "1"}, {41, "2"}}) +
                     vertex("0", "0", groups({{42, "1"}, {62, "1"}})) +
                     vertex("5", "0", groups({{40, "0"}, {41, "3"}})) + sequenceEnd);
    EXPECT_EQ(rowsOf(polyline), (std::vector<Row>{{0, 0, 1, 1, 2}, {5, 0, 0, 0, 3}}));
    EXPECT_EQ(polyline.vertices[1].position.z, 4.0);
    EXPECT_TRUE(polyline.closed);
}

TEST(OldPolyline, KeepsItsAttributesAndOrder) {
    const std::string text = groups({{0, "LINE"}, {11, "1"}}) + groups({{0, "POLYLINE"}, {62, "5"}, {67, "1"}}) +
                             vertex("0", "0", groups({{62, "1"}})) + vertex("1", "0");
    // The end of the sequence is missing; the next entity ends it.
    const Drawing drawing = readText(drawingOf(text + groups({{0, "CIRCLE"}, {40, "1"}, {67, "1"}})));
    ASSERT_EQ(drawing.modelSpace.size(), 1u);
    ASSERT_EQ(drawing.paperSpace.size(), 2u);
    EXPECT_TRUE(std::holds_alternative<Polyline>(drawing.paperSpace[0].geometry));
    EXPECT_EQ(drawing.paperSpace[0].attributes.colour.value, 5u);
    EXPECT_TRUE(std::holds_alternative<Circle>(drawing.paperSpace[1].geometry));
}

TEST(OldPolyline, FittedCurveLeavesItsFrameOut) {
    const Polyline fitted = readPolyline(groups({{0, "POLYLINE"}, {70, "4"}}) + vertex("0", "9", groups({{70, "16"}})) +
                                         vertex("1", "0", groups({{70, "8"}})) + vertex("2", "0") + sequenceEnd);
    EXPECT_EQ(rowsOf(fitted), (std::vector<Row>{{1, 0, 0, 0, 0}, {2, 0, 0, 0, 0}}));
}

TEST(OldPolyline, SpatialOneHasNeitherBulgesNorWidths) {
    const Polyline spatial =
        readPolyline(groups({{0, "POLYLINE"}, {70, "8"}, {40, "1"}, {30, "4"}, {210, "0"}, {220, "1"}, {230, "0"}}) +
                     vertex("1", "2", groups({{70, "32"}, {42, "1"}})) + vertex("3", "4") + sequenceEnd);
    EXPECT_TRUE(spatial.spatial);
    EXPECT_EQ(rowsOf(spatial), (std::vector<Row>{{1, 2, 0, 0, 0}, {3, 4, 0, 0, 0}}));
    EXPECT_EQ(spatial.vertices[0].position.z, 9.0);
}

TEST(Mesh, BecomesLinesAlongBothWays) {
    const std::string head = groups({{0, "POLYLINE"}, {70, "17"}, {71, "2"}, {72, "3"}});
    std::string points;
    for (const char* y : {"0", "1"}) {
        for (const char* x : {"0", "1", "2"}) {
            points += vertex(x, y, groups({{70, "64"}}));
        }
    }
    const Drawing drawing = readText(drawingOf(head + points + sequenceEnd));
    ASSERT_EQ(drawing.modelSpace.size(), 5u);
    const auto& row = std::get<Polyline>(drawing.modelSpace[1].geometry);
    EXPECT_EQ(rowsOf(row), (std::vector<Row>{{0, 1, 0, 0, 0}, {1, 1, 0, 0, 0}, {2, 1, 0, 0, 0}}));
    EXPECT_FALSE(row.closed);
    const auto& column = std::get<Polyline>(drawing.modelSpace[4].geometry);
    EXPECT_EQ(rowsOf(column), (std::vector<Row>{{2, 0, 0, 0, 0}, {2, 1, 0, 0, 0}}));
    EXPECT_TRUE(column.closed);
    const std::string short3x3 = groups({{0, "POLYLINE"}, {70, "16"}, {71, "3"}, {72, "3"}});
    EXPECT_TRUE(readText(drawingOf(short3x3 + points + sequenceEnd)).modelSpace.empty());
}

TEST(PolyfaceMesh, BecomesFaces) {
    const std::string polyface = groups({{70, "192"}});
    const std::string face = groups({{0, "VERTEX"}, {70, "128"}});
    const std::string text = groups({{0, "POLYLINE"}, {70, "64"}, {67, "1"}}) + vertex("0", "0", polyface) +
                             vertex("4", "0", polyface) + vertex("4", "4", polyface) + face +
                             groups({{62, "3"}, {71, "1"}, {72, "-2"}, {73, "3"}}) + face +
                             groups({{71, "1"}, {72, "2"}, {73, "4"}}) + // there is no fourth vertex
                             face + groups({{71, "-2147483648"}, {72, "2"}, {73, "3"}}) + sequenceEnd;
    const Drawing drawing = readText(drawingOf(text));
    ASSERT_EQ(drawing.paperSpace.size(), 1u + 1u);
    const auto& triangle = std::get<Face3d>(drawing.paperSpace[0].geometry);
    EXPECT_EQ(drawing.paperSpace[0].attributes.colour.value, 3u);
    EXPECT_EQ(triangle.corners[1], (Vec3{4, 0, 9}));
    EXPECT_EQ(triangle.corners[2], (Vec3{4, 4, 9}));
    EXPECT_EQ(triangle.corners[3], triangle.corners[2]);
    EXPECT_EQ(triangle.edgeVisible, (std::array<bool, 4>{true, false, true, true}));
}

} // namespace
} // namespace kelplot
