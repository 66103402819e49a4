// SPDX-License-Identifier: MIT
#include "ActionBar/ZelActionBarButton.h"

#include "Core/KeyValue/ZelPropertyAccessor.h"
#include "Core/Values/ZelValues.h"
#include "Core/Values/private/ZelAssign.h"

namespace {

/// The key "title" of the base class would be the text with its mnemonic. The key "state" reports edits of users.
void registerAccessors()
{
    using Accessor = ZelFunctionAccessor<ZelActionBarButton>;
    const auto add = [](const char *key, std::unique_ptr<Accessor> accessor) {
        ZelPropertyAccessor::registerAccessor(&ZelActionBarButton::staticMetaObject, key, std::move(accessor));
    };
    const auto isNothing = [](const QVariant &value) { return ZelIsNull(value) || ZelIsControllerMarker(value); };
    add("title", std::make_unique<Accessor>([](const ZelActionBarButton *button) { return QVariant(button->title()); },
                                            [=](ZelActionBarButton *button, const QVariant &value) {
                                                button->setTitle(isNothing(value) ? QString() : value.toString());
                                                return true;
                                            }));
    auto state = std::make_unique<Accessor>([](const ZelActionBarButton *button) { return QVariant(button->state()); },
                                            [=](ZelActionBarButton *button, const QVariant &value) {
                                                button->setState(isNothing(value) ? 0 : value.toInt());
                                                return true;
                                            });
    state->setNotify(&ZelActionBarButton::stateChanged).setEdit(&ZelActionBarButton::stateEdited);
    add("state", std::move(state));
}

} // namespace

ZelActionBarButton::ZelActionBarButton(QWidget *parent)
    : ZelHoverButton(parent)
{
    static const bool registered = (registerAccessors(), true);
    Q_UNUSED(registered)
    setFocusPolicy(Qt::TabFocus); // a click must not take the focus from the receiver of the action
}

void ZelActionBarButton::setTitle(const QString &title)
{
    m_title = title;
    updateGeometry();
    update();
}

void ZelActionBarButton::setAlternateImage(const QIcon &image)
{
    m_alternateImage = image;
    update();
}

void ZelActionBarButton::setState(int state)
{
    if (!ZelAssign(m_state, state))
        return;
    update();
    Q_EMIT stateChanged();
}

void ZelActionBarButton::setKeyEquivalent(const QString &key)
{
    m_keyEquivalent = key;
    updateShortcut();
}

void ZelActionBarButton::setKeyEquivalentModifierMask(Qt::KeyboardModifiers mask)
{
    m_keyEquivalentModifierMask = mask;
    updateShortcut();
}

void ZelActionBarButton::updateShortcut()
{
    const QKeySequence key = QKeySequence::fromString(m_keyEquivalent, QKeySequence::PortableText);
    if (key.count() != 1 || key[0].key() == Qt::Key_unknown)
        setShortcut({});
    else
        setShortcut(QKeyCombination(key[0].keyboardModifiers() | m_keyEquivalentModifierMask, key[0].key()));
}

QIcon ZelActionBarButton::shownImage() const
{
    return isOn() && !m_alternateImage.isNull() ? m_alternateImage : ZelHoverButton::shownImage();
}
