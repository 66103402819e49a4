// SPDX-License-Identifier: MIT
#include "Platform/Controls/ZelColorPanel.h"

#include <QColorDialog>
#include <QCoreApplication>
#include <QGuiApplication>
#include <QScopedValueRollback>
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
    connect(m_dialog, &QColorDialog::currentColorChanged, this, &ZelColorPanel::noteChange);
    return m_dialog;
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

bool ZelColorPanel::eventFilter(QObject *watched, QEvent *event)
{
    const bool hides = event->type() == QEvent::Hide && watched == m_dialog;
    if (m_isTracking && (hides || event->type() == QEvent::MouseButtonRelease))
        QMetaObject::invokeMethod(
            this, [this] { setTracking(false); }, Qt::QueuedConnection); // the release may choose, too
    if (hides && !event->spontaneous())
        Q_EMIT willClose();
    return QObject::eventFilter(watched, event);
}
