// SPDX-License-Identifier: MIT
#include "window/MainWindow.h"

#include "Inspector/ZelInspectorState.h"
#include "Views/ZelMagnificationView.h"
#include "canvas/Canvas.h"
#include "canvas/CanvasArea.h"
#include "model/SampleDocument.h"
#include "window/Icons.h"
#include "window/InspectorPanel.h"
#include "window/Options.h"
#include "window/ShapeListView.h"
#include "window/Theme.h"

#include <QApplication>
#include <QEvent>
#include <QLabel>
#include <QMenuBar>
#include <QScreen>
#include <QSettings>
#include <QStatusBar>
#include <QTimer>
#include <QToolBar>
#include <QWhatsThis>
#include <algorithm>

namespace {
bool isWithin(const QWidget *widget, const QWidget *area)
{
    return widget == area || area->isAncestorOf(widget);
}

bool takesFocus(const QWidget *widget)
{
    return widget && widget->isVisible() && widget->isEnabled() && (widget->focusPolicy() & Qt::TabFocus);
}

/// The first one in the tab order; null if there is none.
QWidget *firstControl(QWidget *area)
{
    QWidget *widget = area;
    do {
        if (isWithin(widget, area) && takesFocus(widget))
            return widget;
        widget = widget->nextInFocusChain();
    } while (widget != area);
    return nullptr;
}
} // namespace

MainWindow::MainWindow(const Options &options)
    : m_canvas(new Canvas(&m_document, &m_selection, &m_operations))
    , m_canvasArea(new CanvasArea(m_canvas))
    , m_list(new ShapeListView(&m_document, &m_selection))
    , m_inspector(new InspectorPanel(&m_owner, &m_selection, &m_undoStack, this))
    , m_panes(new Panes(m_list, m_canvasArea, m_inspector))
    , m_settings(options.settings)
    , m_firstZoom(options.zoom / 100.0)
    , m_toolBar(addToolBar(QString()))
    , m_selectionLabel(new QLabel)
    , m_zoomLabel(new QLabel)
{
    setLanguage(options.language);
    setDark(options.dark);
    fill(options);
    createPanes(options);
    createMenus();
    createToolBar();
    connectActions();
    connectView();
    statusBar()->addWidget(m_selectionLabel, 1);
    statusBar()->addPermanentWidget(m_zoomLabel);
    retranslate();
    // A picture has its size on every screen.
    const QSize size(1280, 800);
    resize(options.screenshot.isEmpty() ? size.boundedTo(screen()->availableSize() * 0.95) : size);
    m_canvas->setFocus();
}

MainWindow::~MainWindow()
{
    // The views watch the models, which are members and would go first.
    delete takeCentralWidget();
    m_undoStack.disconnect(this);
    m_selection.disconnect(this);
}

void MainWindow::fill(const Options &options)
{
    if (options.shapeCount < 0)
        SampleDocument::fill(m_document);
    else
        SampleDocument::fillWithRows(m_document, options.shapeCount);
    QList<Shape *> shapes;
    for (int row : options.selectedRows) {
        if (row < m_document.shapeCount())
            shapes.append(m_document.shapes()[row]);
    }
    m_selection.set(options.selectsAll ? m_document.shapes() : shapes);
}

void MainWindow::createPanes(const Options &options)
{
    ZelInspectorState::setSettings([file = m_settings] {
        return file.isEmpty() ? nullptr : std::make_unique<QSettings>(file, QSettings::IniFormat);
    });
    m_inspector->selectTab(options.tab);
    m_inspector->load(options.description);
    if (!m_settings.isEmpty())
        m_panes->restore(QSettings(m_settings, QSettings::IniFormat));
    if (options.inspectorWidth > 0)
        m_panes->setPaneWidth(Panes::Inspector, options.inspectorWidth);
    else if (options.inspectorWidth == 0)
        m_panes->setCollapsed(Panes::Inspector, true);
    setCentralWidget(m_panes);
}

