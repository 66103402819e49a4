// SPDX-License-Identifier: MIT
#include "PreviewWindow.h"

#include "Blocks/ZelWindow.h"
#include "Core/Errors/ZelExceptionReporter.h"
#include "Inspector/ZelLiveInspector.h"
#include "Resources/ZelLocalizedString.h"

#include <QApplication>
#include <QComboBox>
#include <QFileInfo>
#include <QLabel>
#include <QListWidget>
#include <QSignalBlocker>
#include <QSpinBox>
#include <QSplitter>
#include <QToolBar>
#include <QTranslator>
#include <QVBoxLayout>

namespace {

struct Selection
{
    const char *name;
    const char *title;
    QList<int> rows;
};

const QList<Selection> &selections()
{
    static const QList<Selection> all = {
        {"none", "None", {}},
        {"one", "One", {0}},
        {"equal", "Equal", {0, 2}},
        {"different", "Different", {0, 1, 2, 3}},
    };
    return all;
}

constexpr int g_narrowest = 120;
constexpr int g_widest = 2000;
constexpr qsizetype g_maximumLines = 500;

QPalette darkPalette()
{
    QPalette palette(QColor(0x2b, 0x2b, 0x2e));
    palette.setColor(QPalette::Base, QColor(0x1e, 0x1e, 0x20));
    palette.setColor(QPalette::Highlight, QColor(0x3d, 0x6f, 0xb4));
    palette.setColor(QPalette::Disabled, QPalette::Highlight, QColor(0x55, 0x55, 0x5a));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::ToolTipBase, QColor(0x3a, 0x3a, 0x3e));
    palette.setColor(QPalette::ToolTipText, Qt::white);
    for (const QPalette::ColorRole role : {QPalette::Text, QPalette::ButtonText, QPalette::WindowText})
        palette.setColor(QPalette::Disabled, role, QColor(0x85, 0x85, 0x8a));
    return palette;
}

/// A text as long as those of a language with long words, in letters that show whether it was translated at all.
QString longerText(const QString &key)
{
    static const QString plain = QStringLiteral("aeiouncsAEIOUNCS");
    static const QString marked = QStringLiteral("áéíöüñçšÁÉÍÖÜÑÇŠ");
    QString text;
    for (const QChar letter : key) {
        const qsizetype index = plain.indexOf(letter);
        text += index < 0 ? letter : marked.at(index);
    }
    const qsizetype more = text.size() < 10 ? (text.size() + 1) / 2 : text.size() * 3 / 10;
    return text + QString(more, u'~');
}

} // namespace

PreviewWindow::PreviewWindow(const Options &options)
    : m_description(options.description)
    , m_model(options.model)
    , m_translations(options.translations)
    , m_checker(options.check)
    , m_lightPalette(QApplication::palette())
    , m_font(QApplication::font())
    , m_tools(new QToolBar(this))
    , m_selections(new QComboBox)
    , m_objects(new QListWidget)
    , m_complaints(new QListWidget)
    , m_live(new ZelLiveInspector)
{
    setWindowTitle(QStringLiteral("%1 – zel preview").arg(QFileInfo(m_description.toLocalFile()).fileName()));
    ZelWindow::attach(this, &m_undoStack);
    makeToolBar(options);
    makeLayout();
    connect(&m_log, &PreviewLog::logged, this, [this] {
        for (const QString &line : m_log.take())
            addLine(line);
    });
    connect(&m_model, &PreviewModel::methodCalled, this,
            [this](const QString &name) { addLine(QStringLiteral("The owner was sent \"%1\"").arg(name)); });
    connect(m_live, &ZelLiveInspector::filesChanged, this, [this] {
        m_log.take();
        m_lines.clear();
        prepare();
    });
    connect(m_live, &ZelLiveInspector::reloaded, this, &PreviewWindow::showComplaints);
    connect(m_live, &ZelLiveInspector::errorsChanged, this, &PreviewWindow::showComplaints);
    m_live->setDelegate(&m_standIns);
    m_live->setUrl(m_description);
    prepare();
    m_live->setOwner(m_model.owner());
    for (const Selection &selection : selections()) {
        if (options.selection == QLatin1String(selection.name))
            select(selection.rows);
    }
    setPanelWidth(options.width);
}

