// SPDX-License-Identifier: MIT
#pragma once

#include "Core/KeyValue/ZelSelector.h"
#include "Core/ZelExport.h"

#include <QIcon>
#include <QMarginsF>
#include <QMenu>
#include <QObject>
#include <QPointer>
#include <QSizeF>
#include <QWidget>

/// One control of a ZelActionBar. An item is in one action bar at most.
class ZEL_EXPORT ZelActionBarItem : public QObject
{
    Q_OBJECT
    Q_PROPERTY(quint32 type READ type WRITE setType NOTIFY typeChanged)
    Q_PROPERTY(QIcon image READ image WRITE setImage NOTIFY imageChanged)
    /// Shown instead of the image while the state is on.
    Q_PROPERTY(QIcon alternateImage READ alternateImage WRITE setAlternateImage NOTIFY alternateImageChanged)
    /// 0 is off. A check box changes the state when the user clicks it.
    Q_PROPERTY(int state READ state WRITE setState NOTIFY stateChanged)
    /// Null by default. The label is shown if there is no image, and is the accessible name of the control.
    Q_PROPERTY(QString label READ label WRITE setLabel NOTIFY labelChanged)
    Q_PROPERTY(bool enabled READ isEnabled WRITE setEnabled NOTIFY enabledChanged)
    /// Whether the bar enables and disables the item depending on the receiver of its action; true by default.
    Q_PROPERTY(bool autovalidates READ autovalidates WRITE setAutovalidates NOTIFY autovalidatesChanged)
    Q_PROPERTY(QString toolTip READ toolTip WRITE setToolTip NOTIFY toolTipChanged)
    /// The key that clicks the control, such as "N" or "F5"; empty by default.
    Q_PROPERTY(QString keyEquivalent READ keyEquivalent WRITE setKeyEquivalent NOTIFY keyEquivalentChanged)
    Q_PROPERTY(Qt::KeyboardModifiers keyEquivalentModifierMask READ keyEquivalentModifierMask WRITE
                   setKeyEquivalentModifierMask NOTIFY keyEquivalentModifierMaskChanged)
    /// If set, the item is a button that opens this menu. The item does not own the menu.
    Q_PROPERTY(QMenu *menu READ menu WRITE setMenu NOTIFY menuChanged)
    /// If set, the item is this widget. While it is in the bar, the bar owns it.
    Q_PROPERTY(QWidget *view READ view WRITE setView NOTIFY viewChanged)
    /// The receiver of the action. Null, the default, stands for the first object that can take the action, from the
    /// focus widget outwards.
    Q_PROPERTY(QObject *target READ target WRITE setTarget NOTIFY targetChanged)
    Q_PROPERTY(ZelSelector action READ action WRITE setAction NOTIFY actionChanged)
    Q_PROPERTY(int tag READ tag WRITE setTag NOTIFY tagChanged)
    /// The limits of the control's size in points; 0 is no limit. A control with a maximum has exactly its minimum
    /// size.
    Q_PROPERTY(QSizeF minSize READ minSize WRITE setMinSize NOTIFY minSizeChanged)
    Q_PROPERTY(QSizeF maxSize READ maxSize WRITE setMaxSize NOTIFY maxSizeChanged)
    /// The space around the control, in points.
    Q_PROPERTY(QMarginsF edgeInsets READ edgeInsets WRITE setEdgeInsets NOTIFY edgeInsetsChanged)
public:
    /// Any other value is a button, too.
    enum Type : quint32 { Button = 0, Checkbox = 1, Separator = 2 };

    explicit ZelActionBarItem(QObject *parent = nullptr)
        : QObject(parent)
    {
    }
    /// Makes a button with an image.
    ZelActionBarItem(const QIcon &image, QObject *target, const ZelSelector &action, QObject *parent = nullptr)
        : QObject(parent)
        , m_image(image)
        , m_target(target)
        , m_action(action)
    {
    }

