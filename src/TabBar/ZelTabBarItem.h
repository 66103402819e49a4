// SPDX-License-Identifier: MIT
#pragma once

#include "Core/ZelExport.h"

#include <QIcon>
#include <QObject>
#include <QString>

/// One tab of a ZelTabBar. An item is in one installed tab bar at most.
class ZEL_EXPORT ZelTabBarItem : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QIcon image READ image WRITE setImage NOTIFY imageChanged)
    /// Null by default. The tool tip is also the accessible name of the tab.
    Q_PROPERTY(QString toolTip READ toolTip WRITE setToolTip NOTIFY toolTipChanged)
    /// The key that selects the tab, such as "1" or "F5"; empty by default.
    Q_PROPERTY(QString keyEquivalent READ keyEquivalent WRITE setKeyEquivalent NOTIFY keyEquivalentChanged)
    Q_PROPERTY(Qt::KeyboardModifiers keyEquivalentModifierMask READ keyEquivalentModifierMask WRITE
                   setKeyEquivalentModifierMask NOTIFY keyEquivalentModifierMaskChanged)
    Q_PROPERTY(qint64 tag READ tag WRITE setTag NOTIFY tagChanged)
    Q_PROPERTY(bool enabled READ isEnabled WRITE setEnabled NOTIFY enabledChanged)
    /// How many things lie behind the tab, shown as a number on it; 0 dims the tab. Negative, the default, for no
    /// number.
    Q_PROPERTY(int count READ count WRITE setCount NOTIFY countChanged)
public:
    explicit ZelTabBarItem(QObject *parent = nullptr)
        : QObject(parent)
    {
    }
    ZelTabBarItem(const QIcon &image, qint64 tag, QObject *parent = nullptr)
        : QObject(parent)
        , m_image(image)
        , m_tag(tag)
    {
    }

    const QIcon &image() const { return m_image; }
    void setImage(const QIcon &image);
    const QString &toolTip() const { return m_toolTip; }
    void setToolTip(const QString &toolTip);
    const QString &keyEquivalent() const { return m_keyEquivalent; }
    void setKeyEquivalent(const QString &keyEquivalent);
    Qt::KeyboardModifiers keyEquivalentModifierMask() const { return m_keyEquivalentModifierMask; }
    void setKeyEquivalentModifierMask(Qt::KeyboardModifiers mask);
    qint64 tag() const { return m_tag; }
    void setTag(qint64 tag);
    bool isEnabled() const { return m_enabled; }
    void setEnabled(bool enabled);
    int count() const { return m_count; }
    void setCount(int count);

    /// "<Class: 0xADDRESS>{tag=N}"
    QString description() const;

Q_SIGNALS:
    void imageChanged();
    void toolTipChanged();
    void keyEquivalentChanged();
    void keyEquivalentModifierMaskChanged();
    void tagChanged();
    void enabledChanged();
    void countChanged();

private:
    QIcon m_image;
    QString m_toolTip;
    QString m_keyEquivalent = QStringLiteral("");
    Qt::KeyboardModifiers m_keyEquivalentModifierMask;
    qint64 m_tag = 0;
    int m_count = -1;
    bool m_enabled = true;
};