PreviewWindow::~PreviewWindow()
{
    delete m_live; // before the model and the stand-ins
    setLanguage(0);
    QApplication::setPalette(m_lightPalette);
    QApplication::setFont(m_font);
}

/// Makes the model fit the description as it is now.
void PreviewWindow::prepare()
{
    const PreviewNeeds needs = PreviewNeeds::of(m_description);
    m_mistakes = mistakes();
    m_missing = m_standIns.provide(needs) + m_missing;
    m_missing.removeDuplicates();
    m_model.grow(needs);
    showObjects();
    showComplaints();
}

// The window

QAction *PreviewWindow::addSwitch(const QString &title, bool isOn, void (PreviewWindow::*set)(bool))
{
    QAction *action = m_tools->addAction(title);
    action->setCheckable(true);
    connect(action, &QAction::toggled, this, set);
    action->setChecked(isOn);
    return action;
}

void PreviewWindow::makeToolBar(const Options &options)
{
    const auto addLabelled = [this](const QString &title, QWidget *control) {
        auto *label = new QLabel(title + u' ');
        label->setBuddy(control);
        m_tools->addWidget(label);
        m_tools->addWidget(control);
        control->setAccessibleName(title);
    };
    const auto spinBox = [this](int least, int most, int step, int value, const QString &unit,
                                void (PreviewWindow::*set)(int)) {
        auto *box = new QSpinBox;
        box->setRange(least, most);
        box->setSingleStep(step);
        box->setSuffix(unit);
        box->setValue(value);
        connect(box, &QSpinBox::valueChanged, this, set);
        return box;
    };
    for (const Selection &selection : selections())
        m_selections->addItem(QString::fromLatin1(selection.title));
    m_selections->addItem(QStringLiteral("In the list"));
    connect(m_selections, &QComboBox::activated, this, [this](int index) {
        if (index < selections().size())
            select(selections().at(index).rows);
    });
    addLabelled(QStringLiteral("Selection"), m_selections);
    m_tools->addSeparator();
    addLabelled(QStringLiteral("Width"), spinBox(g_narrowest, g_widest, 20, options.width, QStringLiteral(" px"),
                                                 &PreviewWindow::setPanelWidth));
    addLabelled(QStringLiteral("Text"),
                spinBox(50, 300, 25, options.textSize, QStringLiteral(" %"), &PreviewWindow::setTextSize));
    if (options.textSize != 100)
        setTextSize(options.textSize);
    auto *languages = new QComboBox;
    languages->addItems({QStringLiteral("As written"), QStringLiteral("Longer texts")});
    for (const QString &file : m_translations)
        languages->addItem(QFileInfo(file).completeBaseName());
    connect(languages, &QComboBox::currentIndexChanged, this, &PreviewWindow::setLanguage);
    addLabelled(QStringLiteral("Language"), languages);
    languages->setCurrentIndex(options.language);
    m_tools->addSeparator();
    addSwitch(QStringLiteral("Dark"), options.isDark, &PreviewWindow::setDark);
    addSwitch(QStringLiteral("Right to Left"), options.isRightToLeft, &PreviewWindow::setRightToLeft);
    m_tools->addSeparator();
    QAction *undo = m_undoStack.createUndoAction(this);
    undo->setShortcut(QKeySequence::Undo);
    QAction *redo = m_undoStack.createRedoAction(this);
    redo->setShortcut(QKeySequence::Redo);
    m_tools->addActions({undo, redo});
}

void PreviewWindow::makeLayout()
{
    m_objects->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_objects->setAccessibleName(QStringLiteral("Objects"));
    connect(m_objects, &QListWidget::itemSelectionChanged, this, [this] {
        QList<int> rows;
        for (const QModelIndex &index : m_objects->selectionModel()->selectedRows())
            rows.append(index.row());
        std::sort(rows.begin(), rows.end());
        ZelExceptionReporter::run(this, [&] { select(rows); });
    });
    m_complaints->setWordWrap(true);
    m_complaints->setAccessibleName(QStringLiteral("Complaints"));
    auto *others = new QSplitter(Qt::Vertical);
    others->addWidget(m_objects);
    others->addWidget(m_complaints);
    others->setStretchFactor(1, 1);
    auto *row = new QHBoxLayout;
    row->addWidget(m_live);
    row->addWidget(others, 1);
    auto *column = new QVBoxLayout(this);
    column->addWidget(m_tools);
    column->addLayout(row, 1);
}

