// SPDX-License-Identifier: MIT
// Saves pictures of all controls in all states, in light and dark palettes: zel_control_gallery DIRECTORY.
// The scale is that of QT_SCALE_FACTOR.
#include "Platform/Controls/ZelCheckBox.h"
#include "Platform/Controls/ZelControlSize.h"
#include "Platform/Controls/ZelGrowingTextField.h"
#include "Platform/Controls/ZelLabel.h"
#include "Platform/Controls/ZelMenuItem.h"
#include "Platform/Controls/ZelNumberFormatter.h"
#include "Platform/Controls/ZelPopUpButton.h"
#include "Platform/Controls/ZelSlider.h"
#include "Platform/Controls/ZelStepper.h"
#include "Platform/Controls/ZelTextField.h"
#include "Platform/Runtime/ZelValues.h"

#include <QApplication>
#include <QDir>
#include <QGridLayout>
#include <QMenu>
#include <QStyleFactory>

namespace {

class PointFormatter : public ZelNumberFormatter
{
public:
    QString stringForObjectValue(const QVariant &value) const override
    {
        return ZelNumberFormatter::stringForObjectValue(value) + QStringLiteral(" pt");
    }
    Range unitRange(const QString &text) const override { return {text.size() - 3, 3}; }
};

/// How one column of the gallery sets its controls up.
struct State
{
    const char *title;
    QVariant number;
    QVariant text;
    QVariant truth;
    bool editable = true;
    bool enabled = true;
    Qt::LayoutDirection direction = Qt::LeftToRight;
};

QList<State> states()
{
    const QVariant several = QVariant::fromValue(ZelMultipleValuesMarker);
    const QVariant none = QVariant::fromValue(ZelNoSelectionMarker);
    const QString lines = QStringLiteral("A text that needs more than one line of the field, g\u0333");
    return {{"Normal", 12.5, lines, true},
            {"Multiple", several, several, several},
            {"No selection", none, none, none, false},
            {"Absent", {}, {}, {}},
            {"Disabled", 12.5, lines, true, true, false},
            {"Long", 1234567890123.25, QString(lines + lines), false},
            {"RTL", 0.75, lines, true, true, true, Qt::RightToLeft}};
}

ZelTextField *textField(const State &state, QWidget *parent)
{
    auto *field = new ZelTextField(parent);
    field->setAlignment(Qt::AlignRight);
    field->setFormatter(std::make_shared<PointFormatter>());
    field->setNullPlaceholder(QStringLiteral("auto"));
    field->setObjectValue(state.number);
    field->setEditable(state.editable);
    return field;
}

ZelPopUpButton *popUpButton(const State &state, QWidget *parent)
{
    auto *button = new ZelPopUpButton(parent);
    QPixmap picture(14, 14);
    picture.fill(Qt::darkCyan);
    button->addItem(new ZelMenuItem(QStringLiteral("Centred & wide"), picture, 12.5, button));
    button->addItem(ZelMenuItem::separatorItem(button));
    button->addItemWithTitle(QStringLiteral("A title that is much too long"), 1234567890123.25);
    button->addItemWithTitle(QStringLiteral("Right"), 0.75);
    button->setObjectValue(state.number);
    button->setEditable(state.editable);
    return button;
}

QList<QWidget *> column(const State &state, QWidget *parent)
{
    auto *label = new ZelLabel(QString::fromLatin1(state.title), parent);
    label->setTextColor(QColor::fromRgbF(0.2F, 0.2F, 0.2F));
    auto *plain = new ZelTextField(parent);
    plain->setObjectValue(state.text);
    auto *wrong = new ZelTextField(parent);
    wrong->setFormatter(std::make_shared<ZelNumberFormatter>());
    wrong->setText(QStringLiteral("twelve"));
    wrong->commitEditing();
    auto *fixed = new ZelTextField(parent);
    fixed->setLabelStyle(true);
    fixed->setObjectValue(state.text);
    auto *growing = new ZelGrowingTextField(parent);
    growing->setObjectValue(state.text);
    growing->setEditable(state.editable);
    auto *growingLabel = new ZelGrowingTextField(parent);
    growingLabel->setLabelStyle(true);
    growingLabel->setObjectValue(state.text);
    auto *pullDown = popUpButton(state, parent);
    pullDown->setPullsDown(true);
    auto *stepper = new ZelStepper(parent);
    stepper->setObjectValue(state.number);
    stepper->setEditable(state.editable);
    QList<QWidget *> widgets = {label,        textField(state, parent),   plain,    wrong,  fixed, growing,
                                growingLabel, popUpButton(state, parent), pullDown, stepper};
    for (const ZelSlider::Type type : {ZelSlider::Linear, ZelSlider::Circular}) {
        auto *slider = new ZelSlider(type, parent);
        slider->setMaxValue(20);
        slider->setObjectValue(state.number);
        slider->setEditable(state.editable);
        widgets << slider;
    }
    auto *box = new ZelCheckBox(QStringLiteral("Check &box with a long title"), parent);
    box->setObjectValue(state.truth);
    box->setEditable(state.editable);
    widgets << box;
    for (QWidget *widget : widgets) {
        widget->setEnabled(state.enabled);
        widget->setLayoutDirection(state.direction);
    }
    return widgets;
}

QPalette darkPalette()
{
    QPalette palette(QColor(0x35, 0x35, 0x35), QColor(0x2d, 0x2d, 0x2d));
    palette.setColor(QPalette::Base, QColor(0x1e, 0x1e, 0x1e));
    palette.setColor(QPalette::Highlight, QColor(0x2a, 0x82, 0xda));
    for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        palette.setColor(role, QColor(0xe6, 0xe6, 0xe6));
        palette.setColor(QPalette::Disabled, role, QColor(0x80, 0x80, 0x80));
    }
    palette.setColor(QPalette::PlaceholderText, QColor(0x90, 0x90, 0x90));
    return palette;
}

