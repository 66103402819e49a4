// SPDX-License-Identifier: MIT
#include "Bench.h"
#include "RowModel.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QFormLayout>
#include <QLineEdit>
#include <QScrollArea>

#include <array>
#include <memory>

namespace {

constexpr QSize g_windowSize(300, 900);

QWidget *textRow(RowModel &model)
{
    auto *edit = new QLineEdit(model.text());
    QObject::connect(&model, &RowModel::textChanged, edit, [&model, edit] { edit->setText(model.text()); });
    QObject::connect(edit, &QLineEdit::editingFinished, &model, [&model, edit] { model.setText(edit->text()); });
    return edit;
}

QWidget *numberRow(RowModel &model)
{
    auto *box = new QDoubleSpinBox;
    box->setRange(0, 1000);
    box->setValue(model.number());
    QObject::connect(&model, &RowModel::numberChanged, box, [&model, box] { box->setValue(model.number()); });
    QObject::connect(box, &QDoubleSpinBox::valueChanged, &model, &RowModel::setNumber);
    return box;
}

QWidget *flagRow(RowModel &model)
{
    auto *box = new QCheckBox;
    box->setChecked(model.flag());
    QObject::connect(&model, &RowModel::flagChanged, box, [&model, box] { box->setChecked(model.flag()); });
    QObject::connect(box, &QCheckBox::clicked, &model, &RowModel::setFlag);
    return box;
}

QWidget *choiceRow(RowModel &model)
{
    auto *box = new QComboBox;
    box->addItems({QStringLiteral("None"), QStringLiteral("Some"), QStringLiteral("Many"), QStringLiteral("All")});
    box->setCurrentIndex(model.choice());
    QObject::connect(&model, &RowModel::choiceChanged, box, [&model, box] { box->setCurrentIndex(model.choice()); });
    QObject::connect(box, &QComboBox::activated, &model, &RowModel::setChoice);
    return box;
}

/// What a Qt programmer would write without the library: a form in a scroll area.
QWidget *formByHand(RowModel &model, int rows)
{
    constexpr std::array makers{&textRow, &numberRow, &flagRow, &choiceRow};
    auto *area = new QScrollArea;
    auto *form = new QWidget;
    auto *layout = new QFormLayout(form);
    for (int row = 0; row < rows; ++row)
        layout->addRow(QStringLiteral("Row %1").arg(row), makers[size_t(row) % makers.size()](model));
    area->setWidget(form);
    area->setWidgetResizable(true);
    return area;
}

/// Showing lays out and paints; both are part of the time. Deleting is not.
template<typename Make> Bench::Work shown(Make make)
{
    auto window = std::make_shared<std::unique_ptr<QWidget>>();
    return {[] {},
            [window, make] {
                window->reset(make());
                (*window)->resize(g_windowSize);
                (*window)->show();
                QApplication::processEvents();
            },
            [window] {
                Bench::expect(!(*window)->visibleRegion().isEmpty(), "the window is not shown");
                window->reset();
            }};
}

} // namespace

static void inspectorBuild()
{
    RowModel model;
    Bench::scaling(QStringLiteral("A a row of the form made by hand, 500 to 5000 rows"), 0, {500, 5000},
                   [&](int rows) { return shown([&model, rows] { return formByHand(model, rows); }); });
}
ZEL_BENCHMARK(inspectorBuild)
