// SPDX-License-Identifier: GPL-2.0-or-later
#include "preview/OptionPanel.h"

#include <QFormLayout>
#include <QLineEdit>
#include <algorithm>

#include "cli/options/OptionTable.h"

namespace kelplot {
namespace {

constexpr const char* placements[] = {"portrait", "landscape", "scale", "fit", "center"};

const QLatin1String fitted("Fit to the paper");
constexpr const char* scales[] = {"1:1", "1:2", "1:5", "1:10", "1:20", "1:50", "1:100", "1:200", "1:500", "2:1", "5:1"};

void give(const char* option, const QString& value, Request& request) {
    const std::vector<OptionRow>& rows = optionRows();
    const auto row = std::find_if(rows.begin(), rows.end(), [&](const OptionRow& candidate) {
        return QLatin1String(candidate.name) == QLatin1String(option);
    });
    applyOption(*row, value, request);
    request.given << QLatin1String(option);
}

/// Takes an option back from a request; true if the command line gave it.
bool take(const char* option, Request& request) {
    return request.given.removeAll(QLatin1String(option)) > 0;
}

QComboBox* editableBox() {
    auto* const box = new QComboBox;
    box->setEditable(true);
    box->setInsertPolicy(QComboBox::NoInsert);
    box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    box->setMinimumContentsLength(16);
    return box;
}

QString scaleText(double scale) {
    return scale < 1.0 ? QStringLiteral("1:%1").arg(1.0 / scale, 0, 'g', 10)
                       : QStringLiteral("%1:1").arg(scale, 0, 'g', 10);
}

} // namespace

OptionPanel::OptionPanel(const Request& request, const QStringList& papers)
    : m_base(request), m_paper(editableBox()), m_orientation(new QComboBox), m_scale(editableBox()),
      m_centred(new QCheckBox(QStringLiteral("In the middle of the paper"))),
      m_monochrome(new QCheckBox(QStringLiteral("Black ink only"))), m_lineWeights(new QDoubleSpinBox),
      m_texts(new QComboBox), m_fault(new QLabel) {
    fill(request, papers);
    m_fault->setWordWrap(true);
    m_fault->setStyleSheet(QStringLiteral("color: #b00020"));
    auto* const form = new QFormLayout(this);
    form->setRowWrapPolicy(QFormLayout::WrapAllRows);
    form->addRow(QStringLiteral("Paper"), m_paper);
    form->addRow(QStringLiteral("Orientation"), m_orientation);
    form->addRow(QStringLiteral("Scale"), m_scale);
    form->addRow(m_centred);
    form->addRow(QStringLiteral("Line weights"), m_lineWeights);
    form->addRow(m_monochrome);
    form->addRow(QStringLiteral("Texts in files"), m_texts);
    form->addRow(m_fault);
    const auto chosen = QOverload<int>::of(&QComboBox::activated);
    for (QComboBox* const box : {m_paper, m_orientation, m_scale, m_texts}) {
        connect(box, chosen, this, [this] { changed(); });
    }
    for (QComboBox* const box : {m_paper, m_scale}) {
        connect(box->lineEdit(), &QLineEdit::editingFinished, this, [this] {
            if (m_paper->currentText() + m_scale->currentText() != m_last) {
                changed();
            }
        });
    }
    for (QCheckBox* const box : {m_centred, m_monochrome}) {
        connect(box, &QCheckBox::toggled, this, [this] { changed(); });
    }
    connect(m_lineWeights, QOverload<double>::of(&QDoubleSpinBox::valueChanged), this, [this] { changed(); });
}

/// Sets what the command line states, and leaves the rest to the drawing.
void OptionPanel::fill(const Request& request, const QStringList& papers) {
    const bool givesPaper = take("paper", m_base);
    m_base.paper = givesPaper ? AskedPaper() : m_base.paper;
    m_paper->addItem(QStringLiteral("The layout's own, or %1").arg(m_base.paper.text));
    m_paper->addItems(papers);
    bool placed = false;
    for (const char* const option : placements) {
        placed = take(option, m_base) || placed;
    }
    m_orientation->addItems(
        {QStringLiteral("As suits the drawing"), QStringLiteral("Portrait"), QStringLiteral("Landscape")});
    m_scale->addItem(request.scale && !placed ? QStringLiteral("The layout's own, or %1").arg(scaleText(*request.scale))
                                              : QStringLiteral("The layout's own, or fit"));
    m_scale->addItem(fitted);
    for (const char* const scale : scales) {
        m_scale->addItem(QLatin1String(scale));
    }
    if (givesPaper) {
        m_paper->setCurrentText(request.paper.text);
    }
    m_orientation->setCurrentIndex(static_cast<int>(request.orientation));
    if (placed) {
        m_scale->setCurrentText(request.scale ? scaleText(*request.scale) : QString(fitted));
        m_base.scale.reset();
    }
    m_base.orientation = Orientation::automatic;
    m_base.centred = false;
    m_centred->setChecked(request.centred);
    m_monochrome->setChecked(request.monochrome);
    m_lineWeights->setRange(0.0, 100.0);
    m_lineWeights->setSingleStep(0.25);
    m_lineWeights->setPrefix(QStringLiteral("\u00d7 "));
    m_lineWeights->setValue(request.lineWeightScale);
    m_texts->addItems(
        {QStringLiteral("As suits the format"), QStringLiteral("Outlines"), QStringLiteral("Fonts, to be searched")});
    m_texts->setCurrentIndex(request.texts ? static_cast<int>(*request.texts) + 1 : 0);
    m_last = m_paper->currentText() + m_scale->currentText();
}

Request OptionPanel::request() const {
    Request request = m_base;
    if (m_paper->currentText() != m_paper->itemText(0)) {
        give("paper", m_paper->currentText(), request);
        request.paper.origin = QStringLiteral("Paper");
    }
    if (m_orientation->currentIndex() > 0) {
        give(m_orientation->currentIndex() == 1 ? "portrait" : "landscape", {}, request);
    }
    const QString scale = m_scale->currentText();
    if (scale == fitted) {
        give("fit", {}, request);
    } else if (scale != m_scale->itemText(0)) {
        give("scale", scale, request);
    }
    if (m_centred->isChecked()) {
        give("center", {}, request);
    }
    request.monochrome = m_monochrome->isChecked();
    request.lineWeightScale = m_lineWeights->value();
    request.texts.reset();
    if (m_texts->currentIndex() > 0) {
        request.texts = static_cast<TextMode>(m_texts->currentIndex() - 1);
    }
    return request;
}

void OptionPanel::showFault(const QString& fault) {
    m_fault->setText(fault);
}

void OptionPanel::changed() {
    m_last = m_paper->currentText() + m_scale->currentText();
    if (onChange) {
        onChange();
    }
}

} // namespace kelplot
