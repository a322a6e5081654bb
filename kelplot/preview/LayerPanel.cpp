// SPDX-License-Identifier: GPL-2.0-or-later
#include "preview/LayerPanel.h"

#include <QHBoxLayout>
#include <QPainter>
#include <QPushButton>
#include <QVBoxLayout>

namespace kelplot {
namespace {

QIcon swatch(const QColor& colour) {
    constexpr int side = 14;
    QPixmap pixels(side, side);
    pixels.fill(colour);
    QPainter painter(&pixels);
    painter.setPen(QColor(0, 0, 0, 90));
    painter.drawRect(0, 0, side - 1, side - 1);
    return QIcon(pixels);
}

} // namespace

LayerPanel::LayerPanel() : m_filter(new QLineEdit), m_list(new QTreeWidget) {
    m_filter->setPlaceholderText(QStringLiteral("Find layers"));
    m_filter->setClearButtonEnabled(true);
    m_list->setHeaderHidden(true);
    m_list->setRootIsDecorated(false);
    m_list->setUniformRowHeights(true);
    auto* const buttons = new QHBoxLayout;
    const auto addButton = [&](const QString& text, const QString& tip, const std::function<bool(size_t)>& shown) {
        auto* const button = new QPushButton(text);
        button->setToolTip(tip);
        buttons->addWidget(button);
        connect(button, &QPushButton::clicked, this, [this, shown] { switchListed(shown); });
    };
    addButton(QStringLiteral("All"), QStringLiteral("Show all listed layers"), [](size_t) { return true; });
    addButton(QStringLiteral("None"), QStringLiteral("Hide all listed layers"), [](size_t) { return false; });
    addButton(QStringLiteral("Reset"), QStringLiteral("As the drawing says"),
              [this](size_t index) { return m_layers[index].shown; });
    auto* const column = new QVBoxLayout(this);
    column->addWidget(m_filter);
    column->addWidget(m_list);
    column->addLayout(buttons);
    connect(m_filter, &QLineEdit::textChanged, this, [this](const QString& text) { filter(text); });
    connect(m_list, &QTreeWidget::itemChanged, this, [this] { tell(); });
}

void LayerPanel::setLayers(const std::vector<LayerFacts>& layers, const std::vector<char>& shown) {
    m_isFilling = true;
    m_layers = layers;
    m_list->clear();
    for (size_t i = 0; i < layers.size(); ++i) {
        auto* const item = new QTreeWidgetItem(m_list, {layers[i].name});
        item->setIcon(0, swatch(layers[i].colour));
        item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable);
        item->setCheckState(0, shown[i] ? Qt::Checked : Qt::Unchecked);
    }
    m_isFilling = false;
    filter(m_filter->text());
}

void LayerPanel::tell() {
    if (m_isFilling || !onChange) {
        return;
    }
    std::vector<char> shown(m_layers.size());
    for (size_t i = 0; i < shown.size(); ++i) {
        shown[i] = m_list->topLevelItem(static_cast<int>(i))->checkState(0) == Qt::Checked ? 1 : 0;
    }
    onChange(shown);
}

void LayerPanel::filter(const QString& text) {
    for (int i = 0; i < m_list->topLevelItemCount(); ++i) {
        QTreeWidgetItem* const item = m_list->topLevelItem(i);
        item->setHidden(!item->text(0).contains(text, Qt::CaseInsensitive));
    }
}

void LayerPanel::switchListed(const std::function<bool(size_t)>& shown) {
    m_isFilling = true;
    for (int i = 0; i < m_list->topLevelItemCount(); ++i) {
        QTreeWidgetItem* const item = m_list->topLevelItem(i);
        if (!item->isHidden()) {
            item->setCheckState(0, shown(static_cast<size_t>(i)) ? Qt::Checked : Qt::Unchecked);
        }
    }
    m_isFilling = false;
    tell();
}

} // namespace kelplot
