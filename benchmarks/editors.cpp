// SPDX-License-Identifier: MIT
#include "Bench.h"
#include "SelectionOwner.h"
#include "ShownForm.h"

#include "ColorPopUpButton/ZelColorMatrix.h"
#include "ColorPopUpButton/ZelColorPopUpButton.h"
#include "ColorPopUpButton/ZelUsedColorList.h"
#include "Controls/Fields/ZelTextField.h"
#include "Inspector/Properties/ZelInspectorBoundsProperty.h"
#include "Inspector/Properties/ZelInspectorNumberProperty.h"
#include "ViewController/ZelView.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QDoubleSpinBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QScrollArea>
#include <QTemporaryFile>
#include <QToolButton>
#include <QVBoxLayout>

#include <array>
#include <memory>

namespace {

class Styled : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QString text MEMBER text NOTIFY changed)
    Q_PROPERTY(bool flag MEMBER flag NOTIFY changed)
    Q_PROPERTY(QColor color MEMBER color NOTIFY changed)
    Q_PROPERTY(QDate date MEMBER date NOTIFY changed)
    Q_PROPERTY(QFont font MEMBER font NOTIFY changed)
    Q_PROPERTY(QSizeF extent MEMBER extent NOTIFY changed)
    Q_PROPERTY(QString pattern MEMBER pattern NOTIFY changed)
    Q_PROPERTY(QStringList patterns MEMBER patterns CONSTANT)
public:
    QString text = QStringLiteral("text");
    bool flag = true;
    QColor color = Qt::red;
    QDate date{2026, 11, 21};
    QFont font;
    QSizeF extent{10, 20};
    QString pattern = QStringLiteral("Dots");
    QStringList patterns{QStringLiteral("Dots"), QStringLiteral("Lines"), QStringLiteral("None")};
Q_SIGNALS:
    void changed();
};

/// The form that a Qt programmer would write, with the same controls; Qt has none for colours.
template<typename Editor, typename Show> Editor *follow(Styled &model, Editor *editor, Show show)
{
    show(editor);
    QObject::connect(&model, &Styled::changed, editor, [editor, show] { show(editor); });
    return editor;
}

QWidget *textRow(Styled &model)
{
    return follow(model, new QLineEdit, [&model](QLineEdit *edit) { edit->setText(model.text); });
}

QWidget *flagRow(Styled &model)
{
    return follow(model, new QCheckBox, [&model](QCheckBox *box) { box->setChecked(model.flag); });
}

QWidget *colorRow(Styled &model)
{
    return follow(model, new ZelColorPopUpButton,
                  [&model](ZelColorPopUpButton *button) { button->setSelectedColor(model.color); });
}

QWidget *dateRow(Styled &model)
{
    return follow(model, new QDateEdit, [&model](QDateEdit *edit) { edit->setDate(model.date); });
}

QWidget *fontRow(Styled &model)
{
    auto *row = new QWidget;
    auto *line = new QHBoxLayout(row);
    auto *edit = new QLineEdit;
    edit->setReadOnly(true);
    line->setContentsMargins(0, 0, 0, 0);
    line->addWidget(edit);
    line->addWidget(new QToolButton);
    line->addWidget(new QDoubleSpinBox);
    follow(model, edit, [&model](QLineEdit *field) { field->setText(model.font.toString()); });
    return row;
}

QWidget *sizeRow(Styled &model)
{
    auto *row = new QWidget;
    auto *grid = new QGridLayout(row);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setVerticalSpacing(0);
    grid->addWidget(
        follow(model, new QDoubleSpinBox, [&model](QDoubleSpinBox *box) { box->setValue(model.extent.width()); }), 0,
        0);
    grid->addWidget(
        follow(model, new QDoubleSpinBox, [&model](QDoubleSpinBox *box) { box->setValue(model.extent.height()); }), 0,
        1);
    grid->addWidget(new QLabel(QStringLiteral("Width")), 1, 0, Qt::AlignHCenter);
    grid->addWidget(new QLabel(QStringLiteral("Height")), 1, 1, Qt::AlignHCenter);
    return row;
}

QWidget *patternRow(Styled &model)
{
    auto *box = new QComboBox;
    box->setEditable(true);
    box->addItems(model.patterns);
    return follow(model, box, [&model](QComboBox *combo) { combo->setCurrentText(model.pattern); });
}

QWidget *formByHand(Styled &model, int rows)
{
    constexpr std::array makers{&textRow, &flagRow, &colorRow, &dateRow, &fontRow, &sizeRow, &patternRow};
    auto *area = new QScrollArea;
    auto *form = new QWidget;
    auto *layout = new QFormLayout(form);
    for (int row = 0; row < rows; ++row)
        layout->addRow(QStringLiteral("Row %1").arg(row), makers[size_t(row) % makers.size()](model));
    area->setWidget(form);
    area->setWidgetResizable(true);
    return area;
}

