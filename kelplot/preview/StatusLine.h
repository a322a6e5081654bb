// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QLabel>
#include <QProgressBar>
#include <QStatusBar>
#include <QToolButton>
#include <optional>

#include "page/PageSetup.h"

namespace kelplot {

/// The line below a page: what it leaves out, and what it is.
class StatusLine final : public QStatusBar {
public:
    StatusLine();

    /// Tells what has just happened.
    void say(const QString& text) { m_news->setText(text); }
    /// What there is to tell of the page; a click shows all of it.
    void setRemarks(const QStringList& remarks);
    const QStringList& remarks() const { return m_texts; }
    void setPage(const PageLayout& layout);
    void setZoom(double pixelsPerMillimetre);
    /// Where the pointer is on the sheet, in millimetres from its upper left corner; none: elsewhere.
    void setPointer(std::optional<QPointF> onSheet);
    /// Shows that something is being done.
    void setBusy(bool busy) { m_busy->setVisible(busy); }

private:
    void showRemarks();

    QToolButton* m_remarks; ///< the widgets belong to this one
    QLabel* m_news;
    QProgressBar* m_busy;
    QLabel* m_pointer;
    QLabel* m_paper;
    QLabel* m_scale;
    QLabel* m_zoom;
    QStringList m_texts;
    std::optional<PageLayout> m_layout;
};

} // namespace kelplot
