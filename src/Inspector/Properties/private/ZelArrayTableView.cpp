// SPDX-License-Identifier: MIT
#include "Inspector/Properties/private/ZelArrayTableView.h"

#include "Controls/private/ZelControlSupport.h"
#include "Controls/private/ZelDragSource.h"
#include "Core/Values/private/ZelAssign.h"
#include "Resources/ZelLocalizedString.h"

#include <QDropEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMimeData>
#include <QPainter>
#include <QStyledItemDelegate>
#include <numeric>

namespace {

/// Leaves undo and redo to the window while nothing was typed into a cell. Otherwise a row that was just added, which
/// is edited at once, could not be undone.
class CellDelegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    bool eventFilter(QObject *editor, QEvent *event) override
    {
        const auto *field = qobject_cast<QLineEdit *>(editor);
        if (field && event->type() == QEvent::ShortcutOverride && !field->isModified()) {
            const auto *key = static_cast<QKeyEvent *>(event);
            if (key->matches(QKeySequence::Undo) || key->matches(QKeySequence::Redo)) {
                event->ignore();
                return true;
            }
        }
        return QStyledItemDelegate::eventFilter(editor, event);
    }
};

constexpr QPoint g_imageOffset(-12, -10); // of the pointer in the image of dragged rows

bool movesRows(const QKeyEvent *event)
{
    const Qt::KeyboardModifiers modifiers = event->modifiers() & ~Qt::KeypadModifier;
    return modifiers == Qt::AltModifier && (event->key() == Qt::Key_Up || event->key() == Qt::Key_Down);
}

bool removesRows(const QKeyEvent *event)
{
    const bool isKey = event->key() == Qt::Key_Delete || event->key() == Qt::Key_Backspace;
    return isKey && !(event->modifiers() & ~Qt::KeypadModifier);
}

QList<int> presentOrder(int count)
{
    QList<int> order(count);
    std::iota(order.begin(), order.end(), 0);
    return order;
}

} // namespace

ZelArrayTableView::ZelArrayTableView(QWidget *parent)
    : QTableView(parent)
{
    setItemDelegate(new CellDelegate(this));
    setAcceptDrops(true);
    setDropIndicatorShown(false); // drawGap() has a place for it below the last row, too
}

void ZelArrayTableView::setPlaceholder(const QString &text)
{
    if (!ZelAssign(m_placeholder, text))
        return;
    setAccessibleDescription(text);
    viewport()->update();
}

// Moving rows

bool ZelArrayTableView::canMoveRows() const
{
    return isEnabled() && state() != EditingState && model()->rowCount() > 1 &&
           model()->flags(model()->index(0, 0)) & Qt::ItemIsDragEnabled;
}

QList<int> ZelArrayTableView::selectedRows() const
{
    QList<int> rows;
    const QModelIndexList selected = selectionModel()->selectedRows();
    for (const QModelIndex &index : selected)
        rows.append(index.row());
    std::sort(rows.begin(), rows.end());
    return rows;
}

void ZelArrayTableView::followOrder(const QList<int> &order)
{
    const QList<int> formerRows = selectedRows();
    const int current = int(order.indexOf(currentIndex().row()));
    QItemSelection selection;
    for (int row = 0; row < order.size(); ++row) {
        if (formerRows.contains(order.at(row)))
            selection.select(model()->index(row, 0), model()->index(row, 0));
    }
    // Keys with Shift select from the row that the view's own call makes the current one: the other end of the block.
    const int first = selection.isEmpty() ? current : selection.first().top();
    const int last = selection.isEmpty() ? current : selection.last().bottom();
    const bool isBlock = last - first + 1 == formerRows.size() && (current == first || current == last);
    setCurrentIndex(model()->index(isBlock ? first + last - current : current, 0));
    selectionModel()->setCurrentIndex(model()->index(current, 0), QItemSelectionModel::NoUpdate);
    selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    const QList<int> rows = selectedRows();
    if (rows.isEmpty())
        return;
    scrollTo(model()->index(rows.last(), 0));
    scrollTo(model()->index(rows.first(), 0));
    const QString place = ZelLocalizedString(QStringLiteral("Row %1 of %2"));
    setAccessibleDescription(place.arg(locale().toString(rows.first() + 1), locale().toString(order.size())));
}

