// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QFile>
#include <cstdio>
#include <memory>

namespace kelplot {

/// Keeps pages on their way to a printer, in a file without a name that goes with the program.
class PrintSpool {
public:
    /// Throws `OutputError`.
    PrintSpool();

    /// Where to write the pages.
    QString path() const;

    /// The pages, from their first byte on.
    QIODevice& pages();

private:
    std::unique_ptr<std::FILE, int (*)(std::FILE*)> m_file;
    QFile m_pages;
};

} // namespace kelplot
