// SPDX-License-Identifier: GPL-2.0-or-later
#include "cli/job/PrintSpool.h"

#include <cerrno>
#include <cstring>

#include "device/OutputFile.h"

namespace kelplot {

PrintSpool::PrintSpool() : m_file(std::tmpfile(), &std::fclose) {
    if (!m_file) {
        throw outputError(QStringLiteral("temporary file"), QString::fromLocal8Bit(std::strerror(errno)));
    }
}

QString PrintSpool::path() const {
    return QStringLiteral("/dev/fd/%1").arg(fileno(m_file.get()));
}

QIODevice& PrintSpool::pages() {
    m_pages.setFileName(path());
    if (!m_pages.open(QIODevice::ReadOnly)) {
        throw outputError(QStringLiteral("temporary file"), m_pages.errorString());
    }
    return m_pages;
}

} // namespace kelplot
