// SPDX-License-Identifier: GPL-2.0-or-later
#include <gtest/gtest.h>

#include <QDir>
#include <QImage>

#include "kelplot/cli/KelplotRun.h"

namespace {

bool hasInk(const QImage& image) {
    QImage blank(image.size(), image.format());
    blank.fill(Qt::white);
    return image != blank;
}

TEST(SamplePlots, ShowInkOrSayWhyNot) {
    const QDir samples(KELDRIVER_SHARED_DATA "/dxf");
    const QStringList names = samples.entryList({"*.dxf"});
    if (names.isEmpty()) {
        GTEST_SKIP() << "no sample drawings in " << samples.path().toStdString();
    }
    const TemporaryDirectory directory;
    QStringList arguments = {"-t", ".", "--format", "png", "--dpi", "20"};
    for (const QString& name : names) {
        arguments << samples.filePath(name);
    }
    const Outcome outcome = run(directory, arguments);
    EXPECT_EQ(outcome.status, 3);
    for (const QString& name : names) {
        SCOPED_TRACE(name.toStdString());
        const QString told = outcome.messages.split('\n').filter(samples.filePath(name) + ": ").join('\n');
        const bool damaged = name.startsWith("bad_"), refused = told.startsWith("kelplot: /");
        EXPECT_TRUE(!refused || damaged) << told.toStdString();
        const QImage image(
            QDir(QString::fromStdString(directory.path())).filePath(QString(name).replace("dxf", "png")));
        EXPECT_EQ(image.isNull(), refused);
        if (!refused) {
            EXPECT_NE(hasInk(image), told.contains("nothing to plot")) << "a blank page comes with a warning";
            EXPECT_TRUE(damaged || hasInk(image) == (name != "text_layers_unicode.dxf")) << "a drawing of layers only";
        }
    }
}

} // namespace
