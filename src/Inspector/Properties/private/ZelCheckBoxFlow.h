// SPDX-License-Identifier: MIT
#pragma once

#include "Controls/ZelCheckBox.h"
#include "Core/RunLoop/ZelGuarded.h"
#include "Layout/ZelBaselineProvider.h"

#include <QWidget>

/// Checkboxes side by side in columns of one width: as many columns as the widest box allows.
class ZelCheckBoxFlow : public ZelGuarded<QWidget>, public ZelBaselineProvider
{
    Q_OBJECT
    Q_INTERFACES(ZelBaselineProvider)
public:
    explicit ZelCheckBoxFlow(QWidget *parent = nullptr);

    const QList<ZelCheckBox *> &boxes() const { return m_boxes; }
    /// Makes as many boxes as there are titles; those that exist keep the focus.
    void setTitles(const QStringList &titles);

    double baselineOffsetForHeight(double height) const override;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override;

Q_SIGNALS:
    void boxAdded(ZelCheckBox *box);

protected:
    bool handleEvent(QEvent *event) override;

private:
    QSize cell() const;
    int columns(int width) const;
    int rows(int columns) const { return int(m_boxes.size() + columns - 1) / columns; }
    void place();

    QList<ZelCheckBox *> m_boxes;
};
