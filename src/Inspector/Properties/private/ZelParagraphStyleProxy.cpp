// SPDX-License-Identifier: MIT
#include "Inspector/Properties/private/ZelParagraphStyleProxy.h"

#include "Core/Errors/ZelException.h"
#include "Core/KeyValue/ZelKeyValueObserving.h"
#include "Core/Values/ZelValues.h"
#include "Core/Values/private/ZelAssign.h"
#include "Inspector/Properties/private/ZelParagraphStyleValues.h"
#include "Observation/ZelObservations.h"

namespace {

const char g_context = 0;

QByteArray nameOf(const ZelKeyPath &path)
{
    return path.string().toUtf8();
}

} // namespace

ZelParagraphStyleProxy::ZelParagraphStyleProxy(QObject *object, const QString &keyPath, QObject *parent)
    : QObject(parent)
    , m_object(object)
    , m_keyPath(keyPath)
{
}

ZelParagraphStyleProxy::~ZelParagraphStyleProxy()
{
    ZelObservations(this).removeAllObservationsForContext(&g_context);
}

void ZelParagraphStyleProxy::setRange(const std::optional<ZelAttributedString::Range> &range)
{
    if (ZelAssign(m_range, range))
        announceChanges();
}

ZelAttributedString ZelParagraphStyleProxy::attributedString() const
{
    return ZelAttributedString::fromVariant(ZelValueForKeyPath(m_object.data(), m_keyPath));
}

ZelAttributedString::Range ZelParagraphStyleProxy::rangeIn(const ZelAttributedString &string) const
{
    return string.paragraphRange(m_range.value_or(ZelAttributedString::Range{0, string.length()}));
}

ZelParagraphStyleValues ZelParagraphStyleProxy::values() const
{
    const ZelAttributedString string = attributedString();
    const QList<ZelParagraphStyle> styles = string.paragraphStyles(rangeIn(string));
    ZelParagraphStyleValues values;
    for (const ZelParagraphStyle &style : styles)
        values.fold(style);
    return values;
}

QVariant ZelParagraphStyleProxy::valueForKeyPath(const ZelKeyPath &path) const
{
    if (!ZelParagraphStyleValues::names().contains(nameOf(path)))
        throw ZelUndefinedKeyException(QString::fromLatin1(metaObject()->className()), path.string());
    const auto announced = m_announced.constFind(path);
    return announced != m_announced.constEnd() ? *announced : values().value(nameOf(path));
}

void ZelParagraphStyleProxy::setValueForKeyPath(const QVariant &value, const ZelKeyPath &path)
{
    if (!ZelParagraphStyleValues::names().contains(nameOf(path)))
        throw ZelUndefinedKeyException(QString::fromLatin1(metaObject()->className()), path.string());
    const ZelAttributedString old = attributedString();
    ZelAttributedString string = old;
    const QByteArray name = nameOf(path);
    string.changeParagraphStyles([&](ZelParagraphStyle &style) { ZelParagraphStyleValues::store(&style, name, value); },
                                 rangeIn(string));
    const QPointer<ZelParagraphStyleProxy> alive(this);
    if (string != old)
        ZelSetValueForKeyPath(m_object, QVariant::fromValue(string), m_keyPath);
    if (alive)
        announceChanges();
}

void ZelParagraphStyleProxy::keyPathWillBeObserved(const ZelKeyPath &path)
{
    if (m_announced.isEmpty() && m_object) {
        ZelObservations(this).addObservationWithObject(
            m_object, m_keyPath, 0,
            [proxy = QPointer<ZelParagraphStyleProxy>(this)](ZelBlockObservation *, const ZelKeyValueChange &) {
                if (proxy)
                    proxy->announceChanges();
            },
            &g_context);
    }
    m_announced.insert(path, values().value(nameOf(path)));
}

void ZelParagraphStyleProxy::keyPathIsNoLongerObserved(const ZelKeyPath &path)
{
    m_announced.remove(path);
    if (m_announced.isEmpty())
        ZelObservations(this).removeAllObservationsForContext(&g_context);
}

void ZelParagraphStyleProxy::rereadKeyPath(const ZelKeyPath &)
{
    announceChanges();
}

/// Announces the keys whose values have changed. Until its change is announced, a key answers the value that its
/// observers know.
void ZelParagraphStyleProxy::announceChanges()
{
    const QPointer<ZelParagraphStyleProxy> alive(this);
    const QList<ZelKeyPath> paths = m_announced.keys();
    ZelParagraphStyleValues newValues = values();
    for (const ZelKeyPath &path : paths) {
        const QVariant newValue = newValues.value(nameOf(path));
        if (!m_announced.contains(path) || ZelEqual(newValue, m_announced.value(path)))
            continue;
        const ZelKey key(path.string());
        ZelWillChangeValueForKey(this, key);
        if (alive && m_announced.contains(path))
            m_announced.insert(path, newValue);
        if (alive)
            ZelDidChangeValueForKey(this, key);
        if (!alive)
            return;
        newValues = values(); // an observer may have changed the text
    }
}
