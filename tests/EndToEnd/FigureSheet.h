// SPDX-License-Identifier: MIT
#pragma once

#include "Blocks/ZelWindow.h"
#include "ColorPopUpButton/ZelColorMatrix.h"
#include "Controls/ZelColorPanel.h"
#include "Controls/private/ZelErrorNote.h"
#include "Core/Values/ZelValues.h"
#include "ExpandableViews/ZelExpandableHeader.h"
#include "ExpandableViews/ZelExpandableView.h"
#include "Inspector/Properties/ZelInspectorArrayProperty.h"
#include "Inspector/Properties/ZelInspectorAttributedStringProperty.h"
#include "Inspector/Properties/ZelInspectorBoundsProperty.h"
#include "Inspector/Properties/ZelInspectorColorProperty.h"
#include "Inspector/Properties/ZelInspectorDateProperty.h"
#include "Inspector/Properties/ZelInspectorPointProperty.h"
#include "Inspector/Properties/ZelInspectorResourceProperty.h"
#include "Inspector/Properties/ZelInspectorSizeProperty.h"
#include "Inspector/Properties/ZelInspectorStringProperty.h"
#include "Inspector/Properties/ZelInspectorTextEnumerationProperty.h"
#include "Inspector/ZelDeclarativeInspectorGenerator.h"
#include "Inspector/ZelInspectorChooser.h"
#include "Inspector/ZelInspectorSliver.h"
#include "Inspector/ZelTabbedInspector.h"
#include "Resources/ZelBundle.h"
#include "Support/EditorOwner.h"
#include "Support/Figure.h"
#include "Support/Folder.h"
#include "Support/TableRow.h"
#include "Support/User.h"
#include <memory>

