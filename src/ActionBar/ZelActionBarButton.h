// SPDX-License-Identifier: MIT
#pragma once

#include "Controls/ZelHoverButton.h"
#include "Core/ZelExport.h"

/// A small button without a border that shows its image, or its title if it has no image.
class ZEL_EXPORT ZelActionBarButton : public ZelHoverButton
{
    Q_OBJECT
    Q_PROPERTY(QString title READ title WRITE setTitle)
    /// Shown instead of the image while the state is on, unless it is null.
    Q_PROPERTY(QIcon alternateImage READ alternateImage WRITE setAlternateImage)
    /// 0 is off, any other value is on.
    Q_PROPERTY(int state READ state WRITE setState NOTIFY stateChanged)
    Q_PROPERTY(int tag READ tag WRITE setTag)
    Q_PROPERTY(QString keyEquivalent READ keyEquivalent WRITE setKeyEquivalent)
    Q_PROPERTY(Qt::KeyboardModifiers keyEquivalentModifierMask READ keyEquivalentModifierMask WRITE
                   setKeyEquivalentModifierMask)
public:
    explicit ZelActionBarButton(QWidget *parent = nullptr);

    const QString &title() const { return m_title; }
    void setTitle(const QString &title);
    const QIcon &alternateImage() const { return m_alternateImage; }
    void setAlternateImage(const QIcon &image);
    int state() const { return m_state; }
    void setState(int state);
    int tag() const { return m_tag; }
    void setTag(int tag) { m_tag = tag; }
    const QString &keyEquivalent() const { return m_keyEquivalent; }
    void setKeyEquivalent(const QString &key);
    Qt::KeyboardModifiers keyEquivalentModifierMask() const { return m_keyEquivalentModifierMask; }
    void setKeyEquivalentModifierMask(Qt::KeyboardModifiers mask);

Q_SIGNALS:
    void stateChanged();
    /// The user has changed the state.
    void stateEdited();

protected:
    QIcon shownImage() const override;
    QString shownTitle() const override { return m_title; }
    bool isOn() const override { return m_state != 0; }
    bool isLit() const override { return isDown(); }

private:
    void updateShortcut();

    QString m_title;
    QIcon m_alternateImage;
    QString m_keyEquivalent;
    Qt::KeyboardModifiers m_keyEquivalentModifierMask;
    int m_state = 0;
    int m_tag = 0;
};
