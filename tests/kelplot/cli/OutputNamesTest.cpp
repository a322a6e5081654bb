// SPDX-License-Identifier: GPL-2.0-or-later
#include <gtest/gtest.h>

#include "cli/OutputNames.h"
#include "support/TemporaryDirectory.h"

namespace kelplot {
namespace {

Options parse(const QStringList& arguments) {
    return optionsFromArguments(QStringList{"kelplot"} + arguments);
}

TEST(OutputNames, FollowTheDrawings) {
    EXPECT_EQ(outputPaths(parse({"/a/plan.v2.dxf", "b/PLAN.DXF"})), (QStringList{"plan.v2.pdf", "PLAN.pdf"}));
    EXPECT_EQ(outputPaths(parse({"--format", "svg", "-t", "/out/", "a.dxf"})), QStringList{"/out/a.svg"});
    EXPECT_EQ(outputPaths(parse({"-o", "x.png", "a.dxf"})), QStringList{"x.png"});
}

TEST(OutputNames, TwoDrawingsNeverShareOne) {
    EXPECT_THROW(outputPaths(parse({"a/plan.dxf", "b/plan.dxf"})), UsageError);
    EXPECT_THROW(outputPaths(parse({"a.dxf", "a.dxf"})), UsageError);
}

TEST(OutputNames, ADrawingIsNeverReplaced) {
    const TemporaryDirectory directory;
    const QString drawing = QString::fromStdString(directory.write("plan.dxf", "drawing"));
    const QString detour = QString::fromStdString(directory.path()) + "/./plan.dxf";
    EXPECT_THROW(outputPaths(parse({"--format", "pdf", "-o", detour, drawing})), UsageError);

    const QString misnamed = QString::fromStdString(directory.write("plan.pdf", "drawing"));
    EXPECT_THROW(outputPaths(parse({"-t", QString::fromStdString(directory.path()), misnamed})), UsageError);
}

} // namespace
} // namespace kelplot
