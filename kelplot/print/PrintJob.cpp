// SPDX-License-Identifier: GPL-2.0-or-later
#include "print/PrintJob.h"

#include <array>
#include <chrono>
#include <cmath>
#include <cups/cups.h>
#include <memory>
#include <thread>

namespace kelplot {
namespace {

/// Options as the library takes them.
class JobOptions {
public:
    JobOptions() = default;
    ~JobOptions() { cupsFreeOptions(m_count, m_options); }
    JobOptions(const JobOptions&) = delete;
    JobOptions& operator=(const JobOptions&) = delete;

    void add(const char* name, const char* value) { m_count = cupsAddOption(name, value, m_count, &m_options); }
    int count() const { return m_count; }
    cups_option_t* data() const { return m_options; }

private:
    cups_option_t* m_options = nullptr;
    int m_count = 0;
};

/// The name of an upright sheet by the self-describing names of PWG 5101.1, such as "iso_a4_210x297mm".
QByteArray mediaName(const SheetSize& sheet) {
    constexpr double unitsPerMillimetre = 100.0;
    const auto units = [](double millimetres) {
        return static_cast<int>(std::lround(millimetres * unitsPerMillimetre));
    };
    const SheetSize upright = sheet.width > sheet.height ? sheet.turned() : sheet;
    const pwg_media_t* const media = pwgMediaForSize(units(upright.width), units(upright.height));
    return media != nullptr ? QByteArray(media->pwg) : QByteArray();
}

const char* nameOf(Sides sides) {
    switch (sides) {
    case Sides::one:
        return CUPS_SIDES_ONE_SIDED;
    case Sides::twoLongEdge:
        return CUPS_SIDES_TWO_SIDED_PORTRAIT;
    case Sides::twoShortEdge:
        return CUPS_SIDES_TWO_SIDED_LANDSCAPE;
    case Sides::asSetUp:
        break;
    }
    return nullptr;
}

void addOptions(const PrintOptions& asked, JobOptions& options) {
    options.add(CUPS_COPIES, QByteArray::number(asked.copies).constData());
    if (const QByteArray media = mediaName(asked.paper); !media.isEmpty()) {
        options.add(CUPS_MEDIA, media.constData());
    }
    if (const char* const sides = nameOf(asked.sides)) {
        options.add(CUPS_SIDES, sides);
    }
    // The page has its true size already.
    options.add("print-scaling", "none");
}

/// The texts of an attribute but for the keywords of a job that goes well.
QString textOf(ipp_t* answer, const char* name) {
    static const QStringList usual{QString(),
                                   QStringLiteral("none"),
                                   QStringLiteral("job-incoming"),
                                   QStringLiteral("job-queued"),
                                   QStringLiteral("job-outgoing"),
                                   QStringLiteral("job-transforming"),
                                   QStringLiteral("job-printing"),
                                   QStringLiteral("processing-to-stop-point")};
    ipp_attribute_t* const attribute = ippFindAttribute(answer, name, IPP_TAG_ZERO);
    QStringList words;
    for (int i = 0; i < ippGetCount(attribute); ++i) {
        const QString word = QString::fromUtf8(ippGetString(attribute, i, nullptr));
        if (!usual.contains(word)) {
            words << word;
        }
    }
    return words.join(QStringLiteral(", "));
}

} // namespace

PrintJob::PrintJob(const QString& printer, const PrintOptions& options)
    : m_printer(printer), m_destination(findPrinter(printer)),
      m_details(cupsCopyDestInfo(CUPS_HTTP_DEFAULT, m_destination.get())) {
    if (!m_details) {
        fail(lastPrintFailure());
    }
    JobOptions chosen;
    addOptions(options, chosen);
    const ipp_status_t status = cupsCreateDestJob(CUPS_HTTP_DEFAULT, m_destination.get(), m_details.get(), &m_number,
                                                  options.title.toUtf8().constData(), chosen.count(), chosen.data());
    if (status > IPP_STATUS_OK_CONFLICTING) {
        fail(lastPrintFailure());
    }
}

void PrintJob::DetailsDeleter::operator()(_cups_dinfo_s* details) const {
    cupsFreeDestInfo(details);
}

void PrintJob::send(QIODevice& document) {
    bool isSent = cupsStartDestDocument(CUPS_HTTP_DEFAULT, m_destination.get(), m_details.get(), m_number, "plot.pdf",
                                        CUPS_FORMAT_PDF, 0, nullptr, 1) == HTTP_STATUS_CONTINUE;
    std::array<char, size_t{1} << 16> buffer{};
    qint64 count = 0;
    while (isSent && (count = document.read(buffer.data(), buffer.size())) > 0) {
        isSent =
            cupsWriteRequestData(CUPS_HTTP_DEFAULT, buffer.data(), static_cast<size_t>(count)) == HTTP_STATUS_CONTINUE;
    }
    const QString failure = count < 0 ? document.errorString() : QString();
    isSent =
        isSent && count == 0 &&
        cupsFinishDestDocument(CUPS_HTTP_DEFAULT, m_destination.get(), m_details.get()) <= IPP_STATUS_OK_CONFLICTING;
    if (!isSent) {
        const QString reason = failure.isEmpty() ? lastPrintFailure() : failure;
        cupsCancelDestJob(CUPS_HTTP_DEFAULT, m_destination.get(), m_number);
        fail(reason);
    }
}

QString PrintJob::name() const {
    return QStringLiteral("%1-%2").arg(m_printer).arg(m_number);
}

PrintJob::State PrintJob::state() const {
    constexpr const char* wanted[] = {"job-state", "job-state-reasons", "job-printer-state-message",
                                      "job-state-message"};
    ipp_t* const request = ippNewRequest(IPP_OP_GET_JOB_ATTRIBUTES);
    const QByteArray uri = "ipp://localhost/jobs/" + QByteArray::number(m_number);
    ippAddString(request, IPP_TAG_OPERATION, IPP_TAG_URI, "job-uri", nullptr, uri.constData());
    ippAddString(request, IPP_TAG_OPERATION, IPP_TAG_NAME, "requesting-user-name", nullptr, cupsUser());
    ippAddStrings(request, IPP_TAG_OPERATION, IPP_TAG_KEYWORD, "requested-attributes",
                  static_cast<int>(std::size(wanted)), nullptr, wanted);
    const std::unique_ptr<ipp_t, void (*)(ipp_t*)> answer(cupsDoRequest(CUPS_HTTP_DEFAULT, request, "/"), &ippDelete);
    if (cupsLastError() == IPP_STATUS_ERROR_NOT_FOUND) {
        return {};
    }
    if (!answer || cupsLastError() > IPP_STATUS_OK_CONFLICTING) {
        fail(lastPrintFailure());
    }
    State found;
    found.number = ippGetInteger(ippFindAttribute(answer.get(), "job-state", IPP_TAG_ENUM), 0);
    for (const char* const name : {"job-printer-state-message", "job-state-message", "job-state-reasons"}) {
        if (found.words.isEmpty()) {
            found.words = textOf(answer.get(), name);
        }
    }
    return found;
}

bool PrintJob::hasLeft(QString& words) const {
    const State now = state();
    words = now.words;
    if (now.number == IPP_JSTATE_ABORTED || now.number == IPP_JSTATE_CANCELED) {
        fail(QStringLiteral("job %1 was %2: %3")
                 .arg(m_number)
                 .arg(QLatin1String(now.number == IPP_JSTATE_ABORTED ? "aborted" : "cancelled"), now.words));
    }
    return now.number == 0 || now.number == IPP_JSTATE_COMPLETED;
}

void PrintJob::follow(const std::function<void(const QString&)>& tell) const {
    constexpr std::chrono::milliseconds pause(300);
    QString told;
    QString words;
    while (!hasLeft(words)) {
        if (!words.isEmpty() && words != told) {
            told = words;
            tell(told);
        }
        std::this_thread::sleep_for(pause);
    }
    tell(QStringLiteral("the queue no longer knows the job, nor what became of it"));
}

} // namespace kelplot
