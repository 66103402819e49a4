// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Runtime/ZelGuarded.h"

#include <QPushButton>

/// A push button whose title is elided at its end where it is too long, and then is its tool tip.
class ZelPushButton : public ZelGuarded<QPushButton>
{
    Q_OBJECT
    Q_PROPERTY(QString title READ title WRITE setTitle)
public:
    explicit ZelPushButton(QWidget *parent = nullptr);
    explicit ZelPushButton(const QString &title, QWidget *parent = nullptr);

    /// Plain text: an ampersand in it is shown, and no key.
    QString title() const;
    void setTitle(const QString &title);

    /// Room for an ellipsis.
    QSize minimumSizeHint() const override;

protected:
    bool handleEvent(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    int titleWidth() const;
};
