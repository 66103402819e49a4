// SPDX-License-Identifier: MIT
#pragma once

#include "Core/ZelExport.h"

#include <QList>
#include <QMessageBox>
#include <functional>

/// A message with buttons, each of which does something.
///
///     ZelAlert(tr("Delete the drawing?"), tr("This cannot be undone."))
///         .addButton(tr("Delete"), QMessageBox::DestructiveRole, [this] { deleteDrawing(); })
///         .addButton(tr("Cancel"), QMessageBox::RejectRole)
///         .beginSheet(window, this);
///
/// Where the blocks need no context and the caller may wait, QMessageBox::exec does as well.
class ZEL_EXPORT ZelAlert
{
public:
    using Block = std::function<void()>;

    explicit ZelAlert(const QString &message, const QString &information = {});

    /// There is no icon by default.
    ZelAlert &setIcon(QMessageBox::Icon icon);
    /// The first button is the default one. Escape and closing the alert stand for the first button with RejectRole, or
    /// for the only button. The title is shown as it is, without a mnemonic.
    ZelAlert &addButton(const QString &title, QMessageBox::ButtonRole role, const Block &block = {});

    /// Shows the alert as a sheet of the window (or, for null, of the application) and returns at once. When the user
    /// has answered, the block of the button runs once, after the alert is gone. It does not run if the context has
    /// died by then, or if the window took the alert with it. An alert without buttons gets "OK". The box deletes
    /// itself. Asserts "context".
    QMessageBox *beginSheet(QWidget *window, QObject *context) const;

private:
    struct Button
    {
        QString title;
        QMessageBox::ButtonRole role;
        Block block;
    };
    QString m_message;
    QString m_information;
    QList<Button> m_buttons;
    QMessageBox::Icon m_icon = QMessageBox::NoIcon;
};
