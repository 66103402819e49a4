// SPDX-License-Identifier: MIT
// The steps that concern windows and inspectors as a whole.
#include "Storm.h"

#include "Blocks/ZelWindow.h"
#include "Inspector/Properties/ZelInspectorProperty.h"
#include "Inspector/ZelDeclarativeInspectorGenerator.h"
#include "Inspector/ZelInspectorChooser.h"
#include "Inspector/ZelTabbedInspector.h"
#include "ViewController/ZelView.h"

#include <QAbstractScrollArea>
#include <QLineEdit>
#include <QScrollBar>
#include <QVBoxLayout>

namespace {

QPalette darkPalette()
{
    QPalette palette(Qt::black, Qt::darkGray, Qt::gray, Qt::black, Qt::darkGray, Qt::white, Qt::white, Qt::black,
                     Qt::black);
    return palette;
}

/// Other keys that the same editor can edit.
QByteArray sibling(const QByteArray &key, quint32 number)
{
    static const QList<QList<QByteArray>> families{{"text", "pattern"},
                                                   {"number", "ratio", "count", "small"},
                                                   {"kind", "sort", "choice"},
                                                   {"day"},
                                                   {"bits", "image"}};
    for (const QList<QByteArray> &family : families) {
        if (family.contains(key))
            return family.at(int(number % quint32(family.size())));
    }
    return {};
}

} // namespace

void Storm::makeWindow(bool ownStack)
{
    m_window = std::make_unique<QWidget>();
    if (!ownStack) {
        m_stack = std::make_unique<QUndoStack>();
        ZelWindow::attach(m_window.get(), m_stack.get());
    } else {
        ZelWindow::attach(m_window.get());
    }
    auto *column = new QVBoxLayout(m_window.get());
    column->setContentsMargins(0, 0, 0, 0);
    m_window->resize(320, 300);
    m_window->setUpdatesEnabled(false); // painting is most of what a window costs
    m_window->show();
    m_window->activateWindow();
    if (!m_otherWindow) {
        m_otherWindow = std::make_unique<QWidget>();
        auto *column = new QVBoxLayout(m_otherWindow.get());
        m_otherField = new QLineEdit;
        column->addWidget(m_otherField);
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
    m_window->layout()->addWidget(m_inspector->view());
}

void Storm::tab(const Step &step)
{
    if (!m_inspector)
        return;
    if (step.b % 2)
        m_inspector->setSelectedPaneIndex(step.a % 3);
    else if (m_inspector->isViewInstalled())
        m_inspector->selectInspector(step.a % 3);
}

void Storm::scroll(const Step &step)
{
    const QList<QAbstractScrollArea *> areas = m_window->findChildren<QAbstractScrollArea *>();
    for (const auto *area : areas) {
        if (area->isVisible())
            area->verticalScrollBar()->setValue(int(step.a % 1000));
    }
}

void Storm::reparent(const Step &step)
{
    if (!m_inspector)
        return;
    const QPointer<QWidget> view = m_inspector->view(); // an action may end the inspector
    QWidget *target = view->window() == m_window.get() && step.a % 3 ? m_otherWindow.get() : m_window.get();
    view->setParent(nullptr);
    if (step.b % 2)
        QCoreApplication::processEvents();
    if (!view)
        return;
    target->layout()->addWidget(view);
    view->show();
}

void Storm::showOrHide(const Step &step)
{
    const QPointer<QWidget> shown = step.a % 2 || !m_inspector ? m_window.get() : m_inspector->view();
    shown->setVisible(!shown->isVisible() || step.b % 8 != 0);
    if (step.c % 2)
        return;
    shown->hide();
    QCoreApplication::processEvents();
    if (shown)
        shown->show();
}

void Storm::rekey(const Step &step)
{
    const auto other = [&](const QString &path) {
        const qsizetype at = path.lastIndexOf(u'.') + 1;
        const QByteArray key = sibling(path.mid(at).toLatin1(), step.b);
        return key.isEmpty() ? path : QString(path.left(at) + QString::fromLatin1(key));
    };
    if (step.c % 4 == 0 && m_inspector) {
        const auto choosers = m_inspector->findChildren<ZelInspectorChooser *>();
        for (ZelInspectorChooser *chooser : choosers)
            chooser->setKeyPath(other(chooser->keyPath()));
    } else if (ZelInspectorProperty *editor = anyEditor(step.a)) {
        m_rekeyed.insert(editor);
        editor->setKeyPath(other(editor->keyPath()));
    }
}

void Storm::enable(const Step &step)
{
    ZelInspectorProperty *editor = anyEditor(step.a);
    if (!editor)
        return;
    if (step.b % 2)
        editor->setEnabled(step.b % 8 != 1);
    else if (editor->owner() == m_owner.get())
        editor->setEnabledKeyPath(step.b % 4 ? QStringLiteral("unlocked") : QString());
}

void Storm::rebuild(const Step &step)
{
    if (!m_owner)
        makeOwner();
    if (step.a % 4 == 0 && m_inspector)
        delete m_inspector->view();
    makeInspector();
}

/// An action may change everything, also the inspector whose control was used.
void Storm::reactToAction(int number)
{
    switch (number % 12) {
    case 0:
        makeInspector();
        break;
    case 4:
        if (m_inspector)
            m_inspector->view()->deleteLater(); // Qt goes on with the control that was used
        makeInspector();
        break;
    case 8:
        sheets()->setSelectedObjects(living().mid(number % 5, 2));
        break;
    default:
        break;
    }
}

/// The window goes with the views in it, or after them.
void Storm::rebuildWindow(const Step &step)
{
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
}

void Storm::look(const Step &step)
{
    if (step.a % 3 == 0)
        QApplication::setPalette(step.b % 2 ? darkPalette() : QPalette());
    else if (step.a % 3 == 1)
        m_window->setLayoutDirection(step.b % 2 ? Qt::RightToLeft : Qt::LeftToRight);
    else
        m_window->setEnabled(!m_window->isEnabled() || step.b % 4 != 0);
}

void Storm::resize(const Step &step)
{
    m_window->resize(120 + int(step.a % 300), 60 + int(step.b % 500));
}

void Storm::paint(const Step &step)
{
    if (step.a % 2 && m_inspector)
        m_inspector->view()->grab();
    else
        m_window->setUpdatesEnabled(!m_window->updatesEnabled());
    QCoreApplication::processEvents();
    m_window->setUpdatesEnabled(step.b % 4 == 0);
}
