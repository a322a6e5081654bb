// SPDX-License-Identifier: GPL-2.0-or-later
#include "cli/listing/DrawingListing.h"

#include <ostream>

#include "cli/job/DrawingInput.h"
#include "cli/job/SpaceChoice.h"

namespace kelplot {
namespace {

const char* stateOf(const Layer& layer) {
    if (layer.frozen) {
        return "frozen";
    }
    if (!layer.on) {
        return "off";
    }
    return layer.plotted ? "plotted" : "not plotted";
}

} // namespace

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
