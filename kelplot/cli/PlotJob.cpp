#include "cli/PlotJob.h"

#include <QFile>
#include <QFileInfo>
#include <ostream>
#include <utility>

#include "cli/LayerFilter.h"
#include "cli/RenderSession.h"
#include "reader/DxfReader.h"

namespace kelplot {
namespace {

constexpr int longestLabel = 60; ///< characters; the line of progress must not wrap

Drawing readDrawing(const QString& input, const Progress& progress) {
    DxfReader reader;
    return reader.read(QFile::encodeName(input).toStdString(), progress);
}

/// One drawing on its way to paper.
class PlotJob {
public:
    PlotJob(QString input, const Options& options, Console& console)
        : m_input(std::move(input)), m_options(options), m_console(console) {}

    void run(const QString& output);

private:
    void warn(const QString& text) const;
    void applyLayers();
    PageLayout layOut(const std::vector<Entity>& entities) const;
    void draw(const std::vector<Entity>& entities, const PageLayout& layout, OutputDevice& device) const;

    QString m_input;
    const Options& m_options;
    Console& m_console;
    Drawing m_drawing;
};

void PlotJob::run(const QString& output) {
    m_drawing = readDrawing(m_input, [&](double fraction) { m_console.showProgress(fraction / 2.0); });
    applyLayers();
    const auto& entities = m_drawing.modelSpace.empty() ? m_drawing.paperSpace : m_drawing.modelSpace;
    const PageLayout layout = layOut(entities);
    const OutputSetup setup{output, QFileInfo(m_input).completeBaseName(), layout.sheet, m_options.dotsPerInch};
    const auto device = createOutputDevice(m_options.format, setup);
    draw(entities, layout, *device);
    device->finish();
}

void PlotJob::warn(const QString& text) const {
    const std::string full = (m_input + QStringLiteral(": ") + text).toStdString();
    if (m_options.strict) {
        throw StrictFailure(full);
    }
    m_console.warning(full);
}

void PlotJob::applyLayers() {
    const QStringList unmatched = filterLayers(m_drawing, m_options.layers, m_options.excludedLayers);
    for (const QString& pattern : unmatched) {
        warn(QStringLiteral("no layer is named \"%1\"").arg(pattern));
    }
}

PageLayout PlotJob::layOut(const std::vector<Entity>& entities) const {
    const Box2 extents = visibleExtents(m_drawing, entities);
    const PageLayout layout = layOutPage(extents, m_drawing.millimetresPerUnit, m_options.page);
    if (extents.isEmpty()) {
        warn(QStringLiteral("nothing to plot"));
    } else if (!layout.drawingFits) {
        warn(QStringLiteral("the drawing is larger than the paper at this scale"));
    }
    return layout;
}

void PlotJob::draw(const std::vector<Entity>& entities, const PageLayout& layout, OutputDevice& device) const {
    RenderSession session(device);
    plotEntities(m_drawing, entities, plotTargetFor(layout, device.grid()), m_options.style, session.renderer(),
                 [&](double fraction) { m_console.showProgress(0.5 + fraction / 2.0); });
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

void plotDrawing(const QString& input, const QString& output, const Options& options, Console& console) {
    const WorkOn work(input, console);
    PlotJob(input, options, console).run(output);
}

void listLayers(const QString& input, std::ostream& stream, Console& console) {
    const WorkOn work(input, console);
    const Drawing drawing = readDrawing(input, [&](double fraction) { console.showProgress(fraction); });
    for (const Layer& layer : drawing.layers) {
        stream << layer.name << '\t' << stateOf(layer) << '\n';
    }
}

} // namespace kelplot