    quint32 type() const { return m_type; }
    void setType(quint32 type) { store(m_type, type, &ZelActionBarItem::typeChanged); }
    const QIcon &image() const { return m_image; }
    void setImage(const QIcon &image) { storeImage(m_image, image, &ZelActionBarItem::imageChanged); }
    const QIcon &alternateImage() const { return m_alternateImage; }
    void setAlternateImage(const QIcon &image)
    {
        storeImage(m_alternateImage, image, &ZelActionBarItem::alternateImageChanged);
    }
    int state() const { return m_state; }
    void setState(int state) { store(m_state, state, &ZelActionBarItem::stateChanged); }
    const QString &label() const { return m_label; }
    void setLabel(const QString &label) { store(m_label, label, &ZelActionBarItem::labelChanged); }
    bool isEnabled() const { return m_enabled; }
    void setEnabled(bool enabled) { store(m_enabled, enabled, &ZelActionBarItem::enabledChanged); }
    bool autovalidates() const { return m_autovalidates; }
    void setAutovalidates(bool autovalidates)
    {
        store(m_autovalidates, autovalidates, &ZelActionBarItem::autovalidatesChanged);
    }
    const QString &toolTip() const { return m_toolTip; }
    void setToolTip(const QString &toolTip) { store(m_toolTip, toolTip, &ZelActionBarItem::toolTipChanged); }
    const QString &keyEquivalent() const { return m_keyEquivalent; }
    void setKeyEquivalent(const QString &key) { store(m_keyEquivalent, key, &ZelActionBarItem::keyEquivalentChanged); }
    Qt::KeyboardModifiers keyEquivalentModifierMask() const { return m_keyEquivalentModifierMask; }
    void setKeyEquivalentModifierMask(Qt::KeyboardModifiers mask)
    {
        store(m_keyEquivalentModifierMask, mask, &ZelActionBarItem::keyEquivalentModifierMaskChanged);
    }
    QMenu *menu() const { return m_menu; }
    void setMenu(QMenu *menu) { store(m_menu, QPointer<QMenu>(menu), &ZelActionBarItem::menuChanged); }
    QWidget *view() const { return m_view; }
    void setView(QWidget *view) { store(m_view, QPointer<QWidget>(view), &ZelActionBarItem::viewChanged); }
    QObject *target() const { return m_target; }
    void setTarget(QObject *target) { store(m_target, QPointer<QObject>(target), &ZelActionBarItem::targetChanged); }
    const ZelSelector &action() const { return m_action; }
    void setAction(const ZelSelector &action) { store(m_action, action, &ZelActionBarItem::actionChanged); }
    int tag() const { return m_tag; }
    void setTag(int tag) { store(m_tag, tag, &ZelActionBarItem::tagChanged); }
    const QSizeF &minSize() const { return m_minSize; }
    void setMinSize(const QSizeF &size) { store(m_minSize, size, &ZelActionBarItem::minSizeChanged); }
    const QSizeF &maxSize() const { return m_maxSize; }
    void setMaxSize(const QSizeF &size) { store(m_maxSize, size, &ZelActionBarItem::maxSizeChanged); }
    const QMarginsF &edgeInsets() const { return m_edgeInsets; }
    void setEdgeInsets(const QMarginsF &insets) { store(m_edgeInsets, insets, &ZelActionBarItem::edgeInsetsChanged); }

Q_SIGNALS:
    void typeChanged();
    void imageChanged();
    void alternateImageChanged();
    void stateChanged();
    void labelChanged();
    void enabledChanged();
    void autovalidatesChanged();
    void toolTipChanged();
    void keyEquivalentChanged();
    void keyEquivalentModifierMaskChanged();
    void menuChanged();
    void viewChanged();
    void targetChanged();
    void actionChanged();
    void tagChanged();
    void minSizeChanged();
    void maxSizeChanged();
    void edgeInsetsChanged();

private:
    using Changed = void (ZelActionBarItem::*)();
    template<typename Type> void store(Type &member, const Type &value, Changed changed)
    {
        if (member == value)
            return;
        member = value;
        Q_EMIT(this->*changed)();
    }
    void storeImage(QIcon &member, const QIcon &image, Changed changed)
    {
        if (member.cacheKey() == image.cacheKey())
            return;
        member = image;
        Q_EMIT(this->*changed)();
    }

    QIcon m_image;
    QIcon m_alternateImage;
    QString m_label;
    QString m_toolTip;
    QString m_keyEquivalent = QStringLiteral("");
    Qt::KeyboardModifiers m_keyEquivalentModifierMask;
    QPointer<QMenu> m_menu;
    QPointer<QWidget> m_view;
    QPointer<QObject> m_target;
    ZelSelector m_action;
    QSizeF m_minSize{0, 0};
    QSizeF m_maxSize{0, 0};
    QMarginsF m_edgeInsets;
    quint32 m_type = Button;
    int m_state = 0;
    int m_tag = 0;
    bool m_enabled = true;
    bool m_autovalidates = true;
};
