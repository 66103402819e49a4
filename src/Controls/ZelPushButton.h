// SPDX-License-Identifier: MIT
#pragma once

#include "Core/RunLoop/ZelGuarded.h"
#include "Core/ZelExport.h"

#include <QPushButton>

/// A push button. A title that is too long is elided at its end, and the tool tip then shows it whole.
class ZEL_EXPORT ZelPushButton : public ZelGuarded<QPushButton>
{
    Q_OBJECT
    Q_PROPERTY(QString title READ title WRITE setTitle)
public:
    explicit ZelPushButton(QWidget *parent = nullptr);
    explicit ZelPushButton(const QString &title, QWidget *parent = nullptr);

    /// Plain text: an ampersand is shown and marks no mnemonic.
    QString title() const;
    void setTitle(const QString &title);

    /// Leaves room for an ellipsis.
    QSize minimumSizeHint() const override;

protected:
    bool handleEvent(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    int titleWidth() const;
};
