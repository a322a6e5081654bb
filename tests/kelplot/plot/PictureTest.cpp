// SPDX-License-Identifier: GPL-2.0-or-later
#include <gtest/gtest.h>

#include <QDir>
#include <QFileInfo>
#include <QImage>
#include <cmath>

#include "kelplot/plot/PlotKit.h"
#include "plot/picture/PictureStore.h"
#include "support/TemporaryDirectory.h"

namespace kelplot {
namespace {

constexpr QRgb white = 0xFFFFFFFF;
const QRgb quarters[] = {0xFFFF0000, 0xFF00FF00, 0xFF0000FF, 0xFFFFFF00}; // row by row

/// A picture of 40 by 20 pixels in four colours.
QImage fourQuarters() {
    const QImage image(reinterpret_cast<const uchar*>(quarters), 2, 2, QImage::Format_RGB32);
    return image.scaled(40, 20);
}

/// A drawing of one picture, whose file stands in a directory of the test's own.
class Pictures : public testing::Test {
protected:
    void use(const QImage& picture, const char* name) {
        ASSERT_TRUE(picture.save(QString::fromStdString(directory.path(name))));
        drawing.images[0].path = name;
    }
    QImage plotted(const PlotStyleOptions& style = {}) {
        drawing.folder = directory.path();
        drawing.modelSpace = below;
        drawing.modelSpace.push_back(entityOf(image));
        drawing.modelSpace.back().attributes.opacity = opacity;
        return paintedPage(drawing, target, style, &report);
    }
    /// What the page shows at a point of the picture.
    QRgb at(const QImage& page, double x, double y) const {
        const Vec2 p = PlanMap(target.toDevice).mapPoint(image.pointAt({x, y}));
        return page.pixel(static_cast<int>(std::floor(p.x)), static_cast<int>(std::floor(p.y)));
    }

