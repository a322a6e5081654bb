// SPDX-License-Identifier: GPL-2.0-or-later
#include <gtest/gtest.h>

#include <QDir>
#include <QFileInfo>
#include <cmath>

#include "base/StatedFile.h"
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

QImage filled(QRgb pixel) {
    QImage picture(4, 2, QImage::Format_ARGB32);
    picture.fill(pixel);
    return picture;
}

/// A drawing of one picture, whose file stands in a directory of the test's own.
class Pictures : public testing::Test {
protected:
    void use(const QImage& picture, const char* name = "a.png") {
        ASSERT_TRUE(picture.save(QString::fromStdString(directory.path(name))));
        path = name;
    }
    /// Reads a drawing of the picture, a unit for a pixel; `groups` outweigh its own, `below` lies under it.
    void draw(const std::string& groups = "", const std::string& below = "", bool frames = false) {
        drawing = readGroups(
            section("HEADER", frames ? "" : "9=$IMAGEFRAME 70=0") +
            section("ENTITIES", below + " 0=IMAGE 340=1 70=3 10=40 20=50 11=1 12=0 22=1 13=40 23=20 " + groups) +
            section("OBJECTS", "0=IMAGEDEF 5=1 1=" + path) + "0=EOF");
        drawing.folder = directory.path();
    }
    void plot(const PlotStyleOptions& style = {}) { page = paintedPage(drawing, target, style, &report); }
    /// What the page shows at a point of the picture.
    QRgb at(double x, double y) const {
        const Image& image = *geometryAs<Image>(drawing.modelSpace.back());
        const Vec2 p = PlanMap(target.toDevice).mapPoint(image.pointAt({x, y}));
        return page.pixel(static_cast<int>(std::floor(p.x)), static_cast<int>(std::floor(p.y)));
    }

    TemporaryDirectory directory;
    std::string path;
    Drawing drawing;
    PlotTarget target = tenfoldTarget();
    QImage page;
    PlotReport report;
};

TEST_F(Pictures, LieWhereTheDrawingSays) {
    const char* const places[] = {"",
                                  "11=0.73 22=1.31",
                                  "22=-1",
                                  "11=-1",
                                  "11=-1 22=-1",
                                  "11=0 21=1 12=-1 22=0",
                                  "11=0.8 21=0.6 12=-0.6 22=0.8",
                                  "12=0.5"};
    const std::pair<const char*, QImage::Format> files[] = {{"a.png", QImage::Format_RGB32},
                                                            {"indexed.png", QImage::Format_Indexed8},
                                                            {"deep.png", QImage::Format_RGBA64},
                                                            {"a.bmp", QImage::Format_RGB32}};
    for (const auto& [name, format] : files) {
        use(fourQuarters().convertToFormat(format), name);
        for (const char* const place : places) {
            draw("10=45 " + std::string(place));
            plot();
            const std::tuple<double, double, QRgb> points[] = {
                {0.3, 0.3, quarters[0]},  {39.7, 0.3, quarters[1]},  // corners
                {0.3, 19.7, quarters[2]}, {20.3, 10.3, quarters[3]}, // just past the middle
                {-0.3, 10, white},        {40.3, 10, white},         {20, -0.3, white}, {20, 20.3, white}};
            for (const auto& [x, y, expected] : points) {
                EXPECT_EQ(at(x, y), expected) << name << ' ' << place << " at " << x << ',' << y;
            }
        }
    }
    EXPECT_TRUE(report.missingPictures.empty());
    EXPECT_EQ(shapesOf(drawing).size(), 1U) << "no frame";
}

TEST_F(Pictures, AreClippedWithinTheWindow) {
    use(fourQuarters());
    target.limits = {{{0, 0}, {750, 1000}}}; // up to column 35
    for (const bool inverted : {false, true}) {
        // Five corners with a notch on the left; pixels are counted from the middle of the first.
        draw("70=7 280=1 14=4.5 24=4.5 14=38.5 24=4.5 14=38.5 24=14.5 14=4.5 24=14.5 14=24.5 24=9.5 290=" +
             std::to_string(inverted));
        plot();
        EXPECT_EQ(at(30, 7) == quarters[1], !inverted) << inverted;
        EXPECT_EQ(at(10, 10) == white, !inverted) << "in the notch " << inverted;
        EXPECT_EQ(at(2, 2) == white, !inverted) << "outside " << inverted;
        EXPECT_EQ(at(37, 7), white) << "beyond the window " << inverted;
        EXPECT_EQ(at(37, 2), white) << "beyond the window " << inverted;
        EXPECT_EQ(extentsOf(drawing).min.x, inverted ? 40.0 : 45.0);
    }
}

TEST_F(Pictures, ShowTheirLookAndTheirOpacityAlone) {
    const QRgb colour = 0xFF6496C8; // 100, 150, 200
    const struct {
        const char* groups;
        QRgb pixel, expected;
        bool monochrome = false;
    } cases[] = {
        {"", colour, colour},
        {"283=50", colour, 0xFFB2CBE4},
        {"281=0", colour, 0xFF000000},
        {"281=100", colour, white},
        {"282=100", colour, 0xFF00FFFF},
        {"282=0", colour, 0xFF808080},
        {"", colour, qRgb(qGray(colour), qGray(colour), qGray(colour)), true},
        {"", 0x00000000, white}, // the paper
        {"", 0x80646464, 0xFFB1B1B1},
        {"70=11", 0x00000000, 0xFF0000FF}, // what lies below
        {"440=33554483", 0xFF000000, 0xFFCCCCCC},
    };
    const std::string below = "0=SOLID 440=33554687 420=255 11=99 22=99 13=99 23=99 0=LINE 11=1 440=33554532";
    for (const auto& row : cases) {
        use(filled(row.pixel));
        draw(row.groups, row.expected == 0xFFCCCCCC ? "" : below);
        PlotStyleOptions style;
        style.monochrome = row.monochrome;
        plot(style);
        EXPECT_EQ(at(20, 10), row.expected) << row.groups << std::hex << ' ' << row.pixel << ' ' << at(20, 10);
    }
}

TEST_F(Pictures, KeepThinLinesWhereTheDeviceIsCoarse) {
    QImage picture(4000, 2000, QImage::Format_RGB32); // on 400 by 200 pixels
    for (int i = 0; i < picture.width() * picture.height(); ++i) {
        reinterpret_cast<QRgb*>(picture.bits())[i] = i % 10 == 7 ? 0xFF000000 : white;
    }
    use(picture);
    draw();
    plot();
    for (int pixel = 10; pixel < 390; ++pixel) {
        EXPECT_NEAR(qGray(at(pixel / 10.0, 10)), 230, 20) << pixel;
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
    for (const auto& [name, fault] : cases) {
        path = name;
        draw();
        plot();
        EXPECT_EQ(report.missingPictures, (PictureFaults{{0, fault}})) << name;
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
        const QString file = statedFile(stated, folder);
        EXPECT_EQ(QDir(folder).relativeFilePath(file).compare(found, Qt::CaseInsensitive), 0)
            << stated << ": " << file.toStdString();
        EXPECT_TRUE(file.isEmpty() || QFile::exists(file));
    }
}

} // namespace
} // namespace kelplot
