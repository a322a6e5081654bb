// SPDX-License-Identifier: BSD-3-Clause

// A complete driver: two pages as PDF or PNG, with the papers and the settings of its folder.

#include <keldriver/KelDriver.h>

#include <QBuffer>
#include <QFileInfo>
#include <QGuiApplication>
#include <QImage>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <QSaveFile>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cwchar>
#include <string>
#include <vector>

namespace {

namespace Kit = KelDriver::Kit;
using Points = std::vector<HT_Double_Point>;

constexpr double mm = 100; // plot units are hundredths of a millimetre: finer than a dot of either format
constexpr HT_Color black = 0x000000;
constexpr HT_Color blue = 0x804000; // red is in the lowest byte
constexpr HT_Color paleBlue = 0xf0e0d0;

struct Job {
    std::wstring title;
    PaperSize paper;  ///< lengths in tenths of a millimetre
    double scale;     ///< dots per plot unit
    HT_FontMap fonts; ///< where texts look for what their own font does not show
};

PaperSize readPaper(const std::wstring& file, int number) {
    const auto query = [&](char* output) {
        return HT_DefaultDeviceCapabilities(Kit::PaperRecords, output, nullptr, file.c_str());
    };
    const int count = query(nullptr);
    std::vector<PaperSize> papers(count > 0 && count < 10000 ? static_cast<size_t>(count) : 0);
    if (!papers.empty()) {
        query(reinterpret_cast<char*>(papers.data()));
    }
    for (const PaperSize& paper : papers) {
        if (paper.Paper == number) {
            return paper;
        }
    }
    return {9, L"A4", 2100, 2970, 100, 100, 100, 100, 1};
}

Job readJob(const std::wstring& folder) {
    const std::wstring file = folder + L"/driver.ini";
    const int paper = GetPrivateProfileIntEx(L"Plot", L"Paper", 9, file.c_str());
    const int dotsPerInch = GetPrivateProfileIntEx(L"Plot", L"Resolution", 300, file.c_str());
    wchar_t title[512]; // counts bytes of UTF-8; the default stands for a text that does not fit
    GetPrivateProfileStringEx(L"Plot", L"Title", L"Cover plate", title, 512, file.c_str());
    Job job{title, readPaper(folder + L"/papers.ini", paper), std::clamp(dotsPerInch, 72, 1200) / (25.4 * mm), {}};
    tagLOGFONTW han{};
    std::wcscpy(han.lfFaceName, L"Droid Sans Fallback"); // where it is missing, the system's choice follows
    job.fonts.Add(L"Han", han);
    return job;
}

/// Takes the weight in dots. The line type comes last, for it is computed from the weight.
void usePen(HT_Renderer& renderer, HT_Color color, double weight, int type) {
    renderer.SetColor(color);
    renderer.SetLineWeight(weight);
    renderer.SetLineType(static_cast<HT_PlotStyle::LineType>(type), nullptr, 0);
}

void drawLine(HT_Renderer& renderer, const Points& points) {
    renderer.DrawPolyline(points.data(), static_cast<int>(points.size()));
}

void fillBox(HT_Renderer& renderer, double left, double top, double right, double bottom) {
    const HT_Double_Point corners[] = {{left, top}, {right, top}, {right, bottom}, {left, bottom}};
    renderer.FillPolygon(corners, 4);
}

/// One line of text in as many fonts as it needs, each run where the one before it ends.
void drawText(HT_Renderer& renderer, const Job& job, const wchar_t* source, HT_Double_Point at, int millimetres,
              int degrees) {
    tagLOGFONTW wanted{};
    wanted.lfHeight = static_cast<int32_t>(millimetres * mm);
    wanted.lfEscapement = degrees * 10;
    std::wcscpy(wanted.lfFaceName, L"DejaVu Sans");
    const HT_Text text(source, wanted, job.fonts);
    for (const HT_SubText& run : text.GetSubTexts()) {
        std::wstring part = text.GetRunText(run);
        const HT_Font font = Kit::fontOf(run.font);
        renderer.DrawText(part.data(), run.length, font, at, 0, 1, nullptr);
        const double advance = Kit::advanceOf(part, font);
        at.x += advance * std::cos(degrees * M_PI / 180);
        at.y -= advance * std::sin(degrees * M_PI / 180); // y grows down the page
    }
}

/// Clips to what lies within the margins, in place of any clip set before.
void clipToMargins(HT_Renderer& renderer, const PaperSize& paper) {
    const double unit = mm / 10;
    const HT_Double_Point from{paper.LeftEdge * unit, paper.UpEdge * unit};
    const HT_Double_Point to{(paper.Width - paper.RightEdge) * unit, (paper.Length - paper.DownEdge) * unit};
    const Kit::RegionPtr region(KelDriver::HT_CreateRectRgnData(from, to));
    renderer.SetClipRgn(region.get());
}

/// A plate with an ear and a hole: tinted, hatched, outlined.
void drawPlate(HT_Renderer& renderer, const Job& job) {
    CVornRgn plate;
    CVornRgn ear;
    CVornRgn hole;
    plate.CreateRectRgn(25 * mm, 40 * mm, 100 * mm, 100 * mm);
    ear.CreateRectRgn(90 * mm, 50 * mm, 125 * mm, 90 * mm);
    const HT_Double_Point diamond[] = {
        {85 * mm, 70 * mm}, {100 * mm, 55 * mm}, {115 * mm, 70 * mm}, {100 * mm, 85 * mm}};
    hole.CreatePolygonRgn(diamond, 4, 1);
    plate.CombineRgn(&plate, &ear, HT_RGN_OP_2_CDC_OP(HT_RGN_OR));
    plate.CombineRgn(&plate, &hole, HT_RGN_OP_2_CDC_OP(HT_RGN_DIFF));
    const HT_ClipRgn* const contours = plate.GetClipRgnRef(); // stays the region's own

    usePen(renderer, paleBlue, 0.18 * mm * job.scale, HT_PlotStyle::LineTypeSolid);
    renderer.SetFillStyle(HT_PlotStyle::FillSolid);
    renderer.SetClipRgn(contours);
    fillBox(renderer, 20 * mm, 35 * mm, 130 * mm, 105 * mm);
    clipToMargins(renderer, job.paper);

    renderer.SetColor(blue); // hatch lines are as far apart on every device, which those of a fill style are not
    for (int x = -40; x < 130; x += 4) {
        const HT_Double_Point line[] = {{x * mm, 105 * mm}, {(x + 70) * mm, 35 * mm}};
        Kit::PolylinePieces pieces(contours, line, 2);
        for (int i = 0; i < pieces.count(); ++i) {
            drawLine(renderer, pieces.points(i));
        }
    }
    usePen(renderer, black, 0.5 * mm * job.scale, HT_PlotStyle::LineTypeSolid);
    for (const HT_ClipRgn* contour = contours; contour != nullptr; contour = contour->next) {
        Points ring(contour->points, contour->points + contour->pointCount);
        ring.insert(ring.end(), {ring[0], ring[1]}); // closes it, with a join at the first corner, too
        drawLine(renderer, ring);
    }
    renderer.SetLineWeight(0.18 * mm * job.scale);
    renderer.DrawArc({100 * mm, 70 * mm}, 10 * mm, 10 * mm, 0, 0, 1.5 * M_PI); // radians, counter-clockwise
    double pattern[] = {8 * mm, 2 * mm, 1 * mm, 2 * mm};
    renderer.SetLineType(HT_PlotStyle::LineTypeCustom, pattern, 4);
    drawLine(renderer, {{20 * mm, 70 * mm}, {130 * mm, 70 * mm}});
    drawText(renderer, job, job.title.c_str(), {25 * mm, 30 * mm}, 7, 0);
}

/// A picture of 32 bits per pixel, the one depth that the renderer takes.
HT_RasterImagePtr makeImage() {
    QImage picture(32, 24, QImage::Format_ARGB32);
    for (int i = 0; i < 32 * 24; ++i) {
        picture.setPixelColor(i % 32, i / 32, QColor::fromHsv(i % 32 * 11, 40 + i / 32 * 9, 230));
    }
    QBuffer png;
    png.open(QIODevice::WriteOnly);
    picture.save(&png, "PNG");
    auto* const bytes = reinterpret_cast<unsigned char*>(png.buffer().data());
    return RasterImageFactory::CreateFromDibImage(bytes, png.buffer().size());
}

/// Line types and fill styles, an image below a translucent ellipse, a turned text.
void drawSamples(HT_Renderer& renderer, const Job& job) {
    clipToMargins(renderer, job.paper);
    for (int i = HT_PlotStyle::LineTypeSolid; i <= HT_PlotStyle::LineTypeDashDot; ++i) {
        usePen(renderer, black, 0.5 * mm * job.scale, i);
        drawLine(renderer, {{20 * mm, (25 + i * 5) * mm}, {125 * mm, (25 + i * 5) * mm}});
    }
    for (int i = HT_PlotStyle::FillSolid; i <= HT_PlotStyle::FillVertical; ++i) {
        renderer.SetFillStyle(static_cast<HT_PlotStyle::FillStyle>(i));
        fillBox(renderer, (20 + i * 12) * mm, 50 * mm, (29 + i * 12) * mm, 65 * mm);
    }
    const HT_RasterImagePtr image = makeImage(); // 60 mm by 45; the height counts one row more than there are
    HT_RasterImage_Record record{image.get(), 20 * mm, 75 * mm, 60 * mm / 32, {}, 45 * mm / (24 + 1)};
    renderer.DrawImage(&record);
    usePen(renderer, black, 2 * mm * job.scale, HT_PlotStyle::LineTypeSolid);
    renderer.SetAlpha(96); // after the colour, which makes the ink opaque
    renderer.DrawEllipse({50 * mm, 97.5 * mm}, 25 * mm, 12 * mm, 0.4);
    renderer.SetAlpha(255);
    drawText(renderer, job, L"30°: αβγ 中文", {88 * mm, 115 * mm}, 5, 30);
}

/// No painter reports a full disk, so pages are gathered before. A file is replaced when the new one is whole.
bool save(const QString& name, const QByteArray& bytes) {
    QSaveFile file(name);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.commit();
}

bool plotPdf(const QString& name, const Job& job) {
    QBuffer pages;
    pages.open(QIODevice::WriteOnly);
    QPdfWriter writer(&pages);
    writer.setResolution(qRound(job.scale * 25.4 * mm));
    writer.setPageSize(
        QPageSize(QSizeF(job.paper.Width, job.paper.Length) / 10, QPageSize::Millimeter, {}, QPageSize::ExactMatch));
    writer.setPageMargins({});
    QPainter painter(&writer);
    painter.setRenderHint(QPainter::LosslessImageRendering); // or images become JPEG
    {
        const Kit::RenderSession renderer(painter); // one for all pages, and gone before the painter ends
        renderer->setScale(job.scale);
        drawPlate(*renderer, job);
        writer.newPage();
        drawSamples(*renderer, job);
    }
    return painter.end() && save(name, pages.data());
}

bool plotPng(const QString& name, const Job& job, void (*drawPage)(HT_Renderer&, const Job&)) {
    QImage page((QSizeF(job.paper.Width, job.paper.Length) * job.scale * mm / 10).toSize(), QImage::Format_RGB32);
    page.fill(Qt::white);
    {
        QPainter painter(&page); // lives longer than the renderer
        painter.setRenderHint(QPainter::Antialiasing);
        const Kit::RenderSession renderer(painter);
        renderer->setScale(job.scale);
        drawPage(*renderer, job);
    }
    QBuffer png;
    return png.open(QIODevice::WriteOnly) && page.save(&png, "PNG") && save(name, png.data());
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 2) { // said before Qt looks for a display
        std::fprintf(stderr, "usage: example_driver PAGES.pdf|PAGE.png\n");
        return 1;
    }
    const QGuiApplication application(argc, argv);
    const Job job = readJob(VornGetAppDataPath()); // the folder "Drivers" beside the program
    if (!Kit::hasGeometryModule()) {
        std::fprintf(stderr, "example_driver: there is no geometry module, so nothing is hatched\n");
    }
    const QString name = QString::fromLocal8Bit(argv[1]);
    const QFileInfo file(name);
    const QString second = file.path() + '/' + file.completeBaseName() + "-2.png";
    const bool isWritten = name.endsWith(".pdf", Qt::CaseInsensitive)
                               ? plotPdf(name, job)
                               : plotPng(name, job, drawPlate) && plotPng(second, job, drawSamples);
    if (!isWritten) {
        std::fprintf(stderr, "example_driver: cannot write %s\n", argv[1]);
    }
    return isWritten ? 0 : 1;
}
