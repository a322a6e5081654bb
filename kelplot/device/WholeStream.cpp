// SPDX-License-Identifier: GPL-2.0-or-later
#include "device/WholeStream.h"

namespace kelplot {

WholeStream::WholeStream(QIODevice& target) : m_target(target) {
    open(QIODevice::WriteOnly | QIODevice::Unbuffered);
}

qint64 WholeStream::writeData(const char* data, qint64 size) {
    qint64 done = 0;
    while (m_failure.isEmpty() && done < size) {
        const qint64 written = m_target.write(data + done, size - done);
        if (written > 0) {
            done += written;
        } else {
            m_failure = m_target.errorString();
        }
    }
    return m_failure.isEmpty() ? size : -1;
}

} // namespace kelplot
