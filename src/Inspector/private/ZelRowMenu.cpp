// SPDX-License-Identifier: MIT
#include "Inspector/private/ZelRowMenu.h"

#include "Controls/ZelLabel.h"
#include "Core/Errors/ZelExceptionReporter.h"
#include "Core/RunLoop/ZelEventScope.h"
#include "Inspector/Properties/ZelInspectorNumberProperty.h"
#include "Inspector/ZelInspector.h"
#include "Inspector/ZelInspectorSliver.h"
#include "Inspector/private/ZelRowCommands.h"
#include "Resources/ZelLocalizedString.h"
#include "ViewController/ZelView.h"

#include <QAbstractScrollArea>
#include <QAbstractSpinBox>
#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QTextEdit>
#include <algorithm>

namespace {

/// The controller of that class whose view this is.
template<typename Controller> Controller *controllerOf(const QWidget *widget)
{
    const auto *view = qobject_cast<const ZelView *>(widget);
    return view ? qobject_cast<Controller *>(view->viewController()) : nullptr;
}

/// The nearest one around the widget in its window.
template<typename Controller> Controller *enclosing(const QWidget *widget)
{
    for (; widget; widget = widget->isWindow() ? nullptr : widget->parentWidget()) {
        if (auto *controller = controllerOf<Controller>(widget))
            return controller;
    }
    return nullptr;
}

/// Whether the widget is the view of something that has a menu.
bool isOfMenu(const QWidget *widget)
{
    return controllerOf<ZelInspectorSliver>(widget) || controllerOf<ZelInspectorSection>(widget) ||
           controllerOf<ZelInspector>(widget);
}

bool hasOwnMenu(const QWidget *widget)
{
    return widget->contextMenuPolicy() == Qt::DefaultContextMenu && widget->isEnabled();
}

QMenu *menuOfSpinBox(QAbstractSpinBox *box)
{
    const auto *field = box->findChild<QLineEdit *>();
    QMenu *menu = field ? const_cast<QLineEdit *>(field)->createStandardContextMenu() : nullptr;
    if (!menu)
        return nullptr;
    menu->addSeparator();
    menu->addAction(QAbstractSpinBox::tr("&Step up"), box, &QAbstractSpinBox::stepUp);
    menu->addAction(QAbstractSpinBox::tr("Step &down"), box, &QAbstractSpinBox::stepDown);
    return menu;
}

/// The standard menu of the text control that got the event; null for any other widget. The caller owns it.
QMenu *standardMenu(QWidget *widget)
{
    if (const auto *area = qobject_cast<QAbstractScrollArea *>(widget->parentWidget());
        area && area->viewport() == widget)
        widget = widget->parentWidget();
    if (!hasOwnMenu(widget))
        return nullptr;
    if (auto *field = qobject_cast<QLineEdit *>(widget)) // one without the focus only displays
        return field->focusPolicy() == Qt::NoFocus ? nullptr : field->createStandardContextMenu();
    if (auto *text = qobject_cast<QPlainTextEdit *>(widget))
        return text->createStandardContextMenu();
    if (auto *text = qobject_cast<QTextEdit *>(widget))
        return text->createStandardContextMenu();
    auto *box = qobject_cast<QAbstractSpinBox *>(widget);
    return box ? menuOfSpinBox(box) : nullptr;
}

/// The control for which the menu was asked. An event that no control took has come to the view around it.
QWidget *sourceOf(QWidget *widget, const QContextMenuEvent *event)
{
    QWidget *source = event->reason() == QContextMenuEvent::Keyboard
                          ? QApplication::focusWidget()
                          : widget->childAt(widget->mapFromGlobal(event->globalPos()));
    return source && widget->isAncestorOf(source) ? source : widget;
}

QString withTitle(const QString &text, const QString &title)
{
    return text.arg(QString(title).replace(u'&', QStringLiteral("&&")));
}

bool isRowOfNumbers(const ZelInspectorSliver *row)
{
    const QList<ZelInspectorProperty *> editors = row->properties();
    return std::any_of(editors.begin(), editors.end(),
                       [](auto *editor) { return qobject_cast<ZelInspectorNumberProperty *>(editor); });
}

} // namespace

void ZelRowMenu::listen()
{
    static QPointer<ZelRowMenu> menus;
    if (menus || !qApp)
        return;
    menus = new ZelRowMenu(qApp);
    qApp->installEventFilter(menus);
}

bool ZelRowMenu::eventFilter(QObject *watched, QEvent *event)
{
    switch (event->type()) {
    case QEvent::ContextMenu:
    case QEvent::KeyPress:
    case QEvent::MouseButtonPress:
        break;
    default:
        return false;
    }
    if (!watched->isWidgetType())
        return false;
    const ZelEventScope delivery;
    const QPointer<QObject> receiver(watched);
    bool isTaken = false;
    ZelExceptionReporter::run(watched, [&] { isTaken = handle(static_cast<QWidget *>(watched), event); });
    return isTaken || !receiver;
}

bool ZelRowMenu::handle(QWidget *widget, QEvent *event)
{
    switch (event->type()) {
    case QEvent::ContextMenu:
        return showMenu(widget, static_cast<QContextMenuEvent *>(event));
    case QEvent::KeyPress:
        return pressKey(widget, static_cast<QKeyEvent *>(event));
    default:
        focusLabel(widget, static_cast<QMouseEvent *>(event));
        return false;
    }
}

