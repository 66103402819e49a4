// SPDX-License-Identifier: MIT
#include "Controls/private/ZelCellGroupAccessible.h"

#include "Core/Errors/ZelExceptionReporter.h"
#include "ViewController/private/ZelControlHelp.h"

#include <QPointer>
#include <QWidget>

namespace {

/// The interface of one cell. It may live longer than the cell and the widget, and checks both.
class CellAccessible : public QAccessibleInterface, public QAccessibleActionInterface
{
public:
    CellAccessible(QWidget *widget, ZelCellGroup *cells, int cell)
        : m_widget(widget)
        , m_cells(cells)
        , m_cell(cell)
    {
    }

    int cell() const { return m_cell; }

    bool isValid() const override { return m_widget && m_cell < m_cells->cellCount(); }
    QObject *object() const override { return nullptr; }
    QWindow *window() const override { return m_widget ? m_widget->window()->windowHandle() : nullptr; }
    QAccessibleInterface *parent() const override { return QAccessible::queryAccessibleInterface(m_widget); }
    QAccessibleInterface *child(int) const override { return nullptr; }
    QAccessibleInterface *childAt(int, int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface *) const override { return -1; }
    QAccessible::Role role() const override { return isValid() ? m_cells->cellRoles().cell : QAccessible::NoRole; }

    QString text(QAccessible::Text kind) const override
    {
        return isValid() && kind == QAccessible::Name ? m_cells->cellName(m_cell) : QString();
    }
    void setText(QAccessible::Text, const QString &) override {}
    QRect rect() const override
    {
        if (!isValid())
            return {};
        const QRect local = m_cells->cellRect(m_cell);
        return QRect(m_widget->mapToGlobal(local.topLeft()), local.size());
    }
    QAccessible::State state() const override
    {
        QAccessible::State state;
        state.invalid = !isValid();
        if (state.invalid)
            return state;
        const bool isSelected = m_cells->isCellSelected(m_cell);
        state.checkable = role() == QAccessible::RadioButton || role() == QAccessible::CheckBox;
        state.checked = state.checkable && isSelected;
        state.selectable = !state.checkable;
        state.selected = state.selectable && isSelected;
        state.disabled = !isClickable();
        state.invisible = !m_widget->isVisible();
        state.focusable = m_widget->focusPolicy() != Qt::NoFocus;
        state.focused = m_widget->hasFocus() && m_cells->currentCell() == m_cell;
        return state;
    }

    void *interface_cast(QAccessible::InterfaceType type) override
    {
        return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface *>(this) : nullptr;
    }
    QStringList actionNames() const override { return {pressAction()}; }
    void doAction(const QString &name) override
    {
        if (isValid() && name == pressAction() && isClickable())
            ZelExceptionReporter::run(m_widget, [this] { m_cells->clickCell(m_cell); });
    }
    QStringList keyBindingsForAction(const QString &) const override { return {}; }

private:
    bool isClickable() const { return m_widget->isEnabled() && m_cells->isCellEnabled(m_cell); }

    QPointer<QWidget> m_widget;
    ZelCellGroup *m_cells;
    int m_cell;
};

} // namespace

QAccessibleInterface *ZelCellGroupAccessible::make(QObject *object)
{
    auto *cells = qobject_cast<ZelCellGroup *>(object);
    auto *widget = qobject_cast<QWidget *>(object);
    return cells && widget ? new ZelCellGroupAccessible(widget, cells) : nullptr;
}

ZelCellGroupAccessible::ZelCellGroupAccessible(QWidget *widget, ZelCellGroup *cells)
    : QAccessibleWidget(widget, cells->cellRoles().group)
    , m_cells(cells)
{
}

ZelCellGroupAccessible::~ZelCellGroupAccessible()
{
    for (QAccessible::Id id : std::as_const(m_children))
        QAccessible::deleteAccessibleInterface(id);
}

QString ZelCellGroupAccessible::text(QAccessible::Text kind) const
{
    const QString text = QAccessibleWidget::text(kind);
    return kind == QAccessible::Description ? ZelControlHelp::description(widget(), text) : text;
}

int ZelCellGroupAccessible::childCount() const
{
    return m_cells->cellCount();
}

QAccessibleInterface *ZelCellGroupAccessible::child(int index) const
{
    if (index < 0 || index >= childCount())
        return nullptr;
    if (const auto known = m_children.constFind(index); known != m_children.cend())
        return QAccessible::accessibleInterface(*known);
    auto *cell = new CellAccessible(widget(), m_cells, index);
    m_children.insert(index, QAccessible::registerAccessibleInterface(cell));
    return cell;
}

int ZelCellGroupAccessible::indexOfChild(const QAccessibleInterface *child) const
{
    const auto *cell = dynamic_cast<const CellAccessible *>(child);
    return cell ? cell->cell() : -1;
}

QAccessibleInterface *ZelCellGroupAccessible::childAt(int x, int y) const
{
    const QPoint position = widget()->mapFromGlobal(QPoint(x, y));
    for (int cell = 0; cell < childCount(); ++cell) {
        if (m_cells->cellRect(cell).contains(position))
            return child(cell);
    }
    return nullptr;
}

QAccessibleInterface *ZelCellGroupAccessible::focusChild() const
{
    return widget()->hasFocus() ? child(m_cells->currentCell()) : nullptr;
}
