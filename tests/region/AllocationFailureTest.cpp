// SPDX-License-Identifier: BSD-3-Clause
#include <cstdlib>

#include <gtest/gtest.h>

#include <QString>

#include "gpc.h"
#include "keldriver/VornRgn.h"
#include "region/GpcPolygon.h"
#include "support/RegionOracle.h"

using namespace KelDriver::Internal;

namespace {

constexpr const char* message = "gpc malloc failure: LMT insertion\n";
int allocationsLeft = -1; // negative: as many as asked for

} // namespace

// Stands in for the allocator of the clipper's library in this program.
void* tarsel_malloc(size_t size) {
    if (allocationsLeft == 0) {
        return nullptr;
    }
    --allocationsLeft;
    return std::malloc(size);
}

namespace {

TEST(AllocationFailure, IsReportedAndLeavesAContourWithoutVertices) {
    const RgnList list = regionOracle::toList({{3, {{0, 0}, {1, 0}, {0, 1}}}, {3, {{5, 5}, {6, 5}, {5, 6}}}});
    const struct {
        const char* name;
        int allocations; // of holes, contours, then the vertices of each
        int messages;
    } rows[] = {{"everything fails", 0, 2},
                {"the contours fail", 1, 1},
                {"all vertices fail", 2, 2},
                {"the last vertices fail", 3, 1},
                {"nothing fails", 4, 0}};
    for (const auto& row : rows) {
        allocationsLeft = row.allocations;
        testing::internal::CaptureStderr();
        const GpcPolygonPtr polygon(PolyAlgoOperator::convert_2_gpc_polygon(list.get()));
        const std::string errors = testing::internal::GetCapturedStderr();
        allocationsLeft = -1;
        EXPECT_EQ(errors, QString(message).repeated(row.messages).toStdString()) << row.name;
        ASSERT_EQ(polygon->num_contours, 2) << row.name;
        EXPECT_EQ(polygon->hole == nullptr, row.allocations < 1) << row.name;
        ASSERT_EQ(polygon->contour == nullptr, row.allocations < 2) << row.name;
        for (int i = 0; polygon->contour && i < 2; ++i) {
            const bool hasVertices = row.allocations > 2 + i;
            EXPECT_EQ(polygon->contour[i].num_vertices, hasVertices ? 3 : 0) << row.name << ", contour " << i;
            EXPECT_EQ(polygon->contour[i].vertex != nullptr, hasVertices) << row.name << ", contour " << i;
        }
    }
}

} // namespace