bool ZelRowMenu::showMenu(QWidget *widget, const QContextMenuEvent *event)
{
    auto *section = enclosing<ZelInspectorSection>(widget);
    auto *row = enclosing<ZelInspectorSliver>(widget);
    const bool isView = isOfMenu(widget);
    if (!row && !isView)
        return false;
    QMenu *menu = isView ? nullptr : standardMenu(widget);
    if (!isView && !menu)
        return false;
    const bool isBesideText = menu;
    if (menu)
        menu->addSeparator();
    else
        menu = new QMenu(widget);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    auto *inspector = enclosing<ZelInspector>(widget);
    const ZelRowCommands ofSection = section ? ZelRowCommands::ofSection(section) : ZelRowCommands();
    const ZelRowCommands ofInspector = inspector ? ZelRowCommands::ofInspector(inspector) : ZelRowCommands();
    if (row)
        addCommands(menu, ZelRowCommands::ofRow(row, sourceOf(widget, event)), true, isBesideText);
    else
        addCommands(menu, section ? ofSection : ofInspector, false, false);
    menu->addSeparator();
    const QString sectionTitle = section && !section->title().isEmpty()
                                     ? withTitle(ZelLocalizedString("Section %1"), section->title())
                                     : ZelLocalizedString("Section");
    if (row && ofSection.count() > 1)
        addSubmenu(menu, ofSection, sectionTitle);
    if (section && ofInspector.count() > std::max<qsizetype>(1, ofSection.count()))
        addSubmenu(menu, ofInspector, withTitle(QStringLiteral("%1"), ofInspector.title()));
    if (menu->isEmpty())
        delete menu;
    else
        menu->popup(event->globalPos());
    return true;
}

void ZelRowMenu::addSubmenu(QMenu *menu, const ZelRowCommands &commands, const QString &title)
{
    addCommands(menu->addMenu(title), commands, false, false);
}

void ZelRowMenu::addCommands(QMenu *menu, const ZelRowCommands &commands, bool isRow, bool isBesideText)
{
    if (commands.count() == 0)
        return;
    const auto add = [&](const QString &text, bool isEnabled, void (ZelRowCommands::*command)() const) {
        QAction *action = menu->addAction(text);
        action->setEnabled(isEnabled);
        connect(action, &QAction::triggered, action,
                [commands, command] { ZelExceptionReporter::run(nullptr, [&] { (commands.*command)(); }); });
    };
    add(ZelLocalizedString(isBesideText ? "Copy Value" : "Copy"), commands.canCopy(), &ZelRowCommands::copy);
    add(ZelLocalizedString(isBesideText ? "Paste Value" : "Paste"), commands.canPaste(), &ZelRowCommands::paste);
    if (isRow)
        add(ZelLocalizedString("Copy Key Path"), true, &ZelRowCommands::copyKeyPath);
    menu->addSeparator();
    const QString reset = !isRow                       ? ZelLocalizedString("Reset All")
                          : commands.title().isEmpty() ? ZelLocalizedString("Reset")
                                                       : withTitle(ZelLocalizedString("Reset %1"), commands.title());
    add(reset, commands.canReset(), &ZelRowCommands::reset);
}

// Keys

bool ZelRowMenu::pressKey(QWidget *widget, const QKeyEvent *event)
{
    if (const auto *field = qobject_cast<QLineEdit *>(widget))
        return event->matches(QKeySequence::Paste) && pasteNumbers(field);
    auto *row = controllerOf<ZelInspectorSliver>(widget);
    if (!isOfMenu(widget))
        return false;
    QWidget *focus = QApplication::focusWidget();
    if (event->key() == Qt::Key_F10 && event->modifiers() == Qt::ShiftModifier && focus &&
        !QApplication::activePopupWidget()) {
        const QPoint middle = focus->rect().center();
        QContextMenuEvent menu(QContextMenuEvent::Keyboard, middle, focus->mapToGlobal(middle), {});
        QCoreApplication::sendEvent(focus, &menu);
        return true;
    }
    const bool isReset = event->key() == Qt::Key_Backspace || event->key() == Qt::Key_Delete;
    if (!row || !isReset || event->modifiers() & ~Qt::KeypadModifier || !focus || focus != row->label())
        return false;
    if (const ZelRowCommands commands = ZelRowCommands::ofRow(row, focus); commands.canReset())
        commands.reset();
    return true;
}

/// Several numbers are distributed if they would replace the whole text of a number field.
bool ZelRowMenu::pasteNumbers(const QLineEdit *field)
{
    auto *row = enclosing<ZelInspectorSliver>(field);
    const QMimeData *data = row ? QApplication::clipboard()->mimeData() : nullptr;
    const bool replaces = !field->isReadOnly() && (field->text().isEmpty() || field->selectedText() == field->text());
    return data && replaces && data->hasText() && ZelRowCommands::ofRow(row, field).pasteNumbers(data->text());
}

/// A click on the label of a row that can be reset gives it the focus, so that its keys work, except in rows of
/// numbers: there the label stands for the field. A section's label gets it for the menu. Labels are no tab stops.
void ZelRowMenu::focusLabel(QWidget *widget, const QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton || !qobject_cast<ZelLabel *>(widget))
        return;
    auto *row = enclosing<ZelInspectorSliver>(widget);
    auto *section = row ? nullptr : enclosing<ZelInspectorSection>(widget);
    const bool isOfRow = row && row->label() == widget && !isRowOfNumbers(row);
    const bool isOfSection = section && section->label() == widget;
    if ((isOfRow && ZelRowCommands::ofRow(row, widget).isResettable()) ||
        (isOfSection && ZelRowCommands::ofSection(section).count() > 0))
        widget->setFocus(Qt::MouseFocusReason);
}
