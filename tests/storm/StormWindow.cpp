// SPDX-License-Identifier: MIT
// The steps that concern windows and inspectors as a whole.
#include "Blocks/ZelWindow.h"
#include "Inspector/Properties/ZelInspectorProperty.h"
#include "Inspector/ZelDeclarativeInspectorGenerator.h"
#include "Inspector/ZelInspectorChooser.h"
#include "Inspector/private/ZelRowBlocks.h"
#include "Storm.h"

namespace {
/// A path whose last key is another one that the same editor can edit, or the same path.
QString sibling(const QString &path, quint32 number)
{
    static const QList<QStringList> families{
        {"text", "pattern"}, {"number", "ratio", "count", "small"}, {"kind", "sort", "choice"}, {"bits", "image"}};
    const qsizetype at = path.lastIndexOf(u'.') + 1;
    for (const QStringList &family : families) {
        if (family.contains(path.mid(at)))
            return path.left(at) + family.at(int(number % quint32(family.size())));
    }
    return path;
}
} // namespace

void Storm::makeWindow(bool ownStack)
{
    m_window = std::make_unique<QWidget>();
    if (!ownStack)
        m_stack = std::make_unique<QUndoStack>();
    ZelWindow::attach(m_window.get(), m_stack.get());
    auto *column = new QVBoxLayout(m_window.get());
    column->setContentsMargins(0, 0, 0, 0);
    m_window->resize(320, 300);
    m_window->setUpdatesEnabled(false); // painting is most of what a window costs
    m_window->show();
    m_window->activateWindow();
    if (!m_otherWindow) {
        m_otherWindow = std::make_unique<QWidget>();
        m_otherField = new QLineEdit;
        (new QVBoxLayout(m_otherWindow.get()))->addWidget(m_otherField);
        m_otherWindow->setUpdatesEnabled(false);
        m_otherWindow->show();
    }
}

void Storm::makeInspector()
{
    m_inspector.reset();
    m_rekeyed.clear();
    if (!m_owner || !m_window)
        return;
    ZelDeclarativeInspectorGenerator generator;
    generator.setUrl(QUrl::fromLocalFile(QStringLiteral(ZEL_STORM "/Storm.xml")));
    generator.setOwner(m_owner.get());
    m_inspector.reset(generator.createTabbedInspector());
    const bool isLarge = ++m_inspectorsMade % 2 == 0; // every second time its rows come and go as in a large panel
    ZelRowBlocks::setMostRowsAtOnce(isLarge ? 1 : 0);
    m_window->layout()->addWidget(m_inspector->view());
    for (const ZelInspectorPane *pane : m_inspector->panes()) {
        if (isLarge && pane->scrollView())
            pane->scrollView()->setKeptRows(int(m_inspectorsMade % 20));
    }
}

/// An action may change everything, also the inspector whose control was used.
void Storm::reactToAction(int number)
{
    if (number % 12 == 4 && m_inspector)
        m_inspector->view()->deleteLater(); // Qt goes on with the control that was used
    if (number % 12 == 0 || number % 12 == 4)
        makeInspector();
    else if (number % 12 == 8)
        sheets()->setSelectedObjects(living().mid(number % 5, 2));
}

void Storm::addWindowSteps()
{
    add("tab", 8, Edit, [this](const Step &step) {
        if (m_inspector && step.b % 2)
            m_inspector->setSelectedPaneIndex(step.a % 3);
        else if (m_inspector && m_inspector->isViewInstalled())
            m_inspector->selectInspector(step.a % 3);
    });
    add("scroll", 4, Edit, [this](const Step &step) {
        const auto areas = m_window->findChildren<QAbstractScrollArea *>();
        for (const auto *area : areas) {
            if (area->isVisible())
                area->verticalScrollBar()->setValue(int(step.a % 1000));
        }
    });
    add("reparent", 2, Change, [this](const Step &step) {
        if (!m_inspector)
            return;
        const QPointer<QWidget> view = m_inspector->view(); // an action may end the inspector
        QWidget *target = (view->window() == m_window.get() && step.a % 3 ? m_otherWindow : m_window).get();
        view->setParent(nullptr);
        if (step.b % 2)
            QCoreApplication::processEvents();
        if (!view)
            return;
        target->layout()->addWidget(view);
        view->show();
    });
    add("showOrHide", 2, Edit, [this](const Step &step) {
        const QPointer<QWidget> shown = step.a % 2 || !m_inspector ? m_window.get() : m_inspector->view();
        shown->setVisible(!shown->isVisible() || step.b % 8 != 0);
        if (step.c % 2)
            return;
        shown->hide();
        QCoreApplication::processEvents();
        if (shown)
            shown->show();
    });
    add("rekey", 4, Change, [this](const Step &step) {
        if (step.c % 4 == 0 && m_inspector) {
            const auto choosers = m_inspector->findChildren<ZelInspectorChooser *>();
            for (ZelInspectorChooser *chooser : choosers)
                chooser->setKeyPath(sibling(chooser->keyPath(), step.b));
        } else if (ZelInspectorProperty *editor = anyEditor(step.a)) {
            m_rekeyed.insert(editor);
            editor->setKeyPath(sibling(editor->keyPath(), step.b));
        }
    });
    add("enable", 4, Edit, [this](const Step &step) {
        ZelInspectorProperty *editor = anyEditor(step.a);
        if (editor && step.b % 2)
            editor->setEnabled(step.b % 8 != 1);
        else if (editor && editor->owner() == m_owner.get())
            editor->setEnabledKeyPath(step.b % 4 ? QStringLiteral("unlocked") : QString());
    });
    add("rebuild", 1, Edit, [this](const Step &step) {
        if (!m_owner)
            makeOwner();
        if (step.a % 4 == 0 && m_inspector)
            delete m_inspector->view();
        makeInspector();
    });
    // The window goes with the views in it, or after them.
    add("rebuildWindow", 1, Change, [this](const Step &step) {
        if (step.a % 2)
            m_inspector.reset();
        if (step.a % 4 < 2)
            m_stack.reset(); // the application's stack may go first
        m_window.reset();
        if (step.b % 2)
            settle();
        m_inspector.reset();
        m_stack.reset();
        m_baseObjects.clear();
        m_base.clear();
        makeWindow(step.c % 2);
        makeInspector();
    });
    add("look", 1, Edit, [this](const Step &step) {
        if (step.a % 3 == 0)
            QApplication::setPalette(step.b % 2 ? QPalette(Qt::black) : QPalette());
        else if (step.a % 3 == 1)
            m_window->setLayoutDirection(step.b % 2 ? Qt::RightToLeft : Qt::LeftToRight);
        else
            m_window->setEnabled(!m_window->isEnabled() || step.b % 4 != 0);
    });
    add("resize", 2, Edit,
        [this](const Step &step) { m_window->resize(120 + int(step.a % 300), 60 + int(step.b % 500)); });
    add("paint", 1, Edit, [this](const Step &step) {
        if (step.a % 2 && m_inspector)
            m_inspector->view()->grab();
        else
            m_window->setUpdatesEnabled(!m_window->updatesEnabled());
        QCoreApplication::processEvents();
        m_window->setUpdatesEnabled(step.b % 4 == 0);
    });
}
