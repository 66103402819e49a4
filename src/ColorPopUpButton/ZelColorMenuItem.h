// SPDX-License-Identifier: MIT
#pragma once

#include <QWidgetAction>

class ZelColorMenuItemView;

/// The menu item that shows the recently used colours. Each menu that it is in gets a view of its own, while it is
/// open.
class ZelColorMenuItem : public QWidgetAction
{
    Q_OBJECT
public:
    explicit ZelColorMenuItem(const QString &title, QObject *parent);

Q_SIGNALS:
    /// The user has chosen a colour in the view.
    void colorChosen(ZelColorMenuItemView *sender);

protected:
    QWidget *createWidget(QWidget *parent) override;
};
