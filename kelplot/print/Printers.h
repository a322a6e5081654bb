// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QString>
#include <memory>
#include <stdexcept>
#include <vector>

struct cups_dest_s;

namespace kelplot {

/// Why something could not be printed; the text names the printer and gives the print server's own words.
class PrintError : public std::runtime_error {
public:
    PrintError(const QString& printer, const QString& reason)
        : std::runtime_error((printer + QStringLiteral(": ") + reason).toStdString()) {}
};

/// A queue of the print server.
struct Printer {
    QString name;
    QString description; ///< may be empty
    QString state;       ///< "idle", "printing" or "stopped"
    bool accepts = true; ///< takes further jobs
    bool isDefault = false;
};

/// The queues of the print server, in its order. Throws `PrintError` where there is no server.
std::vector<Printer> printers();

struct DestinationDeleter {
    void operator()(cups_dest_s* destination) const;
};

/// A queue as the print server's library knows it.
using Destination = std::unique_ptr<cups_dest_s, DestinationDeleter>;

/// Finds a queue by its name, or throws `PrintError`.
Destination findPrinter(const QString& name);

/// The library's words for what went wrong last.
QString lastPrintFailure();

} // namespace kelplot