QMenu *MainWindow::addTranslatedMenu(QMenuBar *bar, const char *title)
{
    QMenu *menu = bar->addMenu(tr(title));
    m_menus.append({menu, title});
    return menu;
}

void MainWindow::createMenus()
{
    QMenu *edit = addTranslatedMenu(menuBar(), QT_TR_NOOP("&Edit"));
    edit->addActions(m_actions.range(Actions::Undo, Actions::Redo));
    edit->addSeparator();
    edit->addActions(m_actions.range(Actions::Duplicate, Actions::Delete));
    edit->addSeparator();
    edit->addActions(m_actions.range(Actions::SelectAll, Actions::SelectNone));
    edit->addSeparator();
    edit->addAction(m_actions[Actions::FindInInspector]);

    QMenu *insert = addTranslatedMenu(menuBar(), QT_TR_NOOP("&Insert"));
    insert->addActions(m_actions.range(Actions::AddRectangle, Actions::AddText));

    QMenu *arrange = addTranslatedMenu(menuBar(), QT_TR_NOOP("&Arrange"));
    arrange->addActions(m_actions.range(Actions::Raise, Actions::LowerToBottom));
    arrange->addSeparator();
    arrange->addActions(m_actions.range(Actions::AlignLeft, Actions::AlignBottom));

    QMenu *view = addTranslatedMenu(menuBar(), QT_TR_NOOP("&View"));
    view->addActions(m_actions.range(Actions::ZoomIn, Actions::ZoomToFit));
    view->addSeparator();
    view->addActions(m_actions.range(Actions::ShowShapes, Actions::ShowInspector));
    view->addActions(m_actions.range(Actions::NextArea, Actions::PreviousArea));
    view->addSeparator();
    view->addAction(m_actions[Actions::DarkPalette]);
    m_languageSection = view->addSection(QString());
    view->addActions(m_actions.range(Actions::English, Actions::German));

    QMenu *help = addTranslatedMenu(menuBar(), QT_TR_NOOP("&Help"));
    help->addAction(m_actions[Actions::WhatsThis]);

    m_canvas->addActions(m_actions.range(Actions::Duplicate, Actions::Delete));
    m_canvas->addActions(m_actions.range(Actions::Raise, Actions::LowerToBottom));
    m_canvas->setContextMenuPolicy(Qt::ActionsContextMenu);
}

void MainWindow::createToolBar()
{
    m_toolBar->setObjectName(QStringLiteral("tools"));
    m_toolBar->setMovable(false);
    m_toolBar->setIconSize({16, 16});
    m_toolBar->addActions(m_actions.range(Actions::AddRectangle, Actions::AddText));
    m_toolBar->addSeparator();
    m_toolBar->addActions(m_actions.range(Actions::AlignLeft, Actions::AlignBottom));
}

