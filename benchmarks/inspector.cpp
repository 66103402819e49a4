// SPDX-License-Identifier: MIT
#include "Bench.h"
#include "RowModel.h"
#include "ShownForm.h"

#include "Inspector/Description/ZelInspectorConfiguration.h"
#include "Inspector/ZelInspectorSliver.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QElapsedTimer>
#include <QFormLayout>
#include <QLineEdit>
#include <QScrollArea>
#include <QScrollBar>
#include <QTemporaryFile>

#include <array>
#include <memory>

#ifdef ZEL_BENCH_HAS_UI_TOOLS
#include <QBuffer>
#include <QUiLoader>
#endif

namespace {

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

/// The description of a pane with the same rows.
QByteArray descriptionOfRows(int rows)
{
    static const char *const properties[] = {
        "<property type='string' keyPath='text'/>",
        "<property type='number' keyPath='number' maximum='1000'/>",
        "<property type='boolean' keyPath='flag'/>",
        "<property type='enumeration' keyPath='choice'><option-group><option title='None' value='0'/>"
        "<option title='Some' value='1'/><option title='Many' value='2'/><option title='All' value='3'/></option-group>"
        "</property>",
    };
    QByteArray xml = "<pane><inspector title='Rows'><slice><section>";
    for (int row = 0; row < rows; ++row)
        xml += "<sliver title='Row " + QByteArray::number(row) + "'>" + properties[row % 4] + "</sliver>";
    return xml + "</section></slice></inspector></pane>";
}

/// A description written to a file, and the model as its owner.
class DescribedForm
{
public:
    DescribedForm(RowModel &model, int rows)
        : m_model(model)
    {
        Bench::expect(m_file.open(), "the description cannot be written");
        m_file.write(descriptionOfRows(rows));
        m_file.flush();
        ZelXmlReader::Limits limits = ZelInspectorConfiguration::limits();
        limits.size = std::max<qint64>(limits.size, m_file.size());
        ZelInspectorConfiguration::setLimits(limits);
    }

    QWidget *make() const { return describedForm(&m_model, m_file.fileName()); }

private:
    RowModel &m_model;
    QTemporaryFile m_file;
};

Bench::Work shownRows(RowModel &model, int rows)
{
    const auto form = std::make_shared<DescribedForm>(model, rows);
    return shownForm([form] { return form->make(); });
}

} // namespace

static void inspectorBuild()
{
    RowModel model;
    for (auto [rows, goal] : {std::pair(50, 1.1), std::pair(500, 0.3), std::pair(5000, 0.1)}) {
        Bench::compare(QStringLiteral("A inspector of %1 rows").arg(rows), goal, shownRows(model, rows),
                       shownForm([&model, rows = rows] { return formByHand(model, rows); }));
    }
    Bench::scaling(QStringLiteral("A a row of the inspector, 500 to 5000 rows"), 1.1, {500, 5000},
                   [&](int rows) { return shownRows(model, rows); });
    Bench::scaling(QStringLiteral("A a row of the form made by hand, 500 to 5000 rows"), 0, {500, 5000},
                   [&](int rows) { return shownForm([&model, rows] { return formByHand(model, rows); }); });
}
ZEL_BENCHMARK(inspectorBuild)

#ifdef ZEL_BENCH_HAS_UI_TOOLS

/// The form with the same rows as Qt's own forms describe it. Nothing in it is connected with the model.
static QByteArray uiOfRows(int rows)
{
    static const char *const editors[] = {
        "<widget class='QLineEdit'><property name='text'><string>text</string></property></widget>",
        "<widget class='QDoubleSpinBox'><property name='maximum'><double>1000</double></property></widget>",
        "<widget class='QCheckBox'/>",
        "<widget class='QComboBox'><item><property name='text'><string>None</string></property></item>"
        "<item><property name='text'><string>Some</string></property></item>"
        "<item><property name='text'><string>Many</string></property></item>"
        "<item><property name='text'><string>All</string></property></item></widget>",
    };
    QByteArray xml = "<ui version='4.0'><widget class='QScrollArea'><property name='widgetResizable'><bool>true</bool>"
                     "</property><widget class='QWidget'><layout class='QFormLayout'>";
    for (int row = 0; row < rows; ++row) {
        const QByteArray number = QByteArray::number(row);
        xml += "<item row='" + number + "' column='0'><widget class='QLabel'><property name='text'><string>Row " +
               number + "</string></property></widget></item><item row='" + number + "' column='1'>" +
               editors[row % 4] + "</item>";
    }
    return xml + "</layout></widget></widget></ui>";
}

static void uiLoader()
{
    RowModel model;
    const QByteArray ui = uiOfRows(500);
    const auto load = [&ui] {
        QBuffer buffer;
        buffer.setData(ui);
        buffer.open(QIODevice::ReadOnly);
        QWidget *window = QUiLoader().load(&buffer);
        Bench::expect(window && window->findChildren<QLineEdit *>().size() >= 125, "the form is not loaded");
        return window;
    };
    Bench::compare(QStringLiteral("A 500 rows by Qt's form loader, none connected"), 0, shownForm(load),
                   shownForm([&model] { return formByHand(model, 500); }));
}
ZEL_BENCHMARK(uiLoader)

#endif

static std::shared_ptr<QWidget> shown(QWidget *window)
{
    window->resize(300, 900);
    window->show();
    QApplication::processEvents();
    return std::shared_ptr<QWidget>(window);
}

/// Rows that are not in sight have no views.
static void inspectorMemory()
{
    RowModel model;
    const DescribedForm form(model, 5000);
    Bench::memory(
        QStringLiteral("A memory of a row of 5000"), 0.25, 5000, [&] { return shown(form.make()); },
        [&] { return shown(formByHand(model, 5000)); });
}
ZEL_BENCHMARK(inspectorMemory)

/// Scrolls from the top to the bottom, page by page. Answers the time of the longest page in milliseconds.
static double scrollByPages(QWidget *window)
{
    auto *area = qobject_cast<QScrollArea *>(window);
    QScrollBar *bar = (area ? area : window->findChild<QScrollArea *>())->verticalScrollBar();
    double longest = 0;
    bar->setValue(0);
    QApplication::processEvents();
    while (bar->value() < bar->maximum()) {
        QElapsedTimer timer;
        timer.start();
        bar->setValue(bar->value() + bar->pageStep());
        QApplication::processEvents();
        Bench::deleteWhatIsDue();
        longest = std::max(longest, double(timer.nsecsElapsed()) / 1e6);
    }
    return longest;
}

static void inspectorScrolling()
{
    RowModel model;
    const DescribedForm form(model, 5000);
    const auto ours = shown(form.make());
    const auto byHand = shown(formByHand(model, 5000));
    Bench::compare(
        QStringLiteral("A scroll 5000 rows by pages"), 1.2, [&] { scrollByPages(ours.get()); },
        [&] { scrollByPages(byHand.get()); });
    Bench::measured(QStringLiteral("A the longest page"), 16, [&] { return scrollByPages(ours.get()); });
}
ZEL_BENCHMARK(inspectorScrolling)

/// With assistive technology, which gets every row.
static void inspectorOfAllRows()
{
    RowModel model;
    const auto form = std::make_shared<DescribedForm>(model, 500);
    const auto everyRow = [form] {
        QWidget *window = form->make();
        for (auto *row : window->findChildren<ZelInspectorSliver *>())
            row->view();
        return window;
    };
    Bench::compare(QStringLiteral("A every row of 500"), 1.5, shownForm(everyRow),
                   shownForm([&model] { return formByHand(model, 500); }));
}
ZEL_BENCHMARK(inspectorOfAllRows)
