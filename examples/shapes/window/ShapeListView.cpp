// SPDX-License-Identifier: MIT
#include "window/ShapeListView.h"

#include "model/Document.h"
#include "model/Selection.h"
#include "window/ShapeListModel.h"
#include "window/ShapeListSelectionModel.h"

#include <QEvent>
#include <QScrollBar>
#include <QStyledItemDelegate>

namespace {
class Delegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

protected:
    void initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const override
    {
        QStyledItemDelegate::initStyleOption(option, index);
        option->state.setFlag(QStyle::State_Selected, index.data(ShapeListModel::SelectedRole).toBool());
    }
};
} // namespace

ShapeListView::ShapeListView(Document *document, Selection *selection, QWidget *parent)
    : QListView(parent)
    , m_selection(selection)
    , m_model(new ShapeListModel(document, selection, this))
{
    setModel(m_model);
    setSelectionModel(new ShapeListSelectionModel(m_model, selection, this));
    setItemDelegate(new Delegate(this));
    setSelectionMode(ExtendedSelection);
    setEditTriggers(EditKeyPressed | DoubleClicked);
    setUniformItemSizes(true);
    setFrameShape(NoFrame);
    connect(selection, &Selection::changed, this, &ShapeListView::selectionChangedInDocument);
    // A reset scrolls to the top; after adding or deleting a shape that would be a surprise.
    connect(m_model, &ShapeListModel::modelAboutToBeReset, this, [this] {
        const int value = verticalScrollBar()->value();
        connect(
            m_model, &ShapeListModel::modelReset, this,
            [this, value] {
                executeDelayedItemsLayout();
                verticalScrollBar()->setValue(value);
            },
            Qt::SingleShotConnection);
    });
}

void ShapeListView::selectionChangedInDocument()
{
    if (m_selection->count() == 1 && !hasFocus()) {
        const QModelIndex index = m_model->indexOf(m_selection->shapes().first());
        selectionModel()->setCurrentIndex(index, QItemSelectionModel::NoUpdate);
        scrollTo(index);
    }
    viewport()->update();
}

QItemSelectionModel::SelectionFlags ShapeListView::selectionCommand(const QModelIndex &index, const QEvent *event) const
{
    // Toggling is settled here: the base class would ask the selection model, which keeps nothing.
    QItemSelectionModel::SelectionFlags command = QListView::selectionCommand(index, event);
    if (!(command & QItemSelectionModel::Toggle) || !index.isValid())
        return command;
    if (!event || event->type() != QEvent::MouseMove)
        m_deselects = m_selection->contains(m_model->shapeAt(index));
    command.setFlag(QItemSelectionModel::Toggle, false);
    return command | (m_deselects ? QItemSelectionModel::Deselect : QItemSelectionModel::Select);
}
