// SPDX-License-Identifier: MIT
#pragma once

#include "InspectorWindow.h"

#include "Controls/Menus/ZelMenuItem.h"
#include "Controls/Menus/ZelPopUpButton.h"
#include "Controls/ZelColorPanel.h"
#include "Text/ZelAttributedString.h"

#include <QColor>
#include <QDate>
#include <QFont>
#include <QMenu>

/// A model with a value for each of the larger editors, as any Qt application has it.
class Figure : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QColor fill MEMBER fill NOTIFY fillChanged)
    Q_PROPERTY(QColor stroke MEMBER stroke NOTIFY strokeChanged)
    Q_PROPERTY(QDate day MEMBER day NOTIFY dayChanged)
    Q_PROPERTY(QString pattern MEMBER pattern NOTIFY patternChanged)
    Q_PROPERTY(QPointF place MEMBER place NOTIFY placeChanged)
    Q_PROPERTY(QSizeF size MEMBER size NOTIFY sizeChanged)
    Q_PROPERTY(QRectF frame MEMBER frame NOTIFY frameChanged)
    Q_PROPERTY(QFont font MEMBER font NOTIFY fontChanged)
    Q_PROPERTY(QStringList tags MEMBER tags NOTIFY tagsChanged)
    Q_PROPERTY(ZelAttributedString text MEMBER text NOTIFY textChanged)
public:
    QColor fill = Qt::red;
    QColor stroke = Qt::black;
    QDate day{2024, 5, 6};
    QString pattern = QStringLiteral("Dots");
    QPointF place{1, 2};
    QSizeF size{30, 40};
    QRectF frame{10, 20, 100, 50};
    QFont font{QStringLiteral("DejaVu Sans"), 9};
    QStringList tags{QStringLiteral("a"), QStringLiteral("b")};
    ZelAttributedString text{QStringLiteral("one\ntwo")};

Q_SIGNALS:
    void fillChanged();
    void strokeChanged();
    void dayChanged();
    void patternChanged();
    void placeChanged();
    void sizeChanged();
    void frameChanged();
    void fontChanged();
    void tagsChanged();
    void textChanged();
};

/// A window with an inspector of figures. What the user does goes to the windows, as from the system: it reaches
/// whatever is in front there, and has the focus.
class SheetWindow : public InspectorWindow
{
public:
    explicit SheetWindow(const QByteArray &rows, const QSize &size = {340, 700})
        : InspectorWindow("<panes><pane><inspector title='Figure'><slice><section>" + rows +
                              "</section></slice></inspector></pane></panes>",
                          size)
    {
        for (int i = 0; i < 3; ++i)
            figures.push_back(std::make_unique<Figure>());
        owner->names = {QStringLiteral("Dots"), QStringLiteral("Lines"), QStringLiteral("Waves")};
        Q_EMIT owner->valuesChanged();
        settle();
    }
    ~SheetWindow() override { inspector.reset(); }

    /// The rows of all editors, by the keys that they edit.
    static QByteArray row(const QByteArray &key, const QByteArray &type, const QByteArray &more = {})
    {
        return "<sliver title='" + key + "'><property type='" + type + "' keyPath='people.selection." + key +
               "' actionName='Change " + key + "' actionSelector='noteAction' " + more + "/></sliver>";
    }
    static QByteArray allRows()
    {
        return row("fill", "color", "colorList='Crayons'") + row("stroke", "color", "colorList='Crayons'") +
               row("day", "date") + row("pattern", "resource", "resourcesKeyPath='names' placeholder='No pattern'") +
               row("size", "size") + row("frame", "frame", "showOriginSelector='yes'") + row("font", "font") +
               row("tags", "custom", "class='ZelInspectorArrayProperty'") + row("text", "string", "attributed='yes'");
    }

    void select(const QList<int> &indexes)
    {
        QList<QObject *> selected;
        for (int index : indexes)
            selected.append(figures.at(size_t(index)).get());
        owner->controller.setSelectedObjects(selected);
        settle();
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
    /// Ends a part of the whole: "window", "inspector", "view", "figures" or "owner"; or the window is "hidden".
    static void end(std::unique_ptr<SheetWindow> &window, const QString &what)
    {
        if (what == QStringLiteral("window"))
            window.reset();
        else if (what == QStringLiteral("inspector"))
            window->inspector.reset();
        else if (what == QStringLiteral("view"))
            delete window->inspector->view();
        else if (what == QStringLiteral("figures"))
            window->figures.clear();
        else if (what == QStringLiteral("owner"))
            window->owner.reset();
        else
            window->hide();
        settle();
    }

    static void click(QWidget *widget, const QPoint &position, Qt::KeyboardModifiers modifiers = {})
    {
        QWidget *window = widget->window();
        if (!QApplication::activePopupWidget() && !window->isActiveWindow()) {
            window->activateWindow(); // there is no window manager to do it
            (void)QTest::qWaitForWindowActive(window);
        }
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
    /// Keys go to the pop-up in front, or else to the window that is active.
    static void press(int key, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::keyClick(keyWindow(), Qt::Key(key), modifiers);
        settle();
    }
    static void type(const QString &text)
    {
        for (QChar character : text)
            QTest::keyClick(keyWindow(), character.toLatin1());
        settle();
    }
    /// Replaces what stands in a field.
    static void replaceText(QWidget *field, const QString &text)
    {
        click(field);
        press(Qt::Key_A, Qt::ControlModifier);
        type(text);
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

    std::vector<std::unique_ptr<Figure>> figures;

private:
    static QWindow *keyWindow()
    {
        const QWidget *popup = QApplication::activePopupWidget();
        QWindow *window = popup ? popup->windowHandle() : QGuiApplication::focusWindow();
        if (!window)
            qFatal("no window has the focus");
        return window;
    }
};
