// SPDX-License-Identifier: GPL-2.0-or-later
#include "cli/PlotJob.h"

#include <QFile>
#include <QFileInfo>
#include <QMap>
#include <ostream>
#include <set>
#include <utility>

#include "cli/LayerFilter.h"
#include "cli/RenderSession.h"
#include "plot/DrawingPlot.h"
#include "reader/DxfReader.h"

namespace kelplot {
namespace {

constexpr int longestLabel = 60; ///< characters; the line of progress must not wrap

Drawing readDrawing(const QString& input, const Progress& progress) {
    DxfReader reader;
    return reader.read(QFile::encodeName(input).toStdString(), progress);
}

QString counted(size_t count, const char* one, const char* many) {
    return QString::number(count) + QLatin1Char(' ') + QLatin1String(count == 1 ? one : many);
}

/// The first few of `names`.
QString firstOf(const QStringList& names) {
    constexpr int mostNames = 5;
    const QStringList first = names.mid(0, mostNames);
    return first.join(QStringLiteral(", ")) + QLatin1String(names.size() > mostNames ? ", ..." : "");
}

QString undefinedNames(const Drawing& drawing, const WalkReport& report) {
    std::set<uint32_t> blocks;
    for (const Insert* reference : report.undefined) {
        if (reference->block < drawing.blocks.size()) {
            blocks.insert(reference->block);
        }
    }
    QStringList names;
    for (const uint32_t block : blocks) {
        names << QString::fromStdString(drawing.blocks[block].name);
    }
    return firstOf(names);
}

QString externalPaths(const Drawing& drawing, const WalkReport& report) {
    QStringList paths;
    for (const uint32_t block : report.external) {
        paths << QString::fromStdString(drawing.blocks[block].externalPath);
    }
    return firstOf(paths);
}

/// All kinds with their numbers: what is left out is to be named.
QString unplottedKinds(const ExtentsReport& report) {
    QStringList kinds;
    for (const auto& [kind, entities] : report.unplotted) {
        kinds << QString::number(entities.size()) + QLatin1Char(' ') + QString::fromStdString(kind);
    }
    return kinds.join(QStringLiteral(", "));
}

QString nameOf(PictureFault fault) {
    switch (fault) {
    case PictureFault::notFound:
        return QStringLiteral("not found");
    case PictureFault::notReadable:
        return QStringLiteral("not readable");
    case PictureFault::notPicture:
        return QStringLiteral("not a picture");
    case PictureFault::tooLarge:
        return QStringLiteral("too large");
    }
    return {};
}

QString pictureNames(const Drawing& drawing, const PictureFaults& faults) {
    QStringList names;
    for (const auto& [picture, fault] : faults) {
        const std::string path = picture < drawing.images.size() ? drawing.images[picture].path : std::string();
        names << (path.empty() ? QStringLiteral("one without a file")
                               : QStringLiteral("%1 (%2)").arg(QString::fromStdString(path), nameOf(fault)));
    }
    names.removeDuplicates();
    return firstOf(names);
}

/// One drawing on its way to paper.
class PlotJob {
public:
    PlotJob(QString input, const PlotPlan& plan, Console& console)
        : m_input(std::move(input)), m_plan(plan), m_console(console) {}

    void run(const QString& output);

private:
    void warn(const QString& text) const;
    void applyLayers();
    void tellOfFonts(const FontReport& fonts) const;
    void warnOfMissingParts(const ExtentsReport& report) const;
    PageLayout layOut(const DrawingPlot& plot, const std::vector<Entity>& entities) const;
    void draw(const DrawingPlot& plot, const std::vector<Entity>& entities, const PageLayout& layout,
              OutputDevice& device) const;

