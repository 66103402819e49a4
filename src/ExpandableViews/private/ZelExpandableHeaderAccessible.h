// SPDX-License-Identifier: MIT
#pragma once

#include <QAccessibleWidget>

class ZelExpandableHeader;

/// Lets assistive technology see a header as a button that folds and unfolds.
class ZelExpandableHeaderAccessible : public QAccessibleWidget
{
public:
    explicit ZelExpandableHeaderAccessible(ZelExpandableHeader *header);

    /// Registers these interfaces with Qt. Only the first call has an effect.
    static void install();
    static void stateDidChange(ZelExpandableHeader *header);

    QString text(QAccessible::Text kind) const override;
    QAccessible::State state() const override;
    QStringList actionNames() const override;
    void doAction(const QString &name) override;

private:
    ZelExpandableHeader *header() const;
};