void MainWindow::connectActions()
{
    const auto on = [this](Actions::Id id, auto function) {
        connect(m_actions[id], &QAction::triggered, this, function);
    };
    // Neither a shortcut nor the tool bar takes the focus from a field, so a command first takes what is typed there.
    const auto onCommand = [this, on](Actions::Id id, auto function) {
        on(id, [this, function] {
            if (m_inspector->commitEditing())
                function();
        });
    };
    on(Actions::Undo, [this] { m_undoStack.undo(); });
    on(Actions::Redo, [this] { m_undoStack.redo(); });
    onCommand(Actions::Duplicate, [this] { m_operations.duplicate(); });
    onCommand(Actions::Delete, [this] { m_operations.remove(); });
    on(Actions::SelectAll, [this] { m_selection.selectAll(); });
    on(Actions::SelectNone, [this] { m_selection.clear(); });
    on(Actions::FindInInspector, [this] {
        m_panes->setCollapsed(Panes::Inspector, false);
        m_inspector->focusSearchField();
    });
    for (int kind = Shape::Rectangle; kind <= Shape::Text; ++kind) {
        onCommand(Actions::Id(Actions::AddRectangle + kind),
                  [this, kind] { m_operations.addShape(Shape::Kind(kind), m_canvas->visiblePage()); });
    }
    onCommand(Actions::Raise, [this] { m_operations.raise(); });
    onCommand(Actions::Lower, [this] { m_operations.lower(); });
    onCommand(Actions::RaiseToTop, [this] { m_operations.raiseToTop(); });
    onCommand(Actions::LowerToBottom, [this] { m_operations.lowerToBottom(); });
    const Qt::AlignmentFlag edges[] = {Qt::AlignLeft, Qt::AlignHCenter, Qt::AlignRight,
                                       Qt::AlignTop,  Qt::AlignVCenter, Qt::AlignBottom};
    for (int i = 0; i < 6; ++i)
        onCommand(Actions::Id(Actions::AlignLeft + i), [this, edge = edges[i]] { m_operations.align(edge); });
    ZelMagnificationView *magnifier = m_canvasArea->magnifier();
    on(Actions::ZoomIn, [magnifier] { magnifier->zoomIn(); });
    on(Actions::ZoomOut, [magnifier] { magnifier->zoomOut(); });
    on(Actions::ActualSize, [magnifier] { magnifier->zoomToActualSize(); });
    on(Actions::ZoomToFit, [this] { m_canvasArea->zoomToFit(); });
    on(Actions::ShowShapes, [this](bool shows) { m_panes->setCollapsed(Panes::List, !shows); });
    on(Actions::ShowInspector, [this](bool shows) { m_panes->setCollapsed(Panes::Inspector, !shows); });
    on(Actions::WhatsThis, [] { QWhatsThis::enterWhatsThisMode(); });
    on(Actions::NextArea, [this] { focusNextArea(1); });
    on(Actions::PreviousArea, [this] { focusNextArea(-1); });
    on(Actions::DarkPalette, [this](bool dark) { setDark(dark); });
    for (const auto &[id, language] : {std::pair(Actions::English, "en"), std::pair(Actions::German, "de")}) {
        on(id, [this, language = QString::fromLatin1(language)] {
            setLanguage(language);
            updateActions();
        });
    }
}

void MainWindow::connectView()
{
    connect(&m_undoStack, &QUndoStack::indexChanged, this, &MainWindow::updateActions);
    connect(&m_selection, &Selection::changed, this, &MainWindow::updateActions);
    connect(&m_owner, &InspectorOwner::summaryChanged, this, &MainWindow::updateStatus);
    connect(&m_document, &Document::titleChanged, this, &MainWindow::updateStatus);
    connect(&m_document, &Document::unitsChanged, this, &MainWindow::updateStatus);
    connect(m_canvasArea, &CanvasArea::zoomChanged, this, &MainWindow::updateStatus);
    connect(m_panes, &Panes::collapsedChanged, this, &MainWindow::updateActions);
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget *, QWidget *now) { focusDidChange(now); });
}

void MainWindow::focusDidChange(QWidget *widget)
{
    for (int pane = 0; pane < Panes::Count; ++pane) {
        if (!isWithin(widget, m_panes->widget(pane)))
            continue;
        // A field may make what has the focus for the time of typing only, so the controls around it are kept, too.
        m_lastFocus[pane].clear();
        for (QWidget *around = widget; around; around = around->isWindow() ? nullptr : around->parentWidget())
            m_lastFocus[pane].append(around);
    }
}

/// The focus returns to the control that had it last in the other pane, or goes to the first one there.
void MainWindow::focusNextArea(int step)
{
    int pane = step > 0 ? -1 : int(Panes::Count);
    for (int i = 0; i < Panes::Count; ++i) {
        if (isWithin(focusWidget(), m_panes->widget(i)))
            pane = i;
    }
    for (int i = 0; i < Panes::Count; ++i) {
        pane = (pane + step + Panes::Count) % Panes::Count;
        if (m_panes->isCollapsed(Panes::Pane(pane)))
            continue;
        QWidget *area = m_panes->widget(pane);
        const auto &last = m_lastFocus[pane];
        const auto found =
            std::find_if(last.begin(), last.end(), [](const auto &widget) { return takesFocus(widget); });
        if (QWidget *target = found == last.end() ? firstControl(area) : found->data())
            return target->setFocus(Qt::ShortcutFocusReason);
    }
}

