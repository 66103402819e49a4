// SPDX-License-Identifier: MIT
#include "Platform/Controls/ZelColorPanel.h"

#include "Platform/Selection/ZelUndoManager.h"

#include <QAbstractSpinBox>
#include <QColorDialog>
#include <QCoreApplication>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QScopedValueRollback>
#include <QShortcut>
#include <QWindow>

namespace {

ZelColorPanel *g_panel = nullptr;

/// A window must not outlive the application object.
void deletePanel()
{
    delete g_panel;
}

} // namespace

ZelColorPanel *ZelColorPanel::sharedColorPanel()
{
    if (!g_panel) {
        g_panel = new ZelColorPanel;
        qAddPostRoutine(deletePanel);
    }
    return g_panel;
}

ZelColorPanel::ZelColorPanel() = default;

ZelColorPanel::~ZelColorPanel()
{
    close();
    delete m_dialog;
    g_panel = nullptr;
}

void ZelColorPanel::setDelegate(QObject *delegate)
{
    if (delegate == m_delegate)
        return;
    m_delegate = delegate;
    Q_EMIT delegateDidChange();
}

QColorDialog *ZelColorPanel::dialog()
{
    if (m_dialog)
        return m_dialog;
    m_dialog = new QColorDialog;
    m_dialog->setOptions(QColorDialog::NoButtons | QColorDialog::DontUseNativeDialog);
    m_dialog->setModal(false);
    m_dialog->setAttribute(Qt::WA_QuitOnClose, false);
    m_dialog->setCurrentColor(Qt::black);
    m_dialog->installEventFilter(this);
    addShortcuts();
    connect(m_dialog, &QColorDialog::currentColorChanged, this,
            [this] { ZelExceptionReporter::run(this, [this] { noteChange(); }); });
    return m_dialog;
}

/// What the panel changed is undone where it was changed: the panel's own window has nothing to undo.
void ZelColorPanel::addShortcuts()
{
    const auto add = [this](QKeySequence::StandardKey key, void (ZelUndoManager::*act)()) {
        auto *shortcut = new QShortcut(key, m_dialog);
        connect(shortcut, &QShortcut::activated, this, [this, act] {
            if (ZelUndoManager *manager = m_client ? ZelUndoManager::forWidget(m_client) : nullptr)
                (manager->*act)();
        });
    };
    add(QKeySequence::Undo, &ZelUndoManager::undo);
    add(QKeySequence::Redo, &ZelUndoManager::redo);
    const QList<QWidget *> widgets = m_dialog->findChildren<QWidget *>();
    for (QWidget *widget : widgets)
        widget->installEventFilter(this);
}

/// Fields keep the keys for themselves, also where nothing was typed that they could undo.
bool ZelColorPanel::leavesShortcut(QObject *focused, QEvent *event)
{
    const auto *key = static_cast<const QKeyEvent *>(event);
    if (!key->matches(QKeySequence::Undo) && !key->matches(QKeySequence::Redo))
        return false;
    auto *field = qobject_cast<QLineEdit *>(focused);
    if (const auto *box = qobject_cast<QAbstractSpinBox *>(focused))
        field = box->findChild<QLineEdit *>();
    if (field && field->isModified() && (field->isUndoAvailable() || field->isRedoAvailable()))
        return false;
    event->ignore();
    return true;
}

QColor ZelColorPanel::color() const
{
    QColor color = m_dialog ? m_dialog->currentColor() : QColor(Qt::black);
    if (!showsAlpha())
        color.setAlpha(255);
    return color;
}

void ZelColorPanel::setColor(const QColor &color)
{
    const QScopedValueRollback setting(m_isSettingColor, true);
    // A grey has no hue: set again, it would take the one that the user sees in the panel away.
    if (color.isValid() && color.toRgb() != dialog()->currentColor())
        dialog()->setCurrentColor(color);
    m_knownColor = this->color();
}

bool ZelColorPanel::showsAlpha() const
{
    return m_dialog && m_dialog->testOption(QColorDialog::ShowAlphaChannel);
}

void ZelColorPanel::setShowsAlpha(bool shows)
{
    const QScopedValueRollback setting(m_isSettingColor, true);
    dialog()->setOption(QColorDialog::ShowAlphaChannel, shows);
    m_knownColor = color();
}

bool ZelColorPanel::isVisible() const
{
    return m_dialog && m_dialog->isVisible();
}

void ZelColorPanel::orderFront(const QWidget *client)
{
    m_client = client;
    QColorDialog *panel = dialog();
    panel->winId();
    // Above the client's window, and not blocked where that one is modal. A pop-up closes before the panel does.
    QWindow *parent = client ? client->window()->windowHandle() : nullptr;
    while (parent && parent->type() == Qt::Popup)
        parent = parent->transientParent();
    if (parent != panel->windowHandle()->transientParent())
        panel->windowHandle()->setTransientParent(parent);
    panel->show();
    panel->raise();
    panel->activateWindow();
}

void ZelColorPanel::close()
{
    if (m_dialog)
        m_dialog->hide();
}

QWidget *ZelColorPanel::window() const
{
    return m_dialog;
}

void ZelColorPanel::noteChange()
{
    const QColor now = color();
    if (m_isSettingColor || now == m_knownColor)
        return; // the dialog tells twice
    m_knownColor = now;
    if (QGuiApplication::mouseButtons() != Qt::NoButton)
        setTracking(true);
    Q_EMIT colorDidChange();
}

void ZelColorPanel::setTracking(bool tracking)
{
    if (tracking == m_isTracking)
        return;
    m_isTracking = tracking;
    if (tracking) {
        qApp->installEventFilter(this); // the release goes to some widget inside the dialog
        return;
    }
    qApp->removeEventFilter(this);
    Q_EMIT trackingDidEnd();
}

bool ZelColorPanel::filterEvent(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::ShortcutOverride && leavesShortcut(watched, event))
        return true;
    const bool hides = event->type() == QEvent::Hide && watched == m_dialog;
    if (m_isTracking && (hides || event->type() == QEvent::MouseButtonRelease))
        QMetaObject::invokeMethod(
            this, [this] { setTracking(false); }, Qt::QueuedConnection); // the release may choose, too
    if (hides && !event->spontaneous())
        Q_EMIT willClose();
    return QObject::eventFilter(watched, event);
}