/// A property with its getter and its setter, whose value the object stores by name.
#define STORED(Type, get, set)                                                                                         \
    Q_PROPERTY(Type get READ get WRITE set NOTIFY changed)                                                             \
    Type get() const                                                                                                   \
    {                                                                                                                  \
        return values.value(#get).value<Type>();                                                                       \
    }                                                                                                                  \
    void set(const Type &value)                                                                                        \
    {                                                                                                                  \
        store(#get, QVariant::fromValue(value));                                                                       \
    }

/// An application's window with an inspector of figures, built from a description or from rows of one. What the user
/// does goes to the windows, as from the system: it reaches whatever is in front there, and has the focus.
class Sheet : public QWidget
{
public:
    explicit Sheet(const QByteArray &description, const QSize &size = {340, 700})
    {
        ZelWindow::attach(this, &stack);
        owner = std::make_unique<EditorOwner>();
        owner->names = {"Dots", "Lines", "Waves"};
        for (int i = 0; i < 3; ++i)
            figures.push_back(std::make_unique<Figure>(QStringLiteral("P%1").arg(i)));
        ZelDeclarativeInspectorGenerator generator;
        generator.setUrl(
            m_folder.write("Inspector.xml", description.startsWith("<panes")
                                                ? description
                                                : "<panes><pane><inspector title='Figure'><slice><section>" +
                                                      description + "</section></slice></inspector></pane></panes>"));
        generator.setOwner(owner.get());
        inspector.reset(generator.createTabbedInspector());
        auto *column = new QVBoxLayout(this);
        column->setContentsMargins(0, 0, 0, 0);
        column->addWidget(inspector->view());
        resize(size);
        User::open(this);
        settle();
    }
    ~Sheet() override { inspector.reset(); }

    /// A row with one editor, by the key that it edits; there may be elements in it.
    static QByteArray row(const QByteArray &key, const QByteArray &type, const QByteArray &more = {})
    {
        return "<sliver title='" + key + "'><property type='" + type + "' keyPath='people.selection." + key +
               "' actionName='Change " + key + "' actionSelector='noteAction' " + more +
               (more.contains('<') ? "</property></sliver>" : "/></sliver>");
    }
    /// The rows of the larger editors.
    static QByteArray allRows()
    {
        return row("fill", "color", "colorList='Crayons'") + row("stroke", "color", "colorList='Crayons'") +
               row("day", "date") + row("pattern", "resource", "resourcesKeyPath='names' placeholder='No pattern'") +
               row("size", "size") + row("frame", "frame", "showOriginSelector='yes'") + row("font", "font") +
               row("tags", "custom", "class='ZelInspectorArrayProperty'") + row("text", "string", "attributed='yes'");
    }

    void select(const QList<int> &indexes) const
    {
        QList<QObject *> selected;
        for (int index : indexes)
            selected.append(figures.at(size_t(index)).get());
        selectObjects(selected);
    }
    void selectObjects(const QList<QObject *> &objects) const
    {
        owner->controller.setSelectedObjects(objects);
        settle();
    }
    static void settle() { User::settle(); }
    /// The editor of a key below the selection.
    template<typename Editor> Editor *editor(const QString &key) const
    {
        for (auto *property : inspector->findChildren<ZelInspectorProperty *>()) {
            if (property->keyPath() == u"people.selection." + key)
                return qobject_cast<Editor *>(property);
        }
        return nullptr;
    }
    QVariant value(int index, const char *key) const { return figures.at(size_t(index))->property(key); }
    void set(int index, const char *key, const QVariant &value)
    {
        figures.at(size_t(index))->setProperty(key, value);
        settle();
    }
    void undo()
    {
        stack.undo();
        settle();
    }
    /// What is said about a value that was refused; empty if nothing is.
    QString note() const
    {
        for (const auto *label : findChildren<ZelErrorNote *>()) {
            if (label->isVisible())
                return label->text();
        }
        return {};
    }

    static void click(QWidget *widget, const QPoint &position, Qt::KeyboardModifiers modifiers = {})
    {
        QWidget *window = widget->window();
        if (!QApplication::activePopupWidget() && !window->isActiveWindow())
            User::activate(window);
        QTest::mouseClick(window->windowHandle(), Qt::LeftButton, modifiers, widget->mapTo(window, position));
        settle();
    }
    static void click(QWidget *widget) { click(widget, widget->rect().center()); }
    /// What a single click and a second one soon after it are.
    static void doubleClick(QWidget *widget, const QPoint &position)
    {
        QTest::mouseDClick(widget->window()->windowHandle(), Qt::LeftButton, {},
                           widget->mapTo(widget->window(), position));
        settle();
    }
    static void press(int key, Qt::KeyboardModifiers modifiers = {}) { User::press(key, modifiers); }
    static void type(const QString &text)
    {
        for (QChar character : text)
            QTest::keyClick(User::keyWindow(), character.toLatin1());
        settle();
    }
    /// Replaces what stands in a field.
    static void replaceText(QWidget *field, const QString &text)
    {
        click(field);
        press(Qt::Key_A, Qt::ControlModifier);
        if (text.isEmpty())
            press(Qt::Key_Delete);
        type(text);
    }
    /// Replaces it, and says so.
    static void enter(QWidget *field, const QString &text)
    {
        replaceText(field, text);
        press(Qt::Key_Return);
    }
    /// What the control of an editor shows.
    QString shown(const QString &key) const
    {
        const QWidget *view = editor<ZelInspectorProperty>(key)->view();
        const auto orElse = [](const QString &text, const QString &other) { return text.isEmpty() ? other : text; };
        if (const auto *text = view->findChild<ZelInspectorTextView *>())
            return orElse(text->toPlainText(), text->placeholderText());
        if (const auto *table = view->findChild<QTableView *>()) {
            QStringList rows;
            for (int row = 0; row < table->model()->rowCount(); ++row)
                rows.append(table->model()->index(row, 0).data().toString());
            return rows.join(u' ');
        }
        if (const auto *field = view->findChild<ZelGrowingTextField *>())
            return ZelIsMarker(field->objectValue(), ZelMultipleValuesMarker)
                       ? QStringLiteral("Multiple Values")
                       : orElse(field->text(), field->nullPlaceholder());
        if (const auto *picker = view->findChild<ZelDatePicker *>())
            return picker->text();
        if (const auto *field = visibleField(view))
            return orElse(field->text(), field->placeholderText());
        if (const auto *box = view->findChild<ZelCheckBox *>())
            return QStringList{"off", "mixed", "on"}.at(box->checkState());
        if (const auto *segments = view->findChild<ZelSegmentedControl *>())
            return segments->selectedIndex().toString();
        return view->findChild<ZelPopUpButton *>()->shownText();
    }
    /// Uses the control of an editor as a person does: types a text, or picks what is called so. The answer is the key
    /// that ends the typing, if it is any.
    QKeyCombination begin(const QString &key, const QString &text) const
    {
        auto *property = editor<ZelInspectorProperty>(key);
        const QWidget *view = property->view();
        constexpr QKeyCombination nothing(Qt::Key_unknown);
        if (auto *textView = view->findChild<ZelInspectorTextView *>()) {
            replaceText(textView, text);
            return QKeyCombination(Qt::ControlModifier, Qt::Key_Return);
        }
        if (const auto *list = qobject_cast<ZelInspectorArrayProperty *>(property)) {
            if (text == u"+") {
                click(list->actionBar()->itemViews().at(0));
                return nothing;
            }
            clickRow(list, 1);
            doubleClick(list->tableView(), placeOfRow(list, 1));
            type(text);
            return Qt::Key_Return;
        }
        if (auto *font = qobject_cast<ZelInspectorFontProperty *>(property)) {
            click(font->button());
            choose(font->popoverView()->fontFamilyPopUpButton(), text);
            press(Qt::Key_Escape);
            return nothing;
        }
        if (auto *picker = view->findChild<ZelDatePicker *>()) {
            click(picker, {8, picker->height() / 2});
            picker->setSelectedSection(QDateTimeEdit::DaySection);
            type(text);
            return Qt::Key_Return;
        }
        QWidget *field = view->findChild<ZelGrowingTextField *>();
        if (!field)
            field = visibleField(view);
        if (field) {
            replaceText(field, text);
            return Qt::Key_Return;
        }
        if (auto *box = view->findChild<ZelCheckBox *>())
            click(box, {8, box->height() / 2});
        else if (auto *segments = view->findChild<ZelSegmentedControl *>())
            click(segments, segments->segmentRect(text.toInt()).center());
        else
            choose(view->findChild<ZelPopUpButton *>(), text);
        return nothing;
    }
    static void end(QKeyCombination key)
    {
        if (key.key() != Qt::Key_unknown)
            press(key.key(), key.keyboardModifiers());
    }
    void edit(const QString &key, const QString &text) const { end(begin(key, text)); }

    static QPoint placeOfRow(const ZelInspectorArrayProperty *list, int row)
    {
        const QTableView *table = list->tableView();
        return table->viewport()->mapTo(table, table->visualRect(table->model()->index(row, 0)).center());
    }
    static void clickRow(const ZelInspectorArrayProperty *list, int row, Qt::KeyboardModifiers modifiers = {})
    {
        click(list->tableView(), placeOfRow(list, row), modifiers);
    }
    /// The open menu of a button, which the button owns; null if it does not open.
    static QMenu *openMenu(ZelPopUpButton *button)
    {
        click(button);
        return QTest::qWaitFor([button] { return button->isMenuOpen(); })
                   ? qobject_cast<QMenu *>(QApplication::activePopupWidget())
                   : nullptr;
    }
    /// Opens the menu and clicks the item of that title.
    static void choose(ZelPopUpButton *button, const QString &title)
    {
        QMenu *menu = openMenu(button);
        QVERIFY(menu);
        for (QAction *action : menu->actions()) {
            if (ZelMenuItem::titleOf(action).trimmed() != title || !action->isEnabled())
                continue;
            click(menu, menu->actionGeometry(action).center());
            QVERIFY(QApplication::activePopupWidget() != menu);
            return;
        }
        QFAIL(qPrintable(title));
    }
    static void closePopups()
    {
        while (const QWidget *popup = QApplication::activePopupWidget())
            QTest::keyClick(popup->windowHandle(), Qt::Key_Escape);
    }
    /// The dialog of the colour panel, once it is open.
    static QColorDialog *colorPanel()
    {
        ZelColorPanel *panel = ZelColorPanel::sharedColorPanel();
        if (!QTest::qWaitFor([panel] { return panel->isVisible(); }))
            return nullptr;
        auto *dialog = qobject_cast<QColorDialog *>(panel->window());
        return QTest::qWaitForWindowExposed(dialog) ? dialog : nullptr;
    }

    QUndoStack stack;
    std::unique_ptr<EditorOwner> owner;
    std::vector<std::unique_ptr<Figure>> figures;
    std::unique_ptr<ZelTabbedInspector> inspector;

private:
    static ZelTextField *visibleField(const QWidget *view)
    {
        for (auto *field : view->findChildren<ZelTextField *>()) {
            if (field->isVisible())
                return field;
        }
        return nullptr;
    }

    Folder m_folder;
};
