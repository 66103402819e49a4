// SPDX-License-Identifier: MIT
#include "Inspector/Properties/ZelInspectorArrayProperty.h"

#include "Controls/private/ZelControlSupport.h"
#include "Controls/private/ZelThemeColor.h"
#include "Core/Binding/ZelBinding.h"
#include "Core/Undo/ZelUndoManager.h"
#include "Core/Values/ZelValues.h"
#include "Inspector/Properties/private/ZelArrayTableModel.h"
#include "Inspector/Properties/private/ZelArrayTableView.h"
#include "Inspector/Properties/private/ZelEditorLayout.h"
#include "Layout/ZelBaselineProvider.h"
#include "Observation/ZelDelayedInvocation.h"
#include "Resources/ZelLocalizedString.h"
#include "Resources/ZelNamedImages.h"
#include "Resources/private/ZelDrawnIconEngine.h"

#include <QAbstractItemDelegate>
#include <QApplication>
#include <QHeaderView>
#include <QPainter>
#include <QSequentialIterable>
#include <optional>

namespace {

constexpr QSizeF g_buttonMinSize{19, 16};
constexpr QSizeF g_buttonMaxSize{19, 0};
constexpr int g_rowHeight = 14;
constexpr int g_rowSpacing = 2;
constexpr double g_border = 1;
constexpr double g_baselineOffset = 69;

int rowHeight(const QFontMetrics &metrics)
{
    return qMax(g_rowHeight, metrics.height()) + g_rowSpacing;
}

/// Holds the table and the bar. A row puts the baseline of its label g_baselineOffset below the baseline of this view,
/// which is chosen so that the label stands beside the first row of the table.
class BorderView : public ZelView, public ZelBaselineProvider
{
    Q_OBJECT
    Q_INTERFACES(ZelBaselineProvider)
public:
    using ZelView::ZelView;

    double baselineOffsetForHeight(double) const override
    {
        const QFontMetrics metrics = fontMetrics();
        return g_border + (rowHeight(metrics) - metrics.height()) / 2.0 + metrics.ascent() - g_baselineOffset;
    }
};

/// A plus or a minus, of strokes that are whole device pixels wide.
void drawSign(QPainter *painter, const QRect &rect, bool isPlus)
{
    const int thickness = qMax(1, qRound(rect.width() / 9.0));
    // The length fits the thickness, so that the strokes cross in the middle.
    int length = qRound(rect.width() * 0.6);
    length += (length - thickness) % 2;
    const QPoint corner = rect.topLeft() + QPoint((rect.width() - length) / 2, (rect.height() - length) / 2);
    const int before = (length - thickness) / 2;
    painter->fillRect(QRect(corner + QPoint(0, before), QSize(length, thickness)), Qt::black);
    if (isPlus)
        painter->fillRect(QRect(corner + QPoint(before, 0), QSize(thickness, length)), Qt::black);
}

/// The application's image of that name, else a drawn one.
QIcon signImage(const QString &name, bool isPlus)
{
    QIcon image = ZelNamedImages::imageNamed(name);
    if (image.isNull()) {
        const auto draw = [isPlus](QPainter *painter, const QRect &rect) { drawSign(painter, rect, isPlus); };
        image = ZelNamedImages::templateImage(QIcon(new ZelDrawnIconEngine(draw)));
        ZelNamedImages::setImageForName(image, name);
    }
    return image;
}

/// The list, converted to the type of the other one; a QVariantList if the other one is no list or cannot take the
/// elements.
QVariant listLike(const QVariantList &values, const QVariant &other)
{
    QVariant list(other.metaType());
    if (!ZelIsList(other) || !list.canView<QSequentialIterable>())
        return values;
    auto elements = list.view<QSequentialIterable>();
    for (const QVariant &value : values)
        elements.addValue(value);
    return ZelList(list).size() == values.size() ? list : QVariant(values);
}

} // namespace

ZelInspectorArrayProperty::ZelInspectorArrayProperty(QObject *owner)
    : ZelInspectorProperty(owner)
    , defaultValue(ZelLocalizedString(QStringLiteral("Item")))
{
}

// View

QList<QWidget *> ZelInspectorArrayProperty::controlsNamedByRow()
{
    view();
    return {m_tableView};
}

