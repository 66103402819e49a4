// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Runtime/ZelGuarded.h"

#include <QAbstractButton>

/// One of the values in a ZelGrowingTokenField. It looks selected while it has the focus; what the keyboard does to it
/// is up to the field.
class ZelToken : public ZelGuarded<QAbstractButton>
{
    Q_OBJECT
public:
    ZelToken(const QString &text, QWidget *field);

    QSize sizeHint() const override;

Q_SIGNALS:
    void doubleClicked();

protected:
    bool handleEvent(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    QString shownText(int width) const;
};