    TemporaryDirectory directory;
    Drawing drawing = [] {
        Drawing result = emptyDrawing();
        result.images.emplace_back();
        result.imageFrames = false;
        return result;
    }();
    PlotTarget target = tenfoldTarget();
    Image image = [] {
        Image result;
        result.position = {40, 50, 0};
        result.u = {1, 0, 0};
        result.v = {0, 1, 0};
        result.size = {40, 20};
        return result;
    }();
    Opacity opacity = opaque;
    std::vector<Entity> below;
    PlotReport report;
};

TEST_F(Pictures, LieWhereTheDrawingSays) {
    const struct {
        const char* name;
        Vec3 u, v;
    } places[] = {
        {"upright", {1, 0, 0}, {0, 1, 0}},         {"stretched", {0.73, 0, 0}, {0, 1.31, 0}},
        {"upside down", {1, 0, 0}, {0, -1, 0}},    {"mirrored", {-1, 0, 0}, {0, 1, 0}},
        {"by a half", {-1, 0, 0}, {0, -1, 0}},     {"by a quarter", {0, 1, 0}, {-1, 0, 0}},
        {"turned", {0.8, 0.6, 0}, {-0.6, 0.8, 0}}, {"skewed", {1, 0, 0}, {0.5, 1, 0}},
    };
    const struct {
        const char* file;
        QImage::Format format;
    } files[] = {{"a.png", QImage::Format_RGB32},
                 {"indexed.png", QImage::Format_Indexed8},
                 {"deep.png", QImage::Format_RGBA64},
                 {"a.bmp", QImage::Format_RGB32}};
    image.position.x = 45;
    for (const auto& file : files) {
        use(fourQuarters().convertToFormat(file.format), file.file);
        for (const auto& place : places) {
            image.u = place.u;
            image.v = place.v;
            const QImage page = plotted();
            const auto expect = [&](double x, double y, QRgb expected) {
                EXPECT_EQ(at(page, x, y), expected) << file.file << ' ' << place.name << " at " << x << ',' << y;
            };
            expect(0.3, 0.3, quarters[0]);
            expect(39.7, 0.3, quarters[1]);
            expect(0.3, 19.7, quarters[2]);
            expect(20.3, 10.3, quarters[3]); // just behind the middle
            expect(-0.3, 10, white);
            expect(40.3, 10, white);
            expect(20, -0.3, white);
            expect(20, 20.3, white);
        }
    }
    EXPECT_TRUE(report.missingPictures.empty());
}

TEST_F(Pictures, AreClippedWithinTheWindow) {
    use(fourQuarters(), "a.png");
    target.limits = {{{0, 0}, {750, 1000}}}; // up to column 35
    image.clipped = true;
    image.clip = {{5, 5}, {39, 5}, {39, 15}, {5, 15}, {25, 10}}; // a notch on the left
    for (const bool inverted : {false, true}) {
        image.clipInverted = inverted;
        const QImage page = plotted();
        EXPECT_EQ(at(page, 30, 7) == quarters[1], !inverted) << inverted;
        EXPECT_EQ(at(page, 10, 10) == white, !inverted) << "in the notch " << inverted;
        EXPECT_EQ(at(page, 2, 2) == white, !inverted) << "outside " << inverted;
        EXPECT_EQ(at(page, 37, 7), white) << "beyond the window " << inverted;
        EXPECT_EQ(at(page, 37, 2), white) << "beyond the window " << inverted;
        EXPECT_EQ(visibleExtents(drawing, drawing.modelSpace).min.x, inverted ? 40.0 : 45.0);
    }
}

TEST_F(Pictures, ShowTheirLook) {
    const QRgb colour = 0xFF6496C8; // 100, 150, 200
    const struct {
        const char* name;
        int brightness, contrast, fade;
        bool transparent, monochrome;
        QRgb pixel, expected;
    } cases[] = {
        {"as it is", 50, 50, 0, false, false, colour, colour},
        {"faded by half", 50, 50, 50, false, false, colour, 0xFFB2CBE4},
        {"dark", 0, 50, 0, false, false, colour, 0xFF000000},
        {"bright", 100, 50, 0, false, false, colour, white},
        {"all contrast", 50, 100, 0, false, false, colour, 0xFF00FFFF},
        {"no contrast", 50, 0, 0, false, false, colour, 0xFF808080},
        {"grey", 50, 50, 0, false, true, colour, qRgb(qGray(colour), qGray(colour), qGray(colour))},
        {"paper shows", 50, 50, 0, false, false, 0x00000000, white},
        {"half of it shows", 50, 50, 0, false, false, 0x80646464, 0xFFB1B1B1},
        {"what lies below shows", 50, 50, 0, true, false, 0x00000000, 0xFF0000FF},
    };
    below = {entityOf(Solid{{{{0, 0, 0}, {99, 0, 0}, {99, 99, 0}, {0, 99, 0}}}})};
    below[0].attributes.colour = {Colour::Kind::trueColour, 0x0000FF};
    for (const auto& row : cases) {
        QImage picture(4, 2, QImage::Format_ARGB32);
        picture.fill(row.pixel);
        use(picture, "a.png");
        std::tie(image.brightness, image.contrast, image.fade) = std::tie(row.brightness, row.contrast, row.fade);
        image.transparent = row.transparent;
        PlotStyleOptions style;
        style.monochrome = row.monochrome;
        const QImage page = plotted(style);
        EXPECT_EQ(at(page, 20, 10), row.expected) << row.name << std::hex << ' ' << at(page, 20, 10);
    }
}

TEST_F(Pictures, TakeTheOpacityOfTheEntityAlone) {
    QImage picture(4, 2, QImage::Format_RGB32);
    picture.fill(0xFF000000);
    use(picture, "a.png");
    below = {entityOf(Line{{1, 1, 0}, {2, 2, 0}})};
    below[0].attributes.opacity = 100;
    EXPECT_EQ(at(plotted(), 20, 10), 0xFF000000);
    opacity = 51;
    EXPECT_EQ(at(plotted(), 20, 10), 0xFFCCCCCC);
}

TEST_F(Pictures, KeepThinLinesWhereTheDeviceIsCoarse) {
    QImage picture(4000, 2000, QImage::Format_RGB32); // on 400 by 200 pixels
    for (int i = 0; i < picture.width() * picture.height(); ++i) {
        reinterpret_cast<QRgb*>(picture.bits())[i] = i % 10 == 7 ? 0xFF000000 : white;
    }
    use(picture, "a.png");
    const QImage page = plotted();
    for (int pixel = 10; pixel < 390; ++pixel) {
        const double x = pixel / 10.0;
        EXPECT_NEAR(qGray(at(page, x, 10)), 230, 20) << x;
    }
}

TEST_F(Pictures, HaveAFrameWhereTheyAreMissingOrItIsAskedFor) {
    const std::string frame = "line 400,300 800,300 800,500 400,500 400,300\n";
    const struct {
        const char* name;
        const char* path;
        bool shown, frames;
        std::string lines;
        size_t missing;
    } cases[] = {
        {"missing", "b.png", true, false, frame, 1}, {"no picture", "text.png", true, false, frame, 1},
        {"framed", "a.png", true, true, frame, 0},   {"not framed", "a.png", true, false, "", 0},
        {"not shown", "b.png", false, false, "", 0}, {"the frame alone", "b.png", false, true, frame, 0},
    };
    use(fourQuarters(), "a.png");
    directory.write("text.png", "no picture");
    drawing.folder = directory.path();
    for (const auto& row : cases) {
        drawing.images[0].path = row.path;
        drawing.imageFrames = row.frames;
        image.shown = row.shown;
        drawing.modelSpace = {entityOf(image)};
        RecordingRenderer renderer;
        const PlotReport result = plotEntities(drawing, drawing.modelSpace, target, {}, {renderer}, {});
        EXPECT_EQ(textOf(renderer.shapes), row.lines) << row.name;
        EXPECT_EQ(result.missingPictures.size(), row.missing) << row.name;
    }
}

TEST_F(Pictures, AreMissingForAReason) {
    QFile huge(QString::fromStdString(directory.path("huge.png")));
    ASSERT_TRUE(fourQuarters().save(huge.fileName()));
    directory.write("damaged.png", directory.read("huge.png").substr(0, 40));
    ASSERT_TRUE(huge.resize((qint64{1} << 29) + 1)); // takes no room on the disk
    directory.write("empty.png", "");
    directory.write("text.png", "no picture");
    directory.write("wide.pbm", "P4\n20000 20000\n");
    directory.write("locked.png", "no picture");
    const QString locked = QString::fromStdString(directory.path("locked.png"));
    ASSERT_TRUE(QFile::setPermissions(locked, {}));
    const bool lockable = !QFileInfo(locked).isReadable(); // not for an administrator
    const std::pair<const char*, PictureFault> cases[] = {
        {"", PictureFault::notFound},
        {"none.png", PictureFault::notFound},
        {"locked.png", lockable ? PictureFault::notReadable : PictureFault::notPicture},
        {"empty.png", PictureFault::notPicture},
        {"text.png", PictureFault::notPicture},
        {"damaged.png", PictureFault::notPicture},
        {"/proc/kmsg", PictureFault::notPicture}, // blocks who reads it
        {"huge.png", PictureFault::tooLarge},
        {"wide.pbm", PictureFault::tooLarge},
    };
    for (const auto& [path, fault] : cases) {
        drawing.images[0].path = path;
        plotted();
        EXPECT_EQ(report.missingPictures, (PictureFaults{{0, fault}})) << path;
    }
}

TEST(PictureFiles, AreFoundByTheirPathOrBesideTheDrawing) {
    const TemporaryDirectory directory;
    const QString folder = QString::fromStdString(directory.path());
    directory.write("a.png", "");
    ASSERT_TRUE(QDir(folder).mkdir("sub"));
    directory.write("sub/b.png", "");
    const std::pair<std::string, const char*> cases[] = {
        {"a.png", "a.png"},
        {".\\sub\\b.png", "sub/b.png"},
        {directory.path("sub/b.png"), "sub/b.png"},
        {"C:\\plans\\A.PNG", "A.png"},
        {"/else/where/a.png", "a.png"},
        {"b.png", ""},
        {"sub", ""},
        {"", ""},
    };
    for (const auto& [stated, found] : cases) {
        const QString file = pictureFile(stated, folder);
        EXPECT_EQ(QDir(folder).relativeFilePath(file).compare(found, Qt::CaseInsensitive), 0)
            << stated << ": " << file.toStdString();
        EXPECT_TRUE(file.isEmpty() || QFile::exists(file));
    }
}

TEST(Wipeouts, AreWhiteWhateverTheirColour) {
    Entity entity = entityOf(Wipeout{{{10, 10, 0}, {20, 10, 0}, {20, 20, 0}}});
    entity.attributes.colour = {Colour::Kind::index, 1};
    entity.attributes.opacity = 100;
    const auto shapes = shapesOf(entity);
    ASSERT_EQ(textOf(shapes), "area 100,900 200,900 200,800\n");
    EXPECT_EQ(shapes[0].color, 0xFFFFFFu);
    EXPECT_EQ(shapes[0].alpha, 255);
}

} // namespace
} // namespace kelplot
