// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QMainWindow>
#include <QTabBar>

#include "preview/Icons.h"
#include "preview/LayerPanel.h"
#include "preview/OptionPanel.h"
#include "preview/PageView.h"
#include "preview/PreviewSession.h"
#include "preview/StatusLine.h"

class QDockWidget;
class QToolBar;

namespace kelplot {

/// Shows the pages of drawings as they will be printed, and prints and saves them.
class PreviewWindow final : public QMainWindow {
public:
    /// Begins to read the drawings of a request. Throws as `planFor` does.
    explicit PreviewWindow(const Request& request);

    /// Of the drawings that could not be read; `done` if none failed, or another can be seen.
    ExitStatus status() const { return m_drawings.empty() ? m_failure : ExitStatus::done; }

    PageView& view() { return *m_view; }
    LayerPanel& layers() { return *m_layers; }
    QTabBar& tabs() { return *m_tabs; }
    const StatusLine& statusLine() const { return *m_status; }
    /// Whether the page is drawn as it is to be seen.
    bool isSettled() const { return m_isSettled; }

    /// Writes the page that is shown, in the format that the file's name ends in.
    void save(const QString& file);

private:
    struct OpenDrawing {
        QString input;
        DrawingFacts facts;
        std::vector<char> shown; ///< for each layer
    };
    /// What a tab shows.
    struct TabPage {
        size_t drawing = 0;
        size_t page = 0;
    };

    PreviewEvents events();
    void arrange();
    void addActions(QToolBar& bar);
    QAction* addAction(QToolBar& bar, IconKind icon, const QString& text, const QKeySequence& key,
                       const std::function<void()>& action);
    void addPanel(QToolBar& bar, QWidget* panel, const QString& title, IconKind icon);
    void opened(const QString& input, const DrawingFacts& facts);
    void showTab();
    void showAfresh();
    void order(std::optional<PictureOrder> picture);
    void laidOut(int serial, const PageLayout& layout);
    void drawn(int serial, const PagePicture& picture, const QStringList& remarks);
    void optionsChanged();
    void moved();
    void settle(bool settled);
    const TabPage& tabPage() const { return m_tabPages[static_cast<size_t>(m_tabs->currentIndex())]; }
    OpenDrawing& drawing() { return m_drawings[tabPage().drawing]; }
    QString layoutName(bool all);
    bool hasLayouts();
    void askToSave(bool all);
    void save(const QString& file, bool all);
    void askToPrint(const std::vector<Printer>& printers);
    void tellFailure(const QString& error);

    Request m_request; ///< with the options as they are set
    std::shared_ptr<const PlotPlan> m_plan;
    std::vector<OpenDrawing> m_drawings;
    std::vector<TabPage> m_tabPages; ///< for each tab
    ExitStatus m_failure = ExitStatus::done;
    QStringList m_unread;   ///< why drawings could not be read
    int m_serial = 0;       ///< of what is shown
    bool m_isOther = true;  ///< the page that is laid out next is not the one that was shown
    PictureOrder m_ordered; ///< last
    bool m_isSettled = false;
    QTabBar* m_tabs; ///< the widgets belong to this one
    PageView* m_view;
    LayerPanel* m_layers;
    OptionPanel* m_options;
    StatusLine* m_status;
    QAction* m_saveAll = nullptr;
    std::unique_ptr<PreviewSession> m_session; ///< ends before the rest
};

} // namespace kelplot
