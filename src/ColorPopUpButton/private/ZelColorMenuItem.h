// SPDX-License-Identifier: MIT
#pragma once

#include "Controls/ZelControlSize.h"

#include <QWidgetAction>

class ZelColorMenuItemView;

/// The menu item that shows the recently used colours. Each open menu that contains it has its own view.
class ZelColorMenuItem : public QWidgetAction
{
    Q_OBJECT
public:
    explicit ZelColorMenuItem(const QString &title, QObject *parent);

    /// The size of the views that are made from now on; small by default.
    void setControlSize(quint32 size) { m_controlSize = size; }

Q_SIGNALS:
    /// The user has chosen a colour in the view.
    void colorChosen(ZelColorMenuItemView *sender);

protected:
    QWidget *createWidget(QWidget *parent) override;

private:
    quint32 m_controlSize = ZelControlSize::Small;
};
