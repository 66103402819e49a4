// SPDX-License-Identifier: MIT
#pragma once

#include "Core/ZelExport.h"

#include <QAction>
#include <QVariant>

/// An action that stands for a value. Its title is plain text: an ampersand is shown and marks no mnemonic.
class ZEL_EXPORT ZelMenuItem : public QAction
{
    Q_OBJECT
    Q_PROPERTY(QString title READ title WRITE setTitle NOTIFY changed)
    Q_PROPERTY(QIcon image READ image WRITE setImage NOTIFY changed)
    Q_PROPERTY(bool hidden READ isHidden WRITE setHidden NOTIFY changed)
    Q_PROPERTY(int tag READ tag WRITE setTag)
    Q_PROPERTY(QVariant representedObject READ representedObject WRITE setRepresentedObject NOTIFY changed)
public:
    explicit ZelMenuItem(QObject *parent = nullptr);
    explicit ZelMenuItem(const QString &title, QObject *parent = nullptr);
    ZelMenuItem(const QString &title, const QIcon &image, const QVariant &representedObject, QObject *parent = nullptr);
    static ZelMenuItem *separatorItem(QObject *parent = nullptr);

    QString title() const { return m_title; }
    void setTitle(const QString &title);
    QIcon image() const { return icon(); }
    void setImage(const QIcon &image) { setIcon(image); }
    bool isHidden() const { return !isVisible(); }
    void setHidden(bool hidden) { setVisible(!hidden); }
    QVariant representedObject() const { return data(); }
    void setRepresentedObject(const QVariant &value) { setData(value); }
    /// A number by which the application recognises the item; 0 by default.
    int tag() const { return m_tag; }
    void setTag(int tag) { m_tag = tag; }

    /// The title of any action, without the marks of mnemonics.
    static QString titleOf(const QAction *action);
    /// Whether users can choose the action in a menu.
    static bool isChoosable(const QAction *action);

private:
    QString m_title;
    int m_tag = 0;
};
