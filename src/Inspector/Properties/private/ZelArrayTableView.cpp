// SPDX-License-Identifier: MIT
#include "Inspector/Properties/private/ZelArrayTableView.h"

#include "Core/Values/private/ZelAssign.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QPainter>
#include <QStyledItemDelegate>

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

} // namespace

ZelArrayTableView::ZelArrayTableView(QWidget *parent)
    : QTableView(parent)
{
    setItemDelegate(new CellDelegate(this));
}

void ZelArrayTableView::setPlaceholder(const QString &text)
{
    if (!ZelAssign(m_placeholder, text))
        return;
    setAccessibleDescription(text);
    viewport()->update();
}

void ZelArrayTableView::paintEvent(QPaintEvent *event)
{
    QTableView::paintEvent(event);
    if (m_placeholder.isEmpty() || model()->rowCount() > 0)
        return;
    QPainter painter(viewport());
    painter.setPen(palette().color(QPalette::PlaceholderText));
    const QRect area = viewport()->rect();
    painter.drawText(area, Qt::AlignCenter, fontMetrics().elidedText(m_placeholder, Qt::ElideRight, area.width()));
}
