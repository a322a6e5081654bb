// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QIODevice>
#include <QString>
#include <functional>
#include <memory>

#include "page/SheetSize.h"
#include "print/Printers.h"

struct _cups_dinfo_s; // NOLINT(bugprone-reserved-identifier): the name is the print library's

namespace kelplot {

/// Which faces of the paper are printed on.
enum class Sides { asSetUp, one, twoLongEdge, twoShortEdge };

/// What is asked of a printer besides the pages.
struct PrintOptions {
    QString title;
    SheetSize paper; ///< of the first page
    int copies = 1;
    Sides sides = Sides::asSetUp;
};

/// A PDF document on its way through the queue of a printer.
class PrintJob {
public:
    /// Opens a job. Throws `PrintError` where there is no such printer or it refuses jobs.
    PrintJob(const QString& printer, const PrintOptions& options);
    ~PrintJob() = default;
    PrintJob(const PrintJob&) = delete;
    PrintJob& operator=(const PrintJob&) = delete;

    /// Sends the pages; a job that fails here is taken back. Throws `PrintError`.
    ///
    /// @param document  at its first byte
    void send(QIODevice& document);

    /// Looks at the queue once. Throws `PrintError` if the job was aborted or cancelled.
    ///
    /// @param words  receives what the queue says of the job; may become empty
    /// @return whether the job has left the queue
    bool hasLeft(QString& words) const;

    /// Waits until the job has left the queue. Throws `PrintError` if it was aborted or cancelled.
    ///
    /// @param tell  hears what the queue says of the job, whenever that changes
    void follow(const std::function<void(const QString&)>& tell) const;

    /// By which the queue knows it, "PRINTER-7".
    QString name() const;

private:
    struct DetailsDeleter {
        void operator()(_cups_dinfo_s* details) const;
    };
    struct State {
        int number = 0; ///< 0: the queue knows the job no more
        QString words;
    };

    State state() const;
    [[noreturn]] void fail(const QString& reason) const { throw PrintError(m_printer, reason); }

    QString m_printer;
    Destination m_destination;
    std::unique_ptr<_cups_dinfo_s, DetailsDeleter> m_details; ///< what the queue can do
    int m_number = 0;
};

} // namespace kelplot
