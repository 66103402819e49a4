// SPDX-License-Identifier: MIT
#include "Controls/ZelColorPanel.h"

#include "Core/RunLoop/ZelMemberScope.h"
#include "Core/Undo/ZelUndoManager.h"
#include "Core/Values/private/ZelAssign.h"

#include <QAbstractSpinBox>
#include <QColorDialog>
#include <QCoreApplication>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QShortcut>
#include <QWindow>

namespace {

ZelColorPanel *g_panel = nullptr;

/// Deletes the panel before the application object, because a window must not outlive it.
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
    if (ZelAssign(m_delegate, delegate))
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

/// The keys undo in the client's window, where the changes were made: the panel's own window has nothing to undo.
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

/// Qt's fields keep the keys for undo and redo even if they have nothing to undo. Those keys must reach the shortcuts.
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
    const ZelMemberScope setting(this, m_isSettingColor, true);
    // An equal colour is not set again: a grey has no hue, so that the panel would lose the hue that it shows.
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
    const ZelMemberScope setting(this, m_isSettingColor, true);
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
    // Makes the native window, without which there is no handle.
    panel->winId();
    // The panel stays above the client's window and is not blocked if that window is modal. A pop-up may close before
    // the panel, so the window behind it is taken.
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
        return; // the dialog reports each colour twice
    m_knownColor = now;
    if (QGuiApplication::mouseButtons() != Qt::NoButton)
        setTracking(true);
    Q_EMIT colorDidChange();
}

void ZelColorPanel::setTracking(bool tracking)
{
    if (!ZelAssign(m_isTracking, tracking))
        return;
    if (tracking) {
        qApp->installEventFilter(this); // the release goes to a widget inside the dialog
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
            this, [this] { setTracking(false); }, Qt::QueuedConnection); // the release may choose a colour, too
    if (hides && !event->spontaneous())
        Q_EMIT willClose();
    return QObject::eventFilter(watched, event);
}