/// A window's own shortcut for Delete removes what is selected elsewhere. It is not performed even if there is no row
/// to be removed.
bool ZelArrayTableView::event(QEvent *event)
{
    if (event->type() == QEvent::ShortcutOverride) {
        const auto *key = static_cast<QKeyEvent *>(event);
        if (removesRows(key) || (movesRows(key) && canMoveRows())) {
            event->accept();
            return true;
        }
    }
    return QTableView::event(event);
}

void ZelArrayTableView::keyPressEvent(QKeyEvent *event)
{
    if (movesRows(event) && canMoveRows())
        moveByKey(event->key());
    else if (removesRows(event) && !selectedRows().isEmpty())
        Q_EMIT removalRequested();
    else
        QTableView::keyPressEvent(event);
}

/// The base would go to the ends of the row.
QModelIndex ZelArrayTableView::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers)
{
    return action == MoveHome  ? model()->index(0, 0)
           : action == MoveEnd ? model()->index(model()->rowCount() - 1, 0)
                               : QTableView::moveCursor(action, modifiers);
}

/// At the end of the table nothing is moved, so that the rows keep their distances.
void ZelArrayTableView::moveByKey(int key)
{
    QList<int> rows = selectedRows();
    const int step = key == Qt::Key_Up ? -1 : 1;
    if (step > 0)
        std::reverse(rows.begin(), rows.end());
    QList<int> order = presentOrder(model()->rowCount());
    if (rows.isEmpty() || rows.first() + step < 0 || rows.first() + step >= order.size())
        return;
    for (const int row : std::as_const(rows))
        order.swapItemsAt(row, row + step);
    Q_EMIT reordered(order);
}

void ZelArrayTableView::moveToGap(int gap)
{
    const QList<int> rows = selectedRows();
    const QList<int> former = presentOrder(model()->rowCount());
    QList<int> order = former;
    std::stable_partition(order.begin() + gap, order.end(), [&](int row) { return rows.contains(row); });
    std::stable_partition(order.begin(), order.begin() + gap, [&](int row) { return !rows.contains(row); });
    if (order != former)
        Q_EMIT reordered(order);
}

/// Begins the drag of the selected rows, which no other widget takes.
void ZelArrayTableView::startDrag(Qt::DropActions)
{
    const QList<int> rows = selectedRows();
    if (rows.isEmpty() || !canMoveRows())
        return;
    ZelDragSource::Load load;
    load.data = std::make_unique<QMimeData>();
    load.data->setData(QStringLiteral("application/x-zel-rows"), {});
    load.image = imageOfRows(rows);
    load.hotSpot = g_imageOffset;
    load.action = Qt::MoveAction;
    ZelDragSource::begin(viewport(), std::move(load));
}
/// The texts of the first rows, close together. The image must not hide the place where they would be dropped.
QPixmap ZelArrayTableView::imageOfRows(const QList<int> &rows) const
{
    constexpr int maximumRows = 5;
    constexpr int maximumWidth = 160;
    constexpr int margin = 3;
    const int height = rowHeight(rows.first());
    QStringList texts;
    int width = 0;
    for (const int row : rows.first(std::min<qsizetype>(rows.size(), maximumRows))) {
        const QString text = model()->index(row, 0).data().toString();
        texts.append(fontMetrics().elidedText(text, Qt::ElideRight, maximumWidth));
        width = std::max(width, fontMetrics().horizontalAdvance(texts.last()) + 1);
    }
    const QSize size(width + 2 * margin, height * int(texts.size()));
    QPixmap image(size * devicePixelRatioF());
    image.setDevicePixelRatio(devicePixelRatioF());
    image.fill(palette().color(QPalette::Highlight));
    QPainter painter(&image);
    painter.setFont(font());
    painter.setPen(palette().color(QPalette::HighlightedText));
    for (int i = 0; i < texts.size(); ++i)
        painter.drawText(QRect(margin, i * height, width, height), Qt::AlignVCenter, texts.at(i));
    return image;
}

