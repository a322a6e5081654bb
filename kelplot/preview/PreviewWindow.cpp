// SPDX-License-Identifier: GPL-2.0-or-later
#include "preview/PreviewWindow.h"

#include <QAction>
#include <QApplication>
#include <QDockWidget>
#include <QFileInfo>
#include <QMessageBox>
#include <QShortcut>
#include <QToolBar>
#include <QVBoxLayout>
#include <iostream>

#include "preview/PreviewPlan.h"
#include "preview/PrintDialog.h"
#include "preview/SaveDialog.h"
#include "settings/PaperTable.h"

namespace kelplot {
namespace {

constexpr double zoomStep = 1.25;
constexpr double millimetresPerInch = 25.4;

QStringList paperNames() {
    QStringList warnings; // the plan tells them
    QStringList names;
    const PaperTable table = PaperTable::load(warnings);
    for (const NamedPaper& paper : table.papers()) {
        names << paper.name;
    }
    return names;
}

} // namespace

PreviewWindow::PreviewWindow(const Request& request)
    : m_request(request), m_plan(planToShow(request)), m_tabs(new QTabBar), m_view(new PageView),
      m_layers(new LayerPanel), m_options(new OptionPanel(request, paperNames())), m_status(new StatusLine) {
    arrange();
    m_status->setBusy(true);
    m_view->showNotice(QStringLiteral("Reading %1 \u2026").arg(QFileInfo(request.inputs.front()).fileName()));
    m_session = std::make_unique<PreviewSession>(events());
    for (const QString& input : request.inputs) {
        m_session->open(input, m_plan);
    }
}

PreviewEvents PreviewWindow::events() {
    PreviewEvents events;
    events.reading = [this](const QString& input, double fraction) {
        if (m_drawings.empty()) {
            m_view->showNotice(QStringLiteral("Reading %1: %2 %")
                                   .arg(QFileInfo(input).fileName())
                                   .arg(static_cast<int>(fraction * 100.0)));
        }
    };
    events.opened = [this](const QString& input, const DrawingFacts& facts) {
        opened(input, facts);
    };
    events.notOpened = [this](const QString& error, ExitStatus status) {
        std::cerr << "kelplot: " << error.toStdString() << std::endl;
        m_failure = std::max(m_failure, status);
        m_unread << error;
        m_status->setRemarks(m_status->remarks() + QStringList(error));
        if (m_drawings.empty()) {
            m_status->setBusy(false);
            m_view->showNotice(m_unread.join(QLatin1Char('\n')));
        }
    };
    events.laidOut = [this](int serial, const PageLayout& layout) {
        laidOut(serial, layout);
    };
    events.drawing = [this](int serial, const PagePicture& picture) {
        if (serial == m_serial && !m_view->hasOverview()) {
            m_view->setPicture(picture);
        }
    };
    events.drawn = [this](int serial, const PagePicture& picture, const QStringList& remarks) {
        drawn(serial, picture, remarks);
    };
    events.overviewDrawn = [this](int serial, const PagePicture& picture) {
        if (serial == m_serial) {
            m_view->setOverview(picture);
        }
    };
    events.done = [this](const QString& what, const QStringList& warnings) {
        m_status->say(QStringLiteral("%1: done").arg(what));
        m_status->setRemarks(m_status->remarks() + warnings);
    };
    events.told = [this](const QString& words) {
        m_status->say(words);
    };
    events.printersFound = [this](const std::vector<Printer>& printers) {
        askToPrint(printers);
    };
    events.failed = [this](const QString& error) {
        tellFailure(error);
    };
    return events;
}

void PreviewWindow::arrange() {
    setWindowTitle(QStringLiteral("kelplot"));
    resize(1180, 820);
    auto* const center = new QWidget;
    auto* const column = new QVBoxLayout(center);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    m_tabs->setDocumentMode(true);
    m_tabs->setDrawBase(false);
    m_tabs->setExpanding(false);
    m_tabs->setFocusPolicy(Qt::NoFocus);
    column->addWidget(m_tabs);
    column->addWidget(m_view, 1);
    setCentralWidget(center);
    setStatusBar(m_status);
    auto* const bar = addToolBar(QStringLiteral("Tools"));
    bar->setMovable(false);
    bar->setIconSize({20, 20});
    addActions(*bar);
    addPanel(*bar, m_layers, QStringLiteral("Layers"), IconKind::layers);
    addPanel(*bar, m_options, QStringLiteral("Options"), IconKind::options);
    connect(m_tabs, &QTabBar::currentChanged, this, [this] { showTab(); });
    m_view->onRest = [this] {
        order(m_view->frame().visiblePart());
    };
    m_view->onMove = [this] {
        moved();
    };
    m_view->onPointer = [this](std::optional<QPointF> onSheet) {
        m_status->setPointer(onSheet);
    };
    m_options->onChange = [this] {
        optionsChanged();
    };
    m_layers->onChange = [this](const std::vector<char>& shown) {
        if (!m_tabPages.empty()) {
            drawing().shown = shown;
            showAfresh();
        }
    };
    m_view->setFocus();
}

QAction* PreviewWindow::addAction(QToolBar& bar, IconKind icon, const QString& text, const QKeySequence& key,
                                  const std::function<void()>& action) {
    QAction* const added = bar.addAction(iconFor(icon, palette().color(QPalette::ButtonText)), text);
    added->setShortcut(key);
    added->setToolTip(key.isEmpty() ? text
                                    : QStringLiteral("%1 (%2)").arg(text, key.toString(QKeySequence::NativeText)));
    connect(added, &QAction::triggered, this, [action] { action(); });
    return added;
}

void PreviewWindow::addActions(QToolBar& bar) {
    bar.setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    addAction(bar, IconKind::print, QStringLiteral("Print"), QKeySequence::Print, [this] {
        if (!m_tabPages.empty()) {
            m_session->findPrinters();
        }
    });
    addAction(bar, IconKind::save, QStringLiteral("Save"), QKeySequence::Save, [this] { askToSave(false); });
    m_saveAll = addAction(bar, IconKind::save, QStringLiteral("Save all layouts"),
                          QKeySequence(QStringLiteral("Ctrl+Shift+S")), [this] { askToSave(true); });
    m_saveAll->setVisible(false);
    bar.addSeparator();
    addAction(bar, IconKind::zoomOut, QStringLiteral("Zoom out"), QKeySequence::ZoomOut,
              [this] { m_view->zoomBy(1.0 / zoomStep); });
    addAction(bar, IconKind::zoomIn, QStringLiteral("Zoom in"), QKeySequence::ZoomIn,
              [this] { m_view->zoomBy(zoomStep); });
    addAction(bar, IconKind::fit, QStringLiteral("Whole page"), QKeySequence(QStringLiteral("Ctrl+0")),
              [this] { m_view->fit(); });
    addAction(bar, IconKind::trueSize, QStringLiteral("True size"), QKeySequence(QStringLiteral("Ctrl+1")),
              [this] { m_view->setScale(logicalDpiX() / millimetresPerInch); });
    auto* const spacer = new QWidget;
    spacer->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    bar.addWidget(spacer);
    connect(new QShortcut(QKeySequence::Quit, this), &QShortcut::activated, this, &QWidget::close);
    const auto turnTo = [this](int by) {
        if (m_tabs->count() > 0) {
            m_tabs->setCurrentIndex((m_tabs->currentIndex() + by + m_tabs->count()) % m_tabs->count());
        }
    };
    connect(new QShortcut(Qt::Key_PageDown, this), &QShortcut::activated, this, [turnTo] { turnTo(1); });
    connect(new QShortcut(Qt::Key_PageUp, this), &QShortcut::activated, this, [turnTo] { turnTo(-1); });
}

void PreviewWindow::addPanel(QToolBar& bar, QWidget* panel, const QString& title, IconKind icon) {
    auto* const dock = new QDockWidget(title);
    dock->setWidget(panel);
    dock->setFeatures(QDockWidget::DockWidgetClosable | QDockWidget::DockWidgetMovable);
    addDockWidget(Qt::RightDockWidgetArea, dock);
    QAction* const toggle = dock->toggleViewAction();
    toggle->setIcon(iconFor(icon, palette().color(QPalette::ButtonText)));
    bar.addAction(toggle);
}

void PreviewWindow::opened(const QString& input, const DrawingFacts& facts) {
    std::vector<char> shown;
    for (const LayerFacts& layer : facts.layers) {
        shown.push_back(layer.shown ? 1 : 0);
    }
    m_drawings.push_back({input, facts, shown});
    const size_t index = m_drawings.size() - 1;
    const auto firstTab = static_cast<int>(m_tabPages.size() + facts.firstPage);
    const QSignalBlocker blocker(m_tabs);
    for (size_t page = 0; page < facts.pages.size(); ++page) {
        m_tabPages.push_back({index, page});
        const QString& title = facts.pages[page].title;
        m_tabs->addTab(m_request.inputs.size() > 1 ? QFileInfo(input).completeBaseName() + QStringLiteral(": ") + title
                                                   : title);
    }
    if (index == 0) {
        m_tabs->setCurrentIndex(firstTab);
        showTab();
    }
}

void PreviewWindow::showTab() {
    if (m_tabPages.empty()) {
        return;
    }
    const OpenDrawing& shown = drawing();
    const QString& title = shown.facts.pages[tabPage().page].title;
    setWindowTitle(QStringLiteral("%1 \u2013 %2 \u2013 kelplot").arg(QFileInfo(shown.input).fileName(), title));
    m_layers->setLayers(shown.facts.layers, shown.shown);
    m_saveAll->setVisible(hasLayouts());
    m_isOther = true;
    showAfresh();
}

/// Has the page laid out as layers and options are now, and then drawn.
void PreviewWindow::showAfresh() {
    if (!m_tabPages.empty()) {
        ++m_serial;
        order(std::nullopt);
    }
}

void PreviewWindow::order(std::optional<PictureOrder> picture) {
    if (picture) {
        const double ratio = m_view->pixelRatio();
        const QRect& place = picture->place;
        if (place.isEmpty()) {
            return;
        }
        picture = PictureOrder{picture->pixelsPerMillimetre * ratio,
                               QRectF(QPointF(place.topLeft()) * ratio, QSizeF(place.size()) * ratio).toAlignedRect()};
    }
    settle(false);
    m_ordered = picture.value_or(PictureOrder());
    m_session->show({m_serial, tabPage().drawing, tabPage().page, m_plan, drawing().shown, picture});
}

void PreviewWindow::laidOut(int serial, const PageLayout& layout) {
    if (serial == m_serial) {
        m_status->setPage(layout);
        m_view->showSheet(layout.sheet, m_isOther);
        m_isOther = false;
    }
}

void PreviewWindow::drawn(int serial, const PagePicture& picture, const QStringList& remarks) {
    if (serial != m_serial) {
        return;
    }
    m_view->setPicture(picture);
    m_status->setRemarks(m_unread + m_request.warnings + remarks);
    if (m_view->isAtRest() && picture.order == m_ordered) {
        settle(true);
    }
}

void PreviewWindow::settle(bool settled) {
    m_isSettled = settled;
    m_status->setBusy(!settled);
}

void PreviewWindow::moved() {
    m_isSettled = false;
    m_status->setZoom(m_view->frame().scale());
}

void PreviewWindow::optionsChanged() {
    try {
        const Request request = m_options->request();
        m_plan = planToShow(request);
        m_request = request;
        m_options->showFault({});
        showAfresh();
    } catch (const std::exception& error) {
        m_options->showFault(QString::fromUtf8(error.what()));
    }
}

bool PreviewWindow::hasLayouts() {
    const std::vector<PageFacts>& pages = drawing().facts.pages;
    const auto isLayout = [](const PageFacts& page) {
        return !page.layout.isEmpty() && page.layout != modelSpaceName;
    };
    return std::count_if(pages.begin(), pages.end(), isLayout) > 1;
}

QString PreviewWindow::layoutName(bool all) {
    return all ? QString(allLayouts) : drawing().facts.pages[tabPage().page].layout;
}

void PreviewWindow::askToSave(bool all) {
    if (m_tabPages.empty()) {
        return;
    }
    const QString file = chooseFile(this, drawing().input, m_request.format, all);
    if (!file.isEmpty()) {
        save(file, all);
    }
}

void PreviewWindow::save(const QString& file) {
    save(file, false);
}

void PreviewWindow::save(const QString& file, bool all) {
    try {
        const auto plan = planToSave(m_request, drawing().input, layoutName(all), file);
        m_status->say(QStringLiteral("%1: being written \u2026").arg(file));
        m_session->write({tabPage().drawing, plan, drawing().shown});
    } catch (const std::exception& error) {
        tellFailure(QString::fromUtf8(error.what()));
    }
}

void PreviewWindow::askToPrint(const std::vector<Printer>& printers) {
    if (printers.empty()) {
        tellFailure(QStringLiteral("The print server knows no printer."));
        return;
    }
    PrintDialog dialog(this, printers, m_request, hasLayouts());
    if (dialog.exec() != QDialog::Accepted) {
        return;
    }
    try {
        Request request = m_request;
        dialog.apply(request);
        const auto plan = planToPrint(request, drawing().input, layoutName(dialog.wantsAllLayouts()));
        m_session->print({tabPage().drawing, plan, drawing().shown});
    } catch (const std::exception& error) {
        tellFailure(QString::fromUtf8(error.what()));
    }
}

void PreviewWindow::tellFailure(const QString& error) {
    m_status->say(error);
    auto* const box = new QMessageBox(QMessageBox::Warning, QStringLiteral("kelplot"), error, QMessageBox::Close, this);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->open();
}

} // namespace kelplot
