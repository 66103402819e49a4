// SPDX-License-Identifier: MIT
#pragma once

#include "Core/RunLoop/ZelGuarded.h"
#include "Core/ZelExport.h"

#include <QAbstractButton>

/// One of the values in a ZelGrowingTokenField. It looks selected while it has the focus. The field handles the keys.
class ZEL_EXPORT ZelToken : public ZelGuarded<QAbstractButton>
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