void ZelInspectorArrayProperty::loadView()
{
    ZelView *container = makeEditorView();
    m_borderView = new BorderView(container);
    addTable();
    updateColors();
    addActionBar();
    m_label = ZelEditorLayout::addTitleLabel(container, title());
    layOut(container);
}

void ZelInspectorArrayProperty::addTable()
{
    m_tableView = new ZelArrayTableView(m_borderView);
    m_model = new ZelArrayTableModel(m_tableView);
    m_tableView->setModel(m_model);
    m_tableView->setAccessibleName(title());
    m_tableView->setFrameShape(QFrame::NoFrame);
    m_tableView->viewport()->setAutoFillBackground(false);
    m_tableView->setShowGrid(false);
    m_tableView->setTabKeyNavigation(false); // Tab leads to the next editor
    m_tableView->setWordWrap(false);
    m_tableView->setTextElideMode(Qt::ElideRight);
    m_tableView->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_tableView->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    m_tableView->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_tableView->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_tableView->setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed);
    m_tableView->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    m_tableView->horizontalHeader()->hide();
    m_tableView->verticalHeader()->hide();
    m_tableView->verticalHeader()->setMinimumSectionSize(1);
    m_tableView->verticalHeader()->setDefaultSectionSize(rowHeight(m_tableView->fontMetrics()));
    m_tableView->installEventFilter(this);
    connect(m_tableView->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            [this] { ZelExceptionReporter::run(this, [this] { tableViewSelectionDidChange(); }); });
    connect(m_model, &ZelArrayTableModel::cellEdited, this, &ZelInspectorArrayProperty::takeCell);
    connect(m_tableView->itemDelegate(), &QAbstractItemDelegate::closeEditor, this, [this](const QWidget *field) {
        if (field == m_addedCell)
            m_addedCell = nullptr;
    });
    connect(m_tableView, &ZelArrayTableView::reordered, this,
            [this](const QList<int> &order) { ZelExceptionReporter::run(this, [&] { reorder(order); }); });
    connect(m_tableView, &ZelArrayTableView::removalRequested, this,
            [this] { ZelExceptionReporter::run(this, [this] { removeSelectedRows(); }); });
}

void ZelInspectorArrayProperty::addActionBar()
{
    m_actionBar = new ZelActionBar(m_borderView);
    m_actionBar->setStyle(1);
    m_addActionItem =
        new ZelActionBarItem(signImage(QStringLiteral("ZelAddTemplate"), true), this, "addObject", m_actionBar);
    m_removeActionItem =
        new ZelActionBarItem(signImage(QStringLiteral("ZelRemoveTemplate"), false), this, "removeObject", m_actionBar);
    m_addActionItem->setToolTip(ZelLocalizedString(QStringLiteral("Add")));
    m_removeActionItem->setToolTip(ZelLocalizedString(QStringLiteral("Remove")));
    for (ZelActionBarItem *item : {m_addActionItem.data(), m_removeActionItem.data()}) {
        item->setMinSize(g_buttonMinSize);
        item->setMaxSize(g_buttonMaxSize);
        item->setAutovalidates(false);
    }
    m_actionBar->setItems({m_addActionItem, m_removeActionItem});
}

void ZelInspectorArrayProperty::layOut(ZelView *container)
{
    const QHash<QString, QWidget *> views{{QStringLiteral("scrollView"), m_tableView},
                                          {QStringLiteral("actionBar"), m_actionBar}};
    for (const QString &format : {QStringLiteral("H:|-1-[scrollView]-1-|"), QStringLiteral("H:|-1-[actionBar]-1-|"),
                                  QStringLiteral("V:|-1-[scrollView(64)][actionBar(16)]-1-|")})
        m_borderView->addConstraintsWithVisualFormat(format, views);
    ZelEditorLayout::layOut(container, m_borderView, m_label);
}

void ZelInspectorArrayProperty::viewDidInstall()
{
    ZelInspectorProperty::viewDidInstall();
    bindTitle(m_label, ZelValueBinding);
    bindEnabledKeyPathToControl(m_tableView);
    observeForUpdate(keyPath());
    updateView();
}

