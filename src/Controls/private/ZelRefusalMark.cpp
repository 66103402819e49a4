// SPDX-License-Identifier: MIT
#include "Controls/private/ZelRefusalMark.h"

#include "Controls/private/ZelErrorNote.h"
#include "Controls/private/ZelThemeColor.h"
#include "Core/Undo/private/ZelModelValidation.h"
#include "Resources/ZelLocalizedString.h"

#include <QAccessible>
#include <QEvent>
#include <QPainter>
#include <QStyle>
#include <QVariantAnimation>

namespace {

constexpr int g_fadeTime = 500;  // in milliseconds
constexpr int g_noteTime = 8000; // long enough to read two sentences
constexpr int g_toldLength = 40; // letters of a value

/// Whether the user turns to something else.
bool isNextStep(const QEvent *event)
{
    switch (event->type()) {
    case QEvent::KeyPress:
    case QEvent::MouseButtonPress:
    case QEvent::Wheel:
    case QEvent::FocusOut:
    case QEvent::EnabledChange:
        return true;
    default:
        return false;
    }
}

} // namespace

void ZelRefusalMark::flash(QWidget *control)
{
    markOf(control)->begin(ZelLocalizedString("The value was not accepted as it was entered."));
}

void ZelRefusalMark::showChange(QWidget *control, const QString &typed, const QString &kept)
{
    const auto isShort = [](const QString &text) {
        return !text.isEmpty() && text.size() <= g_toldLength && !text.contains(u'\n');
    };
    show(control, isShort(typed) && isShort(kept) && typed != kept
                      ? ZelLocalizedString("%1 was changed to %2.").arg(typed, kept)
                      : ZelLocalizedString("The value was not accepted as it was entered."));
}

void ZelRefusalMark::show(QWidget *control, const QString &reason)
{
    ZelRefusalMark *mark = markOf(control);
    ZelErrorNote::show(&mark->m_note, control, reason);
    mark->begin(reason);
}

QString ZelRefusalMark::text(const ZelModelValidation &validation)
{
    if (validation.refusing() < 2)
        return validation.reason();
    return ZelLocalizedString("%1 This concerns %2 of %3 objects.")
        .arg(validation.reason(), QString::number(validation.refusing()), QString::number(validation.count()));
}

ZelRefusalMark::ZelRefusalMark(QWidget *control)
    : ZelGuarded(control)
    , m_control(control)
    , m_formerDescription(control->accessibleDescription())
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setAttribute(Qt::WA_NoSystemBackground);
    setFocusPolicy(Qt::NoFocus);
    m_end.setSingleShot(true);
    connect(&m_end, &QTimer::timeout, this, &QObject::deleteLater);
    control->installEventFilter(this);
}

ZelRefusalMark::~ZelRefusalMark()
{
    delete m_note;
    if (m_control && m_control->accessibleDescription() == m_description)
        m_control->setAccessibleDescription(m_formerDescription);
}

/// The one that is there, or a new one.
ZelRefusalMark *ZelRefusalMark::markOf(QWidget *control)
{
    auto *mark = control->findChild<ZelRefusalMark *>(QString(), Qt::FindDirectChildrenOnly);
    return mark ? mark : new ZelRefusalMark(control);
}

void ZelRefusalMark::begin(const QString &description)
{
    m_description = description;
    m_control->setAccessibleDescription(description);
    setGeometry(m_control->rect());
    m_end.start(g_noteTime);
    m_isNew = true;
    QMetaObject::invokeMethod(
        this, [this] { m_isNew = false; }, Qt::QueuedConnection);
    const bool isAnimated = style()->styleHint(QStyle::SH_Widget_Animation_Duration, nullptr, m_control) > 0;
    if (isAnimated)
        fade();
    QAccessibleEvent alert(m_control, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}

void ZelRefusalMark::fade()
{
    delete findChild<QVariantAnimation *>(QString(), Qt::FindDirectChildrenOnly);
    auto *animation = new QVariantAnimation(this);
    animation->setStartValue(1.0);
    animation->setEndValue(0.0);
    animation->setDuration(g_fadeTime);
    connect(animation, &QVariantAnimation::valueChanged, this, [this](const QVariant &value) {
        m_opacity = value.toDouble();
        update();
    });
    connect(animation, &QVariantAnimation::finished, this, &QWidget::hide);
    m_opacity = 1;
    QWidget::show();
    raise();
    animation->start(QAbstractAnimation::DeleteWhenStopped);
}

bool ZelRefusalMark::filterEvent(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Resize && m_control)
        setGeometry(m_control->rect());
    else if (m_note && !m_isNew && isNextStep(event)) // the key that was the entry still goes on to the widgets around
        delete m_note;
    return QWidget::eventFilter(watched, event);
}

void ZelRefusalMark::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setOpacity(m_opacity);
    painter.setPen(QPen(ZelThemeColor::error(palette()), 2));
    painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), 3, 3);
}