void PreviewWindow::showObjects()
{
    const QStringList titles = m_model.titles();
    QStringList shown;
    for (int row = 0; row < m_objects->count(); ++row)
        shown.append(m_objects->item(row)->text());
    if (titles == shown)
        return;
    {
        const QSignalBlocker blocker(m_objects);
        m_objects->clear();
        m_objects->addItems(titles);
    }
    select(m_model.selectedRows());
}

void PreviewWindow::select(const QList<int> &rows)
{
    m_model.select(rows);
    const QSignalBlocker blocker(m_objects);
    for (int row = 0; row < m_objects->count(); ++row)
        m_objects->item(row)->setSelected(rows.contains(row));
    const auto &all = selections();
    const auto same = std::find_if(all.begin(), all.end(), [&](const Selection &known) { return known.rows == rows; });
    m_selections->setCurrentIndex(int(same - all.begin()));
}

// What is wrong

void PreviewWindow::addLine(const QString &line)
{
    m_lines.removeOne(line); // what is told again is told at its new place only
    m_lines.append(line);
    if (m_lines.size() > g_maximumLines)
        m_lines.removeFirst();
    showComplaints();
}

void PreviewWindow::showComplaints()
{
    m_complaints->clear();
    m_complaints->addItems(complaints());
}

/// What is not known here because it is the application's is stood for; it is no mistake unless it looks like one.
QStringList PreviewWindow::mistakes() const
{
    static const QStringList names = {"class",
                                      "type",
                                      "image",
                                      "colorList",
                                      "valueTransformer",
                                      "visibleValueTransformer",
                                      "enabledValueTransformer"};
    QStringList lines;
    for (const ZelDescriptionMistake &mistake : m_checker.check({m_description.toLocalFile()})) {
        if (!names.contains(mistake.attribute) || !mistake.suggestion.isEmpty())
            lines.append(m_live->textOfError({mistake.message, mistake.place}));
    }
    return lines;
}

QStringList PreviewWindow::complaints() const
{
    QStringList lines;
    for (const ZelReadError &error : m_live->errors())
        lines.append(m_live->textOfError(error));
    const auto isError = [&](const QString &line) {
        return std::any_of(m_live->errors().begin(), m_live->errors().end(), [&](const ZelReadError &error) {
            return line == QStringLiteral("ERROR: ") + error.place.appendedTo(error.message);
        });
    };
    for (const QString &line : m_mistakes) {
        if (!lines.contains(line))
            lines.append(line);
    }
    std::remove_copy_if(m_lines.begin(), m_lines.end(), std::back_inserter(lines), isError);
    for (const QString &name : m_missing)
        lines.append(QStringLiteral("Of the application: %1").arg(name));
    return lines;
}

bool PreviewWindow::hasErrors() const
{
    return !m_live->errors().isEmpty();
}

// How it looks

void PreviewWindow::setDark(bool dark)
{
    QApplication::setPalette(dark ? darkPalette() : m_lightPalette);
}

void PreviewWindow::setRightToLeft(bool rightToLeft)
{
    m_live->setLayoutDirection(rightToLeft ? Qt::RightToLeft : Qt::LeftToRight);
}

void PreviewWindow::setPanelWidth(int width)
{
    m_live->setFixedWidth(width);
}

void PreviewWindow::setTextSize(int percent)
{
    QFont font = m_font;
    font.setPointSizeF(m_font.pointSizeF() * percent / 100);
    QApplication::setFont(font);
}

void PreviewWindow::setLanguage(int index)
{
    constexpr int longer = 1;
    if (m_translator)
        QCoreApplication::removeTranslator(m_translator.get());
    m_translator.reset();
    ZelSetLocalizationFunction(index == longer ? &longerText : nullptr);
    if (index > longer) {
        m_translator = std::make_unique<QTranslator>();
        if (m_translator->load(m_translations.at(index - longer - 1)))
            QCoreApplication::installTranslator(m_translator.get());
    }
    QEvent change(QEvent::LanguageChange); // for what is no matter of a translator
    QCoreApplication::sendEvent(this, &change);
}
