// SPDX-License-Identifier: GPL-2.0-or-later
#include "cli/listing/PrinterListing.h"

#include <ostream>

#include "print/Printers.h"

namespace kelplot {

void listPrinters(std::ostream& stream) {
    for (const Printer& printer : printers()) {
        stream << printer.name.toStdString() << '\t' << printer.state.toStdString() << '\t'
               << (printer.accepts ? "accepting" : "refusing") << '\t' << (printer.isDefault ? "default" : "") << '\t'
               << printer.description.toStdString() << '\n';
    }
}

} // namespace kelplot
