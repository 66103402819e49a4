// SPDX-License-Identifier: MIT
#include "ViewController/private/ZelControlHelp.h"

#include "Core/RunLoop/ZelGuarded.h"
#include "ViewController/ZelView.h"
#include "ViewController/ZelViewController.h"

#include <QAccessible>
#include <QBasicTimer>
#include <QHelpEvent>
#include <QTimerEvent>
#include <QToolTip>

namespace {

constexpr int g_delay = 100; // milliseconds
bool g_isAsked = false;      // assistive technology has asked for a description

/// The nearest tool tip that is set for the widget or for one around it.
QString toolTipSetFor(const QWidget *control)
{
    for (const QWidget *widget = control; widget; widget = widget->isWindow() ? nullptr : widget->parentWidget()) {
        if (!widget->toolTip().isEmpty())
            return widget->toolTip();
    }
    return {};
}

/// The texts one below the other. Only a tool tip that is set may be rich text: what people have typed stays plain.
QString joined(QStringList texts, const QString &set)
{
    texts.removeAll(QString());
    texts.removeDuplicates();
    const QString plain = texts.join(u'\n');
    if (texts == QStringList{set} || std::none_of(texts.begin(), texts.end(), &Qt::mightBeRichText))
        return plain;
    QString rich;
    for (const QString &text : std::as_const(texts))
        rich += text == set && Qt::mightBeRichText(set) ? text : Qt::convertFromPlainText(text, Qt::WhiteSpaceNormal);
    return rich;
}

/// Keeps the help as the description of the control that has the focus. One object serves all controls. It follows the
/// control's value a moment later: the help of many objects takes time, and a value may change in each frame.
class FocusedDescription : public ZelGuarded<QObject>
{
    Q_OBJECT
public:
    static FocusedDescription &instance()
    {
        static FocusedDescription instance;
        return instance;
    }

    void begin(QWidget *control)
    {
        end();
        m_control = control;
        // Controls differ in their class, but all of them announce their value so.
        if (control->metaObject()->indexOfSignal("objectValueChanged()") >= 0)
            connect(control, SIGNAL(objectValueChanged()), this, SLOT(updateLater()));
        update();
    }
    void end()
    {
        if (m_control) {
            disconnect(m_control, nullptr, this, nullptr);
            describe({});
        }
        m_control = nullptr;
        m_delay.stop();
    }
    bool handleEvent(QEvent *event) override
    {
        if (event->type() != QEvent::Timer || static_cast<QTimerEvent *>(event)->timerId() != m_delay.timerId())
            return QObject::event(event);
        m_delay.stop();
        update();
        return true;
    }

private Q_SLOTS:
    void updateLater()
    {
        if (!m_delay.isActive())
            m_delay.start(g_delay, this);
    }

private:
    void update()
    {
        ZelExceptionReporter::run(m_control.data(), [this] { describe(ZelControlHelp::of(m_control)); });
    }
    /// Leaves a description alone that somebody else has set.
    void describe(const QString &text)
    {
        if (m_control && m_control->accessibleDescription() == m_text && text != m_text) {
            m_text = text;
            m_control->setAccessibleDescription(text);
        }
        m_text = m_control && m_control->accessibleDescription() == text ? text : QString();
    }

    QPointer<QWidget> m_control;
    QString m_text; // that is the description now
    QBasicTimer m_delay;
};

} // namespace

QString ZelControlHelp::of(const QWidget *control)
{
    for (const QWidget *widget = control; widget; widget = widget->isWindow() ? nullptr : widget->parentWidget()) {
        const auto *view = qobject_cast<const ZelView *>(widget);
        const ZelViewController *controller = view ? view->viewController() : nullptr;
        const QString help = controller ? controller->helpForControl(control) : QString();
        if (!help.isNull())
            return help;
    }
    return {};
}

bool ZelControlHelp::showToolTip(QEvent *event, QWidget *control, const QString &text, const QRect &area)
{
    const QPointer<QWidget> guard(control);
    const QString help = of(control);
    if (!guard)
        return true;
    if (text.isEmpty() && help.isEmpty())
        return false;
    const QString set = toolTipSetFor(control);
    const bool isTextFirst = help.isEmpty() || area.isValid();
    const QString whole = joined(isTextFirst ? QStringList{text, set, help} : QStringList{set, text, help}, set);
    QToolTip::showText(static_cast<QHelpEvent *>(event)->globalPos(), whole, control, area);
    event->accept();
    return true;
}

/// Assistive technology asks outside of events.
QString ZelControlHelp::description(QWidget *control, const QString &text)
{
    g_isAsked = true;
    QString help;
    ZelExceptionReporter::run(control, [&] { help = of(control); });
    const QString separator = text.isEmpty() || help.isEmpty() ? QString() : QStringLiteral("\n");
    return text + separator + help;
}

void ZelControlHelp::describeFocused(const QEvent *event, QWidget *control)
{
    if (event->type() == QEvent::FocusOut)
        FocusedDescription::instance().end();
    else if (event->type() == QEvent::FocusIn && (g_isAsked || QAccessible::isActive()))
        FocusedDescription::instance().begin(control);
}

#include "ZelControlHelp.moc"