/// The border has a colour between text and background, as separators have, and not the palette's colour of lines. A
/// list that cannot be edited has the background of such fields.
void ZelInspectorArrayProperty::updateColors()
{
    if (m_tableView->isEnabled() && canEdit())
        m_borderView->setBackgroundColor(
            ZelColor::named(QStringLiteral("System"), QStringLiteral("textBackgroundColor")));
    else
        m_borderView->setBackgroundColor(ZelThemeColor::closed(m_borderView->palette()));
    QColor color = m_tableView->palette().color(QPalette::WindowText);
    color.setAlphaF(0.35F);
    m_borderView->setBorderColor(color);
}

bool ZelInspectorArrayProperty::filterEvent(QObject *watched, QEvent *event)
{
    // The type is tested first: a table that is being destroyed is no longer one, and not to be compared with.
    if (event->type() == QEvent::EnabledChange && watched == m_tableView)
        updateViewInvocation().schedule();
    else if (event->type() == QEvent::PaletteChange && watched == m_tableView)
        updateColors();
    return ZelInspectorProperty::filterEvent(watched, event);
}

void ZelInspectorArrayProperty::updateView()
{
    if (!m_tableView || !m_model)
        return;
    m_reflectedValues.keep(reflectedValue());
    m_model->setValues(ZelIsControllerMarker(reflectedValues()) ? QVariantList() : ZelList(reflectedValues()));
    m_model->setEditable(canEdit());
    m_tableView->setPlaceholder(ZelControlSupport::markerText(reflectedValues()));
    if (m_addActionItem)
        m_addActionItem->setEnabled(m_tableView->isEnabled() && canEdit());
    updateColors();
    tableViewSelectionDidChange();
    forceRedraw();
}

void ZelInspectorArrayProperty::forceRedraw()
{
    if (m_tableView)
        m_tableView->viewport()->update();
}

void ZelInspectorArrayProperty::tableViewSelectionDidChange()
{
    if (m_removeActionItem && m_tableView)
        m_removeActionItem->setEnabled(m_tableView->isEnabled() && canEdit() && !m_tableView->selectedRows().isEmpty());
}

// Values

QTableView *ZelInspectorArrayProperty::tableView() const
{
    return m_tableView;
}

bool ZelInspectorArrayProperty::canEdit() const
{
    return !ZelIsControllerMarker(reflectedValues()) && isWritable();
}

QString ZelInspectorArrayProperty::textForValue(const QVariant &value) const
{
    QStringList texts;
    const QVariantList elements = ZelList(value);
    for (const QVariant &element : elements)
        texts.append(element.toString());
    return texts.isEmpty() ? ZelInspectorProperty::textForValue({}) : oneLine(texts.join(QStringLiteral("; ")));
}

int ZelInspectorArrayProperty::numberOfRows() const
{
    return ZelIsControllerMarker(reflectedValues()) ? 0 : int(ZelList(reflectedValues()).size());
}

QVariant ZelInspectorArrayProperty::objectValueForRow(int row) const
{
    return row >= 0 && row < numberOfRows() ? ZelList(reflectedValues()).at(row) : QVariant();
}

void ZelInspectorArrayProperty::writeValues(const QVariantList &values)
{
    setReflectedValue(listLike(values, reflectedValues()));
}

void ZelInspectorArrayProperty::setObjectValueForRow(const QVariant &value, int row)
{
    updateViewInvocation().invoke();
    if (!canEdit())
        return;
    if (ZelIsNull(reflectedValues())) {
        writeValues({value});
        return;
    }
    QVariantList values = ZelList(reflectedValues());
    if (row < 0 || row >= values.size())
        return;
    QVariant converted = value;
    if (values.at(row).isValid() && !converted.convert(values.at(row).metaType()))
        return;
    values[row] = converted;
    writeValues(values);
}

void ZelInspectorArrayProperty::takeCell(int row, const QVariant &value)
{
    const QPointer<ZelInspectorArrayProperty> alive(this);
    ZelExceptionReporter::run(this, [&] {
        std::optional<ZelUndoBurst::Edit> adding;
        if (m_addedCell && m_tableView->indexWidget(m_model->index(row, 0)) == m_addedCell)
            adding.emplace(m_adding, true);
        const ZelUndoGrouping grouping(m_tableView);
        setObjectValueForRow(value, row);
    });
    if (alive)
        updateViewInvocation().invoke(); // otherwise the cell would show the former value for a moment
}