    QString m_input;
    const PlotPlan& m_plan;
    Console& m_console;
    Drawing m_drawing;
};

void PlotJob::run(const QString& output) {
    m_drawing = readDrawing(m_input, [&](double fraction) { m_console.showProgress(fraction / 2.0); });
    applyLayers();
    const auto& entities = m_drawing.modelSpace.empty() ? m_drawing.paperSpace : m_drawing.modelSpace;
    const DrawingPlot plot(m_drawing, m_plan.style);
    const PageLayout layout = layOut(plot, entities);
    const OutputSetup setup{output, QFileInfo(m_input).completeBaseName(), layout.sheet, m_plan.dotsPerInch,
                            layout.visiblePart()};
    const auto device = createOutputDevice(m_plan.format, setup);
    draw(plot, entities, layout, *device);
    tellOfFonts(plot.fonts());
    device->finish();
}

void PlotJob::warn(const QString& text) const {
    const std::string full = (m_input + QStringLiteral(": ") + text).toStdString();
    if (m_plan.strict) {
        throw StrictFailure(full);
    }
    m_console.warning(full);
}

void PlotJob::applyLayers() {
    const QStringList unmatched = filterLayers(m_drawing, m_plan.layers, m_plan.excludedLayers);
    for (const QString& pattern : unmatched) {
        warn(QStringLiteral("no layer is named \"%1\"").arg(pattern));
    }
}

void PlotJob::warnOfMissingParts(const ExtentsReport& report) const {
    if (!report.undefined.empty()) {
        warn(counted(report.undefined.size(), "reference to blocks", "references to blocks") +
             QStringLiteral(" that the drawing does not define: ") + undefinedNames(m_drawing, report));
    }
    if (!report.external.empty()) {
        warn(QStringLiteral("left out, external drawings: ") + externalPaths(m_drawing, report));
    }
    if (!report.unplotted.empty()) {
        warn(QStringLiteral("left out: ") + unplottedKinds(report));
    }
    if (!m_drawing.unknownCodePage.empty()) {
        warn(QStringLiteral("texts may be wrong, their code page is unknown: ") +
             QString::fromStdString(m_drawing.unknownCodePage));
    }
}

void PlotJob::tellOfFonts(const FontReport& fonts) const {
    QMap<QString, QStringList> standIns;
    for (const auto& [font, family] : fonts.replaced) {
        standIns[family] << font;
    }
    QStringList replaced;
    for (auto standIn = standIns.cbegin(); standIn != standIns.cend(); ++standIn) {
        replaced << QStringLiteral("%1 for %2").arg(standIn.key(), standIn->join(QStringLiteral(", ")));
    }
    if (!replaced.isEmpty()) {
        const QString text = m_input + QStringLiteral(": fonts replaced: ") + replaced.join(QStringLiteral("; "));
        m_console.note(text.toStdString());
    }
    QStringList missing;
    for (const uint character : fonts.missing) {
        missing << QStringLiteral("U+%1").arg(character, 4, 16, QLatin1Char('0')).toUpper();
    }
    if (!missing.isEmpty()) {
        warn(counted(missing.size(), "character that no font has", "characters that no font has") +
             QStringLiteral(": ") + firstOf(missing));
    }
}

PageLayout PlotJob::layOut(const DrawingPlot& plot, const std::vector<Entity>& entities) const {
    ExtentsReport report;
    const Box2 extents = plot.extents(entities, &report);
    warnOfMissingParts(report);
    PageLayout layout = layOutPage(extents, m_drawing.millimetresPerUnit, m_plan.page);
    const auto& window = m_plan.page.window;
    if (extents.isEmpty()) {
        warn(QStringLiteral("nothing to plot"));
    } else if (window && !window->intersects(extents)) {
        warn(QStringLiteral("nothing to plot in the window"));
    } else if (!layout.drawingFits) {
        const QString subject = window ? QStringLiteral("window") : QStringLiteral("drawing");
        warn(QStringLiteral("the %1 is larger than the paper at this scale").arg(subject));
    }
    return layout;
}

void PlotJob::draw(const DrawingPlot& plot, const std::vector<Entity>& entities, const PageLayout& layout,
                   OutputDevice& device) const {
    RenderSession session(device);
    const PlotTarget target = plotTargetFor(layout, device.grid());
    const PlotReport report = plot.draw(entities, target, session.surface(),
                                        [&](double fraction) { m_console.showProgress(0.5 + fraction / 2.0); });
    if (!report.missingPictures.empty()) {
        warn(counted(report.missingPictures.size(), "picture", "pictures") + QStringLiteral(" left out: ") +
             pictureNames(m_drawing, report.missingPictures));
    }
    if (report.tintedHatches > 0) {
        warn(counted(report.tintedHatches, "hatch has", "hatches have") +
             QStringLiteral(" too many lines; a tint stands for them"));
    }
    if (report.tooManyCopies) {
        warn(QStringLiteral("too many block copies; the plot is incomplete"));
    }
    if (report.tooDeep) {
        warn(QStringLiteral("blocks are nested too deeply; the plot is incomplete"));
    }
}

const char* stateOf(const Layer& layer) {
    if (layer.frozen) {
        return "frozen";
    }
    if (!layer.on) {
        return "off";
    }
    return layer.plotted ? "plotted" : "not plotted";
}

/// Shows the progress of a drawing for as long as this lives.
class WorkOn {
public:
    WorkOn(const QString& input, Console& console) : m_console(console) {
        m_console.startWork(QFileInfo(input).fileName().left(longestLabel).toStdString());
    }
    ~WorkOn() { m_console.endWork(); }
    WorkOn(const WorkOn&) = delete;
    WorkOn& operator=(const WorkOn&) = delete;

private:
    Console& m_console;
};

} // namespace

void plotDrawing(const QString& input, const QString& output, const PlotPlan& plan, Console& console) {
    const WorkOn work(input, console);
    PlotJob(input, plan, console).run(output);
}

void listLayers(const QString& input, std::ostream& stream, Console& console) {
    const WorkOn work(input, console);
    const Drawing drawing = readDrawing(input, [&](double fraction) { console.showProgress(fraction); });
    for (const Layer& layer : drawing.layers) {
        stream << layer.name << '\t' << stateOf(layer) << '\n';
    }
}

} // namespace kelplot
