// SPDX-License-Identifier: MIT
#include "Extensions/ZelAlert.h"

#include "Core/Errors/ZelAssertions.h"
#include "Core/Errors/ZelExceptionReporter.h"
#include "Resources/ZelLocalizedString.h"

#include <QAbstractButton>
#include <QPushButton>

ZelAlert::ZelAlert(const QString &message, const QString &information)
    : m_message(message)
    , m_information(information)
{
}

ZelAlert &ZelAlert::setIcon(QMessageBox::Icon icon)
{
    m_icon = icon;
    return *this;
}

ZelAlert &ZelAlert::addButton(const QString &title, QMessageBox::ButtonRole role, const Block &block)
{
    m_buttons.append({title, role, block});
    return *this;
}

QMessageBox *ZelAlert::beginSheet(QWidget *window, QObject *context) const
{
    if (!ZelRequire(context, "context"))
        return nullptr;
    auto *box =
        new QMessageBox(m_icon, QString(), m_message, QMessageBox::NoButton, window ? window->window() : nullptr);
    // The texts may come from anywhere, so none of them is taken for markup.
    box->setTextFormat(Qt::PlainText);
    box->setInformativeText(m_information);
    box->setAttribute(Qt::WA_DeleteOnClose);
    QList<Button> buttons = m_buttons;
    if (buttons.isEmpty())
        buttons.append({ZelLocalizedString(QStringLiteral("OK")), QMessageBox::AcceptRole, Block()});
    QHash<QAbstractButton *, Block> blocks;
    for (const Button &button : std::as_const(buttons)) {
        QString title = button.title;
        QPushButton *made = box->addButton(title.replace(QLatin1Char('&'), QStringLiteral("&&")), button.role);
        if (blocks.isEmpty())
            box->setDefaultButton(made);
        // The box itself takes no escape button if there are several that reject.
        if (button.role == QMessageBox::RejectRole && !box->escapeButton())
            box->setEscapeButton(made);
        blocks.insert(made, button.block);
    }
    QObject::connect(box, &QDialog::finished, context, [box, blocks, context] {
        if (const Block block = blocks.value(box->clickedButton()))
            QMetaObject::invokeMethod(
                context, [context, block] { ZelExceptionReporter::run(context, block); }, Qt::QueuedConnection);
    });
    if (window) {
        box->open();
    } else {
        box->setWindowModality(Qt::ApplicationModal);
        box->show();
    }
    return box;
}
