// SPDX-License-Identifier: GPL-2.0-or-later
#include "cli/listing/PaperListing.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <ostream>

#include "settings/PaperFile.h"
#include "settings/SettingsFile.h"

namespace kelplot {
namespace {

QString marginsText(const Margins& margins) {
    return QStringLiteral("%1,%2,%3,%4").arg(margins.left).arg(margins.top).arg(margins.right).arg(margins.bottom);
}

QJsonObject objectOf(const NamedPaper& paper) {
    const Margins& margins = paper.margins;
    return {{QStringLiteral("name"), paper.name},
            {QStringLiteral("number"), paper.number},
            {QStringLiteral("width"), paper.size.width},
            {QStringLiteral("height"), paper.size.height},
            {QStringLiteral("own"), paper.own},
            {QStringLiteral("margins"), QJsonObject{{QStringLiteral("left"), margins.left},
                                                    {QStringLiteral("top"), margins.top},
                                                    {QStringLiteral("right"), margins.right},
                                                    {QStringLiteral("bottom"), margins.bottom}}}};
}

} // namespace

void printPapers(const PaperTable& table, std::ostream& stream) {
    for (const NamedPaper& paper : table.papers()) {
        const QString line = paper.name + QLatin1Char('\t') + sizeText(paper.size) + QLatin1Char('\t') +
                             marginsText(paper.margins) + QLatin1String(paper.own ? "\town\n" : "\n");
        stream << line.toStdString();
    }
}

void printPapersAsJson(const PaperTable& table, std::ostream& stream) {
    QJsonArray papers;
    for (const NamedPaper& paper : table.papers()) {
        papers << objectOf(paper);
    }
    stream << QJsonDocument(papers).toJson().toStdString();
}

ExitStatus listPapers(bool json, std::ostream& stream, Console& console) {
    PaperTable table;
    QStringList warnings;
    ExitStatus status = ExitStatus::done;
    const auto addFrom = [&](const PaperFile& file, bool own) {
        try {
            table.add(file.read(warnings), own);
        } catch (const SettingsError& error) {
            console.error(error.what());
            status = ExitStatus::cannotOpen;
        }
    };
    const PaperFile device = PaperFile::ofDevice();
    addFrom(PaperFile::ofUser(), true);
    addFrom(device, false);
    if (!device.exists()) {
        console.error((device.path() + QStringLiteral(": no such file")).toStdString());
        status = ExitStatus::cannotOpen;
    }
    for (const QString& warning : warnings) {
        console.warning(warning.toStdString());
    }
    (json ? printPapersAsJson : printPapers)(table, stream);
    return status;
}

} // namespace kelplot
