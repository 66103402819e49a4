// SPDX-License-Identifier: MIT
#include "GalleryPanel.h"

#include <Blocks/ZelWindow.h>
#include <Controls/Menus/ZelPopUpButton.h>
#include <Inspector/ZelDeclarativeInspectorGenerator.h>
#include <ViewController/ZelView.h>

#include <QApplication>
#include <QEventLoop>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <QTimer>
#include <QVBoxLayout>

namespace {

constexpr int g_width = 300;
constexpr int g_noteHeight = 24; // of what a field says when it refuses
constexpr int g_delay = 40;      // in milliseconds: what was put off to later turns is to be on the picture

void settle()
{
    QEventLoop loop;
    QTimer::singleShot(g_delay, &loop, &QEventLoop::quit);
    loop.exec();
}

void press(QWidget *widget, int key, Qt::KeyboardModifiers modifiers = {}, const QString &text = {})
{
    for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QKeyEvent event(type, key, modifiers, text);
        QCoreApplication::sendEvent(widget, &event);
    }
}

} // namespace

QString GalleryPanel::titleOf(State state)
{
    static const QStringList titles{QStringLiteral("None"),           QStringLiteral("One"),
                                    QStringLiteral("Several, equal"), QStringLiteral("Several, different"),
                                    QStringLiteral("Disabled"),       QStringLiteral("Read-only"),
                                    QStringLiteral("Refused")};
    return titles.at(state);
}

GalleryPanel::GalleryPanel(const QByteArray &description, State state)
    : m_state(state)
{
    QByteArray text = description;
    if (state == Disabled)
        text.replace("<property ", "<property enabled=\"no\" ");
    ZelWindow::attach(this);
    ZelDeclarativeInspectorGenerator generator;
    generator.setOwner(&m_owner);
    generator.setDescription({text, QStringLiteral("gallery")});
    m_slice.reset(generator.createSlice());
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins({});
    column->addWidget(m_slice->view());
    column->addStretch();
    setFixedWidth(g_width);
    select();
    show();
    activateWindow();
    settle();
    if (state == Refused)
        refuse();
    else if (focusWidget())
        focusWidget()->clearFocus(); // what has it looks otherwise
}

GalleryPanel::~GalleryPanel()
{
    delete m_slice->view(); // while its controllers are still there
}

void GalleryPanel::select()
{
    switch (m_state) {
    case None:
        return;
    case Equal:
        return m_owner.selectionController()->setSelectedObjects({&m_one, &m_equal});
    case Different:
        return m_owner.selectionController()->setSelectedObjects({&m_one, &m_other});
    case ReadOnly:
        return m_owner.selectionController()->setSelectedObjects({&m_fixed});
    default:
        m_owner.selectionController()->setSelectedObjects({&m_one});
    }
}

/// Types what no sample takes: no number, and no name.
void GalleryPanel::refuse()
{
    QWidget *field = findChild<QLineEdit *>();
    if (!field)
        field = focusWidget(); // a text field that grows
    if (!field)
        return;
    setFixedHeight(sizeHint().height() + g_noteHeight);
    settle();
    field->setFocus();
    settle();
    press(field, Qt::Key_A, Qt::ControlModifier);
    for (const QChar letter : QStringLiteral("and/or"))
        press(field, letter.toUpper().unicode(), {}, letter);
    press(field, Qt::Key_Return, {}, QStringLiteral("\r"));
    settle();
}

QImage GalleryPanel::picture()
{
    if (m_state != Refused)
        setFixedHeight(sizeHint().height());
    settle();
    return grab().toImage();
}

QImage GalleryPanel::pictureOfMenu()
{
    auto *button = findChild<ZelPopUpButton *>();
    if (!button)
        return {};
    button->showMenu();
    settle();
    QWidget *menu = QApplication::activePopupWidget();
    const QImage picture = menu ? menu->grab().toImage() : QImage();
    if (menu)
        menu->close();
    return picture;
}