QByteArray descriptionOfRows(int rows)
{
    static const char *const properties[] = {
        "<property type='string' keyPath='text'/>",
        "<property type='boolean' keyPath='flag'/>",
        "<property type='color' keyPath='color'/>",
        "<property type='date' keyPath='date'/>",
        "<property type='font' keyPath='font'/>",
        "<property type='size' keyPath='extent'/>",
        "<property type='resource' keyPath='pattern' resourcesKeyPath='patterns'/>",
    };
    QByteArray xml = "<pane><inspector title='Rows'><slice><section>";
    for (int row = 0; row < rows; ++row)
        xml += "<sliver title='Row " + QByteArray::number(row) + "'>" +
               properties[size_t(row) % std::size(properties)] + "</sliver>";
    return xml + "</section></slice></inspector></pane>";
}

class Box : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QRectF frame READ frame WRITE setFrame NOTIFY frameChanged)
public:
    using QObject::QObject;
    QRectF frame() const { return m_frame; }
    void setFrame(const QRectF &frame)
    {
        if (frame == m_frame)
            return;
        m_frame = frame;
        Q_EMIT frameChanged();
    }
Q_SIGNALS:
    void frameChanged();

private:
    QRectF m_frame{0, 0, 10, 10};
};

/// A thousand selected boxes and the editor of their frames, shown.
struct BoxEditor
{
    BoxEditor()
    {
        QList<QObject *> all;
        for (int i = 0; i < 1000; ++i)
            all.append(new Box(&owner));
        owner.controller.setContent(all);
        owner.controller.setSelectedObjects(all);
        editor = std::make_unique<ZelInspectorBoundsProperty>(&owner);
        editor->setKeyPath(QStringLiteral("objects.selection.frame"));
        column.addWidget(editor->view());
        window.show();
        QApplication::processEvents();
    }

    void enterX(double x)
    {
        ZelTextField *field = editor->originXProperty()->textField();
        field->setText(QString::number(x));
        field->commitEditing();
        QApplication::processEvents();
    }

    SelectionOwner owner;
    QWidget window;
    QVBoxLayout column{&window};
    std::unique_ptr<ZelInspectorBoundsProperty> editor;
};

/// The same by hand: every frame is changed in its place, and then all are read for what the field is to show.
void moveByHand(const QList<QObject *> &boxes, double x)
{
    for (QObject *box : boxes) {
        QRectF frame = box->property("frame").toRectF();
        frame.moveLeft(x);
        box->setProperty("frame", frame);
    }
    QVariant common;
    for (const QObject *box : boxes) {
        const QVariant value = box->property("frame");
        if (!common.isValid())
            common = value;
        else if (common != value)
            break;
    }
    Bench::keep(common);
}

} // namespace

static void editorBuild()
{
    Styled model;
    QTemporaryFile file;
    Bench::expect(file.open() && file.write(descriptionOfRows(500)) > 0 && file.flush(), "no description");
    Bench::compare("H inspector of 500 rows of all editors", 0.35,
                   shownForm([&] { return describedForm(&model, file.fileName()); }),
                   shownForm([&] { return formByHand(model, 500); }));
}
ZEL_BENCHMARK(editorBuild)

static void editorMove()
{
    BoxEditor ours;
    QObject owner;
    QList<QObject *> boxes;
    for (int i = 0; i < 1000; ++i)
        boxes.append(new Box(&owner));
    double x = 0;
    double y = 0;
    ours.enterX(5);
    Bench::expect(ours.owner.controller.selectedObjects().last()->property("frame").toRectF().x() == 5,
                  "not every box was moved");
    Bench::compare(
        "I move 1000 selected frames by a typed x", 0.4, [&] { ours.enterX(x += 1); },
        [&] { moveByHand(boxes, y += 1); }, Bench::small);
}
ZEL_BENCHMARK(editorMove)

static void usedColors()
{
    ZelUsedColorList *list = ZelUsedColorList::sharedUsedColorList();
    QList<ZelColor> colors;
    for (int i = 0; i < ZelUsedColorListMax; ++i)
        colors.append(ZelColor(QColor(i, 2 * i, 3 * i)));
    for (const ZelColor &color : colors)
        list->usedColor(color);
    ZelColorMatrix matrix;
    matrix.setColors(list->colors());
    const QList<ZelColor> shown = list->colors();
    Bench::compare(
        "J bring 24 unchanged used colours up to date, against 24 comparisons", 0, [&] { matrix.setColors(shown); },
        [&] {
            int equal = 0;
            for (int i = 0; i < ZelUsedColorListMax; ++i)
                equal += shown.at(i) == colors.at(ZelUsedColorListMax - 1 - i);
            Bench::keep(equal);
        },
        Bench::small);
    Bench::compare(
        "J the same, against 24 buttons", 0, [&] { matrix.setColors(shown); },
        [&] {
            std::array<std::unique_ptr<QToolButton>, ZelUsedColorListMax> buttons;
            for (auto &button : buttons)
                button = std::make_unique<QToolButton>();
            Bench::keep(buttons);
        },
        Bench::small);
}
ZEL_BENCHMARK(usedColors)

#include "editors.moc"
