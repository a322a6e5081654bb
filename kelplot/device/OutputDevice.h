// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QPainter>
#include <QStringList>
#include <map>
#include <memory>
#include <optional>
#include <string>

#include "device/DirectDevice.h"
#include "device/OutputFile.h"
#include "page/PageSetup.h"

namespace kelplot {

/// A sheet that takes a plot through the painter it lends, and puts it into a file.
class OutputDevice : public DirectDevice {
public:
    /// The units in which the painter takes coordinates. The painter's world transform is free for drawing:
    /// the map from these units to the device is set below it.
    virtual DeviceGrid grid() const = 0;

    /// The painter, begun and ready; lent until `finish`.
    virtual QPainter& painter() = 0;

    /// How often the plot of a page is to be drawn: a device that does not hold a large page whole takes it in parts.
    virtual int partCount() const { return 1; }

    /// Makes the painter ready for a part, in the order of their numbers.
    ///
    /// @return the part in the painter's units: what does not reach it need not be drawn; nothing: all of the page
    virtual std::optional<Box2> beginPart(int index) {
        static_cast<void>(index);
        return std::nullopt;
    }

    /// Begins a further page. Throws `OutputError` for formats of one page.
    ///
    /// @param name  for the document's outline
    virtual void nextPage(const SheetSize& sheet, const QString& name);

    /// What of the plot the format could not take as it was drawn, with counts.
    virtual std::map<QString, size_t> shortcomings() const { return {}; }

    /// Ends the plot and puts the file in its place, or throws `OutputError` and leaves none.
    virtual void finish() = 0;
};

/// What the pixels of an image tell apart.
enum class PixelKind { colour, grey, bilevel };

/// What a device is to make.
struct OutputSetup {
    QString path;
    QString title;         ///< for formats that carry one
    SheetSize sheet;       ///< as the sheet lies before the drawing
    int dotsPerInch = 200; ///< of an image
    int pixelWidth = 0;    ///< of an image, in place of the dots per inch; 0: as these say
    PixelKind pixels = PixelKind::colour;
    QString pageName = {}; ///< of the first page, for the outline of formats of several
};

enum class OutputFormat { pdf, png, svg, hpgl };

/// Tells whether a format has several pages in one file.
bool hasPages(OutputFormat format);

/// The format of a name such as "pdf", in any case.
std::optional<OutputFormat> formatFromName(const QString& name);

/// The names that `formatFromName` knows, for a message.
QString formatNames();

/// The file name ending of a format, without its point.
QString suffixOf(OutputFormat format);

/// Opens the output, or throws `OutputError`.
std::unique_ptr<OutputDevice> createOutputDevice(OutputFormat format, const OutputSetup& setup);

} // namespace kelplot