void save(QWidget *widget, const QString &name)
{
    QCoreApplication::processEvents();
    widget->grab().save(name);
}

void makePictures(const QDir &directory, const QString &theme)
{
    QWidget window;
    window.setFont(ZelControlSize::smallFont());
    auto *grid = new QGridLayout(&window);
    QPointer<ZelPopUpButton> first;
    const QList<State> all = states();
    for (int i = 0; i < all.size(); ++i) {
        const QList<QWidget *> widgets = column(all.at(i), &window);
        grid->setColumnMinimumWidth(i, 130);
        for (int row = 0; row < widgets.size(); ++row)
            grid->addWidget(widgets.at(row), row, i,
                            widgets.at(row)->sizePolicy().horizontalPolicy() == QSizePolicy::Fixed ? Qt::AlignLeft
                                                                                                   : Qt::Alignment());
        if (!first)
            first = qobject_cast<ZelPopUpButton *>(widgets.at(7));
    }
    window.resize(980, 520);
    window.show();
    window.activateWindow();
    save(&window, directory.filePath(QString(theme + QStringLiteral(".png"))));
    first->showMenu();
    if (QWidget *menu = QApplication::activePopupWidget()) {
        save(menu, directory.filePath(QString(theme + QStringLiteral("-menu.png"))));
        menu->close();
    }
    window.findChild<ZelGrowingTextField *>()->setFocus(Qt::TabFocusReason);
    save(&window, directory.filePath(QString(theme + QStringLiteral("-editing.png"))));
}

} // namespace

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    if (argc != 2 || !QDir().mkpath(QString::fromLocal8Bit(argv[1]))) {
        qWarning("usage: zel_control_gallery DIRECTORY");
        return 1;
    }
    const QDir directory(QString::fromLocal8Bit(argv[1]));
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    makePictures(directory, QStringLiteral("light"));
    QApplication::setPalette(darkPalette());
    makePictures(directory, QStringLiteral("dark"));
    return 0;
}
