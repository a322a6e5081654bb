// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QLineEdit>
#include <QTreeWidget>
#include <QWidget>
#include <functional>
#include <vector>

#include "preview/PreviewDrawing.h"

namespace kelplot {

/// The layers of a drawing, to be switched on and off.
class LayerPanel final : public QWidget {
public:
    LayerPanel();

    std::function<void(const std::vector<char>& shown)> onChange; ///< what the user has switched

    /// @param shown  for each layer
    void setLayers(const std::vector<LayerFacts>& layers, const std::vector<char>& shown);

private:
    void tell();
    void filter(const QString& text);
    void switchListed(const std::function<bool(size_t)>& shown);

    QLineEdit* m_filter; ///< the widgets belong to this one
    QTreeWidget* m_list;
    std::vector<LayerFacts> m_layers;
    bool m_isFilling = false;
};

} // namespace kelplot
