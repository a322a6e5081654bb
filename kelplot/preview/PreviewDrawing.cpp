// SPDX-License-Identifier: GPL-2.0-or-later
#include "preview/PreviewDrawing.h"

#include <QElapsedTimer>
#include <algorithm>

#include "cli/job/ChosenPens.h"
#include "cli/job/DrawingInput.h"
#include "cli/job/PlotMessages.h"
#include "cli/job/RenderSession.h"
#include "cli/job/SpaceLayout.h"
#include "plot/pen/Ink.h"
#include "preview/PictureDevice.h"

namespace kelplot {
namespace {

bool isShown(const Layer& layer) {
    return layer.on && !layer.frozen && layer.plotted;
}

void show(Layer& layer, bool shown) {
    if (shown && !isShown(layer)) {
        layer.on = true;
        layer.frozen = false;
        layer.plotted = true;
    }
    layer.plotted = layer.plotted && shown;
}

} // namespace

PreviewDrawing::PreviewDrawing(const QString& input, std::shared_ptr<const PlotPlan> plan, const Progress& progress)
    : m_plan(std::move(plan)) {
    m_drawing = readToPlot(input, *m_plan, progress, m_readingRemarks);
    m_layers = m_drawing->layers;
    findPages();
    usePlan(m_plan);
}

void PreviewDrawing::findPages() {
    const auto add = [&](const Space& space, const QString& title, const QString& layout) {
        const auto known = std::find_if(m_spaces.begin(), m_spaces.end(),
                                        [&](const Space& other) { return &other.entities == &space.entities; });
        if (known == m_spaces.end()) {
            m_spaces.push_back(space);
            m_pages.push_back({title, layout});
            return m_spaces.size() - 1;
        }
        return static_cast<size_t>(known - m_spaces.begin());
    };
    if (!m_drawing->modelSpace.empty()) {
        add({m_drawing->modelSpace, nullptr}, QStringLiteral("Model"), modelSpaceName);
    }
    for (const Space& space : chosenSpaces(*m_drawing, allLayouts)) {
        const bool isModel = &space.entities == &m_drawing->modelSpace;
        const QString title = space.layout || isModel ? nameOf(space) : QStringLiteral("Sheet");
        add(space, title, space.layout || isModel ? nameOf(space) : QString());
    }
    const Space first = chosenSpaces(*m_drawing, m_plan->layout).front();
    m_firstPage = add(first, nameOf(first), m_plan->layout);
}

std::vector<LayerFacts> PreviewDrawing::layers() const {
    std::vector<LayerFacts> facts;
    for (const Layer& layer : m_layers) {
        facts.push_back({QString::fromStdString(layer.name), colourOf(inkFor(layer.colour, InkUse::line, {}, false)),
                         isShown(layer)});
    }
    return facts;
}

void PreviewDrawing::switchLayers(const std::vector<char>& shown) {
    m_drawing->layers = m_layers;
    for (size_t i = 0; i < std::min(shown.size(), m_layers.size()); ++i) {
        show(m_drawing->layers[i], shown[i] != 0);
    }
}

void PreviewDrawing::usePlan(std::shared_ptr<const PlotPlan> plan) {
    m_plan = std::move(plan);
    PlotStyleOptions style = m_plan->style;
    style.texts = TextMode::outlines; // texts of fonts look the same, and are made for files
    m_plot = std::make_unique<DrawingPlot>(*m_drawing, std::move(style));
    m_remarks = m_plan->warnings + m_readingRemarks;
}

const PageLayout& PreviewDrawing::layOut(size_t page) {
    const ChosenPens pens = chosenPens(*m_drawing, m_spaces[page], *m_plan);
    m_plot->usePens(pens.table);
    remark(QStringList(pens.note) + pens.warnings);
    const SpaceLayout found = layOutSpace(*m_drawing, *m_plot, m_spaces[page], *m_plan);
    remark(found.warnings);
    m_layout = found.page;
    return m_layout;
}

QImage PreviewDrawing::draw(size_t page, const PictureOrder& order, const Progress& progress,
                            const std::function<void(const QImage&)>& watch) {
    constexpr qint64 betweenLooks = 300; // milliseconds
    QElapsedTimer sinceLook;
    sinceLook.start();
    PictureDevice device(m_layout.sheet, order);
    PlotTarget target = plotTargetFor(m_layout, device.grid());
    target.part = device.beginPart(0);
    PlotReport report;
    {
        RenderSession session(device);
        report = m_plot->draw(m_spaces[page].entities, target, session.surface(), [&](double fraction) {
            progress(fraction);
            if (watch && sinceLook.hasExpired(betweenLooks)) {
                watch(device.image());
                sinceLook.start();
            }
        });
    }
    device.finish();
    remark(missingParts(*m_drawing, report));
    return device.image();
}

QStringList PreviewDrawing::remarks() const {
    QStringList all = m_remarks;
    for (const QString& text : {replacedFonts(m_plot->fonts()), missingCharacters(m_plot->fonts())}) {
        if (!text.isEmpty()) {
            all << text;
        }
    }
    return all;
}

void PreviewDrawing::remark(const QStringList& texts) {
    for (const QString& text : texts) {
        if (!text.isEmpty() && !m_remarks.contains(text)) {
            m_remarks << text;
        }
    }
}

} // namespace kelplot
