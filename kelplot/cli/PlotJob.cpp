// SPDX-License-Identifier: GPL-2.0-or-later
#include "cli/PlotJob.h"

#include <QFile>
#include <QFileInfo>
#include <QSet>
#include <memory>
#include <ostream>
#include <utility>

#include "cli/ChosenPens.h"
#include "cli/LayerFilter.h"
#include "cli/PlotMessages.h"
#include "cli/RenderSession.h"
#include "cli/SpaceChoice.h"
#include "plot/DrawingPlot.h"
#include "plot/annotation/AnnotationBlocks.h"
#include "reader/DxfReader.h"

namespace kelplot {
namespace {

constexpr int longestLabel = 60; ///< characters; the line of progress must not wrap

Drawing readDrawing(const QString& input, const Progress& progress) {
    DxfReader reader;
    return reader.read(QFile::encodeName(input).toStdString(), progress);
}

QStringList namesOf(const std::vector<Space>& spaces) {
    QStringList names;
    for (const Space& space : spaces) {
        names << (space.layout ? QString::fromStdString(space.layout->name) : QString(modelSpaceName));
    }
    return names;
}

/// One drawing on its way to paper.
class PlotJob {
public:
    PlotJob(QString input, const PlotPlan& plan, Console& console)
        : m_input(std::move(input)), m_plan(plan), m_console(console) {}

    void run(const QString& output);

private:
    void warn(const QString& text);
    void warn(const QStringList& texts);
    void applyLayers();
    void note(const QString& text);
    void usePens(const Space& space, DrawingPlot& plot);
    void tellOfFonts(const FontReport& fonts);
    PageLayout layOut(const DrawingPlot& plot, const Space& space);
    void draw(const DrawingPlot& plot, const Space& space, const PageLayout& layout, OutputDevice& device);

    QString m_input;
    const PlotPlan& m_plan;
    Console& m_console;
    Drawing m_drawing;
    QSet<QString> m_told; ///< warnings and notes
};

void PlotJob::run(const QString& output) {
    m_drawing = readDrawing(m_input, [&](double fraction) { m_console.showProgress(fraction / 2.0); });
    applyLayers();
    buildAnnotations(m_drawing, m_plan.style.fonts);
    DrawingPlot plot(m_drawing, m_plan.style);
    std::unique_ptr<OutputDevice> device;
    const std::vector<Space> spaces = chosenSpaces(m_drawing, m_plan.layout);
    for (const Space& space : spaces) {
        usePens(space, plot);
        const PageLayout layout = layOut(plot, space);
        if (device) {
            device->nextPage(layout.sheet);
        } else {
            const OutputSetup setup{output,
                                    QFileInfo(m_input).completeBaseName(),
                                    layout.sheet,
                                    m_plan.dotsPerInch,
                                    m_plan.pixelWidth,
                                    m_plan.pixels,
                                    namesOf(spaces)};
            device = createOutputDevice(m_plan.format, setup);
        }
        draw(plot, space, layout, *device);
    }
    tellOfFonts(plot.fonts());
    device->finish();
}

/// Once for each text, however many layouts it is true of.
void PlotJob::warn(const QString& text) {
    if (m_told.contains(text)) {
        return;
    }
    m_told.insert(text);
    const std::string full = (m_input + QStringLiteral(": ") + text).toStdString();
    if (m_plan.strict) {
        throw StrictFailure(full);
    }
    m_console.warning(full);
}

void PlotJob::warn(const QStringList& texts) {
    for (const QString& text : texts) {
        warn(text);
    }
}

void PlotJob::applyLayers() {
    const QStringList unmatched = filterLayers(m_drawing, m_plan.layers, m_plan.excludedLayers);
    for (const QString& pattern : unmatched) {
        warn(QStringLiteral("no layer is named \"%1\"").arg(pattern));
    }
}

/// Once for each text, as `warn`.
void PlotJob::note(const QString& text) {
    if (!text.isEmpty() && !m_told.contains(text)) {
        m_told.insert(text);
        m_console.note((m_input + QStringLiteral(": ") + text).toStdString());
    }
}

void PlotJob::usePens(const Space& space, DrawingPlot& plot) {
    const ChosenPens pens = chosenPens(m_drawing, space, m_plan);
    plot.usePens(pens.table);
    note(pens.note);
    warn(pens.warnings);
}

void PlotJob::tellOfFonts(const FontReport& fonts) {
    note(replacedFonts(fonts));
    if (const QString missing = missingCharacters(fonts); !missing.isEmpty()) {
        warn(missing);
    }
}

PageLayout PlotJob::layOut(const DrawingPlot& plot, const Space& space) {
    ExtentsReport report;
    const Box2 extents = plot.extents(space.entities, &report);
    warn(missingParts(m_drawing, report));
    PageOptions page = m_plan.page;
    double millimetresPerUnit = m_plan.millimetresPerUnit.value_or(m_drawing.millimetresPerUnit);
    if (space.layout) {
        const auto own = pageOfLayout(space.layout->settings, extents, page, m_plan.statedPage);
        if (own) {
            page = *own;
        } else {
            warn(QStringLiteral("the paper and margins of the layout leave no room; it is fitted to the usual paper"));
        }
        millimetresPerUnit = space.layout->settings.millimetresPerUnit;
    }
    PageLayout layout = layOutPage(extents, millimetresPerUnit, page);
    if (extents.isEmpty()) {
        warn(QStringLiteral("nothing to plot"));
    } else if (page.window && !page.window->intersects(extents)) {
        warn(QStringLiteral("nothing to plot in the window"));
    } else if (!layout.drawingFits) {
        warn(tooLarge(page.window.value_or(extents), millimetresPerUnit, layout, page.window.has_value()));
    }
    return layout;
}

void PlotJob::draw(const DrawingPlot& plot, const Space& space, const PageLayout& layout, OutputDevice& device) {
    PlotTarget target = plotTargetFor(layout, device.grid());
    PlotReport report;
    const int parts = device.partCount();
    for (int part = 0; part < parts; ++part) {
        target.part = device.beginPart(part);
        RenderSession session(device);
        report.add(plot.draw(space.entities, target, session.surface(),
                             [&](double fraction) { m_console.showProgress(0.5 + (part + fraction) / parts / 2.0); }));
    }
    warn(missingParts(m_drawing, report));
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

void listLayouts(const QString& input, std::ostream& stream, Console& console) {
    const WorkOn work(input, console);
    const Drawing drawing = readDrawing(input, [&](double fraction) { console.showProgress(fraction); });
    stream << modelSpaceName.latin1() << '\n';
    for (const Layout& layout : drawing.layouts) {
        stream << layout.name << '\n';
    }
}

void listLayers(const QString& input, std::ostream& stream, Console& console) {
    const WorkOn work(input, console);
    const Drawing drawing = readDrawing(input, [&](double fraction) { console.showProgress(fraction); });
    for (const Layer& layer : drawing.layers) {
        stream << layer.name << '\t' << stateOf(layer) << '\n';
    }
}

} // namespace kelplot