void MainWindow::setLanguage(const QString &language)
{
    if (!m_languages.set(language))
        statusBar()->showMessage(tr("There is no translation."), 5000);
    setLocale(QLocale()); // a window keeps the one that it was made in
}

void MainWindow::setDark(bool dark)
{
    Theme::apply(dark);
    m_actions[Actions::DarkPalette]->setChecked(dark);
    m_actions.refresh();
    updateActions();
}

void MainWindow::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    QMainWindow::changeEvent(event);
}

void MainWindow::closeEvent(QCloseEvent *event)
{
    if (!m_settings.isEmpty()) {
        QSettings settings(m_settings, QSettings::IniFormat);
        m_panes->save(settings);
    }
    QMainWindow::closeEvent(event);
}

void MainWindow::showEvent(QShowEvent *event)
{
    QMainWindow::showEvent(event);
    QTimer::singleShot(0, this, &MainWindow::chooseZoom); // once the size of the view is known
}

void MainWindow::chooseZoom()
{
    if (m_firstZoom > 0) {
        m_canvasArea->magnifier()->magnifyVisibleRectWithFactor(std::exchange(m_firstZoom, 0));
        return;
    }
    // A page that is only a little too large is made to fit.
    const double zoom = m_canvasArea->fittingZoom();
    if (m_canvasArea->zoom() == 1 && zoom > 0.7 && zoom < 1)
        m_canvasArea->zoomToFit();
}

void MainWindow::retranslate()
{
    for (const auto &[menu, title] : std::as_const(m_menus))
        menu->setTitle(tr(title));
    m_languageSection->setText(tr("Language"));
    m_toolBar->setWindowTitle(tr("Tools"));
    m_list->setAccessibleName(tr("Shapes"));
    m_inspector->setAccessibleName(tr("Inspector"));
    m_document.retranslate();
    m_actions.refresh();
    updateActions();
    updateStatus();
}

void MainWindow::updateActions()
{
    const QString undone = m_undoStack.undoText();
    const QString redone = m_undoStack.redoText();
    m_actions[Actions::Undo]->setText(undone.isEmpty() ? tr("&Undo") : tr("&Undo %1").arg(undone));
    m_actions[Actions::Undo]->setEnabled(m_undoStack.canUndo());
    m_actions[Actions::Redo]->setText(redone.isEmpty() ? tr("&Redo") : tr("&Redo %1").arg(redone));
    m_actions[Actions::Redo]->setEnabled(m_undoStack.canRedo());
    const auto enable = [this](Actions::Id first, Actions::Id last, bool enabled) {
        for (QAction *action : m_actions.range(first, last))
            action->setEnabled(enabled);
    };
    enable(Actions::Duplicate, Actions::Delete, !m_selection.isEmpty());
    enable(Actions::SelectNone, Actions::SelectNone, !m_selection.isEmpty());
    enable(Actions::Raise, Actions::LowerToBottom, !m_selection.isEmpty());
    enable(Actions::AlignLeft, Actions::AlignBottom, m_selection.count() > 1);
    m_actions[Actions::ShowShapes]->setChecked(!m_panes->isCollapsed(Panes::List));
    m_actions[Actions::ShowInspector]->setChecked(!m_panes->isCollapsed(Panes::Inspector));
    m_actions[Actions::English]->setChecked(m_languages.current() == u"en");
    m_actions[Actions::German]->setChecked(m_languages.current() == u"de");
}

void MainWindow::updateStatus()
{
    QString text = m_owner.selectionSummary();
    if (m_selection.count() == 1) {
        const Shape *shape = m_selection.shapes().first();
        text += tr(": %1 by %2").arg(m_document.lengthText(shape->width()), m_document.lengthText(shape->height()));
    }
    m_selectionLabel->setText(text);
    m_zoomLabel->setText(tr("%1 %").arg(qRound(m_canvasArea->zoom() * 100)));
    setWindowTitle(m_document.property("title").toString());
}
