// SPDX-License-Identifier: GPL-2.0-or-later
#include "device/OutputDevice.h"

#include <QStringList>

#include "device/hpgl/HpglDevice.h"
#include "device/pdf/PdfDevice.h"
#include "device/png/PngDevice.h"
#include "device/svg/SvgDevice.h"

namespace kelplot {
namespace {

template <typename Device>
std::unique_ptr<OutputDevice> create(const OutputSetup& setup) {
    return std::make_unique<Device>(setup);
}

struct FormatEntry {
    OutputFormat format;
    const char* name;
    std::unique_ptr<OutputDevice> (*create)(const OutputSetup& setup);
    bool hasPages = false;
    const char* otherName = nullptr;
};

constexpr FormatEntry formats[] = {
    {OutputFormat::pdf, "pdf", create<PdfDevice>, true},
    {OutputFormat::png, "png", create<PngDevice>},
    {OutputFormat::svg, "svg", create<SvgDevice>},
    {OutputFormat::hpgl, "hpgl", create<HpglDevice>, true, "plt"},
};

const FormatEntry& entryOf(OutputFormat format) {
    for (const FormatEntry& entry : formats) {
        if (entry.format == format) {
            return entry;
        }
    }
    return formats[0];
}

} // namespace

void OutputDevice::nextPage(const SheetSize& /*sheet*/, const QString& /*name*/) {
    throw OutputError("this format has one page only");
}

bool hasPages(OutputFormat format) {
    return entryOf(format).hasPages;
}

std::optional<OutputFormat> formatFromName(const QString& name) {
    for (const FormatEntry& entry : formats) {
        if (name.compare(QLatin1String(entry.name), Qt::CaseInsensitive) == 0 ||
            (entry.otherName && name.compare(QLatin1String(entry.otherName), Qt::CaseInsensitive) == 0)) {
            return entry.format;
        }
    }
    return std::nullopt;
}

QString formatNames() {
    QStringList names;
    for (const FormatEntry& entry : formats) {
        names << QString::fromLatin1(entry.name);
    }
    return names.join(QStringLiteral(", "));
}

QString suffixOf(OutputFormat format) {
    return QString::fromLatin1(entryOf(format).name);
}

std::unique_ptr<OutputDevice> createOutputDevice(OutputFormat format, const OutputSetup& setup) {
    return entryOf(format).create(setup);
}

} // namespace kelplot
