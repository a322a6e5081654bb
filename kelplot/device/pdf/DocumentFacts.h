// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QDateTime>
#include <QString>
#include <string>

#include "device/pdf/PdfBytes.h"

namespace kelplot {

/// What a document tells of itself: its title, what made it and when, in the two forms that programs read.
class DocumentFacts {
public:
    explicit DocumentFacts(QString title);

    /// The dictionary.
    std::string information() const;
    /// The same as XMP.
    PdfBytes metadata() const;

private:
    QString m_title;
    QDateTime m_made; ///< in universal time
};

} // namespace kelplot
