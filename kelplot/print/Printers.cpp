// SPDX-License-Identifier: GPL-2.0-or-later
#include "print/Printers.h"

#include <cups/cups.h>

namespace kelplot {
namespace {

/// The queues as the library gives them, freed with this object.
class DestinationList {
public:
    DestinationList() : m_count(cupsGetDests2(CUPS_HTTP_DEFAULT, &m_destinations)) {}
    ~DestinationList() { cupsFreeDests(m_count, m_destinations); }
    DestinationList(const DestinationList&) = delete;
    DestinationList& operator=(const DestinationList&) = delete;

    const cups_dest_t* begin() const { return m_destinations; }
    const cups_dest_t* end() const { return m_destinations + m_count; }

private:
    cups_dest_t* m_destinations = nullptr;
    int m_count;
};

QString optionOf(const cups_dest_t& destination, const char* name) {
    return QString::fromUtf8(cupsGetOption(name, destination.num_options, destination.options));
}

/// As the Internet Printing Protocol numbers them (RFC 8011, 5.4.11).
QString stateOf(const QString& number) {
    if (number == QLatin1String("4")) {
        return QStringLiteral("printing");
    }
    return number == QLatin1String("5") ? QStringLiteral("stopped") : QStringLiteral("idle");
}

/// Throws `PrintError` when no print server answers.
void requireServer() {
    constexpr int patience = 5000; // milliseconds
    const std::unique_ptr<http_t, void (*)(http_t*)> connection(
        httpConnect2(cupsServer(), ippPort(), nullptr, AF_UNSPEC, cupsEncryption(), 1, patience, nullptr), &httpClose);
    if (!connection) {
        throw PrintError(QString::fromUtf8(cupsServer()), QStringLiteral("no print server answers"));
    }
}

} // namespace

QString lastPrintFailure() {
    const QString text = QString::fromUtf8(cupsLastErrorString());
    return text.isEmpty() ? QStringLiteral("the print server gives no reason") : text;
}

std::vector<Printer> printers() {
    requireServer();
    std::vector<Printer> found;
    for (const cups_dest_t& destination : DestinationList()) {
        if (destination.instance == nullptr) {
            found.push_back({QString::fromUtf8(destination.name), optionOf(destination, "printer-info"),
                             stateOf(optionOf(destination, "printer-state")),
                             optionOf(destination, "printer-is-accepting-jobs") != QLatin1String("false"),
                             destination.is_default != 0});
        }
    }
    return found;
}

void DestinationDeleter::operator()(cups_dest_s* destination) const {
    cupsFreeDests(1, destination);
}

Destination findPrinter(const QString& name) {
    Destination destination(cupsGetNamedDest(CUPS_HTTP_DEFAULT, name.toUtf8().constData(), nullptr));
    if (!destination) {
        const QString reason = lastPrintFailure();
        requireServer(); // without which every printer is unknown
        throw PrintError(name, reason);
    }
    return destination;
}

} // namespace kelplot
