// SPDX-License-Identifier: GPL-2.0-or-later
#include "preview/StatusLine.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QPlainTextEdit>
#include <QVBoxLayout>
#include <cmath>

namespace kelplot {
namespace {

constexpr double millimetresPerInch = 25.4;

QLabel* fieldOf(int characters) {
    auto* const field = new QLabel;
    field->setMinimumWidth(field->fontMetrics().averageCharWidth() * characters);
    field->setAlignment(Qt::AlignCenter);
    return field;
}

QString lengthText(double millimetres) {
    return QString::number(std::round(millimetres * 10.0) / 10.0);
}

QString scaleText(double scale) {
    const auto number = [](double value) {
        return QString::number(value, 'g', 4);
    };
    return scale < 1.0 ? QStringLiteral("1:") + number(1.0 / scale) : number(scale) + QStringLiteral(":1");
}

/// The point of the drawing that a map takes to a point of the sheet.
std::optional<Vec2> drawingPoint(const Affine2& toSheet, QPointF onSheet) {
    const double determinant = toSheet.determinant();
    const Vec2 from{onSheet.x() - toSheet.e, onSheet.y() - toSheet.f};
    const Vec2 point{(toSheet.d * from.x - toSheet.c * from.y) / determinant,
                     (toSheet.a * from.y - toSheet.b * from.x) / determinant};
    return std::isfinite(point.x) && std::isfinite(point.y) ? std::optional(point) : std::nullopt;
}

} // namespace

StatusLine::StatusLine()
    : m_remarks(new QToolButton), m_news(new QLabel), m_busy(new QProgressBar), m_pointer(fieldOf(26)),
      m_paper(fieldOf(16)), m_scale(fieldOf(10)), m_zoom(fieldOf(8)) {
    constexpr int busyWidth = 80;
    m_remarks->setAutoRaise(true);
    m_remarks->setToolTip(QStringLiteral("What the plot leaves out or replaces"));
    m_remarks->hide();
    m_busy->setRange(0, 0);
    m_busy->setTextVisible(false);
    m_busy->setFixedSize(busyWidth, m_busy->fontMetrics().height() / 2);
    m_busy->hide();
    m_pointer->setToolTip(QStringLiteral("The pointer, in units of the drawing"));
    m_paper->setToolTip(QStringLiteral("The paper, in millimetres"));
    m_scale->setToolTip(QStringLiteral("The scale of the plot"));
    m_zoom->setToolTip(QStringLiteral("How large the page is shown"));
    m_news->setTextFormat(Qt::PlainText);
    addWidget(m_remarks);
    addWidget(m_news, 1);
    for (QWidget* const field : std::initializer_list<QWidget*>{m_busy, m_pointer, m_paper, m_scale, m_zoom}) {
        addPermanentWidget(field);
    }
    connect(m_remarks, &QToolButton::clicked, this, [this] { showRemarks(); });
}

void StatusLine::setRemarks(const QStringList& remarks) {
    m_texts = remarks;
    const auto count = m_texts.size();
    m_remarks->setVisible(count > 0);
    m_remarks->setText(
        QStringLiteral("\u26a0 %1 %2\u2026").arg(count).arg(QLatin1String(count == 1 ? "remark" : "remarks")));
}

void StatusLine::setPage(const PageLayout& layout) {
    m_layout = layout;
    m_paper->setText(
        QStringLiteral("%1 \u00d7 %2 mm").arg(lengthText(layout.sheet.width), lengthText(layout.sheet.height)));
    m_scale->setText(scaleText(layout.scale));
}

void StatusLine::setZoom(double pixelsPerMillimetre) {
    const double percent = pixelsPerMillimetre * millimetresPerInch / logicalDpiX() * 100.0;
    m_zoom->setText(QStringLiteral("%1 %").arg(percent, 0, 'f', percent < 10.0 ? 1 : 0));
}

void StatusLine::setPointer(std::optional<QPointF> onSheet) {
    const auto point = onSheet && m_layout ? drawingPoint(m_layout->toSheet, *onSheet) : std::nullopt;
    m_pointer->setText(point ? QStringLiteral("%1, %2").arg(point->x, 0, 'f', 2).arg(point->y, 0, 'f', 2) : QString());
}

void StatusLine::showRemarks() {
    QDialog dialog(window());
    dialog.setWindowTitle(QStringLiteral("What the plot leaves out or replaces"));
    auto* const text = new QPlainTextEdit(m_texts.join(QStringLiteral("\n\n")));
    text->setReadOnly(true);
    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
    auto* const column = new QVBoxLayout(&dialog);
    column->addWidget(text);
    column->addWidget(buttons);
    dialog.resize(560, 300);
    dialog.exec();
}

} // namespace kelplot