/// Only this table's own rows are dropped here.
bool ZelArrayTableView::takes(const QDropEvent *event) const
{
    return ZelDragSource::widgetOf(event) == viewport() && canMoveRows();
}

int ZelArrayTableView::gapAt(const QPoint &place) const
{
    const int count = model()->rowCount();
    for (int row = 0; row < count; ++row) {
        if (place.y() < rowViewportPosition(row) + rowHeight(row) / 2)
            return row;
    }
    return count;
}

int ZelArrayTableView::yOfGap(int gap) const
{
    return gap < model()->rowCount() ? rowViewportPosition(gap) : rowViewportPosition(gap - 1) + rowHeight(gap - 1);
}

void ZelArrayTableView::setGap(int gap)
{
    if (ZelAssign(m_gap, gap))
        viewport()->update();
}

void ZelArrayTableView::dragEnterEvent(QDragEnterEvent *event)
{
    dragMoveEvent(event);
}

void ZelArrayTableView::dragMoveEvent(QDragMoveEvent *event)
{
    QTableView::dragMoveEvent(event); // which scrolls
    const bool isTaken = takes(event);
    setGap(isTaken ? gapAt(event->position().toPoint()) : -1);
    event->setDropAction(Qt::MoveAction);
    event->setAccepted(isTaken);
}

void ZelArrayTableView::dragLeaveEvent(QDragLeaveEvent *event)
{
    setGap(-1);
    QTableView::dragLeaveEvent(event);
}

void ZelArrayTableView::dropEvent(QDropEvent *event)
{
    setGap(-1);
    stopAutoScroll();
    setState(NoState);
    const bool isTaken = takes(event);
    event->setDropAction(Qt::MoveAction);
    event->setAccepted(isTaken);
    if (isTaken)
        moveToGap(gapAt(event->position().toPoint()));
}

/// Where rows cannot be moved, a press with a move selects rows.
void ZelArrayTableView::mousePressEvent(QMouseEvent *event)
{
    setDragEnabled(canMoveRows());
    QTableView::mousePressEvent(event);
}

/// What was said of a move is old then.
void ZelArrayTableView::focusOutEvent(QFocusEvent *event)
{
    setAccessibleDescription(m_placeholder);
    QTableView::focusOutEvent(event);
}

void ZelArrayTableView::drawGap()
{
    constexpr int thickness = 2;
    QPainter painter(viewport());
    const int y = qBound(0, yOfGap(m_gap) - thickness / 2, viewport()->height() - thickness);
    // The rows beside the gap may be selected ones, in the colour of which the line would not be seen.
    painter.fillRect(0, y, viewport()->width(), thickness, palette().color(QPalette::Text));
}

void ZelArrayTableView::paintEvent(QPaintEvent *event)
{
    QTableView::paintEvent(event);
    if (m_gap >= 0 && m_gap <= model()->rowCount())
        drawGap();
    if (hasFocus() && !currentIndex().isValid())
        paintFocus();
    if (m_placeholder.isEmpty() || model()->rowCount() > 0)
        return;
    QPainter painter(viewport());
    painter.setPen(palette().color(QPalette::PlaceholderText));
    const QRect area = viewport()->rect();
    painter.drawText(area, Qt::AlignCenter, ZelControlSupport::fitted(m_placeholder, fontMetrics(), area.width()));
}

/// The base shows the focus in the current cell, and not at all where there is none.
void ZelArrayTableView::paintFocus()
{
    QPainter painter(viewport());
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(palette().color(QPalette::Highlight), 2));
    painter.drawRoundedRect(QRectF(viewport()->rect()).adjusted(1, 1, -1, -1), 3, 3);
}
