// SPDX-License-Identifier: MIT
#pragma once

#include <QPushButton>

/// A push button whose title is elided at its end where it is too long, and then is its tool tip.
class ZelPushButton : public QPushButton
{
    Q_OBJECT
public:
    explicit ZelPushButton(QWidget *parent = nullptr);
    explicit ZelPushButton(const QString &title, QWidget *parent = nullptr);

    /// Room for an ellipsis.
    QSize minimumSizeHint() const override;

protected:
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    int titleWidth() const;
};
