// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QPointer>
#include <QSet>
#include <QStringList>
#include <QUndoStack>
#include <QVariant>
#include <QWidget>
#include <functional>

/// Changes every control of an inspector as a user does, with mouse and keyboard, and notes what is wrong.
///
/// Controls are found in the window: whatever can be clicked or takes the focus is one, and is known by its class. One
/// of an unknown class is a fault, as is one that does nothing. An edit must reach all objects that its editor stands
/// for and no other, in one named undo step. Undo brings back every object's own values, and redo the later ones. What
/// an edit opens (a popover, the colour panel) is visited as well. Everything is undone in the end.
class ControlTour
{
public:
    struct Program
    {
        QUndoStack *undoStack;
        std::function<QObjectList()> models; ///< all that edits may change, in their order
        std::function<QVariant()> situation; ///< what else buttons may change, such as the selection
        std::function<void()> restore;       ///< brings the former situation back
        std::function<void()> undo;          ///< as the user does in the window
        std::function<void()> redo;
    };

    explicit ControlTour(const Program &program);
    ~ControlTour();
    Q_DISABLE_COPY_MOVE(ControlTour)

    void visitAll(QWidget *root);

    const QStringList &faults() const { return m_faults; }
    /// The names of the controls that have changed something.
    const QSet<QString> &changed() const { return m_changed; }
    /// The names of all that were found, also while they could not be used.
    const QSet<QString> &found() const { return m_found; }

private:
    using Change = void (ControlTour::*)(QWidget *, int);
    enum Effect { Edits, Acts, Shows, Contains };
    struct Kind
    {
        const char *className;
        Effect effect;
        Change change;
        int attempts = 1; // at something else each time, until one has an effect
    };
    struct Control
    {
        QPointer<QWidget> widget;
        QPointer<QWidget> subject; ///< is in the editor that it changes
        const Kind *kind = nullptr;
        QString name;
        int part = 0; // of a widget with several
    };
    using State = QList<QPair<QObject *, QVariantMap>>;
    class Messages;

    static const Kind *kindOf(const QWidget *widget);
    void collect(QWidget *widget, QList<Control> &controls);
    void prepare(const Control &control);
    void visit(const Control &control);
    void check(const Control &control, const State &before, const QVariant &situation, int steps);
    void checkReach(const Control &control, const State &before, const State &after);
    void checkUndo(const Control &control, const State &before, const State &after);
    void visitOpened(const Control &control, QWidget *opened);
    void visitColorPanel(QWidget *panel);
    void fault(const QString &text);
    void compare(const State &actual, const State &expected, const QString &when);
    State state() const;

    /// Brings a place of the widget into sight; answers where in the window it is.
    QPoint reach(QWidget *widget, const QPoint &position);
    void click(QWidget *widget, const QPoint &position);
    void clickCentre(QWidget *widget, int);
    void foldAndOpen(QWidget *widget, int);
    void clickMark(QWidget *widget, int);
    void clickSegment(QWidget *widget, int segment);
    void clickStepper(QWidget *widget, int attempt);
    void clickSwatch(QWidget *widget, int attempt);
    void clickAnchor(QWidget *widget, int attempt);
    void clickColor(QWidget *widget, int attempt);
    void dragSlider(QWidget *widget, int attempt);
    void chooseItem(QWidget *widget, int attempt);
    void typeText(QWidget *widget, int attempt);
    void typeParagraph(QWidget *widget, int attempt);
    void typeIntoCell(QWidget *widget, int attempt);
    void stepDate(QWidget *widget, int attempt);

    Program m_program;
    std::unique_ptr<Messages> m_messages;
    QStringList m_faults;
    QSet<QString> m_found;
    QSet<QString> m_changed;
    QString m_current;
    Control m_outer; // the one that opened what is being visited
};
