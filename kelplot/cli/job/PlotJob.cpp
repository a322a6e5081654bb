// SPDX-License-Identifier: GPL-2.0-or-later
#include "cli/job/PlotJob.h"

#include <utility>

#include "cli/job/ChosenPens.h"
#include "cli/job/DrawingInput.h"
#include "cli/job/PlotMessages.h"
#include "cli/job/RenderSession.h"
#include "cli/job/SpaceChoice.h"
#include "cli/job/SpaceLayout.h"
#include "plot/DrawingPlot.h"
#include "plot/TileMarks.h"

namespace kelplot {
namespace {

/// One drawing on its way to paper.
class PlotJob {
public:
    PlotJob(QString input, const PlotPlan& plan, Console& console, DrawingRecord& record)
        : m_input(std::move(input)), m_plan(plan), m_console(console), m_record(record) {}

    void run(const PlannedFile& file, const DrawingSource& source, PageSequence& pages);

private:
    void warn(const QString& text);
    void warn(const QStringList& texts);
    void note(const QString& text);
    void usePens(const Space& space, DrawingPlot& plot);
    void tellOfFonts(const FontReport& fonts);
    PageLayout layOut(const DrawingPlot& plot, const Space& space, PageRecord& record);
    void plotSheet(const DrawingPlot& plot, const Space& space, const QString& name, PageSequence& pages);
    void plotTiles(const DrawingPlot& plot, const Space& space, const QString& name, const PageLayout& sheet,
                   PageSequence& pages, PageRecord record);
    void draw(const DrawingPlot& plot, const Space& space, const PageLayout& layout, OutputDevice& device,
              PageRecord& page);

    QString m_input;
    const PlotPlan& m_plan;
    Console& m_console;
    DrawingRecord& m_record;
    std::shared_ptr<const Drawing> m_drawing;
    double m_done = 0.0;  ///< of all pages
    double m_share = 1.0; ///< of one page in them
};

void PlotJob::run(const PlannedFile& file, const DrawingSource& source, PageSequence& pages) {
    constexpr double reading = 0.5;
    QStringList warnings;
    m_drawing = source(
        m_input, m_plan, [&](double fraction) { m_console.showProgress(reading * fraction); }, warnings);
    warn(warnings);
    DrawingPlot plot(*m_drawing, m_plan.style);
    const std::vector<Space> spaces = chosenSpaces(*m_drawing, m_plan.layout);
    size_t entities = 0;
    for (const Space& space : spaces) {
        entities += space.entities.size();
    }
    m_console.setEntities(entities);
    m_done = reading;
    m_share = (1.0 - reading) / static_cast<double>(spaces.size());
    for (const Space& space : spaces) {
        usePens(space, plot);
        const QString name = nameOf(space);
        const QString ofBook = spaces.size() > 1 ? titleOf(m_input) + QStringLiteral(": ") + name : titleOf(m_input);
        plotSheet(plot, space, file.inputs.size() > 1 ? ofBook : name, pages);
    }
    tellOfFonts(plot.fonts());
    if (const QString differing = shortcomings(pages.takeShortcomings()); !differing.isEmpty()) {
        warn(differing);
    }
}

/// Once for each text, however many layouts it is true of.
void PlotJob::warn(const QString& text) {
    if (m_record.warnings.contains(text)) {
        return;
    }
    m_record.warnings << text;
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

/// Once for each text, as `warn`.
void PlotJob::note(const QString& text) {
    if (!text.isEmpty() && !m_record.notes.contains(text)) {
        m_record.notes << text;
        m_console.note((m_input + QStringLiteral(": ") + text).toStdString());
    }
}

void PlotJob::usePens(const Space& space, DrawingPlot& plot) {
    const ChosenPens pens = chosenPens(*m_drawing, space, m_plan);
    plot.usePens(pens.table);
    note(pens.note);
    warn(pens.warnings);
}

void PlotJob::tellOfFonts(const FontReport& fonts) {
    m_record.replacedFonts = fonts.replaced;
    for (const uint character : fonts.missing) {
        m_record.missingCharacters << QString::fromUcs4(&character, 1);
    }
    note(replacedFonts(fonts));
    if (const QString missing = missingCharacters(fonts); !missing.isEmpty()) {
        warn(missing);
    }
}

PageLayout PlotJob::layOut(const DrawingPlot& plot, const Space& space, PageRecord& record) {
    const SpaceLayout found = layOutSpace(*m_drawing, plot, space, m_plan);
    warn(found.warnings);
    for (const auto& [kind, entities] : found.extents.unplotted) {
        record.leftOut[QString::fromStdString(kind)] = entities.size();
    }
    return found.page;
}

void PlotJob::plotSheet(const DrawingPlot& plot, const Space& space, const QString& name, PageSequence& pages) {
    PageRecord record;
    record.space = nameOf(space);
    record.entities = space.entities.size();
    const PageLayout layout = layOut(plot, space, record);
    record.scale = layout.scale;
    record.sheet = layout.sheet;
    if (m_plan.tiling) {
        plotTiles(plot, space, name, layout, pages, record);
        return;
    }
    draw(plot, space, layout, pages.begin(layout, name), record);
    m_record.pages.push_back(record);
}

void PlotJob::plotTiles(const DrawingPlot& plot, const Space& space, const QString& name, const PageLayout& sheet,
                        PageSequence& pages, PageRecord record) {
    const std::vector<Tile> tiles = tilesOf(sheet, *m_plan.tiling);
    if (tiles.empty()) {
        throw UsageError(QStringLiteral("--tile: the sheet would take more than 1000 pages of this paper"));
    }
    m_share /= static_cast<double>(tiles.size());
    for (const Tile& tile : tiles) {
        const QString place = QStringLiteral("%1 (%2, %3)").arg(name).arg(tile.row + 1).arg(tile.column + 1);
        OutputDevice& device = pages.begin(tile.page, tiles.size() > 1 ? place : name);
        draw(plot, space, tile.page, device, record);
        device.layerChanged({}); // the marks belong to none
        RenderSession session(device);
        drawTileMarks(tile, titleOf(m_input).toStdWString(), device.grid(), session.surface().renderer);
        record.tile = {tile.row + 1, tile.column + 1};
        record.sheet = tile.page.sheet;
        m_record.pages.push_back(record);
    }
    m_share *= static_cast<double>(tiles.size());
}

void PlotJob::draw(const DrawingPlot& plot, const Space& space, const PageLayout& layout, OutputDevice& device,
                   PageRecord& page) {
    PlotTarget target = plotTargetFor(layout, device.grid());
    PlotReport report;
    const int parts = device.partCount();
    for (int part = 0; part < parts; ++part) {
        target.part = device.beginPart(part);
        RenderSession session(device);
        report.add(plot.draw(space.entities, target, session.surface(), [&](double fraction) {
            m_console.showProgress(m_done + m_share * (part + fraction) / parts);
        }));
    }
    m_done += m_share;
    page.viewports = report.viewports;
    warn(missingParts(*m_drawing, report));
}

} // namespace

void plotDrawing(const QString& input, const PlannedFile& file, const PlotPlan& plan, const DrawingSource& source,
                 PageSequence& pages, Console& console, DrawingRecord& record) {
    const WorkOn work(input, console);
    PlotJob(input, plan, console, record).run(file, source, pages);
}

} // namespace kelplot
