// SPDX-License-Identifier: GPL-2.0-or-later
#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <filesystem>
#include <map>
#include <optional>

#include "kelplot/PlotStyleBytes.h"
#include "kelplot/cli/KelplotRun.h"

// What the program makes of command lines, held against a file of cases; cli/runs.cases says how that is written.

namespace {

using Files = std::map<QString, std::string>; ///< bytes by path

Files filesIn(const TemporaryDirectory& directory) {
    Files files;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(directory.path())) {
        if (entry.is_regular_file()) {
            const std::string name = std::filesystem::relative(entry.path(), directory.path());
            files[QString::fromStdString(name)] = directory.read(name);
        }
    }
    return files;
}

void expectLike(const QString& text, const QString& pattern) {
    const QString expression = QRegularExpression::escape(pattern).replace("\\*", ".*?");
    EXPECT_TRUE(QRegularExpression("^" + expression + "\\n?$", QRegularExpression::DotMatchesEverythingOption)
                    .match(text)
                    .hasMatch())
        << text.left(4000).toStdString();
}

QString unescaped(const QString& text) {
    return text.trimmed().replace("\\n", "\n").replace("\\r", "\r");
}

/// What the lines of a file of cases have to do with, from one headline to the next.
class CaseGroup {
public:
    void writeFile(const QString& name, QString text) const {
        if (name.endsWith(".dxf")) {
            text = QString("0 SECTION 2 %1 0 ENDSEC 0 EOF ").arg(text).replace(' ', '\n');
        }
        const bool isStyles = name.endsWith(".ctb") || name.endsWith(".stb");
        QDir(m_path).mkpath(QFileInfo(name).path());
        m_directory.write(name.toStdString(),
                          isStyles ? plotStyleBytes(name.right(3).toUpper().toStdString(), text.toStdString())
                                   : text.toStdString());
    }

    void expectRun(const QStringList& columns) const {
        const QString command = columns[0].trimmed(), told = unescaped(columns.value(2));
        const Files before = filesIn(m_directory);
        const Outcome outcome =
            run(m_directory, QString(command).replace("EXAMPLES", EXAMPLE_DRAWINGS).split(' ').mid(1));
        QString outcomeAndFiles = QString::number(outcome.status), content, plots;
        for (const auto& [name, bytes] : filesIn(m_directory)) {
            const auto old = before.find(name);
            if (old == before.end() || old->second != bytes) {
                outcomeAndFiles += ' ' + name;
                plots += name.startsWith("config/") ? QString() : name + '\n';
                if (!columns.value(4).isEmpty()) {
                    content += bytes.compare(0, 4, "%PDF") == 0 ? readablePdf(name) : QString::fromStdString(bytes);
                }
                forget(name, old == before.end() ? nullptr : &old->second);
            }
        }
        EXPECT_EQ(outcomeAndFiles.toStdString(), columns.value(1).trimmed().toStdString())
            << outcome.messages.toStdString();
        expectLike(outcome.messages, told.isEmpty() || told.startsWith('\r') ? told : "kelplot: " + told);
        const QString output = unescaped(columns.value(3));
        QStringList lines = outcome.output.split('\n');
        lines.sort();
        if (output.isEmpty() && !command.contains("--quiet")) {
            EXPECT_EQ(lines.join('\n').trimmed(), plots.trimmed());
        } else {
            expectLike(outcome.output, output);
        }
        expectLike(content, '*' + unescaped(columns.value(4)) + '*');
        if (told.startsWith("warning: ")) {
            expectRun({QString(command).replace("kelplot", "kelplot --strict"), "3", told.section('\n', 0, 0).mid(9)});
        }
    }

private:
    /// A PDF file with nothing compressed.
    QString readablePdf(const QString& name) const {
        const Outcome outcome = run(m_directory, {"--qdf", "--object-streams=disable", name, "-"}, "qpdf");
        EXPECT_EQ(outcome.status, 0) << outcome.messages.toStdString();
        return outcome.output;
    }

    /// Undoes what a run did to a file, unless it is one of the user's settings.
    void forget(const QString& name, const std::string* bytes) const {
        if (name.startsWith("config/")) {
            return;
        }
        EXPECT_TRUE(QFile::remove(QDir(m_path).filePath(name)));
        if (bytes) {
            m_directory.write(name.toStdString(), *bytes);
        }
    }

    TemporaryDirectory m_directory;
    QString m_path = QString::fromStdString(m_directory.path());
};

// Stopping the threads of a process that ends, the leak check itself fails once in some hundred runs on a busy machine.
// It stays on for the few runs of the other tests, and for the plots that are made without a process of their own.
TEST(Kelplot, RunsAsTheCasesTell) {
    qputenv("ASAN_OPTIONS", "detect_leaks=0");
    QFile file(QStringLiteral(RUN_CASES));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly | QIODevice::Text));
    std::optional<CaseGroup> group;
    for (int number = 1; !file.atEnd(); ++number) {
        const QString line = QString::fromUtf8(file.readLine()).trimmed();
        SCOPED_TRACE(testing::Message() << RUN_CASES << ':' << number << ": " << line.toStdString());
        if (line.startsWith("== ")) {
            group.emplace();
        } else if (line.startsWith("kelplot")) {
            group->expectRun(line.split('|'));
        } else if (!line.isEmpty() && !line.startsWith('#')) {
            group->writeFile(line.section(": ", 0, 0), unescaped(line.section(": ", 1)));
        }
    }
    qunsetenv("ASAN_OPTIONS");
}

} // namespace