/// Selects the row and, where the user can see it, begins to edit it.
void ZelInspectorArrayProperty::editRow(int row)
{
    if (!m_tableView || !m_model || row >= m_model->rowCount())
        return;
    const QModelIndex cell = m_model->index(row, 0);
    m_tableView->selectRow(row);
    m_tableView->scrollTo(cell);
    if (m_tableView->isVisible())
        m_tableView->edit(cell);
}

bool ZelInspectorArrayProperty::commitEditing()
{
    const QWidget *focus = QApplication::focusWidget();
    const QPointer<ZelInspectorArrayProperty> alive(this);
    if (focus && m_tableView && m_tableView->viewport()->isAncestorOf(focus))
        m_tableView->setFocus(); // the cell's field commits when it is left
    return !alive || ZelInspectorProperty::commitEditing();
}

void ZelInspectorArrayProperty::addObject(QObject *sender)
{
    updateViewInvocation().invoke();
    if (!canEdit())
        return;
    const bool hadList = !ZelIsNull(reflectedValues());
    QVariantList values = ZelList(reflectedValues());
    values.append(defaultValue);
    const QPointer<ZelInspectorArrayProperty> alive(this);
    m_adding.end();
    {
        const ZelUndoBurst::Edit adding(m_adding);
        writeValues(values);
    }
    if (alive && hadList)
        userDidChangeValue(sender);
    if (!alive)
        return;
    updateView(); // so that the new row is there to be selected
    editRow(int(values.size()) - 1);
    if (alive && m_tableView)
        if (alive && m_tableView)
            m_addedCell = m_tableView->indexWidget(m_model->index(int(values.size()) - 1, 0));
}

void ZelInspectorArrayProperty::removeObject(QObject *sender)
{
    updateViewInvocation().invoke(); // the reflected list may be older than the last edit
    if (!canEdit() || ZelIsNull(reflectedValues()))
        return;
    const QList<int> rows = m_tableView ? m_tableView->selectedRows() : QList<int>();
    QVariantList values = ZelList(reflectedValues());
    for (auto row = rows.crbegin(); row != rows.crend(); ++row) {
        if (*row < values.size())
            values.removeAt(*row);
    }
    const QPointer<ZelInspectorArrayProperty> alive(this);
    writeValues(values);
    if (alive)
        userDidChangeValue(sender);
}

/// For the keyboard, which goes on with the row that comes to stand there.
void ZelInspectorArrayProperty::removeSelectedRows()
{
    const int first = m_tableView->selectedRows().value(0);
    const QPointer<ZelInspectorArrayProperty> alive(this);
    {
        const ZelUndoGrouping grouping(m_tableView);
        removeObject(m_tableView);
    }
    if (!alive || !m_tableView)
        return;
    updateViewInvocation().invoke();
    if (alive && m_tableView && m_model->rowCount() > 0)
        m_tableView->selectRow(std::min(first, m_model->rowCount() - 1));
}

/// The order comes from the table, which may show an older list than the model's.
void ZelInspectorArrayProperty::reorder(const QList<int> &order)
{
    updateViewInvocation().invoke();
    const QVariantList former = ZelIsControllerMarker(reflectedValues()) ? QVariantList() : ZelList(reflectedValues());
    if (!canEdit() || former.size() != order.size())
        return;
    QVariantList values;
    for (const int row : order)
        values.append(former.at(row));
    const QPointer<ZelInspectorArrayProperty> alive(this);
    const ZelUndoGrouping grouping(m_tableView);
    writeValues(values);
    if (alive)
        userDidChangeValue(m_tableView);
    if (!alive || !m_tableView)
        return;
    ZelUndoManager *manager = undoManager();
    if (manager && actionName().isEmpty())
        manager->nameEdit(nameOfMove());
    updateView();
    if (alive && m_tableView && ZelEqual(ZelList(reflectedValues()), values)) // the model may keep its own order
        m_tableView->followOrder(order);
}

QString ZelInspectorArrayProperty::nameOfMove() const
{
    const QString name = title().isEmpty() ? m_tableView->accessibleName() : title();
    return name.isEmpty() ? ZelLocalizedString(QStringLiteral("Move"))
                          : ZelLocalizedString(QStringLiteral("Move %1")).arg(name);
}

QWidget *ZelInspectorArrayProperty::viewForBaselineAlignment()
{
    view();
    return m_borderView;
}

double ZelInspectorArrayProperty::baselineOffsetFromView() const
{
    return g_baselineOffset;
}

#include "ZelInspectorArrayProperty.moc"
