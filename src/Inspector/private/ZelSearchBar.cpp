// SPDX-License-Identifier: MIT
#include "Inspector/private/ZelSearchBar.h"

#include "Controls/ZelControlSize.h"
#include "Controls/ZelLabel.h"
#include "Layout/ZelConstraintLayout.h"
#include "Resources/ZelLocalizedString.h"

#include <QAccessible>
#include <QLineEdit>

ZelSearchBar::ZelSearchBar()
    : m_field(new ZelGuarded<QLineEdit>(this))
    , m_label(new ZelLabel(this))
{
    setFont(ZelControlSize::smallFont());
    const QString name = ZelLocalizedString("Find");
    m_field->setPlaceholderText(name);
    m_field->setAccessibleName(name);
    m_field->setClearButtonEnabled(true);
    m_label->setTextColor(QColor::fromRgbF(0.35F, 0.35F, 0.35F));
    ZelConstraintLayout::setPriorities(m_field, {1, 750, 1, 1000}); // the label takes what it needs
    for (const char *format : {"H:|-4-[field]-4-[label]-4-|", "V:|-3-[field]-3-|", "V:|-3-[label]-3-|"})
        addConstraintsWithVisualFormat(QString::fromLatin1(format),
                                       {{QStringLiteral("field"), m_field}, {QStringLiteral("label"), m_label}});
}

void ZelSearchBar::setOutcome(const QString &outcome)
{
    m_outcome = outcome;
    m_showOutcome.schedule();
}

void ZelSearchBar::showOutcome()
{
    if (m_label->text() == m_outcome)
        return;
    m_label->setText(m_outcome);
    if (m_outcome.isEmpty() || !QAccessible::isActive())
        return;
    QAccessibleEvent alert(m_label, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}
