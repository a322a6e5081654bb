// SPDX-License-Identifier: GPL-2.0-or-later
#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QElapsedTimer>
#include <QFileDialog>
#include <QImage>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>
#include <QTreeWidget>

#include "cli/options/CommandLine.h"
#include "kelplot/cli/KelplotRun.h"
#include "preview/PreviewPlan.h"
#include "preview/PreviewWindow.h"
#include "preview/PrintDialog.h"
#include "preview/SaveDialog.h"

using namespace kelplot;

namespace {

const QString plate = QStringLiteral(EXAMPLE_DRAWINGS "/flange_plate.dxf");
constexpr double millimetresPerInch = 25.4;

bool waitFor(const std::function<bool()>& isTrue) {
    constexpr qint64 patience = 60000;
    QElapsedTimer time;
    time.start();
    while (!isTrue() && !time.hasExpired(patience)) {
        QApplication::processEvents(QEventLoop::WaitForMoreEvents, 20);
    }
    return isTrue();
}

std::unique_ptr<PreviewWindow> windowOn(const QStringList& arguments) {
    auto window = std::make_unique<PreviewWindow>(requestFromArguments(QStringList("kelplot") + arguments));
    window->show();
    return window;
}

/// Writes a drawing of groups between blanks, from the name of its first section to what its last one holds.
QString drawing(const TemporaryDirectory& directory, const QString& groups) {
    QString text = QStringLiteral("0 SECTION %1 0 ENDSEC 0 EOF ").arg(groups);
    return QString::fromStdString(directory.write("sheets.dxf", text.replace(' ', '\n').toStdString()));
}

/// What the window shows of the page.
QImage shownPage(PreviewWindow& window) {
    EXPECT_TRUE(waitFor([&] { return window.isSettled(); }));
    PageView& view = window.view();
    const QRect page = view.frame().page().intersected(view.rect());
    return view.grab(page).toImage().convertToFormat(QImage::Format_RGB32);
}

/// The same part of an image of the page that kelplot writes.
QImage plottedPage(const TemporaryDirectory& directory, PreviewWindow& window, const QStringList& options) {
    EXPECT_EQ(run(directory, options + QStringList{"-o", "page.png", "--force", plate}).status, 0);
    const QImage page(QString::fromStdString(directory.path("page.png")));
    return page.convertToFormat(QImage::Format_RGB32).copy(window.view().frame().visiblePart().place);
}

/// Pixels with clearly another colour.
int differences(const QImage& a, const QImage& b) {
    constexpr int clearly = 48;
    int count = a.size() == b.size() ? 0 : a.width() * a.height();
    for (int y = 0; count == 0 ? y < a.height() : y < std::min(a.height(), b.height()); ++y) {
        for (int x = 0; x < std::min(a.width(), b.width()); ++x) {
            count += std::abs(qGray(a.pixel(x, y)) - qGray(b.pixel(x, y))) > clearly ? 1 : 0;
        }
    }
    return count;
}

TEST(Preview, ShowsThePageThatIsPlottedInAnySizeAndWithAnyLayers) {
    const TemporaryDirectory directory;
    const auto window = windowOn({plate});
    ASSERT_TRUE(waitFor([&] { return window->isSettled(); }));
    const auto showAt = [&](int dotsPerInch) {
        window->view().setScale(dotsPerInch / millimetresPerInch);
    };
    showAt(60);
    const QImage whole = shownPage(*window);
    EXPECT_EQ(whole, plottedPage(directory, *window, {"--dpi", "60"}));

    auto* const list = window->layers().findChild<QTreeWidget*>();
    list->findItems("OUTLINE", Qt::MatchExactly).at(0)->setCheckState(0, Qt::Unchecked);
    const QImage without = shownPage(*window);
    EXPECT_GT(differences(without, whole), 100);
    const QStringList noOutline{"--exclude-layers", "OUTLINE"};
    EXPECT_EQ(without, plottedPage(directory, *window, noOutline + QStringList{"--dpi", "60"}));

    showAt(600);
    const QImage part = shownPage(*window);
    const QImage plotted = plottedPage(directory, *window, noOutline + QStringList{"--dpi", "600"});
    EXPECT_LT(window->view().frame().visiblePart().place.width(), 297 * 600 / millimetresPerInch / 2) << "a part";
    EXPECT_EQ(differences(part, plotted), 0) << "as fine as the plot";

    const QString file = QString::fromStdString(directory.path("saved.png"));
    window->save(file);
    ASSERT_TRUE(waitFor([&] { return QFile::exists(file); }));
    ASSERT_EQ(run(directory, noOutline + QStringList{"-o", "page.png", "--force", plate}).status, 0);
    EXPECT_EQ(QImage(file), QImage(QString::fromStdString(directory.path("page.png"))));
}

TEST(Preview, ShowsEachLayoutAndTellsWhatItLeavesOut) {
    const TemporaryDirectory directory;
    const QString file = drawing(
        directory,
        "2 HEADER 9 $TILEMODE 70 0 0 ENDSEC 0 SECTION 2 TABLES 0 BLOCK_RECORD 5 A1 2 *Paper_Space 0 BLOCK_RECORD "
        "5 A2 2 *Paper_Space0 0 ENDSEC 0 SECTION 2 BLOCKS 0 BLOCK 2 *Paper_Space0 0 LINE 11 80 21 30 0 ENDBLK 0 "
        "ENDSEC 0 SECTION 2 ENTITIES 0 LINE 11 500 0 LINE 67 1 11 60 21 10 0 3DSOLID 67 1 0 ENDSEC 0 SECTION 2 "
        "OBJECTS 0 LAYOUT 100 AcDbPlotSettings 44 300 45 200 142 1 143 1 100 AcDbLayout 1 Wide 71 2 330 A2 0 "
        "LAYOUT 100 AcDbPlotSettings 44 100 45 200 142 1 143 1 100 AcDbLayout 1 Tall 71 1 330 A1");
    const auto window = windowOn({file, QString::fromStdString(directory.path("missing.dxf"))});
    const auto told = [&] {
        return window->statusLine().remarks().join('\n');
    };
    const auto isWide = [&] {
        return window->view().frame().page().width() > window->view().frame().page().height();
    };
    ASSERT_TRUE(waitFor([&] { return window->isSettled(); }));
    QTabBar& tabs = window->tabs();
    ASSERT_EQ(tabs.count(), 3);
    EXPECT_EQ(tabs.tabText(0) + tabs.tabText(1) + tabs.tabText(2), "sheets: Modelsheets: Tallsheets: Wide");
    EXPECT_EQ(tabs.currentIndex(), 1) << "it was saved with its paper before the user";
    EXPECT_FALSE(isWide());
    EXPECT_TRUE(told().contains("1 3DSOLID")) << told().toStdString();
    EXPECT_TRUE(waitFor([&] { return told().contains("missing.dxf"); }));
    EXPECT_EQ(window->status(), ExitStatus::done) << "there is one to be seen";
    tabs.setCurrentIndex(2);
    ASSERT_TRUE(waitFor([&] { return window->isSettled(); }));
    EXPECT_TRUE(isWide());
    EXPECT_FALSE(told().contains("3DSOLID")) << "on this sheet there is none";
}

TEST(Preview, SavesWhatKelplotPlotsAndTellsWhatItCannotSave) {
    qputenv("SOURCE_DATE_EPOCH", "1700000000");
    const TemporaryDirectory directory;
    const auto window = windowOn({"--format", "png", "--grey", "--width", "300", "-t", "nowhere", plate});
    ASSERT_TRUE(waitFor([&] { return window->isSettled(); }));
    auto* const list = window->layers().findChild<QTreeWidget*>();
    list->findItems("OUTLINE", Qt::MatchExactly).at(0)->setCheckState(0, Qt::Unchecked);
    for (const char* const name : {"plate.pdf", "plate.SVG", "plate.plt", "plate.png"}) {
        const QString saved = QString::fromStdString(directory.path(std::string("saved ") + name));
        QStringList options{"--exclude-layers", "OUTLINE", "-o", QString("saved ") + name, plate};
        options += QString(name) == "plate.png" ? QStringList{"--grey", "--width", "300"} : QStringList();
        ASSERT_EQ(run(directory, options).status, 0);
        const std::string plotted = directory.read(std::string("saved ") + name);
        ASSERT_TRUE(QFile::remove(saved));
        window->save(saved);
        ASSERT_TRUE(waitFor([&] { return QFile::exists(saved); }));
        EXPECT_TRUE(directory.read(std::string("saved ") + name) == plotted) << name;
    }
    const QString unsaved[][2] = {{"plate.jpg", "unknown ending"}, {"missing/plate.pdf", "No such file"}};
    for (const auto& [name, words] : unsaved) {
        window->save(QString::fromStdString(directory.path(name.toStdString())));
        QMessageBox* box = nullptr;
        ASSERT_TRUE(waitFor([&] { return (box = window->findChild<QMessageBox*>()) != nullptr; }));
        EXPECT_TRUE(box->text().contains(words)) << box->text().toStdString();
        delete box;
    }
    EXPECT_FALSE(QFile::exists("nowhere"));
    qunsetenv("SOURCE_DATE_EPOCH");
}

TEST(Preview, PrintsAsTheRequestAndTheDialogSay) {
    const std::vector<Printer> printers{
        {"a", "", "idle", true, false}, {"b", "Hall", "idle", true, true}, {"c", "", "", false, false}};
    const struct {
        QStringList options;
        const char* printer;
        int copies;
        Sides sides;
    } rows[] = {{{"--format", "png", "--grey"}, "b", 1, Sides::asSetUp},
                {{"-d", "c", "-n", "7", "--sides", "short"}, "c", 7, Sides::twoShortEdge},
                {{"-d", "gone"}, "a", 1, Sides::asSetUp}};
    for (const auto& row : rows) {
        Request request = requestFromArguments(QStringList{"kelplot", "--preview", plate} + row.options);
        PrintDialog(nullptr, printers, request, false).apply(request);
        const auto plan = planToPrint(request, plate, "First");
        EXPECT_EQ(plan->printer, row.printer);
        EXPECT_EQ(plan->print.copies, row.copies);
        EXPECT_EQ(plan->print.sides, row.sides);
        EXPECT_EQ(plan->format, OutputFormat::pdf);
        EXPECT_EQ(plan->layout, "First");
    }
}

TEST(Preview, OffersNamesOfTheFormatThatIsChosen) {
    const TemporaryDirectory directory;
    const QString folder = QString::fromStdString(directory.path());
    const struct {
        OutputFormat format;
        bool pagesInOne;
        int kind;
        const char* name;
    } rows[] = {{OutputFormat::png, false, -1, "a.b.png"},
                {OutputFormat::png, false, 2, "a.b.svg"},
                {OutputFormat::svg, true, -1, "a.b.pdf"},
                {OutputFormat::pdf, true, 1, "a.b.hpgl"}};
    for (const auto& row : rows) {
        QTimer::singleShot(0, [&] {
            auto* const dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
            auto* const kinds = dialog->findChild<QComboBox*>("fileTypeCombo");
            if (row.kind >= 0) {
                kinds->setCurrentIndex(row.kind);
                emit kinds->activated(row.kind);
            }
            dialog->findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Save)->click();
        });
        const QString chosen = chooseFile(nullptr, folder + "/a.b.dxf", row.format, row.pagesInOne);
        EXPECT_EQ(chosen.toStdString(), directory.path(row.name));
    }
}

TEST(Preview, EndsAtOnceWhileAPageIsDrawn) {
    const TemporaryDirectory directory;
    auto window =
        windowOn({drawing(directory, "2 BLOCKS 0 BLOCK 2 B 0 CIRCLE 40 3 0 ENDBLK 0 ENDSEC 0 SECTION 2 ENTITIES "
                                     "0 INSERT 2 B 70 1400 71 1400 44 1 45 1")});
    ASSERT_TRUE(waitFor([&] { return window->tabs().count() > 0 && window->view().hasPicture(); })) << "it grows";
    EXPECT_FALSE(window->isSettled());
    QElapsedTimer time;
    time.start();
    window.reset();
    EXPECT_LT(time.elapsed(), 2000) << "milliseconds";
}

} // namespace
